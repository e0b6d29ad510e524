#include "elements/InkCartridgeAlignMFPElement.h"

const char* InkCartridgeAlignMFPElement::receiverSlot() const
{
    return SLOT(inkCartridgeAlignMFPClicked(const QString&));
}
