#include "TreeDump.h"

#include "elements/ComplexElement.h"
#include "elements/FactoryElement.h"
#include "elements/TableElement.h"

#include <QList>

QString TreeDump::quoted(const QString& text, bool present)
{
    if (!present || text.isNull())
        return QStringLiteral("-");
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString TreeDump::line(Element* element)
{
    const auto* concrete = qobject_cast<ConcreteElement*>(element);
    const auto* factory = qobject_cast<FactoryElement*>(element);
    // Read the values before validating: the integer kinds pull them into range.
    const QString current = quoted(concrete ? concrete->current() : QString(), concrete);
    const QString initial = quoted(concrete ? concrete->initial() : QString(), concrete);
    const QString factoryValue = quoted(factory ? factory->factory() : QString(), factory);
    const bool valid = element->isValid();
    return QStringLiteral("%1%2 %3 %4 current=%5 initial=%6 factory=%7 valid=%8")
        .arg(QString(int(element->level()) * 2, QLatin1Char(' ')))
        .arg(element->level())
        .arg(element->id(), element->typeName(), current, initial, factoryValue,
             valid ? QStringLiteral("yes") : QStringLiteral("no"));
}

QStringList TreeDump::lines(Element* root)
{
    QStringList out;
    // Explicit stack: document order without recursion.
    QList<Element*> pending;
    if (root)
        pending.append(root);
    while (!pending.isEmpty()) {
        Element* element = pending.takeLast();
        out.append(line(element));
        QList<Element*> children;
        if (const auto* group = qobject_cast<ComplexElement*>(element)) {
            children = group->elements();
        } else if (const auto* table = qobject_cast<TableElement*>(element)) {
            for (const QList<Element*>& row : table->rows()) {
                for (Element* cell : row) {
                    if (cell)
                        children.append(cell);
                }
            }
        }
        for (auto it = children.crbegin(); it != children.crend(); ++it)
            pending.append(*it);
    }
    return out;
}
