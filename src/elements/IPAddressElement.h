#pragma once

#include "elements/FactoryElement.h"

// An IPv4 address. The pattern admits empty parts and the empty text on purpose: the device accepts
// them while the user types.
class IPAddressElement : public FactoryElement
{
    Q_OBJECT

public:
    IPAddressElement(const QDomElement& node, int type, const QDomNode* parentNode,
                     Element* parentElement);

    // The caption and a line editor bound to the validation pattern.
    QWidget* createControl(QWidget* parent) override;
    void setControlValue(const QString& value) override;

    static const QString fixedPattern;
};
