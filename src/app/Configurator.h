#pragma once

#include "xml/Capabilities.h"
#include "xml/SettingsParser.h"

#include <QObject>
#include <QString>

class Element;
class SettingsDialog;

// The controller between the settings dialog and everything below it: obtains the settings
// (from the printer or a local file), translates them, sends the changes back, and starts
// the sibling programs and ink maintenance actions the dialog asks for.
class Configurator : public QObject
{
    Q_OBJECT

public:
    Configurator(const QString& programDir, const QString& devPath, const QString& devName,
                 bool useLocal, bool saveSend, bool saveSpec, bool saveNew);
    ~Configurator() override;

    // The program's name as windows show it.
    static QString applicationTitle();

    Element* getPrinterSettings();
    // The specification as 8-bit text: each character is one byte of the document, as the
    // device or the local file holds it.
    QString readPrinterSettings();
    bool setPrinterSettings(const QString& id);

    Element* rootElement() const;
    SettingsParser& parser() { return settingsParser; }
    const Capabilities& capabilities() const { return caps; }
    QString devicePath() const { return devPath; }
    QString deviceName() const { return devName; }
    // A local file name resolved against the program folder.
    QString resolvePath(const QString& name) const;
    // Why the last exchange with the printer failed, in words for the user; empty when it
    // did not fail or the reason is unknown.
    const QString& exchangeProblem() const { return problem; }

public slots:
    virtual bool applySettings(const QString& id);
    virtual void phoneBookStart();
    virtual void emailBookStart();
    virtual void addressBookStart();
    virtual void wirelessSetupStart();
    virtual void ijTestPagePrint(SettingsDialog* parent, const QString& buttonId = QString());
    virtual void ijCartridgeClean(SettingsDialog* parent, const QString& buttonId = QString());
    virtual void ijCartridgeAlignSFP(bool photoInk, SettingsDialog* parent,
                                     const QString& buttonId = QString());
    virtual void ijCartridgeAlignMFP(SettingsDialog* parent, const QString& buttonId = QString());

private:
    // The first test page button of the tree, or empty: the cleaning wizard offers it.
    QString testPageButtonId() const;
    static bool findTestPageButton(Element* element, void* data);
    void reportVersion();
    QString readVersion() const;
    void applyTranslation();
    void saveText(const QString& fileName, const QByteArray& text) const;
    QString withDevName(const char* pattern) const;

    SettingsParser settingsParser;
    QString programDir;
    QString devPath;
    QString devName;
    bool useLocal;
    bool saveSend;
    bool saveSpec;
    bool saveNew;
    Capabilities caps;
    QString problem;
};
