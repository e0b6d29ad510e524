#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

// Stands where the settings dialog receives element signals: records every slot call as
// "slot:argument".
class ReceiverProbe : public QObject
{
    Q_OBJECT

public:
    QStringList calls;

public slots:
    void changeVisibility(bool visible) { record("changeVisibility", visible ? "true" : "false"); }
    void elementChanged(const QString& value) { record("elementChanged", value); }
    void elementReset() { record("elementReset", QString()); }
    void popupApplyClicked() { record("popupApplyClicked", QString()); }
    void phoneBookClicked(const QString& id) { record("phoneBookClicked", id); }
    void emailBookClicked(const QString& id) { record("emailBookClicked", id); }
    void addressBookClicked(const QString& id) { record("addressBookClicked", id); }
    void wirelessSetupClicked(const QString& id) { record("wirelessSetupClicked", id); }
    void inkTestPagePrintClicked(const QString& id) { record("inkTestPagePrintClicked", id); }
    void inkCartridgeCleanClicked(const QString& id) { record("inkCartridgeCleanClicked", id); }
    void inkCartridgeAlignSFPClicked(const QString& id)
    {
        record("inkCartridgeAlignSFPClicked", id);
    }
    void inkCartridgeAlignMFPClicked(const QString& id)
    {
        record("inkCartridgeAlignMFPClicked", id);
    }

private:
    void record(const char* slot, const QString& argument)
    {
        calls.append(QString::fromLatin1(slot) + QLatin1Char(':') + argument);
    }
};
