#include "elements/TextElement.h"

#include "elements/TraceLog.h"

#include <QDomElement>
#include <QLabel>

TextElement::TextElement(const QDomElement& node, int type, const QDomNode* parentNode,
                         Element* parentElement)
    : ConcreteElement(node, type, parentNode, parentElement)
    , _textLabel(node.attribute(QStringLiteral("TEXTLABEL")))
{
}

QString TextElement::shownText() const
{
    return _textLabel.isEmpty() ? title() : _textLabel;
}

QWidget* TextElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "TextElement::createControl:\n%s", qPrintable(toString()));
    auto* label = new QLabel(shownText(), parent);
    label->setObjectName(QStringLiteral("textLabel"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAccessibleName(title());
    setControl(label);
    checkConstraints(nullptr, true);
    return label;
}
