#pragma once

#include <QSpinBox>
#include <QValidator>

// The integer setting's spin box. It reports every change of its text as spinChanged(), which
// the element connects to its valueChange(), and validates through an IntValidator bounded by
// its range.
class SpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit SpinBox(QWidget* parent = nullptr);

    // Range, validator bounds and step in one go.
    void setLimits(int bottom, int top, int step);
    QValidator* validator() const { return _validator; }

public slots:
    // Qt's spin box blocks its line editor's signals whenever it rewrites the text (arrow
    // keys, setValue), so the spin box's own textChanged() is the one that sees every change.
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
