#pragma once

#include <QIntValidator>

// The integer spin box's validator: the toolkit's validation, and a fixup that pulls a number
// outside the range back to the nearer limit.
class IntValidator : public QIntValidator
{
    Q_OBJECT

public:
    IntValidator(int bottom, int top, QObject* parent = nullptr);

    // Below the bottom: the bottom; above the top: the top; otherwise unchanged. Empty text
    // counts as 0; other text that is not a number stays as it is.
    void fixup(QString& text) const override;
};
