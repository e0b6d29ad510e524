#pragma once

#include <QDoubleValidator>

// The decimal spin box's validator: the toolkit's validation in the C locale (the device
// writes decimals with a point), and a fixup that pulls a number back into the range and cuts
// surplus decimals.
class DoubleValidator : public QDoubleValidator
{
    Q_OBJECT

public:
    DoubleValidator(double bottom, double top, int decimals, QObject* parent = nullptr);

    // Outside the range: the nearer limit with the allowed decimals. Inside it, a text of the
    // shape digits-point-digits is rebuilt as "%d.%d" when it has too many decimals or no
    // integer part, so leading zeros of the fraction are lost (1.05 with one decimal gives
    // 1.0). Texts without a point stay as they are.
    void fixup(QString& text) const override;
};
