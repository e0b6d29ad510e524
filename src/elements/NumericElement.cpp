#include "elements/NumericElement.h"

#include "elements/ControlBox.h"
#include "elements/SpinBox.h"
#include "elements/TraceLog.h"
#include "xml/ElementType.h"

#include <QDomElement>

NumericElement::NumericElement(const QDomElement& node, int type, const QDomNode* parentNode,
                               Element* parentElement)
    : BoundaryElement(node, type, parentNode, parentElement)
{
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

void NumericElement::minChange(const QString& value)
{
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
    spin->setLimits(toInt(_min), toInt(max()), stepOf(_step));
    spin->setValue(toInt(current()));
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
        spin->setValue(toInt(value));
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
    spin->setLimits(toInt(_min), toInt(max()), stepOf(_step));
    spin->setValue(toInt(current()));
}

void NumericElement::connectLimitSignals()
{
    BoundaryElement::connectLimitSignals();
    reconnect(this, SIGNAL(minChanged(const QString&)), this, SLOT(minChange(const QString&)));
    reconnect(this, SIGNAL(stepChanged(const QString&)), this, SLOT(stepChange(const QString&)));
}

void NumericElement::clampTo(const QString& limit)
{
    setCurrent(limit);
    emit valueChanged(current());
    setControlValue(current());
}

bool NumericElement::isValid()
{
    TAV_TRACE(11, "NumericElement::isValid() for '%s'", qPrintable(id()));
    if (type() == etInteger) {
        const int value = toInt(current());
        if (value < toInt(_min)) {
            clampTo(_min);
            TAV_LOG(10, "NumericElement::isValid(): current < min. New current=%s",
                    qPrintable(current()));
        } else if (value > toInt(max())) {
            clampTo(max());
            TAV_LOG(10, "NumericElement::isValid(): current > max. New current=%s",
                    qPrintable(current()));
        }
    }
    return FactoryElement::isValid();
}
