#include "elements/FloatElement.h"

#include "elements/ControlBox.h"
#include "elements/DeviceNumber.h"
#include "elements/FloatSpinBox.h"
#include "elements/TraceLog.h"
#include "xml/ElementType.h"

#include <QAbstractSpinBox>
#include <QDomElement>

#include <cmath>

FloatElement::FloatElement(const QDomElement& node, int type, const QDomNode* parentNode,
                           Element* parentElement)
    : NumericElement(node, type, parentNode, parentElement)
{
    digitsChange(node.attribute(QStringLiteral("DIGITS")));
}

void FloatElement::minChange(const QString& value)
{
    NumericElement::minChange(value);
}

void FloatElement::maxChange(const QString& value)
{
    NumericElement::maxChange(value);
}

void FloatElement::stepChange(const QString& value)
{
    NumericElement::stepChange(value);
}

void FloatElement::digitsChange(const QString& value)
{
    const bool differs = value != _digits;
    _digits = value;
    if (differs)
        emit digitsChanged(value);
    applyLimits();
}

int FloatElement::decimals() const
{
    const int digits = toInt(_digits);
    if (digits < 0 || digits > 9) {
        TAV_LOG(9, "Warning: DIGITS='%s' of <%s> taken as %d", qPrintable(_digits),
                qPrintable(id()), digits < 0 ? 0 : 9);
        return digits < 0 ? 0 : 9;
    }
    return digits;
}

double FloatElement::decimalStep() const
{
    const double step = DeviceNumber::decimal(this->step()).value_or(0.0);
    return step == 0.0 ? 1.0 / std::pow(10.0, decimals()) : step;
}

double FloatElement::decimalBottom() const
{
    return DeviceNumber::decimal(min()).value_or(-HUGE_VAL);
}

double FloatElement::decimalTop() const
{
    return DeviceNumber::decimal(max()).value_or(HUGE_VAL);
}

bool FloatElement::holdsValue() const
{
    if (current().trimmed().isEmpty())
        return true;
    const std::optional<double> value = DeviceNumber::decimal(current());
    if (!value)
        return false;
    const int shown = FloatSpinBox::fittingDigits(decimalBottom(), decimalTop(), decimals());
    return FloatSpinBox::holds(*value, std::pow(10.0, shown));
}

QWidget* FloatElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "FloatElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = ControlBox::create(parent, title(), Qt::AlignRight | Qt::AlignVCenter);
    const double step = decimalStep();
    TAV_TRACE(11, "FloatElement::createControl(): step = %f", step);
    auto* spin = new FloatSpinBox(decimalBottom(), decimalTop(), step, decimals(), box);
    spin->setDecimalValue(current().trimmed().toDouble());
    connect(spin, SIGNAL(spinChanged(const QString&)), this, SLOT(valueChange(const QString&)));
    wireLimits();
    ControlBox::addInput(box, spin, title());
    setControl(spin);
    checkConstraints(nullptr, true);
    return box;
}

void FloatElement::setControlValue(const QString& value)
{
    if (auto* spin = qobject_cast<FloatSpinBox*>(control())) {
        disconnect(spin, SIGNAL(spinChanged(const QString&)), this,
                   SLOT(valueChange(const QString&)));
        spin->setDecimalValue(value.trimmed().toDouble());
        connect(spin, SIGNAL(spinChanged(const QString&)), this, SLOT(valueChange(const QString&)));
    }
    // Past NumericElement's version, which would set the text as a whole number.
    BoundaryElement::setControlValue(value);
}

void FloatElement::applyLimits()
{
    auto* spin = qobject_cast<FloatSpinBox*>(control());
    if (!spin)
        return;
    const QSignalBlocker blocker(spin);
    spin->setDecimalLimits(decimalBottom(), decimalTop(), decimalStep(), decimals());
    spin->setDecimalValue(current().trimmed().toDouble());
}

void FloatElement::connectLimitSignals()
{
    NumericElement::connectLimitSignals();
    reconnect(this, SIGNAL(digitsChanged(const QString&)), this,
              SLOT(digitsChange(const QString&)));
}

bool FloatElement::isValid()
{
    TAV_TRACE(11, "FloatElement::isValid() for '%s'", qPrintable(id()));
    if (type() == etFloat) {
        if (!holdsValue()) {
            TAV_LOG(9, "Warning: '%s' of <%s> is not a number the setting can hold",
                    qPrintable(current()), qPrintable(id()));
            if (isEnabled())
                return false;
        }
        const double value = current().trimmed().toDouble();
        bool outside = false;
        if (value < decimalBottom()) {
            TAV_LOG(10, "FloatElement::isValid(): current < min. New current=%s",
                    qPrintable(current()));
            outside = true;
        } else if (value > decimalTop()) {
            TAV_LOG(10, "FloatElement::isValid(): current > max. New current=%s",
                    qPrintable(current()));
            outside = true;
        }
        // The spin box re-reads its text and so corrects it to its range; current itself is
        // left as it is.
        if (outside) {
            if (auto* spin = qobject_cast<QAbstractSpinBox*>(control()))
                spin->interpretText();
        }
    }
    return NumericElement::isValid();
}
