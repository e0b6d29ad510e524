#include "elements/TextElement.h"

#include "elements/ControlBox.h"
#include "elements/TraceLog.h"

#include <QBoxLayout>
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
    // A value read from the device ("18734") says little without its title beside it.
    const bool captioned = !_textLabel.isEmpty() && !title().isEmpty() && title() != id();
    QWidget* box = captioned
                       ? ControlBox::create(parent, title(), Qt::AlignRight | Qt::AlignVCenter)
                       : nullptr;
    auto* label = new QLabel(shownText(), box ? box : parent);
    label->setObjectName(QStringLiteral("textLabel"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAccessibleName(title());
    if (box)
        static_cast<QBoxLayout*>(box->layout())->addWidget(label, 1);
    setControl(label);
    checkConstraints(nullptr, true);
    return box ? box : label;
}
