#include "elements/InkTestPagePrintElement.h"

const char* InkTestPagePrintElement::receiverSlot() const
{
    return SLOT(inkTestPagePrintClicked(const QString&));
}
