#pragma once

#include "elements/ButtonElement.h"

// Aligns the cartridges of a single-function printer through its wizard, which needs to know
// whether a photo cartridge is installed.
class InkCartridgeAlignSFPElement : public ButtonElement
{
    Q_OBJECT
    Q_PROPERTY(bool hasPhotoInk READ hasPhotoInk)

public:
    InkCartridgeAlignSFPElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                Element* parentElement);

    bool hasPhotoInk() const { return _hasPhotoInk; }

protected:
    const char* receiverSlot() const override;

private:
    bool _hasPhotoInk;
};
