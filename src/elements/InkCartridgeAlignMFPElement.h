#pragma once

#include "elements/ButtonElement.h"

// Aligns the cartridges of a multi-function device through its wizard.
class InkCartridgeAlignMFPElement : public ButtonElement
{
    Q_OBJECT

public:
    using ButtonElement::ButtonElement;

protected:
    const char* receiverSlot() const override;
};
