#pragma once

#include "elements/Element.h"

// A button that makes the device or the program act. A plain button reaches the dialog's
// elementChanged(), which sends the press to the device; each subclass reaches its own
// dialog slot instead.
class ButtonElement : public Element
{
    Q_OBJECT
    Q_PROPERTY(QString label READ label)

public:
    ButtonElement(const QDomElement& node, int type, const QDomNode* parentNode,
                  Element* parentElement);

    QString label() const { return _label; }

    void connectSignals(QObject* receiver) override;

    // A push button captioned with BUTTONLABEL, or the title when there is none.
    QWidget* createControl(QWidget* parent) override;
    QString buttonText() const;

public slots:
    void onClick();

signals:
    void buttonClicked(const QString& id);

protected:
    // The receiver's slot for buttonClicked(), as a SLOT() text.
    virtual const char* receiverSlot() const;

private:
    QString _label;
};
