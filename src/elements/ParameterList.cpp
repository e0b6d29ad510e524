#include "elements/ParameterList.h"

#include "elements/Parameter.h"

ParameterList::~ParameterList()
{
    qDeleteAll(*this);
}
