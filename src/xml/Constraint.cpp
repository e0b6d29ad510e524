#include "xml/Constraint.h"

#include "xml/Attribute.h"
#include "xml/ConditionNode.h"

Constraint::Constraint(int kind, bool selfChecked)
    : _kind(kind)
    , _selfChecked(selfChecked)
{
}

Constraint::~Constraint()
{
    for (const ConditionGroup& group : _conditions)
        qDeleteAll(group);
    qDeleteAll(_attributes);
}

int Constraint::kindFromTag(const QString& tag)
{
    if (tag == QLatin1String("Disable"))
        return ckDisable;
    if (tag == QLatin1String("Enable"))
        return ckEnable;
    if (tag == QLatin1String("Constraint"))
        return ckConstraint;
    if (tag == QLatin1String("GatewayValidity"))
        return ckGatewayValidity;
    if (tag == QLatin1String("Hide"))
        return ckHide;
    return ckUnknown;
}

bool Constraint::refersTo(const Element* element) const
{
    if (!element)
        return false;
    for (const ConditionGroup& group : _conditions) {
        for (const ConditionNode* node : group) {
            if (node->element() == element)
                return true;
        }
    }
    for (const Attribute* attribute : _attributes) {
        if (attribute->referencedElement() == element)
            return true;
    }
    return false;
}

bool Constraint::test(const QString&) const
{
    return true;
}
