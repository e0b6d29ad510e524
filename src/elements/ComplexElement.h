#pragma once

#include "elements/Element.h"

class IElementFactory;

// A group: an element that owns child elements, built from the child nodes of its own node
// in document order.
class ComplexElement : public Element
{
    Q_OBJECT

public:
    ComplexElement(const QDomElement& node, int type, const QDomNode* parentNode,
                   Element* parentElement, IElementFactory* factory);
    ~ComplexElement() override;

    const QList<Element*>& elements() const { return _elements; }
    // Visits the direct children only.
    bool enumerateChildren(ElementVisitor visitor, void* data);

    bool iterateElements(ElementVisitor visitor, void* data) override;
    void connectSignals(QObject* receiver) override;
    bool translateElement(const Translator& translator) override;
    Element* findElement(const QString& id) override;
    void addToFavoriteList(QTreeWidget* list) override;
    void addToParamList(QTreeWidget* list, QTreeWidgetItem* parentItem = nullptr) override;
    bool hasComplexChildren() const override;
    bool isComplex() const override { return true; }

private:
    QList<Element*> _elements;
};
