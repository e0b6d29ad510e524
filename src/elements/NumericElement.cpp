#include "elements/NumericElement.h"

#include "elements/ControlBox.h"
#include "elements/DeviceNumber.h"
#include "elements/SpinBox.h"
#include "elements/TraceLog.h"
#include "xml/ElementType.h"

#include <QDomElement>

#include <climits>

NumericElement::NumericElement(const QDomElement& node, int type, const QDomNode* parentNode,
                               Element* parentElement)
    : BoundaryElement(node, type, parentNode, parentElement)
{
    warnIfNoNumber("MAX", max()); // the base read it before this override existed
    minChange(node.attribute(QStringLiteral("MIN")));
    stepChange(node.attribute(QStringLiteral("STEP")));
}

int NumericElement::toInt(const QString& text)
{
    bool ok = false;
    const int value = text.toInt(&ok, 10);
    return ok ? value : 0;
}

int NumericElement::stepOf(const QString& text)
{
    return qMax(toInt(text), 1);
}

std::optional<qint64> NumericElement::lowerLimit() const
{
    return DeviceNumber::limit(_min, false);
}

std::optional<qint64> NumericElement::upperLimit() const
{
    return DeviceNumber::limit(max(), true);
}

int NumericElement::spinBottom() const
{
    return DeviceNumber::saturated(lowerLimit().value_or(INT_MIN));
}

int NumericElement::spinTop() const
{
    return DeviceNumber::saturated(upperLimit().value_or(INT_MAX));
}

void NumericElement::warnIfNoNumber(const char* attribute, const QString& value) const
{
    if (!value.trimmed().isEmpty() && !DeviceNumber::decimal(value))
        TAV_LOG(9, "Warning: %s='%s' of <%s> is not a number: no limit", attribute,
                qPrintable(value), qPrintable(id()));
}

void NumericElement::maxChange(const QString& value)
{
    warnIfNoNumber("MAX", value);
    BoundaryElement::maxChange(value);
}

void NumericElement::minChange(const QString& value)
{
    warnIfNoNumber("MIN", value);
    const bool differs = value != _min;
    _min = value;
    if (differs)
        emit minChanged(value);
    applyLimits();
}

void NumericElement::stepChange(const QString& value)
{
    const bool differs = value != _step;
    _step = value;
    if (differs)
        emit stepChanged(value);
    applyLimits();
}

QWidget* NumericElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "NumericElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = ControlBox::create(parent, title(), Qt::AlignRight | Qt::AlignVCenter);
    auto* spin = new SpinBox(box);
    spin->setLimits(spinBottom(), spinTop(), stepOf(_step));
    spin->setValue(DeviceNumber::saturated(DeviceNumber::integer(current()).value_or(0)));
    connect(spin, SIGNAL(spinChanged(const QString&)), this, SLOT(valueChange(const QString&)));
    wireLimits();
    ControlBox::addInput(box, spin, title());
    setControl(spin);
    checkConstraints(nullptr, true);
    return box;
}

void NumericElement::setControlValue(const QString& value)
{
    if (auto* spin = qobject_cast<SpinBox*>(control())) {
        disconnect(spin, SIGNAL(spinChanged(const QString&)), this,
                   SLOT(valueChange(const QString&)));
        spin->setValue(DeviceNumber::saturated(DeviceNumber::integer(value).value_or(0)));
        connect(spin, SIGNAL(spinChanged(const QString&)), this, SLOT(valueChange(const QString&)));
    }
    BoundaryElement::setControlValue(value);
}

void NumericElement::applyLimits()
{
    auto* spin = qobject_cast<SpinBox*>(control());
    if (!spin)
        return;
    // The box shows current within the new limits; current itself stays until validated.
    const QSignalBlocker blocker(spin);
    spin->setLimits(spinBottom(), spinTop(), stepOf(_step));
    spin->setValue(DeviceNumber::saturated(DeviceNumber::integer(current()).value_or(0)));
}

void NumericElement::connectLimitSignals()
{
    BoundaryElement::connectLimitSignals();
    reconnect(this, SIGNAL(minChanged(const QString&)), this, SLOT(minChange(const QString&)));
    reconnect(this, SIGNAL(stepChanged(const QString&)), this, SLOT(stepChange(const QString&)));
}

void NumericElement::clampTo(qint64 limit)
{
    setCurrent(QString::number(limit));
    emit valueChanged(current());
    setControlValue(current());
}

bool NumericElement::clampInteger()
{
    // An empty value stays empty: there is nothing to pull back, and nothing to send.
    if (current().isEmpty())
        return true;
    const std::optional<qint64> value = DeviceNumber::integer(current());
    if (!value || !DeviceNumber::fitsInt(*value)) {
        TAV_LOG(9, "Warning: '%s' of <%s> is not a whole number the setting can hold",
                qPrintable(current()), qPrintable(id()));
        return false;
    }
    const std::optional<qint64> lower = lowerLimit();
    const std::optional<qint64> upper = upperLimit();
    if (lower && *value < *lower) {
        clampTo(*lower);
        TAV_LOG(10, "NumericElement::isValid(): current < min. New current=%s",
                qPrintable(current()));
    } else if (upper && *value > *upper) {
        clampTo(*upper);
        TAV_LOG(10, "NumericElement::isValid(): current > max. New current=%s",
                qPrintable(current()));
    }
    return true;
}

bool NumericElement::isValid()
{
    TAV_TRACE(11, "NumericElement::isValid() for '%s'", qPrintable(id()));
    if (type() == etInteger && !clampInteger() && isEnabled())
        return false;
    return FactoryElement::isValid();
}
