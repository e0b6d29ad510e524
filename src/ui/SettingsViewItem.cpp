#include "ui/SettingsViewItem.h"

#include "elements/ConcreteElement.h"
#include "elements/SecretSetting.h"
#include "ui/ElementHelp.h"

SettingsViewItem::SettingsViewItem(QTreeWidget* list, Element* element)
    : QTreeWidgetItem(list, Type)
    , _element(element)
{
    fill();
}

SettingsViewItem::SettingsViewItem(QTreeWidgetItem* parentItem, Element* element)
    : QTreeWidgetItem(parentItem, Type)
    , _element(element)
{
    fill();
}

SettingsViewItem* SettingsViewItem::create(QTreeWidget* list, QTreeWidgetItem* parentItem,
                                           Element* element)
{
    if (parentItem)
        return new SettingsViewItem(parentItem, element);
    return new SettingsViewItem(list, element);
}

void SettingsViewItem::fill()
{
    if (!_element)
        return;
    setText(0, _element->title());
    if (const auto* concrete = qobject_cast<const ConcreteElement*>(_element))
        setText(1, SecretSetting::shownValue(concrete));
    ElementHelp::applyToRow(this, _element);
}

void SettingsViewItem::setDeviceHidden(bool hidden)
{
    _deviceHidden = hidden;
    setHidden(_deviceHidden || _filteredOut);
}

void SettingsViewItem::setFilteredOut(bool out)
{
    _filteredOut = out;
    setHidden(_deviceHidden || _filteredOut);
}
