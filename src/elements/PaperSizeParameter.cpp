#include "elements/PaperSizeParameter.h"

#include <QDomElement>

PaperSizeParameter::PaperSizeParameter(const QDomElement& node)
    : Parameter(node)
    , _maxtopmargin(QStringLiteral("0"))
    , _maxleftmargin(QStringLiteral("0"))
    , _linesportrait(QStringLiteral("0"))
    , _lineslandscape(QStringLiteral("0"))
{
    // The "0" defaults are replaced unconditionally: a missing attribute leaves a null text.
    _maxtopmargin = node.attribute(QStringLiteral("MAXTOPMARGIN"));
    _maxleftmargin = node.attribute(QStringLiteral("MAXLEFTMARGIN"));
    _linesportrait = node.attribute(QStringLiteral("LINESPORTRAIT"));
    _lineslandscape = node.attribute(QStringLiteral("LINESLANDSCAPE"));
}
