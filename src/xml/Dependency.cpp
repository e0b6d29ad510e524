#include "xml/Dependency.h"

#include "xml/Constraint.h"

Dependency::Dependency(const QString& id, Element* element)
    : _id(id)
    , _element(element)
{
}

Dependency::~Dependency()
{
    qDeleteAll(_constraints);
}
