#include "elements/BoundaryElement.h"

#include <QDomElement>
#include <QLineEdit>

BoundaryElement::BoundaryElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                 Element* parentElement)
    : FactoryElement(node, type, parentNode, parentElement)
{
    if (node.hasAttribute(QStringLiteral("MAX")))
        maxChange(node.attribute(QStringLiteral("MAX")));
}

void BoundaryElement::maxChange(const QString& value)
{
    const bool differs = value != _max;
    _max = value;
    _hasMax = !_max.isNull();
    if (differs)
        emit maxChanged(value);
    applyLimits();
}

int BoundaryElement::maxLength() const
{
    bool ok = false;
    const int length = _max.toInt(&ok, 10);
    // 32767 is the line editor's own default limit.
    return _hasMax && ok && length > 0 ? length : 32767;
}

void BoundaryElement::applyLimits()
{
    if (auto* edit = qobject_cast<QLineEdit*>(control()))
        edit->setMaxLength(maxLength());
}

void BoundaryElement::wireLimits()
{
    if (_limitsWired)
        return;
    connectLimitSignals();
    _limitsWired = true;
}

void BoundaryElement::connectLimitSignals()
{
    reconnect(this, SIGNAL(maxChanged(const QString&)), this, SLOT(maxChange(const QString&)));
}
