#include "Dependency.h"

#include "Constraint.h"

Dependency::Dependency(const QString& id, Element* element)
    : _id(id)
    , _element(element)
{
}

Dependency::~Dependency()
{
    qDeleteAll(_constraints);
}
