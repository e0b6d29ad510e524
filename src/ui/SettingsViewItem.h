#pragma once

#include <QTreeWidgetItem>

class Element;
class QTreeWidget;

// A row of the favourites list or the parameter tree. It keeps the element it stands for;
// a favourite also keeps the parameter-tree row it leads to once that row exists.
class SettingsViewItem : public QTreeWidgetItem
{
public:
    static constexpr int Type = QTreeWidgetItem::UserType + 1;

    SettingsViewItem(QTreeWidget* list, Element* element);
    SettingsViewItem(QTreeWidgetItem* parentItem, Element* element);

    // Under parentItem when given, else at the top of list.
    static SettingsViewItem* create(QTreeWidget* list, QTreeWidgetItem* parentItem,
                                    Element* element);

    Element* element() const { return _element; }
    QTreeWidgetItem* node() const { return _node; }
    void setNode(QTreeWidgetItem* node) { _node = node; }

    // A row is hidden for two reasons that never undo each other: the device's dependencies
    // hide its setting, or the find filter leaves it out.
    bool isDeviceHidden() const { return _deviceHidden; }
    void setDeviceHidden(bool hidden);
    bool isFilteredOut() const { return _filteredOut; }
    void setFilteredOut(bool out);

private:
    void fill();

    Element* _element;
    QTreeWidgetItem* _node = nullptr;
    bool _deviceHidden = false;
    bool _filteredOut = false;
};
