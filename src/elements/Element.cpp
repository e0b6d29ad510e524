#include "elements/Element.h"

#include "elements/ConstraintEvaluator.h"
#include "elements/ControlBox.h"
#include "elements/TraceLog.h"
#include "ui/SettingsViewItem.h"
#include "xml/Constraint.h"
#include "xml/Dependency.h"
#include "xml/ElementType.h"
#include "xml/Translator.h"

#include <QDomElement>
#include <QHash>
#include <QLabel>
#include <QMetaMethod>
#include <QTreeWidget>

Element::Element(const QDomElement& node, int type, const QDomNode* parentNode,
                 Element* parentElement)
    : _level(parentElement ? parentElement->level() + 1 : 0)
    , _id(node.tagName())
    , _type(type)
    , _parentNode(parentNode)
    , _parentElement(parentElement)
    , _enabled(true)
    , _associatedObject(nullptr)
    , _format(node.attribute(QStringLiteral("FormatConstraint")))
{
    setString(node.attribute(QStringLiteral("STRING"), _id));
    if (_string.isEmpty()) {
        setTitle(_id);
        setDescription(_id);
    } else {
        setTitle(_string);
        setDescription(_string);
    }
}

Element::~Element()
{
    delete outermostWidget(_control.data());
}

bool Element::iterateElements(ElementVisitor visitor, void* data)
{
    return visitor(this, data);
}

void Element::connectSignals(QObject* receiver)
{
    reconnect(this, SIGNAL(visibleChanged(bool)), receiver, SLOT(changeVisibility(bool)));
}

bool Element::translateElement(const Translator& translator)
{
    translator.translate(_id, *this);
    return true;
}

Element* Element::findElement(const QString& id)
{
    return id == _id ? this : nullptr;
}

bool Element::applyDependencies(Element* initiator)
{
    // Unlike a check, this also tells the control and the dialog's row the state that did not
    // change: used once the dialog has filled.
    return ConstraintEvaluator::evaluate(this, initiator, false, true);
}

void Element::addToFavoriteList(QTreeWidget*) {}

void Element::addToParamList(QTreeWidget* list, QTreeWidgetItem* parentItem)
{
    if (list)
        SettingsViewItem::create(list, parentItem, this);
}

bool Element::hasComplexChildren() const
{
    return false;
}

QString Element::typeName() const
{
    return ElementTypes::typeName(_type);
}

void Element::addDependentElement(Element* element)
{
    if (!element)
        return;
    for (const Element* e : std::as_const(_dependentElements)) {
        if (e->id() == element->id())
            return;
    }
    _dependentElements.append(element);
}

QWidget* Element::createControl(QWidget* parent)
{
    TAV_TRACE(11, "Element::createControl:\n%s", qPrintable(toString()));
    auto* label = new QLabel(tr("Unknown control type"), parent);
    setControl(label);
    return label;
}

void Element::deleteControl()
{
    TAV_TRACE(11, "Element::deleteControl:\n%s", qPrintable(toString()));
    delete outermostWidget(_control.data());
    setControl(nullptr);
}

QWidget* Element::outermostWidget(QWidget* control)
{
    // A control laid out with its caption goes together with its box.
    QWidget* box = ControlBox::boxOf(control);
    return box ? box : control;
}

void Element::show()
{
    // The caption goes with the control: a hidden setting leaves no orphaned label behind.
    if (_control)
        outermostWidget(_control)->show();
    emit visibleChanged(true);
}

void Element::hide()
{
    if (_control)
        outermostWidget(_control)->hide();
    emit visibleChanged(false);
}

bool Element::checkConstraints(Element* initiator, bool selfChecking)
{
    TAV_TRACE(11, "initiator=%p->id='%s' bSelfChecking=%i", static_cast<void*>(initiator),
              initiator ? qPrintable(initiator->id()) : "", int(selfChecking));
    // Enabling, disabling, hiding and value rules take effect here (ConstraintEvaluator has
    // the semantics); none of them rejects a value.
    return ConstraintEvaluator::evaluate(this, initiator, selfChecking, false);
}

QList<const Constraint*> Element::selectedConstraints(const Element* initiator,
                                                      bool selfChecking) const
{
    QList<const Constraint*> selected;
    for (const Dependency* dependency : _dependencies) {
        for (const Constraint* constraint : dependency->constraints()) {
            if (selfChecking && !constraint->isSelfChecked())
                continue;
            if (initiator && !constraint->refersTo(initiator))
                continue;
            selected.append(constraint);
        }
    }
    return selected;
}

