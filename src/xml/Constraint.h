#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class Attribute;
class ConditionNode;
class Element;

// One rule of a dependency: its kind (the declaration's tag), the condition groups that
// decide it, the values it allows and the attributes it assigns. Owns its conditions and
// attributes.
class Constraint
{
public:
    enum Kind
    {
        ckUnknown = 0,
        ckDisable = 1,
        ckEnable = 2,
        ckConstraint = 3,
        ckGatewayValidity = 4,
        ckHide = 5,
    };
    typedef QList<ConditionNode*> ConditionGroup;

    explicit Constraint(int kind, bool selfChecked = true);
    virtual ~Constraint();
    Constraint(const Constraint&) = delete;
    Constraint& operator=(const Constraint&) = delete;

    static int kindFromTag(const QString& tag);

    int kind() const { return _kind; }
    bool isSelfChecked() const { return _selfChecked; }
    const QList<ConditionGroup>& conditions() const { return _conditions; }
    const QStringList& values() const { return _values; }
    const QList<Attribute*>& attributes() const { return _attributes; }

    void addConditionGroup(const ConditionGroup& group) { _conditions.append(group); }
    void addValue(const QString& value) { _values.append(value); }
    void addAttribute(Attribute* attribute) { _attributes.append(attribute); }

    // True when one of its conditions tests the element or one of its attributes refers to it.
    bool refersTo(const Element* element) const;

    // Whether the governed setting may hold value. Only kinds that judge a value by
    // themselves answer here; the others accept it.
    virtual bool test(const QString& value) const;

private:
    int _kind;
    QList<ConditionGroup> _conditions;
    QStringList _values;
    QList<Attribute*> _attributes;
    bool _selfChecked;
};
