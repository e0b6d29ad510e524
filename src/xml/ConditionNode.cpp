#include "xml/ConditionNode.h"

#include "app/Log.h"

ConditionNode::ConditionNode(const QString& tag, const QString& value, const QString& comparison,
                             Element* element)
    : _tag(tag)
    , _value(value)
    , _comparison(comparisonFromText(comparison))
    , _element(element)
{
    TAV_LOG(11, "tag='%s' value='%s'", qPrintable(tag), qPrintable(value));
}

int ConditionNode::comparisonFromText(const QString& text)
{
    if (text.isEmpty() || text == QLatin1String("EQUAL"))
        return cmpEqual;
    if (text == QLatin1String("NOT"))
        return cmpNot;
    if (text == QLatin1String("GREAT"))
        return cmpGreat;
    if (text == QLatin1String("GREATOREQUAL"))
        return cmpGreatOrEqual;
    if (text == QLatin1String("LESS"))
        return cmpLess;
    if (text == QLatin1String("LESSOREQUAL"))
        return cmpLessOrEqual;
    return cmpUnknown;
}
