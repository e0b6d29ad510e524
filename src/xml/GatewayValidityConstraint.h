#pragma once

#include "xml/Constraint.h"

#include <optional>

// The gateway address is judged together with the IP address and subnet mask settings named
// by its conditions: it must lie in their subnet without being the address itself or the
// subnet's network or broadcast address. An empty gateway is always accepted.
class GatewayValidityConstraint : public Constraint
{
public:
    explicit GatewayValidityConstraint(bool selfChecked = true);

    bool test(const QString& value) const override;

    // Four dot-separated decimal numbers of 0 to 255, nothing else.
    static std::optional<quint32> parseAddress(const QString& text);

    // The rule itself, for given texts.
    static bool isValidGateway(const QString& gateway, const QString& address, const QString& mask);

private:
    // The tested setting of the first condition with this tag, or none.
    Element* conditionElement(const QString& tag) const;
};
