#include "cli/CtlTree.h"

#include "cli/CtlMessages.h"
#include "elements/ComplexElement.h"
#include "elements/FactoryElement.h"
#include "elements/InputRules.h"
#include "elements/ListElement.h"
#include "elements/NumericElement.h"
#include "elements/Parameter.h"
#include "elements/TableElement.h"
#include "elements/TextElement.h"

CtlTree::CtlTree(bool changedOnly)
    : changedOnly(changedOnly)
{
}

QList<Element*> CtlTree::children(const Element* element)
{
    if (const auto* group = qobject_cast<const ComplexElement*>(element))
        return group->elements();
    QList<Element*> cells;
    if (const auto* table = qobject_cast<const TableElement*>(element)) {
        for (const QList<Element*>& row : table->rows()) {
            for (Element* cell : row) {
                if (cell)
                    cells.append(cell);
            }
        }
    }
    return cells;
}

QString CtlTree::valueOf(const Element* element)
{
    if (const auto* text = qobject_cast<const TextElement*>(element))
        return text->shownText();
    if (const auto* concrete = qobject_cast<const ConcreteElement*>(element))
        return concrete->current();
    return QString();
}

bool CtlTree::included(const Element* element) const
{
    if (!changedOnly)
        return true;
    const auto* factory = qobject_cast<const FactoryElement*>(element);
    if (factory)
        return factory->hasFactory() && factory->current() != factory->factory();
    for (const Element* child : children(element)) {
        if (included(child))
            return true;
    }
    return false;
}

void CtlTree::addLines(Element* element, int depth, QStringList* out) const
{
    if (!included(element))
        return;
    QString line = QString(depth * 2, QLatin1Char(' ')) + element->id();
    if (!element->title().isEmpty() && element->title() != element->id())
        line += QStringLiteral("  \"%1\"").arg(element->title());
    if (element->isConcrete()) {
        line += QStringLiteral(" = %1").arg(valueOf(element));
        line += InputRules::isWritable(element)
                    ? QStringLiteral("  [%1]").arg(InputRules::describe(element))
                    : QStringLiteral("  [%1]").arg(CtlMessages::tr("read-only"));
        if (!element->isEnabled())
            line += QStringLiteral("  [%1]").arg(CtlMessages::tr("disabled"));
    }
    out->append(line);
    for (Element* child : children(element))
        addLines(child, depth + 1, out);
}

QStringList CtlTree::lines(Element* top) const
{
    QStringList out;
    if (top)
        addLines(top, 0, &out);
    return out;
}

QJsonObject CtlTree::jsonOf(Element* element) const
{
    QJsonObject object{{QStringLiteral("id"), element->id()},
                       {QStringLiteral("title"), element->title()},
                       {QStringLiteral("type"), element->typeName()}};
    if (element->isConcrete()) {
        object.insert(QStringLiteral("value"), valueOf(element));
        object.insert(QStringLiteral("readOnly"), !InputRules::isWritable(element));
        object.insert(QStringLiteral("enabled"), element->isEnabled());
        object.insert(QStringLiteral("allowed"), InputRules::describe(element));
    }
    if (const auto* factory = qobject_cast<const FactoryElement*>(element)) {
        if (factory->hasFactory())
            object.insert(QStringLiteral("factory"), factory->factory());
    }
    if (const auto* list = qobject_cast<const ListElement*>(element)) {
        QJsonArray choices;
        for (const Parameter* parameter : list->parameters()) {
            if (parameter->isVisible())
                choices.append(QJsonObject{{QStringLiteral("id"), parameter->id()},
                                           {QStringLiteral("title"), parameter->title()}});
        }
        object.insert(QStringLiteral("choices"), choices);
    } else if (const auto* numeric = qobject_cast<const NumericElement*>(element)) {
        const InputRules::Range range = InputRules::integerRange(numeric);
        if (range.lower)
            object.insert(QStringLiteral("min"), double(*range.lower));
        if (range.upper)
            object.insert(QStringLiteral("max"), double(*range.upper));
        object.insert(QStringLiteral("step"), double(range.step));
    }
    const QJsonArray nested = json(element);
    if (!nested.isEmpty())
        object.insert(QStringLiteral("children"), nested);
    return object;
}

QJsonArray CtlTree::json(Element* top) const
{
    QJsonArray out;
    for (Element* child : children(top)) {
        if (included(child))
            out.append(jsonOf(child));
    }
    return out;
}
