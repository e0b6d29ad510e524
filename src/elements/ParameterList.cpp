#include "ParameterList.h"

#include "Parameter.h"

ParameterList::~ParameterList()
{
    qDeleteAll(*this);
}
