#pragma once

#include "xml/Constraint.h"

#include <QList>
#include <QString>
#include <QVariant>

class Attribute;
class ConditionNode;
class ConstraintState;
class Element;
class ListElement;

// Evaluates the dependency records against the current values of the element tree.
//
// The reader links the records (SettingsParser::attachDependency): each governed element
// knows the dependencies that govern it, and every element tested in a condition or named by
// a reference lists the governed element among its dependent elements, so a change of value
// (checkDependencies) re-checks exactly the elements that may be affected.
//
// When a rule holds: a condition compares the tested element's current value with its
// CURRENT; EQUAL and NOT compare text, GREAT, GREATOREQUAL, LESS and LESSOREQUAL compare
// numbers when both sides are numbers and text otherwise. An unknown comparison never holds,
// nor does a condition whose setting is missing or holds no value. A group holds when all its
// conditions hold; a rule holds when any of its groups holds, or always when it has none.
//
// What a rule does, holding / not holding: Disable disables / enables; Enable enables /
// disables; Hide hides / shows (the dialog follows visibleChanged with the row, and the
// control itself is hidden); Constraint hides the parameters of a list that its value list
// does not allow and assigns its attributes / lets the element's own parameters and attribute
// values come back. GatewayValidity judges a value and is tested by the value check itself;
// rules of an unknown kind do nothing.
//
// Several rules on one element: the rules that do not hold are applied first, then those that
// hold, each group in declaration order. So for enabling the last rule that holds decides,
// and when none holds the last declared one; an element is hidden when any Hide rule holds;
// the value lists of the holding rules intersect; of several holding rules assigning the same
// attribute the last declared wins, and an attribute that no holding rule assigns gets its
// own value back.
//
// Which rules are re-tested: all of them for applyDependencies (evaluateAll); on a check
// only those that refer to the initiator, when there is one, and when self-checking only
// those whose SELFCHECKED is not "FALSE". A rule not re-tested keeps the result of its last
// test, and one never tested has no effect yet.
//
// Effects that change a value go on through the changed element's own dependency check.
// An element whose evaluation is already under way is not evaluated again further down the
// same chain, which ends cyclic declarations; chains are also bounded in length.
class ConstraintEvaluator
{
public:
    static constexpr int kMaxChainLength = 64;

    // Once over the whole tree after the dialog has filled (and the elements' signals reach
    // it): every rule is tested and every governed element is put into its state, so rows
    // start hidden and controls disabled where they should.
    static void evaluateAll(Element* root);

    // The rules of one element; force puts the element's state to its control and its row
    // even where it did not change. Never rejects (see GatewayValidity).
    static bool evaluate(Element* element, Element* initiator, bool selfChecking, bool force);

    static bool compare(const QString& value, const QString& expected, int comparison);
    static bool holds(const ConditionNode* condition);
    static bool groupHolds(const Constraint::ConditionGroup& group);
    static bool isActive(const Constraint* constraint);

    // The effects of one rule, gathered for the evaluation under way; applyConstraint hooks.
    static bool applyValues(Element* element, const Constraint* constraint, bool satisfied);
    static bool applyAttributes(Element* element, const Constraint* constraint, bool satisfied);

    // The value an attribute assigns: its VALUE, or for a reference "Element#property" that
    // property of the element, or of the element's current parameter when the element is a
    // list that lacks it; "Element" alone gives its current value. Invalid when there is none.
    static QVariant attributeValue(const Attribute* attribute);

private:
    static void walk(Element* element);
    static QList<const Constraint*> rules(const Element* element);
    static bool retest(const QList<const Constraint*>& rules, ConstraintState* state,
                       const Element* initiator, bool selfChecking);
    static void runPass(Element* element, ConstraintState* state,
                        const QList<const Constraint*>& rules);
    static void commitAttributes(Element* element, ConstraintState* state);
    static void commitEnabled(Element* element, const ConstraintState* state);
    static void commitVisibility(Element* element, ConstraintState* state, bool force);
    static void commitChoices(ListElement* list, const QList<bool>& visibleBefore);
    static void clampToLimits(Element* element);
    static bool assign(Element* element, ConstraintState* state, const Attribute* attribute);
    static bool restrictsChoices(const QList<const Constraint*>& rules);
};
