#include "app/SettingsEdit.h"

#include "elements/ConcreteElement.h"
#include "elements/ConstraintEvaluator.h"
#include "elements/InputRules.h"
#include "xml/ConditionNode.h"
#include "xml/Constraint.h"
#include "xml/Dependency.h"
#include "xml/SettingsParser.h"

#include <QCoreApplication>

SettingsEdit::SettingsEdit(SettingsParser& parser)
    : parser(parser)
{
    parser.enumerateElements(remember, this);
    ConstraintEvaluator::evaluateAll(parser.root());
    parser.enumerateElements(acceptChanges, nullptr);
}

bool SettingsEdit::remember(Element* element, void* data)
{
    auto* edit = static_cast<SettingsEdit*>(data);
    if (auto* concrete = qobject_cast<ConcreteElement*>(element)) {
        // The first of an id, as the parser's own lookup finds it.
        if (!edit->index.contains(concrete->id())) {
            edit->asRead.insert(concrete->id(), concrete->initial());
            edit->index.insert(concrete->id(), concrete);
        }
    }
    return true;
}

void SettingsEdit::refuse(const QString& id, const QString& value, const QString& reason)
{
    _refusals.append({id, value, reason});
}

bool SettingsEdit::assign(const QString& id, const QString& value)
{
    ConcreteElement* concrete = index.value(id);
    Element* element = concrete ? concrete : parser.findElement(id);
    if (!element) {
        refuse(id, value, QCoreApplication::translate("SettingsEdit", "no such setting"));
        return false;
    }
    const InputRules::Verdict verdict = InputRules::check(element, value);
    if (!verdict.accepted) {
        refuse(id, value, verdict.rule);
        return false;
    }
    if (!element->isEnabled()) {
        refuse(id, value, disabledReason(element));
        return false;
    }
    qobject_cast<ConcreteElement*>(element)->valueChange(verdict.value);
    if (!assignedSet.contains(id)) {
        assignedSet.insert(id);
        assigned.append(id);
    }
    return true;
}

void SettingsEdit::refuseDisabled()
{
    for (const QString& id : std::as_const(assigned)) {
        const ConcreteElement* element = index.value(id);
        if (!element->isEnabled())
            refuse(id, element->current(), disabledReason(element));
    }
}

QStringList SettingsEdit::changedIds() const
{
    QStringList out;
    for (const QString& id : assigned) {
        if (index.value(id)->isChanged())
            out.append(id);
    }
    return out;
}

QString SettingsEdit::changeDocument()
{
    const QString changes = parser.getChanges(QString());
    return parser.reportedAny() ? changes : QString();
}

QString SettingsEdit::disabledReason(const Element* element)
{
    QStringList testedIds;
    for (const Dependency* dependency : element->dependencies()) {
        for (const Constraint* constraint : dependency->constraints()) {
            for (const Constraint::ConditionGroup& group : constraint->conditions()) {
                for (const ConditionNode* condition : group) {
                    const Element* tested = condition->element();
                    if (tested && !testedIds.contains(tested->id()))
                        testedIds.append(tested->id());
                }
            }
        }
    }
    if (testedIds.isEmpty())
        return QCoreApplication::translate("SettingsEdit", "disabled on the device");
    return QCoreApplication::translate("SettingsEdit", "disabled by the value of %1")
        .arg(testedIds.join(QStringLiteral(", ")));
}
