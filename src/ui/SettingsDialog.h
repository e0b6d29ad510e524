#pragma once

#include "ui/SettingsDialogBase.h"

#include <QHash>
#include <QList>
#include <QPixmap>

class ButtonElement;
class Configurator;
class Element;
class FilterBar;
class QTreeWidgetItem;
class SettingsPanel;
class SettingsViewItem;

// The program's main window: favourite groups, the parameter tree with its values, and a
// panel that holds the controls of the selected group. It knows elements only through the
// element model and the device only through the Configurator.
class SettingsDialog : public SettingsDialogBase
{
    Q_OBJECT

public:
    explicit SettingsDialog(QWidget* parent = nullptr, const char* name = nullptr,
                            Qt::WindowFlags flags = {});
    ~SettingsDialog() override;

    void initialize(Configurator* configurator, const QString& devName);
    void fillSettings(Element* root);
    void validateSettings(Element* root);
    void updateChanges(const QString& id);

    SettingsViewItem* findFavoriteItem(const QString& id) const;
    SettingsViewItem* findParamItem(const QString& id) const;
    // The element whose group the panel shows, and the panel itself.
    Element* shownGroup() const;
    QWidget* panel() const;
    // How many settings differ from what the device holds.
    int pendingCount() const { return _pending; }
    // Keeps the size and fold state for the next run on this model.
    void done(int result) override;
    void reject() override;

public slots:
    void elementChanged(const QString& value);
    void changeVisibility(bool visible);
    void elementReset();
    void buttonClicked(const QString& id);
    void phoneBookClicked(const QString& id);
    void emailBookClicked(const QString& id);
    void addressBookClicked(const QString& id);
    void wirelessSetupClicked(const QString& id);
    void inkTestPagePrintClicked(const QString& id);
    void inkCartridgeCleanClicked(const QString& id);
    void inkCartridgeAlignSFPClicked(const QString& id);
    void inkCartridgeAlignMFPClicked(const QString& id);
    void popupApplyClicked();

protected slots:
    void slider_clicked();
    void paramList_selectionChanged(QTreeWidgetItem* item);
    void favoriteList_selectionChanged(QTreeWidgetItem* item);
    void paramList_activated(QTreeWidgetItem* item);
    void applyBtn_clicked();
    void defBtn_clicked();
    void closeBtn_clicked();
    void helpBtn_clicked();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Element* senderElement() const;
    SettingsViewItem* rowOf(Element* element) const;
    void showGroupOf(Element* element);
    // The control of an element, made now when the panel was still to make it.
    QWidget* controlOf(Element* element) const;
    void chainPanelFocus(QWidget* block);
    void findFocusFollowers();
    void leadTo(Element* element);
    // Asks before values emptied at load are cleared on the device; false when the user
    // keeps them (nothing is sent then).
    bool confirmClearing(Element* under);
    // Sends the changes of id (all changes when empty); tells the user when the printer
    // does not take them. True when sent and accepted.
    bool sendChanges(const QString& id);
    void reportSent(const ButtonElement* button, int settings);
    void animateFold(bool fold);
    void restoreLayout();
    void markChanges();
    Element* askDefaultScope();
    bool confirmAction(const Element* button);
    // The values shown while the device's values are held, for the review's "before".
    void recordDeviceValues();
    // Asks the user to confirm the pending changes under `under`; true to send.
    bool reviewChanges(Element* under);

    SettingsPanel* _panel = nullptr;
    FilterBar* _filterBar = nullptr;
    Configurator* _configurator = nullptr;
    int _selected = 0;
    Element* _root = nullptr;
    QPixmap _folder;
    QPixmap _folderOpen;
    QString _devName;

    QHash<QString, SettingsViewItem*> _paramItems;
    int _foldWidth = 0;
    int _treeMinWidth = 0;
    int _pending = 0;
    bool _holdMarks = false;
    QHash<const Element*, QString> _deviceShown;
    QList<QWidget*> _focusFollowers;
    QString _status; // what the line beside Apply says while nothing is pending
};
