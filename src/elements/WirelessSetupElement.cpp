#include "elements/WirelessSetupElement.h"

const char* WirelessSetupElement::receiverSlot() const
{
    return SLOT(wirelessSetupClicked(const QString&));
}
