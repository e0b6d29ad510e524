#pragma once

#include "elements/NumericElement.h"

// A decimal setting: limits, step and the number of decimals shown. Out-of-range values are
// reported when validated and left for the spin box to correct; "nan", "inf" and numbers the
// spin box cannot hold are refused, never sent in another form.
class FloatElement : public NumericElement
{
    Q_OBJECT
    Q_PROPERTY(QString digits READ digits WRITE digitsChange)

public:
    FloatElement(const QDomElement& node, int type, const QDomNode* parentNode,
                 Element* parentElement);

    QString digits() const { return _digits; }

    bool isValid() override;

    // A box with the caption and a FloatSpinBox; a missing or zero STEP steps by one unit of
    // the last decimal place.
    QWidget* createControl(QWidget* parent) override;
    void setControlValue(const QString& value) override;

    // DIGITS as a number of decimals, kept within what an int spin box can scale (0..9).
    int decimals() const;
    // STEP as a decimal; zero or missing gives 1 / 10^decimals.
    double decimalStep() const;
    // MIN and MAX as decimals; infinite (no limit) when missing or not a number.
    double decimalBottom() const;
    double decimalTop() const;

public slots:
    void minChange(const QString& value) override;
    void maxChange(const QString& value) override;
    void stepChange(const QString& value) override;
    virtual void digitsChange(const QString& value);

signals:
    void digitsChanged(const QString& value);

protected:
    void applyLimits() override;
    void connectLimitSignals() override;

private:
    // False for a value that is no finite decimal, or one the spin box cannot hold.
    bool holdsValue() const;

    QString _digits;
};
