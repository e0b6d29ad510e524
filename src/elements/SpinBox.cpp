#include "elements/SpinBox.h"

#include "elements/IntValidator.h"

SpinBox::SpinBox(QWidget* parent)
    : QSpinBox(parent)
    , _validator(new IntValidator(minimum(), maximum(), this))
{
    wire();
}

SpinBox::SpinBox(QValidator* validator, QWidget* parent)
    : QSpinBox(parent)
    , _validator(validator)
{
    _validator->setParent(this);
    wire();
}

void SpinBox::wire()
{
    connect(this, SIGNAL(textChanged(const QString&)), this, SLOT(textChanged(const QString&)));
}

void SpinBox::setLimits(int bottom, int top, int step)
{
    setRange(bottom, top);
    setSingleStep(step);
    if (auto* ints = qobject_cast<QIntValidator*>(_validator))
        ints->setRange(minimum(), maximum());
}

QString SpinBox::deviceText(int value) const
{
    return QString::number(value);
}

void SpinBox::textChanged(const QString&)
{
    emit spinChanged(deviceText(value()));
}

QValidator::State SpinBox::validate(QString& text, int& pos) const
{
    return _validator->validate(text, pos);
}

void SpinBox::fixup(QString& text) const
{
    _validator->fixup(text);
}
