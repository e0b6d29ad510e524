#pragma once

#include <QList>

class Parameter;

// The choices of a list setting, in document order; owns them.
class ParameterList : public QList<Parameter*>
{
public:
    ParameterList() = default;
    ~ParameterList();
    ParameterList(const ParameterList&) = delete;
    ParameterList& operator=(const ParameterList&) = delete;
};
