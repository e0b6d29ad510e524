#include "elements/InkCartridgeCleanElement.h"

const char* InkCartridgeCleanElement::receiverSlot() const
{
    return SLOT(inkCartridgeCleanClicked(const QString&));
}
