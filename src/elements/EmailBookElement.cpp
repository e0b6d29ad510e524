#include "elements/EmailBookElement.h"

const char* EmailBookElement::receiverSlot() const
{
    return SLOT(emailBookClicked(const QString&));
}
