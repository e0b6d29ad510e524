#pragma once

#include <QString>

class Element;

// One tested setting of a constraint's condition group: the setting (found by the tag of the
// declaration), the value it is compared with and how.
class ConditionNode
{
public:
    enum Comparison
    {
        cmpUnknown = 0,
        cmpEqual = 1,
        cmpNot = 2,
        cmpGreat = 3,
        cmpGreatOrEqual = 4,
        cmpLess = 5,
        cmpLessOrEqual = 6,
    };

    // Logs "tag='%s' value='%s'".
    ConditionNode(const QString& tag, const QString& value, const QString& comparison,
                  Element* element);
    virtual ~ConditionNode() = default;

    // Exact words; an empty one means equality.
    static int comparisonFromText(const QString& text);

    QString tag() const { return _tag; }
    QString value() const { return _value; }
    int comparison() const { return _comparison; }
    Element* element() const { return _element; }

private:
    QString _tag;
    QString _value;
    int _comparison;
    Element* _element;
};
