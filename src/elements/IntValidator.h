#pragma once

#include <QIntValidator>

// The integer spin box's validator: the toolkit's validation, and a fixup that pulls a number
// outside the range back to the nearer limit.
class IntValidator : public QIntValidator
{
    Q_OBJECT

public:
    IntValidator(int bottom, int top, QObject* parent = nullptr);

    // Below the bottom: the bottom; above the top: the top; otherwise unchanged. Text that is
    // not a number counts as 0.
    void fixup(QString& text) const override;
};
