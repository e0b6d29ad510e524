#pragma once

#include "elements/ButtonElement.h"

// Starts the wireless set-up tool.
class WirelessSetupElement : public ButtonElement
{
    Q_OBJECT

public:
    using ButtonElement::ButtonElement;

protected:
    const char* receiverSlot() const override;
};
