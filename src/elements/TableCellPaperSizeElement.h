#pragma once

#include "elements/TableCellListElement.h"

// A paper-size list inside a table cell.
class TableCellPaperSizeElement : public TableCellListElement
{
    Q_OBJECT

public:
    using TableCellListElement::TableCellListElement;
};
