#include "elements/SubnetMaskElement.h"

#include "elements/LineEditControl.h"
#include "elements/TraceLog.h"

#include <QDomElement>

const QString SubnetMaskElement::fixedPattern =
    QStringLiteral("^(?:(255\\.){0,3}(128|192|224|24[08]|25[245])(\\.0){0,3})$");

SubnetMaskElement::SubnetMaskElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                     Element* parentElement)
    : FactoryElement(node, type, parentNode, parentElement)
{
    setValidationPattern(fixedPattern);
}

QWidget* SubnetMaskElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "SubnetMaskElement::createControl:\n%s", qPrintable(toString()));
    QWidget* box = LineEditControl::create(this, parent, 0);
    checkConstraints(nullptr, true);
    return box;
}

void SubnetMaskElement::setControlValue(const QString& value)
{
    LineEditControl::setValue(this, value);
    FactoryElement::setControlValue(value);
}
