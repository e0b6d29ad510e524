#pragma once

#include "elements/ButtonElement.h"

// Starts the e-mail book tool.
class EmailBookElement : public ButtonElement
{
    Q_OBJECT

public:
    using ButtonElement::ButtonElement;

protected:
    const char* receiverSlot() const override;
};
