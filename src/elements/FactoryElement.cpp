#include "elements/FactoryElement.h"

#include "elements/SecretSetting.h"
#include "elements/TraceLog.h"

#include <QDomElement>

FactoryElement::FactoryElement(const QDomElement& node, int type, const QDomNode* parentNode,
                               Element* parentElement)
    : ConcreteElement(node, type, parentNode, parentElement)
    , _factory(node.attribute(QStringLiteral("FACTORY")))
{
    _hasFactory = true;
}

void FactoryElement::setControlValue(const QString& value)
{
    // Kinds without a control of their own have nothing to put the value into.
    TAV_TRACE(11, "FactoryElement::setControlValue: control=%p value='%s'",
              static_cast<void*>(control()), qPrintable(SecretSetting::masked(this, value)));
    checkDependencies();
}
