#pragma once

#include "elements/SpinBox.h"

class DoubleValidator;

// The decimal setting's spin box: it counts in units of the last decimal place (the decimal
// value times 10^digits) and converts to and from decimal text itself. Where the limits times
// 10^digits would not fit its int, it shows fewer decimals so that the whole range stays
// reachable. Text is shown and reported with a point; the desktop's decimal comma typed into
// it becomes that point, group separators are refused.
class FloatSpinBox : public SpinBox
{
    Q_OBJECT

public:
    FloatSpinBox(double bottom, double top, double step, int digits, QWidget* parent = nullptr);

    // Rescales range, step and validator; the value is put back as the decimal it was. A
    // limit that is not finite is no limit: the range then ends where the int does.
    void setDecimalLimits(double bottom, double top, double step, int digits);
    // floor(10^digits * value): a value with surplus decimals is cut, not rounded.
    void setDecimalValue(double value);
    double decimalValue() const { return value() / _scale; }
    // Whether a decimal lies on a scale's int.
    static bool holds(double value, double scale);
    // The most decimals, up to `digits`, at which both finite limits fit an int.
    static int fittingDigits(double bottom, double top, int digits);

    double scale() const { return _scale; }
    int digits() const { return _digits; }

    // "%.<digits>f" of v / scale; with no digits "%1.%2" of v and 0, so 5 shows as 5.0.
    QString mapValueToText(int v) const;
    // The editor text as a decimal, scaled, plus 0.5, cut toward zero and kept within the int
    // range; ok is always set true.
    int mapTextToValue(bool* ok) const;
    int mapTextToValue(bool* ok, const QString& text) const;
    QString deviceText(int value) const override;

    // The integer of a decimal on a scale, rounded to nearest and kept within the int range.
    static int scaled(double value, double scale);

protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& pos) const override;

private:
    DoubleValidator* decimalValidator() const;

    double _scale = 1.0;
    int _digits = 0;
};
