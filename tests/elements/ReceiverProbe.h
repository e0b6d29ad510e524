#pragma once

#include <QObject>
#include <QStringList>

// Stands where the settings dialog receives element signals: records every slot call as
// "slot:argument".
class ReceiverProbe : public QObject
{
    Q_OBJECT

public:
    QStringList calls;

public slots:
    void changeVisibility(bool visible) { log("changeVisibility", visible ? "true" : "false"); }
    void elementChanged(const QString& value) { log("elementChanged", value); }
    void elementReset() { log("elementReset"); }
    void popupApplyClicked() { log("popupApplyClicked"); }
    void phoneBookClicked(const QString& id) { log("phoneBookClicked", id); }
    void emailBookClicked(const QString& id) { log("emailBookClicked", id); }
    void addressBookClicked(const QString& id) { log("addressBookClicked", id); }
    void wirelessSetupClicked(const QString& id) { log("wirelessSetupClicked", id); }
    void inkTestPagePrintClicked(const QString& id) { log("inkTestPagePrintClicked", id); }
    void inkCartridgeCleanClicked(const QString& id) { log("inkCartridgeCleanClicked", id); }
    void inkCartridgeAlignSFPClicked(const QString& id) { log("inkCartridgeAlignSFPClicked", id); }
    void inkCartridgeAlignMFPClicked(const QString& id) { log("inkCartridgeAlignMFPClicked", id); }

private:
    void log(const char* slot, const QString& argument = QString())
    {
        calls.append(QString::fromLatin1(slot) + QLatin1Char(':') + argument);
    }
};
