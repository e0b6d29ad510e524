#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QStringList>

class Element;

// The settings tree as tavctl shows it: id, title, value and what is allowed, read-only
// settings marked; optionally only the settings that differ from their factory value, with
// the groups that lead to them.
class CtlTree
{
public:
    explicit CtlTree(bool changedOnly);

    QStringList lines(Element* top) const;
    QJsonArray json(Element* top) const;

    // A setting's value as get prints it: a static text's label, else the current value.
    static QString valueOf(const Element* element);
    static QList<Element*> children(const Element* element);

private:
    bool included(const Element* element) const;
    void addLines(Element* element, int depth, QStringList* out) const;
    QJsonObject jsonOf(Element* element) const;

    bool changedOnly;
};
