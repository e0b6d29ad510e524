#include "elements/TableCellListElement.h"

#include "elements/TraceLog.h"

QWidget* TableCellListElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "%s", qPrintable(toString()));
    TAV_TRACE(11, "parent=%p", static_cast<void*>(parent));
    QWidget* input = createInput(parent);
    input->setAccessibleName(title());
    checkConstraints(nullptr, true);
    return input;
}
