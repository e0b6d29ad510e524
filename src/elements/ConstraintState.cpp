#include "elements/ConstraintState.h"

#include "elements/Element.h"

ConstraintState::ConstraintState(Element* element)
    : QObject(element)
{
}

ConstraintState* ConstraintState::of(Element* element, bool create)
{
    if (!element)
        return nullptr;
    auto* state = element->findChild<ConstraintState*>(QString(), Qt::FindDirectChildrenOnly);
    if (!state && create)
        state = new ConstraintState(element);
    return state;
}

std::optional<bool> ConstraintState::activity(const Constraint* constraint) const
{
    const auto it = _activity.constFind(constraint);
    if (it == _activity.constEnd())
        return std::nullopt;
    return *it;
}

void ConstraintState::setActivity(const Constraint* constraint, bool active)
{
    _activity.insert(constraint, active);
}

void ConstraintState::keepOnly(const QList<const Constraint*>& constraints)
{
    for (auto it = _activity.begin(); it != _activity.end();) {
        if (constraints.contains(it.key()))
            ++it;
        else
            it = _activity.erase(it);
    }
}

void ConstraintState::beginPass()
{
    _enabled.reset();
    _hidden.reset();
    _assigned.clear();
}

QVariantMap ConstraintState::takeReleasedValues()
{
    QVariantMap released;
    for (auto it = _own.begin(); it != _own.end();) {
        if (_assigned.contains(it.key())) {
            ++it;
            continue;
        }
        released.insert(it.key(), it.value());
        it = _own.erase(it);
    }
    return released;
}

bool ConstraintState::takeFreshControl(QWidget* control)
{
    if (!control || control == _lastControl)
        return false;
    _lastControl = control;
    return true;
}
