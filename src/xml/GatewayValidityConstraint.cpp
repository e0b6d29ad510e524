#include "xml/GatewayValidityConstraint.h"

#include "elements/ConcreteElement.h"
#include "xml/ConditionNode.h"
#include "xml/ElementType.h"

#include <QStringList>

GatewayValidityConstraint::GatewayValidityConstraint(bool selfChecked)
    : Constraint(ckGatewayValidity, selfChecked)
{
}

std::optional<quint32> GatewayValidityConstraint::parseAddress(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != 4)
        return std::nullopt;
    quint32 address = 0;
    for (const QString& part : parts) {
        if (part.isEmpty() || part.size() > 3)
            return std::nullopt;
        for (const QChar c : part) {
            if (c < QLatin1Char('0') || c > QLatin1Char('9'))
                return std::nullopt;
        }
        const uint number = part.toUInt();
        if (number > 255)
            return std::nullopt;
        address = (address << 8) | number;
    }
    return address;
}

bool GatewayValidityConstraint::isValidGateway(const QString& gateway, const QString& address,
                                               const QString& mask)
{
    if (gateway.isEmpty())
        return true;
    const auto gw = parseAddress(gateway);
    const auto ip = parseAddress(address);
    const auto netmask = parseAddress(mask);
    if (!gw || !ip || !netmask)
        return false;
    const quint32 network = *ip & *netmask;
    const quint32 broadcast = network | ~*netmask;
    if ((*gw & *netmask) != network)
        return false;
    return *gw != *ip && *gw != network && *gw != broadcast;
}

Element* GatewayValidityConstraint::conditionElement(const QString& tag) const
{
    for (const ConditionGroup& group : conditions()) {
        for (const ConditionNode* node : group) {
            if (node->tag() == tag)
                return node->element();
        }
    }
    return nullptr;
}

bool GatewayValidityConstraint::test(const QString& value) const
{
    const auto* address = qobject_cast<ConcreteElement*>(conditionElement(FixedIds::IPAddress));
    const auto* mask = qobject_cast<ConcreteElement*>(conditionElement(FixedIds::SubnetMask));
    // Without both settings in the tree there is no subnet to compare with; the address must
    // still be well formed.
    if (!address || !mask)
        return value.isEmpty() || parseAddress(value).has_value();
    return isValidGateway(value, address->current(), mask->current());
}