bool Element::applyConstraintValues(const Constraint* constraint, bool satisfied)
{
    return ConstraintEvaluator::applyValues(this, constraint, satisfied);
}

bool Element::applyConstraintAttributes(const Constraint* constraint, bool satisfied)
{
    return ConstraintEvaluator::applyAttributes(this, constraint, satisfied);
}

bool Element::applyConstraint(const Constraint* constraint, bool satisfied)
{
    applyConstraintValues(constraint, satisfied);
    return applyConstraintAttributes(constraint, satisfied);
}

void Element::checkDependencies()
{
    TAV_TRACE(10, "checkDependencies(%d) for %s", int(_dependentElements.size()), qPrintable(_id));
    // A copy: a check may change what depends on what. A check that comes back to an element
    // under evaluation ends there (ConstraintEvaluator), so cyclic rules end.
    const QList<Element*> dependents = _dependentElements;
    for (Element* dependent : dependents)
        dependent->checkConstraints(this, false);
}

QString Element::toString() const
{
    return QString::asprintf(
        "\tid\t = %s\n\tstring\t = %s\n\ttitle\t = %s\n\tdesc\t = %s\n\taddr\t = %p\n\ttype\t = "
        "%s\n\tcontrol\t = %p\n",
        qPrintable(id()), qPrintable(string()), qPrintable(title()), qPrintable(description()),
        static_cast<const void*>(this), qPrintable(typeName()),
        static_cast<const void*>(control()));
}

void Element::setEnabled(bool flag)
{
    _enabled = flag;
    if (_control)
        _control->setEnabled(flag);
}

void Element::setTableCellId(const QString& id)
{
    const QString old = _id;
    _id = id;
    if (_string == old)
        setString(id);
    if (_title == old)
        setTitle(id);
    if (_desc == old)
        setDescription(id);
}

void Element::addDependency(Dependency* dependency)
{
    if (dependency && !_dependencies.contains(dependency))
        _dependencies.append(dependency);
}

void Element::addTestedInDependency(Dependency* dependency)
{
    if (dependency && !_testedIn.contains(dependency))
        _testedIn.append(dependency);
}

void Element::clearDependencies()
{
    _dependencies.clear();
    _testedIn.clear();
    _dependentElements.clear();
}

namespace {

// The method a SIGNAL()/SLOT() text names, looked up once per class: wiring a tree of
// thousands of settings by text would otherwise parse the same signatures over and over.
QMetaMethod methodNamed(const QMetaObject* meta, const char* text)
{
    thread_local QHash<QPair<const QMetaObject*, QByteArray>, QMetaMethod> cache;
    const QPair<const QMetaObject*, QByteArray> key(meta, QByteArray(text));
    const auto found = cache.constFind(key);
    if (found != cache.constEnd())
        return *found;
    // SIGNAL() and SLOT() put a code digit in front of the signature.
    const int index = meta->indexOfMethod(QMetaObject::normalizedSignature(text + 1).constData());
    const QMetaMethod method = index < 0 ? QMetaMethod() : meta->method(index);
    cache.insert(key, method);
    return method;
}

} // namespace

bool Element::reconnect(const QObject* sender, const char* signal, const QObject* receiver,
                        const char* slot)
{
    if (!sender || !receiver || !signal || !slot)
        return false;
    const char* signalText = signal + 1;
    const char* slotText = slot + 1;
    const QMetaMethod signalMethod = methodNamed(sender->metaObject(), signal);
    const QMetaMethod slotMethod = methodNamed(receiver->metaObject(), slot);
    if (signalMethod.isValid() && slotMethod.isValid() &&
        QObject::disconnect(sender, signalMethod, receiver, slotMethod))
        TAV_TRACE(11, "disconnected '%s'/'%s' from '%s'/'%s'", sender->metaObject()->className(),
                  signalText, receiver->metaObject()->className(), slotText);
    if (signalMethod.methodType() != QMetaMethod::Signal || !slotMethod.isValid() ||
        !QObject::connect(sender, signalMethod, receiver, slotMethod)) {
        TAV_LOG(9, "unable to connect '%s'/'%s' to '%s'/'%s'", sender->metaObject()->className(),
                signalText, receiver->metaObject()->className(), slotText);
        return false;
    }
    return true;
}
