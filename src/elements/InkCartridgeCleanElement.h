#pragma once

#include "elements/ButtonElement.h"

// Cleans the ink cartridges through its wizard.
class InkCartridgeCleanElement : public ButtonElement
{
    Q_OBJECT

public:
    using ButtonElement::ButtonElement;

protected:
    const char* receiverSlot() const override;
};
