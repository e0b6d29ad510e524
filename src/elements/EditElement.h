#pragma once

#include "elements/BoundaryElement.h"

// A line of text; MAX is its greatest length. Character-set declarations may replace the default
// pattern.
class EditElement : public BoundaryElement
{
    Q_OBJECT

public:
    EditElement(const QDomElement& node, int type, const QDomNode* parentNode,
                Element* parentElement);

    // The caption and a line editor bound to the validation pattern and to MAX characters.
    QWidget* createControl(QWidget* parent) override;
    void setControlValue(const QString& value) override;

    static const QString defaultPattern;
};
