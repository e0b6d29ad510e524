#pragma once

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QVariantMap>
#include <QWidget>

#include <optional>

class Constraint;
class Element;

// What the rule evaluation remembers about one governed element between evaluations: which
// of its rules held when last tested, the element's own attribute values that rules replaced,
// and the effects gathered while one evaluation is under way. Lives as a child of its
// element, so elements without rules carry nothing and the state goes with the element.
class ConstraintState : public QObject
{
    Q_OBJECT

public:
    // The element's state, created on first use when create is true.
    static ConstraintState* of(Element* element, bool create);

    // Result of the last test of a rule; none before its first test.
    std::optional<bool> activity(const Constraint* constraint) const;
    void setActivity(const Constraint* constraint, bool active);
    // Forgets rules that no longer govern the element (the declarations were read again).
    void keepOnly(const QList<const Constraint*>& constraints);

    // One evaluation: gathered effects start empty.
    void beginPass();
    std::optional<bool> pendingEnabled() const { return _enabled; }
    void setPendingEnabled(bool enabled) { _enabled = enabled; }
    std::optional<bool> pendingHidden() const { return _hidden; }
    void setPendingHidden(bool hidden) { _hidden = hidden; }
    // Names assigned by rules that hold, in this evaluation.
    bool hasAssignments() const { return !_assigned.isEmpty(); }
    void markAssigned(const QString& name) { _assigned.insert(name); }

    // The element's own value of an attribute, taken before a rule first replaces it.
    bool hasOwnValue(const QString& name) const { return _own.contains(name); }
    void keepOwnValue(const QString& name, const QVariant& value) { _own.insert(name, value); }
    // Own values of attributes that no rule assigned in this evaluation; they are forgotten,
    // as the caller puts them back.
    QVariantMap takeReleasedValues();

    // Whether the element was last shown hidden; none before the first time.
    std::optional<bool> shownHidden() const { return _shownHidden; }
    void setShownHidden(bool hidden) { _shownHidden = hidden; }

    // True once for each control the element creates: a fresh control starts visible and
    // enabled and must be told the element's state.
    bool takeFreshControl(QWidget* control);

private:
    explicit ConstraintState(Element* element);

    QHash<const Constraint*, bool> _activity;
    QVariantMap _own;
    QSet<QString> _assigned;
    std::optional<bool> _enabled;
    std::optional<bool> _hidden;
    std::optional<bool> _shownHidden;
    QPointer<QWidget> _lastControl;
};
