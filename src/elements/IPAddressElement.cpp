#include "elements/IPAddressElement.h"

#include "elements/LineEditControl.h"
#include "elements/TraceLog.h"

#include <QDomElement>

const QString IPAddressElement::fixedPattern =
    QStringLiteral("((?:[0-9]{0,2}|0[0-9]{2}|1[0-9]{2}|2[0-4][0-9]|25[0-5])\\.(?:[0-9]{0,2}|0[0-9]{"
                   "2}|1[0-9]{2}|2[0-4][0-9]|25[0-5])\\.(?:[0-9]{0,2}|0[0-9]{2}|1[0-9]{2}|2[0-4][0-"
                   "9]|25[0-5])\\.(?:[0-9]{0,2}|0[0-9]{2}|1[0-9]{2}|2[0-4][0-9]|25[0-5]))?");

IPAddressElement::IPAddressElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                   Element* parentElement)
    : FactoryElement(node, type, parentNode, parentElement)
{
    setValidationPattern(fixedPattern);
}

QWidget* IPAddressElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "IPAddressElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = LineEditControl::create(this, parent, 0);
    checkConstraints(nullptr, true);
    return box;
}

void IPAddressElement::setControlValue(const QString& value)
{
    LineEditControl::setValue(this, value);
    FactoryElement::setControlValue(value);
}
