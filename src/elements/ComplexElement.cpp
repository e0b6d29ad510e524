#include "elements/ComplexElement.h"

#include "elements/IElementFactory.h"
#include "elements/TraceLog.h"
#include "ui/SettingsViewItem.h"

#include <QDomElement>

ComplexElement::ComplexElement(const QDomElement& node, int type, const QDomNode* parentNode,
                               Element* parentElement, IElementFactory* factory)
    : Element(node, type, parentNode, parentElement)
{
    if (!factory)
        return;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        if (!child.isElement())
            continue;
        if (Element* element = factory->createElement(child.toElement(), parentNode, this))
            _elements.append(element);
    }
}

ComplexElement::~ComplexElement()
{
    qDeleteAll(_elements);
}

bool ComplexElement::enumerateChildren(ElementVisitor visitor, void* data)
{
    TAV_TRACE(11, "_elements.count()=%u", unsigned(_elements.size()));
    for (Element* element : std::as_const(_elements)) {
        if (!visitor(element, data))
            return false;
    }
    return true;
}

bool ComplexElement::iterateElements(ElementVisitor visitor, void* data)
{
    for (Element* element : std::as_const(_elements)) {
        if (!element->iterateElements(visitor, data))
            return false;
    }
    return true;
}

void ComplexElement::connectSignals(QObject* receiver)
{
    for (Element* element : std::as_const(_elements))
        element->connectSignals(receiver);
}

bool ComplexElement::translateElement(const Translator& translator)
{
    Element::translateElement(translator);
    for (Element* element : std::as_const(_elements))
        element->translateElement(translator);
    return true;
}

Element* ComplexElement::findElement(const QString& id)
{
    if (id == this->id())
        return this;
    for (Element* element : std::as_const(_elements)) {
        if (Element* found = element->findElement(id))
            return found;
    }
    return nullptr;
}

void ComplexElement::addToFavoriteList(QTreeWidget* list)
{
    if (!list)
        return;
    // The root stands for the whole document; its groups are the favourites.
    if (parentElement()) {
        new SettingsViewItem(list, this);
        return;
    }
    for (Element* element : std::as_const(_elements)) {
        if (element->isComplex())
            element->addToFavoriteList(list);
    }
}

void ComplexElement::addToParamList(QTreeWidget* list, QTreeWidgetItem* parentItem)
{
    if (!list)
        return;
    if (!parentElement()) { // the root has no row of its own
        for (Element* element : std::as_const(_elements))
            element->addToParamList(list, parentItem);
        return;
    }
    // The group's rows are built while its own row is still outside the list, which then
    // takes in the whole branch at once rather than one row at a time.
    auto* item = new SettingsViewItem(static_cast<QTreeWidgetItem*>(nullptr), this);
    for (Element* element : std::as_const(_elements))
        element->addToParamList(list, item);
    if (parentItem)
        parentItem->addChild(item);
    else
        list->addTopLevelItem(item);
}

bool ComplexElement::hasComplexChildren() const
{
    for (const Element* element : _elements) {
        if (element->isComplex())
            return true;
    }
    return false;
}
