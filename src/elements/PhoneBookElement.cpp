#include "elements/PhoneBookElement.h"

const char* PhoneBookElement::receiverSlot() const
{
    return SLOT(phoneBookClicked(const QString&));
}
