#pragma once

#include "elements/BoundaryElement.h"

// An integer setting with lower limit and step. Out-of-range values are pulled back to the
// limits when validated rather than refused.
class NumericElement : public BoundaryElement
{
    Q_OBJECT
    Q_PROPERTY(QString min READ min WRITE minChange)
    Q_PROPERTY(QString step READ step WRITE stepChange)

public:
    NumericElement(const QDomElement& node, int type, const QDomNode* parentNode,
                   Element* parentElement);

    QString min() const { return _min; }
    QString step() const { return _step; }

    bool isValid() override;

    // A box with the caption and a SpinBox over min..max by step holding current.
    QWidget* createControl(QWidget* parent) override;
    void setControlValue(const QString& value) override;

    // Base-10; text that is not a number counts as 0.
    static int toInt(const QString& text);
    // The spin step of a STEP text: a step that is not a positive number steps by one.
    static int stepOf(const QString& text);

public slots:
    virtual void minChange(const QString& value);
    virtual void stepChange(const QString& value);

signals:
    void minChanged(const QString& value);
    void stepChanged(const QString& value);

protected:
    void applyLimits() override;
    void connectLimitSignals() override;

private:
    // Puts a limit's text into current and tells everyone.
    void clampTo(const QString& limit);

    QString _min;
    QString _step;
};
