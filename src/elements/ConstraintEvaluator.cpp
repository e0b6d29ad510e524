#include "elements/ConstraintEvaluator.h"

#include "elements/ComplexElement.h"
#include "elements/ConcreteElement.h"
#include "elements/ConstraintState.h"
#include "elements/ListElement.h"
#include "elements/NumericElement.h"
#include "elements/Parameter.h"
#include "elements/SecretSetting.h"
#include "elements/TableElement.h"
#include "elements/TraceLog.h"
#include "xml/Attribute.h"
#include "xml/ConditionNode.h"
#include "xml/Dependency.h"

#include <QMetaProperty>

#include <cmath>

namespace {

// The elements whose evaluation is under way, outermost first.
QList<const Element*> g_running;

class RunningGuard
{
public:
    explicit RunningGuard(const Element* element) { g_running.append(element); }
    ~RunningGuard() { g_running.removeLast(); }
    RunningGuard(const RunningGuard&) = delete;
    RunningGuard& operator=(const RunningGuard&) = delete;
};

bool isEffectKind(int kind)
{
    return kind == Constraint::ckDisable || kind == Constraint::ckEnable ||
           kind == Constraint::ckConstraint || kind == Constraint::ckHide;
}

std::optional<double> number(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

// The parameter the list holds, hidden or not.
Parameter* heldParameter(const ListElement* list)
{
    for (Parameter* parameter : list->parameters()) {
        if (parameter->id() == list->current())
            return parameter;
    }
    return nullptr;
}

QList<bool> visibility(const ListElement* list)
{
    QList<bool> visible;
    if (!list)
        return visible;
    for (const Parameter* parameter : list->parameters())
        visible.append(parameter->isVisible());
    return visible;
}

} // namespace

void ConstraintEvaluator::evaluateAll(Element* root)
{
    if (!root)
        return;
    TAV_TRACE(10, "evaluating the dependencies of '%s'", qPrintable(root->id()));
    walk(root);
}

void ConstraintEvaluator::walk(Element* element)
{
    if (!element->dependencies().isEmpty())
        element->applyDependencies(nullptr);
    // Groups and tables may be governed themselves, which a walk over the leaves passes over.
    if (const auto* group = qobject_cast<ComplexElement*>(element)) {
        for (Element* child : group->elements())
            walk(child);
    } else if (const auto* table = qobject_cast<TableElement*>(element)) {
        for (const QList<Element*>& row : table->rows()) {
            for (Element* cell : row) {
                if (cell)
                    walk(cell);
            }
        }
    }
}

QList<const Constraint*> ConstraintEvaluator::rules(const Element* element)
{
    QList<const Constraint*> out;
    for (const Dependency* dependency : element->dependencies()) {
        for (const Constraint* constraint : dependency->constraints()) {
            if (isEffectKind(constraint->kind()))
                out.append(constraint);
        }
    }
    return out;
}

bool ConstraintEvaluator::evaluate(Element* element, Element* initiator, bool selfChecking,
                                   bool force)
{
    if (!element)
        return true;
    const QList<const Constraint*> all = rules(element);
    ConstraintState* state = ConstraintState::of(element, !all.isEmpty());
    if (!state)
        return true;
    if (g_running.contains(element)) {
        TAV_LOG(10, "dependency cycle: '%s' is already being evaluated", qPrintable(element->id()));
        return true;
    }
    if (g_running.size() >= kMaxChainLength) {
        TAV_LOG(9, "dependency chain longer than %d: '%s' left as it is", kMaxChainLength,
                qPrintable(element->id()));
        return true;
    }
    state->keepOnly(all);
    const bool retested = retest(all, state, initiator, selfChecking);
    const bool fresh = state->takeFreshControl(element->control());
    if (!retested && !force && !fresh)
        return true;

    const RunningGuard guard(element);
    auto* list = qobject_cast<ListElement*>(element);
    const QList<bool> visibleBefore = visibility(list);
    runPass(element, state, all);
    commitAttributes(element, state);
    commitEnabled(element, state);
    commitVisibility(element, state, force || fresh);
    if (list && restrictsChoices(all))
        commitChoices(list, visibleBefore);
    return true;
}

bool ConstraintEvaluator::retest(const QList<const Constraint*>& rules, ConstraintState* state,
                                 const Element* initiator, bool selfChecking)
{
    bool retested = false;
    for (const Constraint* constraint : rules) {
        if (selfChecking && !constraint->isSelfChecked())
            continue;
        if (initiator && !constraint->refersTo(initiator))
            continue;
        state->setActivity(constraint, isActive(constraint));
        retested = true;
    }
    return retested;
}

void ConstraintEvaluator::runPass(Element* element, ConstraintState* state,
                                  const QList<const Constraint*>& rules)
{
    state->beginPass();
    if (element->isList() && restrictsChoices(rules))
        element->prepareConstraints();
    // Rules that do not hold first, then those that hold: the holding ones have the last word.
    for (const bool holding : {false, true}) {
        for (const Constraint* constraint : rules) {
            const std::optional<bool> active = state->activity(constraint);
            if (active && *active == holding)
                element->applyConstraint(constraint, holding);
        }
    }
}

bool ConstraintEvaluator::restrictsChoices(const QList<const Constraint*>& rules)
{
    for (const Constraint* constraint : rules) {
        if (constraint->kind() == Constraint::ckConstraint && !constraint->values().isEmpty())
            return true;
    }
    return false;
}

bool ConstraintEvaluator::compare(const QString& value, const QString& expected, int comparison)
{
    if (comparison == ConditionNode::cmpEqual)
        return value == expected;
    if (comparison == ConditionNode::cmpNot)
        return value != expected;
    int order = 0;
    const std::optional<double> left = number(value);
    const std::optional<double> right = number(expected);
    if (left && right)
        order = *left < *right ? -1 : (*left > *right ? 1 : 0);
    else
        order = QString::compare(value, expected, Qt::CaseSensitive);
    switch (comparison) {
    case ConditionNode::cmpGreat:
        return order > 0;
    case ConditionNode::cmpGreatOrEqual:
        return order >= 0;
    case ConditionNode::cmpLess:
        return order < 0;
    case ConditionNode::cmpLessOrEqual:
        return order <= 0;
    default:
        return false;
    }
}

bool ConstraintEvaluator::holds(const ConditionNode* condition)
{
    const auto* tested = qobject_cast<const ConcreteElement*>(condition->element());
    if (!tested)
        return false;
    return compare(tested->current(), condition->value(), condition->comparison());
}

bool ConstraintEvaluator::groupHolds(const Constraint::ConditionGroup& group)
{
    for (const ConditionNode* condition : group) {
        if (!holds(condition))
            return false;
    }
    return true;
}

bool ConstraintEvaluator::isActive(const Constraint* constraint)
{
    const QList<Constraint::ConditionGroup>& groups = constraint->conditions();
    bool active = groups.isEmpty();
    for (const Constraint::ConditionGroup& group : groups) {
        if (groupHolds(group)) {
            active = true;
            break;
        }
    }
    TAV_TRACE(11, "rule of kind %d %s", constraint->kind(), active ? "holds" : "does not hold");
    return active;
}

bool ConstraintEvaluator::applyValues(Element* element, const Constraint* constraint,
                                      bool satisfied)
{
    ConstraintState* state = ConstraintState::of(element, true);
    switch (constraint->kind()) {
    case Constraint::ckDisable:
    case Constraint::ckEnable:
        state->setPendingEnabled((constraint->kind() == Constraint::ckEnable) == satisfied);
        return true;
    case Constraint::ckHide:
        state->setPendingHidden(satisfied);
        return true;
    case Constraint::ckConstraint:
        break;
    default:
        return true;
    }
    if (!satisfied || constraint->values().isEmpty())
        return true;
    auto* list = qobject_cast<ListElement*>(element);
    if (!list) {
        TAV_TRACE(10, "'%s' holds no choices to restrict", qPrintable(element->id()));
        return false;
    }
    QStringList allowed = constraint->values();
    list->iterateParameters(ListElement::filterParameter, &allowed);
    return true;
}

bool ConstraintEvaluator::applyAttributes(Element* element, const Constraint* constraint,
                                          bool satisfied)
{
    if (constraint->kind() != Constraint::ckConstraint || !satisfied)
        return true;
    ConstraintState* state = ConstraintState::of(element, true);
    bool applied = true;
    for (const Attribute* attribute : constraint->attributes())
        applied = assign(element, state, attribute) && applied;
    return applied;
}

bool ConstraintEvaluator::assign(Element* element, ConstraintState* state,
                                 const Attribute* attribute)
{
    const QByteArray name = attribute->name().toLatin1();
    const int index = element->metaObject()->indexOfProperty(name.constData());
    if (index < 0 || !element->metaObject()->property(index).isWritable()) {
        TAV_LOG(9, "'%s' has no attribute '%s' to set", qPrintable(element->id()),
                name.constData());
        return false;
    }
    const QVariant value = attributeValue(attribute);
    if (!value.isValid())
        return false;
    if (!state->hasOwnValue(attribute->name()))
        state->keepOwnValue(attribute->name(), element->property(name.constData()));
    state->markAssigned(attribute->name());
    if (element->property(name.constData()) == value)
        return true;
    TAV_LOG(10, "'%s': %s = '%s'", qPrintable(element->id()), name.constData(),
            qPrintable(SecretSetting::masked(element, value.toString())));
    // Limits go through their change slots, which tell the control.
    return element->setProperty(name.constData(), value);
}

QVariant ConstraintEvaluator::attributeValue(const Attribute* attribute)
{
    if (!attribute->isReference())
        return QVariant(attribute->value());
    const Element* source = attribute->referencedElement();
    if (!source) {
        TAV_LOG(9, "reference '%s' names no setting", qPrintable(attribute->value()));
        return QVariant();
    }
    const QByteArray field = attribute->parts().value(1).toLatin1();
    QVariant value;
    if (field.isEmpty())
        value = source->property("current");
    else if (source->metaObject()->indexOfProperty(field.constData()) >= 0)
        value = source->property(field.constData());
    else if (const auto* list = qobject_cast<const ListElement*>(source)) {
        if (const Parameter* parameter = heldParameter(list))
            value = parameter->property(field.constData());
    }
    if (!value.isValid() || value.toString().isNull()) {
        TAV_LOG(9, "reference '%s' gives no value", qPrintable(attribute->value()));
        return QVariant();
    }
    return value;
}

void ConstraintEvaluator::commitAttributes(Element* element, ConstraintState* state)
{
    const bool assigned = state->hasAssignments();
    const QVariantMap released = state->takeReleasedValues();
    for (auto it = released.constBegin(); it != released.constEnd(); ++it) {
        const QByteArray name = it.key().toLatin1();
        if (element->property(name.constData()) == it.value())
            continue;
        TAV_LOG(10, "'%s': %s back to '%s'", qPrintable(element->id()), name.constData(),
                qPrintable(SecretSetting::masked(element, it.value().toString())));
        element->setProperty(name.constData(), it.value());
    }
    if (assigned || !released.isEmpty())
        clampToLimits(element);
}

void ConstraintEvaluator::clampToLimits(Element* element)
{
    auto* numeric = qobject_cast<NumericElement*>(element);
    if (!numeric)
        return;
    const std::optional<double> value = number(numeric->current());
    if (!value)
        return;
    const std::optional<double> max = number(numeric->max());
    const std::optional<double> min = number(numeric->min());
    QString limit;
    if (max && *value > *max)
        limit = numeric->max();
    else if (min && *value < *min)
        limit = numeric->min();
    if (limit.isNull())
        return;
    TAV_LOG(10, "'%s' -> '%s' for '%s': outside its new limits", qPrintable(numeric->current()),
            qPrintable(limit), qPrintable(numeric->id()));
    numeric->setCurrent(limit);
    emit numeric->valueChanged(numeric->current());
    // Puts the value into the control and lets the change reach the dependants.
    numeric->setControlValue(numeric->current());
}

void ConstraintEvaluator::commitEnabled(Element* element, const ConstraintState* state)
{
    const std::optional<bool> enabled = state->pendingEnabled();
    if (!enabled)
        return;
    if (element->isEnabled() != *enabled)
        TAV_LOG(10, "'%s' %s", qPrintable(element->id()), *enabled ? "enabled" : "disabled");
    // Also tells a control created since the last evaluation.
    element->setEnabled(*enabled);
}

void ConstraintEvaluator::commitVisibility(Element* element, ConstraintState* state, bool force)
{
    const std::optional<bool> hidden = state->pendingHidden();
    if (!hidden || (!force && state->shownHidden() == hidden))
        return;
    TAV_LOG(10, "'%s' %s", qPrintable(element->id()), *hidden ? "hidden" : "shown");
    state->setShownHidden(*hidden);
    if (*hidden)
        element->hide();
    else
        element->show();
}

void ConstraintEvaluator::commitChoices(ListElement* list, const QList<bool>& visibleBefore)
{
    const Parameter* held = heldParameter(list);
    const Parameter* first = list->parameterAt(0);
    const bool move = held && !held->isVisible() && first;
    if (held && !held->isVisible() && !first)
        TAV_LOG(9, "'%s': no choice is allowed; '%s' kept", qPrintable(list->id()),
                qPrintable(list->current()));
    if (move) {
        TAV_LOG(10, "'%s' -> '%s' for '%s': no longer allowed", qPrintable(list->current()),
                qPrintable(first->id()), qPrintable(list->id()));
        list->setCurrent(first->id());
    }
    if (move || visibility(list) != visibleBefore)
        list->refreshControl();
    if (move) {
        emit list->valueChanged(list->current());
        list->checkDependencies();
    }
}
