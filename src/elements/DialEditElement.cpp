#include "elements/DialEditElement.h"

#include "elements/LineEditControl.h"
#include "elements/TraceLog.h"

#include "elements/EditValidator.h"
#include <QDomElement>

const QString DialEditElement::defaultPattern = QStringLiteral("[+\\s0-9]*");

DialEditElement::DialEditElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                 Element* parentElement)
    : BoundaryElement(node, type, parentNode, parentElement)
{
    EditValidator::_setupValidator(this, node, defaultPattern);
}

QWidget* DialEditElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "DialEditElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = LineEditControl::create(this, parent, maxLength());
    wireLimits();
    checkConstraints(nullptr, true);
    return box;
}

void DialEditElement::setControlValue(const QString& value)
{
    LineEditControl::setValue(this, value);
    BoundaryElement::setControlValue(value);
}
