#include "elements/ButtonElement.h"

#include "elements/ControlBox.h"
#include "elements/MnemonicRegistry.h"
#include "elements/TraceLog.h"

#include <QDomElement>
#include <QLabel>
#include <QPushButton>

ButtonElement::ButtonElement(const QDomElement& node, int type, const QDomNode* parentNode,
                             Element* parentElement)
    : Element(node, type, parentNode, parentElement)
    , _label(node.attribute(QStringLiteral("BUTTONLABEL")))
{
}

void ButtonElement::connectSignals(QObject* receiver)
{
    Element::connectSignals(receiver);
    reconnect(this, SIGNAL(buttonClicked(const QString&)), receiver, receiverSlot());
}

const char* ButtonElement::receiverSlot() const
{
    return SLOT(elementChanged(const QString&));
}

QString ButtonElement::buttonText() const
{
    return _label.isEmpty() ? title() : _label;
}

QWidget* ButtonElement::createControl(QWidget* parent)
{
    TAV_TRACE(11, "ButtonElement::createControl:\n%s", qPrintable(toString()));
    // The button sits in the column of the other inputs. Its caption names what it does,
    // since devices give several buttons the same label ("Print", "Clean"); the mnemonic is
    // the button's own, so the caption stays plain.
    QWidget* box = ControlBox::create(parent, QString(), Qt::AlignRight | Qt::AlignVCenter);
    auto* button = new QPushButton(box);
    button->setText(MnemonicRegistry::mark(box, button, buttonText()));
    button->setAutoDefault(false);
    connect(button, SIGNAL(clicked()), this, SLOT(onClick()));
    const bool captioned = buttonText() != title();
    ControlBox::addInput(box, button, captioned ? title() : buttonText());
    if (captioned)
        ControlBox::label(box)->setText(title());
    setControl(button);
    return box;
}

void ButtonElement::onClick()
{
    TAV_LOG(10, "ButtonElement::onClick() is executed");
    emit buttonClicked(id());
}
