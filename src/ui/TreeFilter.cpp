#include "ui/TreeFilter.h"

#include "elements/ConcreteElement.h"
#include "elements/Element.h"
#include "ui/SettingsViewItem.h"

#include <QHash>
#include <QTimer>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace {

bool findChange(Element* element, void* data)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (!concrete || !concrete->isChanged())
        return true;
    *static_cast<bool*>(data) = true;
    return false;
}

// A setting row with a pending change, a table's row for any of its cells.
bool hasChange(Element* element)
{
    bool changed = false;
    element->iterateElements(findChange, &changed);
    return changed;
}

} // namespace

TreeFilter::TreeFilter(QTreeWidget* tree)
    : QObject(tree)
    , _tree(tree)
{
    // Rows made or dropped (the dialog refills the tree) are indexed anew when next needed.
    QAbstractItemModel* model = tree->model();
    connect(model, &QAbstractItemModel::modelAboutToBeReset, this, &TreeFilter::forgetRows);
    connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this, &TreeFilter::forgetRows);
    connect(model, &QAbstractItemModel::rowsInserted, this, &TreeFilter::forgetRows);
    connect(tree, &QTreeWidget::itemChanged, this, &TreeFilter::valueChanged);
}

void TreeFilter::setText(const QString& text)
{
    if (text == _text)
        return;
    _text = text;
    _needle = text.trimmed().toCaseFolded();
    apply();
}

void TreeFilter::setChangedOnly(bool on)
{
    if (on == _changedOnly)
        return;
    _changedOnly = on;
    _matchesValid = false;
    apply();
}

void TreeFilter::refreshLater()
{
    _matchesValid = false;
    if (_refreshPending || !isActive())
        return;
    _refreshPending = true;
    QTimer::singleShot(0, this, [this] {
        _refreshPending = false;
        apply();
    });
}

void TreeFilter::forgetRows()
{
    _rows.clear();
    _indexOf.clear();
    _indexed = false;
    _matchesValid = false;
    _expandedBefore.clear();
    refreshLater(); // a refilled tree is narrowed as the old one was
}

// A shown value that changes is read again; with "changed only" the rows follow the edits
// (the list marks a change by its value and its bold title).
void TreeFilter::valueChanged(QTreeWidgetItem* item, int column)
{
    if (!_indexed || item->type() != SettingsViewItem::Type)
        return;
    const int i = _indexOf.value(item, -1);
    if (column == 1 && i >= 0) {
        _rows[i].value = item->text(1).toCaseFolded();
        _matchesValid = false;
    }
    if (_changedOnly)
        refreshLater();
}

void TreeFilter::prepare()
{
    if (!_indexed)
        index();
}

void TreeFilter::index()
{
    _rows.clear();
    _indexOf.clear();
    _rows.reserve(_tree->topLevelItemCount() * 8);
    for (QTreeWidgetItemIterator it(_tree); *it; ++it) {
        if ((*it)->type() != SettingsViewItem::Type)
            continue;
        auto* item = static_cast<SettingsViewItem*>(*it);
        const Element* element = item->element();
        Row row{item, _indexOf.value(item->parent(), -1), QString(), item->text(1).toCaseFolded(),
                !element || element->isComplex()};
        if (element) {
            // The description defaults to the title: searched once then. A group's description
            // speaks of its members, so it would bring them all in: only its name counts.
            row.hay = element->title() + QLatin1Char('\n') + element->id();
            if (!row.group && element->description() != element->title())
                row.hay += QLatin1Char('\n') + element->description();
            row.hay = std::move(row.hay).toCaseFolded();
        }
        _indexOf.insert(item, int(_rows.size()));
        _rows.append(row);
    }
    _indexed = true;
}

bool TreeFilter::matches(const Row& row) const
{
    if (_changedOnly && (row.group || !row.item->element() || !hasChange(row.item->element())))
        return false;
    return _needle.isEmpty() || row.hay.contains(_needle) || row.value.contains(_needle);
}

QVector<int> TreeFilter::candidates() const
{
    if (_matchesValid && _needle.contains(_matchedNeedle))
        return _matches;
    QVector<int> all(_rows.size());
    for (int i = 0; i < all.size(); ++i)
        all[i] = i;
    return all;
}

void TreeFilter::apply()
{
    if (!_indexed)
        index();
    if (!isActive()) {
        QVector<bool> all(_rows.size(), true);
        show(all);
        restoreExpansion();
        _matchesValid = false;
        _matchCount = 0;
        return;
    }
    if (_expandedBefore.isEmpty()) {
        _expandedBefore.resize(_rows.size());
        for (int i = 0; i < _rows.size(); ++i)
            _expandedBefore[i] = _rows[i].item->isExpanded();
    }

    QVector<int> found;
    for (int i : candidates()) {
        if (matches(_rows[i]))
            found.append(i);
    }
    // A matching group brings its rows along; every shown row brings the groups above it.
    QVector<bool> revealed(_rows.size(), false);
    for (int i : std::as_const(found))
        revealed[i] = true;
    for (int i = 0; i < _rows.size(); ++i) {
        const int parent = _rows[i].parent;
        if (parent >= 0 && revealed[parent] && _rows[parent].group)
            revealed[i] = true;
    }
    QVector<bool> shown = revealed;
    _matchCount = 0;
    for (int i = int(_rows.size()) - 1; i >= 0; --i) {
        if (!shown[i] || _rows[i].item->isDeviceHidden())
            continue;
        if (!_rows[i].group)
            ++_matchCount;
        if (_rows[i].parent >= 0)
            shown[_rows[i].parent] = true;
    }
    show(shown);
    expandShownGroups(shown);
    _matches = found;
    _matchedNeedle = _needle;
    _matchesValid = true;
}

void TreeFilter::show(const QVector<bool>& shown)
{
    const bool updates = _tree->updatesEnabled();
    _tree->setUpdatesEnabled(false);
    for (int i = 0; i < _rows.size(); ++i) {
        if (_rows[i].item->isFilteredOut() == shown[i])
            _rows[i].item->setFilteredOut(!shown[i]);
    }
    _tree->setUpdatesEnabled(updates);
}

void TreeFilter::expandShownGroups(const QVector<bool>& shown)
{
    for (int i = 0; i < _rows.size(); ++i) {
        if (shown[i] && _rows[i].group && !_rows[i].item->isExpanded())
            _rows[i].item->setExpanded(true);
    }
}

void TreeFilter::restoreExpansion()
{
    if (_expandedBefore.size() != _rows.size())
        return;
    for (int i = 0; i < _rows.size(); ++i) {
        if (_rows[i].item->isExpanded() != _expandedBefore[i])
            _rows[i].item->setExpanded(_expandedBefore[i]);
    }
    _expandedBefore.clear();
}
