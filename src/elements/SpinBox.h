#pragma once

#include <QSpinBox>
#include <QValidator>

// The integer setting's spin box. It reports every change of its value as spinChanged(), which
// the element connects to its valueChange(), and validates through an IntValidator bounded by
// its range. What it reports is its own number in the device's form, never the text as typed:
// "1,500" typed in an English desktop reaches the element as "1500".
class SpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit SpinBox(QWidget* parent = nullptr);

    // Range, validator bounds and step in one go.
    void setLimits(int bottom, int top, int step);
    QValidator* validator() const { return _validator; }
    // The value as the device writes it: digits, with "-" when negative.
    virtual QString deviceText(int value) const;

public slots:
    // Qt's spin box blocks its line editor's signals whenever it rewrites the text (arrow
    // keys, setValue), so the spin box's own textChanged() is the one that sees every change.
    // It comes with every change of the value, which is what is passed on.
    void textChanged(const QString& text);

signals:
    void spinChanged(const QString& text);

protected:
    // For subclasses with a validator of their own; the spin box takes ownership.
    SpinBox(QValidator* validator, QWidget* parent);

    QValidator::State validate(QString& text, int& pos) const override;
    void fixup(QString& text) const override;

private:
    void wire();

    QValidator* _validator;
};
