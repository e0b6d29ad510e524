#pragma once

#include "elements/ButtonElement.h"

// Starts the address book tool.
class AddressBookElement : public ButtonElement
{
    Q_OBJECT

public:
    using ButtonElement::ButtonElement;

protected:
    const char* receiverSlot() const override;
};
