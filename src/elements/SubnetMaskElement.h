#pragma once

#include "elements/FactoryElement.h"

// A subnet mask: leading 255s, one contiguous-mask byte, trailing zeros.
class SubnetMaskElement : public FactoryElement
{
    Q_OBJECT

public:
    SubnetMaskElement(const QDomElement& node, int type, const QDomNode* parentNode,
                      Element* parentElement);

    // The caption and a line editor bound to the validation pattern.
    QWidget* createControl(QWidget* parent) override;
    void setControlValue(const QString& value) override;

    static const QString fixedPattern;
};
