#pragma once

#include "elements/ListElement.h"

// A list of paper sizes ("PAPERSIZE"); its parameters carry margins and line counts.
class PaperSizeElement : public ListElement
{
    Q_OBJECT

public:
    using ListElement::ListElement;
};
