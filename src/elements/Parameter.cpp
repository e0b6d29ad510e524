#include "elements/Parameter.h"

#include <QDomElement>

Parameter::Parameter(const QDomElement& node)
    : _id(node.tagName())
    , _visible(true)
    , _format(node.attribute(QStringLiteral("Format")))
{
    setString(node.attribute(QStringLiteral("STRING"), _id));
    const QString& shown = _string.isEmpty() ? _id : _string;
    setTitle(shown);
    setDescription(shown);
}
