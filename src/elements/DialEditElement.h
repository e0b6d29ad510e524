#pragma once

#include "elements/BoundaryElement.h"

// A number to dial: digits, blanks and "+" unless character sets say otherwise; MAX is its greatest
// length.
class DialEditElement : public BoundaryElement
{
    Q_OBJECT

public:
    DialEditElement(const QDomElement& node, int type, const QDomNode* parentNode,
                    Element* parentElement);

    // The caption and a line editor bound to the validation pattern and to MAX characters.
    QWidget* createControl(QWidget* parent) override;
    void setControlValue(const QString& value) override;

    static const QString defaultPattern;
};
