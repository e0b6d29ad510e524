#pragma once

#include "elements/ListElement.h"

// A list inside a table cell: the same value rules, a bare control without caption.
class TableCellListElement : public ListElement
{
    Q_OBJECT

public:
    using ListElement::ListElement;

    // The input alone, placed straight in the cell.
    QWidget* createControl(QWidget* parent) override;
};
