#pragma once

#include "elements/ButtonElement.h"

// Prints the ink test page through its wizard.
class InkTestPagePrintElement : public ButtonElement
{
    Q_OBJECT

public:
    using ButtonElement::ButtonElement;

protected:
    const char* receiverSlot() const override;
};
