#pragma once

#include <QList>
#include <QString>

class Constraint;
class Element;

// The rules declared for one setting (the declaration's tag is the governed setting's id).
// Owns its constraints.
class Dependency
{
public:
    Dependency(const QString& id, Element* element);
    virtual ~Dependency();
    Dependency(const Dependency&) = delete;
    Dependency& operator=(const Dependency&) = delete;

    QString id() const { return _id; }
    const QList<Constraint*>& constraints() const { return _constraints; }
    Element* element() const { return _element; }

    void addConstraint(Constraint* constraint) { _constraints.append(constraint); }

private:
    QString _id;
    QList<Constraint*> _constraints;
    Element* _element;
};
