#pragma once

#include "elements/FactoryElement.h"

#include <QDateTime>

// A date and time of day. The value is always "yyyy-MM-dd hh:mm" in 24-hour form, whatever
// the editor shows; a display format ending in "AM/PM" switches the AM/PM display on.
class DateTimeElement : public FactoryElement
{
    Q_OBJECT
    Q_PROPERTY(bool ampm READ ampm WRITE setAmPm)
    Q_PROPERTY(QString format READ format WRITE setDisplayFormat)

public:
    static const QString valueFormat;

    DateTimeElement(const QDomElement& node, int type, const QDomNode* parentNode,
                    Element* parentElement);

    bool ampm() const { return _ampm; }
    void setAmPm(bool flag);
    void setDisplayFormat(const QString& format);
    void setFormat(const QString& s) override { setDisplayFormat(s); }

    QString displayValue() const override;
    // Default puts the factory date back like any other value.
    void setControlValue(const QString& value) override;

    // The caption and a date-time editor showing seconds, and AM/PM when asked for.
    QWidget* createControl(QWidget* parent) override;

    // Fixed character positions; the separators are not checked and a field that is not a
    // number counts as 0.
    static QDateTime parseValue(const QString& text);

    using ConcreteElement::valueChange;

public slots:
    void valueChange(const QDateTime& dateTime);

private:
    void applyTimeDisplay();

    bool _ampm = false;
};
