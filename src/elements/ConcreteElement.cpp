#include "elements/ConcreteElement.h"

#include "elements/SecretSetting.h"
#include "elements/TraceLog.h"
#include "xml/Constraint.h"

#include <QDomElement>
#include <QHash>
#include <QRegularExpression>

ConcreteElement::ConcreteElement(const QDomElement& node, int type, const QDomNode* parentNode,
                                 Element* parentElement)
    : Element(node, type, parentNode, parentElement)
    , _current(node.attribute(QStringLiteral("CURRENT")))
{
    emit valueChanged(_current);
    setInitial(_current);
    setTemp(_current);
}

void ConcreteElement::setInitial(const QString& value)
{
    _initial = value;
    setObjectName(value);
}

bool ConcreteElement::matchesPattern(const QString& pattern, const QString& text)
{
    if (pattern.isEmpty())
        return true;
    // Few distinct patterns exist (one per kind and character-set declaration); compile each
    // once.
    static QHash<QString, QRegularExpression> compiled;
    auto it = compiled.constFind(pattern);
    if (it == compiled.constEnd()) {
        // A document can declare any number of character sets; keep the cache bounded.
        if (compiled.size() >= 256)
            compiled.clear();
        it = compiled.insert(pattern,
                             QRegularExpression(QRegularExpression::anchoredPattern(pattern)));
    }
    return it->isValid() && it->match(text).hasMatch();
}

QString ConcreteElement::shownName() const
{
    return QStringLiteral("%1 (%2)").arg(title(), id());
}

QString ConcreteElement::displayValue() const
{
    return _current;
}

void ConcreteElement::connectSignals(QObject* receiver)
{
    Element::connectSignals(receiver);
    reconnect(this, SIGNAL(valueChanged(const QString&)), receiver,
              SLOT(elementChanged(const QString&)));
    reconnect(this, SIGNAL(valueReset()), receiver, SLOT(elementReset()));
}

bool ConcreteElement::checkConstraints(Element* initiator, bool selfChecking)
{
    if (!Element::checkConstraints(initiator, selfChecking))
        return false;
    if (dependencies().isEmpty())
        return true;
    for (const Constraint* constraint : selectedConstraints(initiator, selfChecking)) {
        if (constraint->kind() != Constraint::ckGatewayValidity)
            continue;
        TAV_TRACE(11, "checkConstraints - condition type: %d", constraint->kind());
        TAV_TRACE(11, "Control info:\n%s", qPrintable(toString()));
        if (!constraint->test(_current)) {
            TAV_LOG(9, "current()='%s' title()='%s'",
                    qPrintable(SecretSetting::masked(this, _current)), qPrintable(title()));
            return false;
        }
    }
    return true;
}

bool ConcreteElement::isValid()
{
    TAV_TRACE(11, "ConcreteElement::isValid() for '%s'", qPrintable(id()));
    if (!isEnabled())
        return true;
    if (!matchesPattern(_pattern, _current))
        return false;
    return checkConstraints(nullptr, true);
}

void ConcreteElement::valueChange(const QString& text)
{
    if (text == _current)
        return;
    TAV_TRACE(10, "'%s' -> '%s' for:\n%s", qPrintable(SecretSetting::masked(this, _current)),
              qPrintable(SecretSetting::masked(this, text)), qPrintable(toString()));
    _current = text;
    _emptiedAtLoad = false; // the user's own value now
    emit valueChanged(_current);
    checkDependencies();
}

bool acceptChanges(Element* element, void*)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (!concrete)
        return true;
    concrete->setInitial(concrete->current());
    concrete->confirmClearing();
    TAV_TRACE(10, "id: %s\n\tvalue: %s\n\tinit: %s", qPrintable(concrete->id()),
              qPrintable(SecretSetting::masked(concrete, concrete->current())),
              qPrintable(SecretSetting::masked(concrete, concrete->initial())));
    return true;
}

bool rejectChanges(Element* element, void*)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (!concrete)
        return true;
    concrete->setCurrent(concrete->initial());
    emit concrete->valueChanged(concrete->current());
    TAV_TRACE(10, "id: %s\n\tvalue: %s\n\tinit: %s", qPrintable(concrete->id()),
              qPrintable(SecretSetting::masked(concrete, concrete->current())),
              qPrintable(SecretSetting::masked(concrete, concrete->initial())));
    return true;
}
