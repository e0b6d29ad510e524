#pragma once

#include "elements/Element.h"

#include <QObject>
#include <QStringList>
#include <QWidget>

// Stands where the settings dialog receives element signals: records every slot call as
// "slot:argument". Like the dialog, it reports a popup form's Apply as refused when told to.
class ReceiverProbe : public QObject
{
    Q_OBJECT

public:
    QStringList calls;
    bool refuseApply = false;

public slots:
    void changeVisibility(bool visible) { log(__func__, visible ? "true" : "false"); }
    void elementChanged(const QString& value) { log(__func__, value); }
    void elementReset() { log(__func__); }
    void popupApplyClicked()
    {
        log(__func__);
        if (refuseApply)
            QMetaObject::invokeMethod(sender(), "setApplyRefused");
    }
    void phoneBookClicked(const QString& id) { log(__func__, id); }
    void emailBookClicked(const QString& id) { log(__func__, id); }
    void addressBookClicked(const QString& id) { log(__func__, id); }
    void wirelessSetupClicked(const QString& id) { log(__func__, id); }
    void inkTestPagePrintClicked(const QString& id) { log(__func__, id); }
    void inkCartridgeCleanClicked(const QString& id) { log(__func__, id); }
    void inkCartridgeAlignSFPClicked(const QString& id) { log(__func__, id); }
    void inkCartridgeAlignMFPClicked(const QString& id) { log(__func__, id); }

private:
    void log(const char* slot, const QString& argument = {})
    {
        calls.append(QString(slot) + ':' + argument);
    }
};

// Wires the tree below `root` to the probe twice, then creates and deletes the element's control
// twice; false when a deleted control left a widget behind. Ends with a fresh control in `panel`.
inline bool wireTwiceAndRecreate(Element* root, ReceiverProbe& probe, Element* element,
                                 QWidget& panel)
{
    root->connectSignals(&probe);
    root->connectSignals(&probe);
    for (int i = 0; i < 2; ++i) {
        element->createControl(&panel);
        element->deleteControl();
        if (!panel.findChildren<QWidget*>().isEmpty())
            return false;
    }
    element->createControl(&panel);
    return true;
}
