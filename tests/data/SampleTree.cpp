#include "SampleTree.h"

#include "ElementType.h"

namespace {

QList<QDomElement> childElements(const QDomElement& node, const QString& tag = QString())
{
    QList<QDomElement> children;
    for (QDomElement c = node.firstChildElement(tag); !c.isNull(); c = c.nextSiblingElement(tag))
        children.append(c);
    return children;
}

} // namespace

SampleTree::SampleTree(const QDomElement& top)
{
    collect(top);
}

int SampleTree::builtType(const QDomElement& node)
{
    const QString tag = node.tagName();
    if (node.attribute(QStringLiteral("SUPPORTED")) == QLatin1String("FALSE") ||
        FixedIds::isIgnored(tag))
        return etUnknown;
    const QString keyword = node.attribute(QStringLiteral("TYPE"));
    int type = ElementTypes::fromKeyword(keyword);
    if (tag == FixedIds::SubnetMask && keyword == QLatin1String("IPADDRESS"))
        type = etSubnetMask;
    else if (type == etEdit && FixedIds::isDateTimeWorkaround(tag))
        type = etDateTime;
    else if (type == etButton && FixedIds::isWirelessWorkaround(tag))
        type = etWirelessSetup;
    else if (type == etEmpty)
        type = etGroup;
    return type == etInkJetMaintenance ? int(etUnknown) : type;
}

bool SampleTree::isContainer(int type)
{
    return type == etGroup || type == etForm;
}

bool SampleTree::isList(int type)
{
    return type == etCheckbox || type == etRadio || type == etList || type == etPaperSize;
}

QList<QDomElement> SampleTree::parameterNodes(const QDomElement& list)
{
    const QStringList disabled =
        list.attribute(QStringLiteral("DisabledItem")).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    QList<QDomElement> parameters;
    for (const QDomElement& child : childElements(list)) {
        if (!disabled.contains(child.tagName()))
            parameters.append(child);
    }
    return parameters;
}

QSet<QString> SampleTree::ids() const
{
    QSet<QString> all;
    for (const QList<Setting>* list : {&_settings, &_containers, &_cells}) {
        for (const Setting& s : *list)
            all.insert(s.id);
    }
    return all;
}

const SampleTree::Setting* SampleTree::find(const QString& id) const
{
    for (const QList<Setting>* list : {&_containers, &_settings, &_cells}) {
        for (const Setting& s : *list) {
            if (s.id == id)
                return &s;
        }
    }
    return nullptr;
}

void SampleTree::collect(const QDomElement& node)
{
    const int type = builtType(node);
    if (type == etUnknown)
        return;
    const QString id = type == etAbout ? FixedIds::AboutElement : node.tagName();
    if (isContainer(type)) {
        _containers.append({id, type, node});
        for (const QDomElement& child : childElements(node))
            collect(child);
        return;
    }
    _settings.append({id, type, node});
    if (isList(type))
        addParameters(node);
    if (type == etTable)
        collectCells(id, node);
}

// Cells are named "<table>.<row>.<column>", counting DataRow and DataCell children from 1;
// a ROWSPLIT cell holds no setting but still takes its column.
void SampleTree::collectCells(const QString& tableId, const QDomElement& table)
{
    int row = 0;
    for (const QDomElement& dataRow : childElements(table, QStringLiteral("DataRow"))) {
        ++row;
        int column = 0;
        for (const QDomElement& cell : childElements(dataRow, QStringLiteral("DataCell"))) {
            ++column;
            if (cell.attribute(QStringLiteral("TYPE")) == QLatin1String("ROWSPLIT"))
                continue;
            const int type = builtType(cell);
            if (type == etUnknown)
                continue;
            _cells.append(
                {QStringLiteral("%1.%2.%3").arg(tableId).arg(row).arg(column), type, cell});
            if (isList(type))
                addParameters(cell);
        }
    }
}

void SampleTree::addParameters(const QDomElement& list)
{
    for (const QDomElement& parameter : parameterNodes(list))
        _parameters.insert(parameter.tagName());
}
