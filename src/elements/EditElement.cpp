#include "elements/EditElement.h"

#include "elements/LineEditControl.h"
#include "elements/TraceLog.h"

#include "elements/EditValidator.h"
#include <QDomElement>

const QString EditElement::defaultPattern = QStringLiteral("[@*+-.,#/&'\\sA-Za-z0-9]*");

EditElement::EditElement(const QDomElement& node, int type, const QDomNode* parentNode,
                         Element* parentElement)
    : BoundaryElement(node, type, parentNode, parentElement)
{
    EditValidator::_setupValidator(this, node, defaultPattern);
}

QWidget* EditElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "EditElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = LineEditControl::create(this, parent, maxLength());
    wireLimits();
    checkConstraints(nullptr, true);
    return box;
}

void EditElement::setControlValue(const QString& value)
{
    LineEditControl::setValue(this, value);
    BoundaryElement::setControlValue(value);
}
