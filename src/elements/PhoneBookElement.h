#pragma once

#include "elements/ButtonElement.h"

// Starts the phone-book tool.
class PhoneBookElement : public ButtonElement
{
    Q_OBJECT

public:
    using ButtonElement::ButtonElement;

protected:
    const char* receiverSlot() const override;
};
