#include "elements/AddressBookElement.h"

const char* AddressBookElement::receiverSlot() const
{
    return SLOT(addressBookClicked(const QString&));
}
