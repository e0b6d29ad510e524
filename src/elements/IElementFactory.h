#pragma once

class Element;
class QDomElement;
class QDomNode;
class QString;

// Builds the element of one specification node. Groups and tables call it for their children
// while they are being constructed, so the reader's rules apply at every depth.
class IElementFactory
{
public:
    virtual ~IElementFactory() = default;

    virtual Element* createElement(const QDomElement& node, const QDomNode* parentNode,
                                   Element* parentElement) = 0;
    virtual Element* createTableCellElement(const QDomElement& node, const QString& keyword,
                                            const QDomNode* parentNode, Element* parentElement) = 0;
};
