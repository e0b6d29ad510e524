#include "elements/InkCartridgeAlignSFPElement.h"

#include <QDomElement>

InkCartridgeAlignSFPElement::InkCartridgeAlignSFPElement(const QDomElement& node, int type,
                                                         const QDomNode* parentNode,
                                                         Element* parentElement)
    : ButtonElement(node, type, parentNode, parentElement)
    , _hasPhotoInk(node.attribute(QStringLiteral("PhotoInkCartridgeInstall")) ==
                   QLatin1String("TRUE"))
{
}

const char* InkCartridgeAlignSFPElement::receiverSlot() const
{
    return SLOT(inkCartridgeAlignSFPClicked(const QString&));
}
