#include "app/Configurator.h"

#include "app/CapabilityLookup.h"
#include "app/DeviceTask.h"
#include "app/ExternalPrograms.h"
#include "app/Log.h"
#include "app/ProgramPaths.h"
#include "app/SystemLocale.h"
#include "elements/AboutInfo.h"
#include "elements/Element.h"
#include "io/TAVClient.h"
#include "ui/InkAlignMFPWizard.h"
#include "ui/InkAlignSFPWizard.h"
#include "ui/InkCleanWizard.h"
#include "ui/InkTestPageWizard.h"
#include "ui/MimeSourceFactory_dorn.h"
#include "ui/SettingsDialog.h"
#include "xml/ElementType.h"
#include "xml/Translator.h"

#include <QCoreApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QPixmap>
#include <QPixmapCache>

namespace {

// Timing of every device exchange: poll 200 ms for reading and for writing, and give up
// after 3000 ms in which not a single byte moved.
constexpr int kReadPollMs = 200;
constexpr int kWritePollMs = 200;
constexpr int kIdleLimitMs = 3000;

constexpr int kMaxVersionLine = 1024;

const char kVersionFile[] = "./.version";
const char kLocalSpecification[] = "./tav.xml";
const char kCapabilitiesFile[] = "../share/capabilities.xml";
const char kTranslationFolder[] = "../share/translation/";
const char kLogoFile[] = "../share/icons/logo.png";

QString copyrightText()
{
    return QCoreApplication::translate("Configurator",
                                       "Copyright (C) 2026 The Tavolor authors. Free software.");
}

// Keeps decoded images small in memory; the about logo is the only large one.
struct AutoPixmapCache
{
    AutoPixmapCache() { QPixmapCache::setCacheLimit(1024); }
};
const AutoPixmapCache autoPixmapCache;

std::unique_ptr<TAVClient> makeClient(const QString& devPath, const Capabilities* caps,
                                      ExchangeProgress& progress)
{
    auto client = std::make_unique<TAVClient>(devPath, caps);
    client->setTimings(kReadPollMs, kWritePollMs, kIdleLimitMs);
    client->setProgress(&progress);
    return client;
}

// A change document that parses and names no setting: nothing to send.
bool reportsNothing(const QDomDocument& changes)
{
    return changes.documentElement().firstChildElement().isNull();
}

// "/" and NUL cannot stand in a file name: a device name holding them still names a file
// beside the program.
QString fileNamePart(QString name)
{
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    name.replace(QChar(0), QLatin1Char('_'));
    return name;
}

} // namespace

Configurator::Configurator(const QString& programDir, const QString& devPath,
                           const QString& devName, bool useLocal, bool saveSend, bool saveSpec,
                           bool saveNew)
    : programDir(programDir)
    , devPath(devPath)
    , devName(devName)
    , useLocal(useLocal)
    , saveSend(saveSend)
    , saveSpec(saveSpec)
    , saveNew(saveNew)
{
    MimeSourceFactory_dorn::registerImages();
    reportVersion();
    caps = lookupCapabilities(resolvePath(QLatin1String(kCapabilitiesFile)), devName);
}

QString Configurator::applicationTitle()
{
    return QCoreApplication::translate("Configurator", "Tavolor");
}

Configurator::~Configurator() = default;

QString Configurator::resolvePath(const QString& name) const
{
    return resolveProgramPath(programDir, name);
}

QString Configurator::withDevName(const char* pattern) const
{
    return resolvePath(QString::fromLatin1(pattern).arg(fileNamePart(devName)));
}

Element* Configurator::rootElement() const
{
    return settingsParser.root();
}

QString Configurator::readVersion() const
{
    QFile file(resolvePath(QLatin1String(kVersionFile)));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return QString();
    return QString::fromUtf8(file.readLine(kMaxVersionLine)).trimmed();
}

void Configurator::reportVersion()
{
    const QString path = resolvePath(QLatin1String(kVersionFile));
    QFile file(path);
    if (!file.exists()) {
        ::log(9, "reportVersion", __LINE__, sourceFileName(__FILE__),
              "Configurator::Configurator() can't get application version");
        return;
    }
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        ::log(9, "reportVersion", __LINE__, sourceFileName(__FILE__),
              "Configurator::Configurator() can't open version file");
        return;
    }
    const QByteArray line = file.readLine(kMaxVersionLine);
    if (line.isEmpty()) {
        ::log(9, "reportVersion", __LINE__, sourceFileName(__FILE__),
              "Configurator::Configurator() can't read version file");
        return;
    }
    ::log(9, "reportVersion", __LINE__, sourceFileName(__FILE__),
          "\n=========================================================\n\t\t%s: "
          "%s\n=========================================================\n",
          qPrintable(applicationTitle()), line.trimmed().constData());
}

void Configurator::saveText(const QString& fileName, const QByteArray& text) const
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        TAV_LOG(9, "Cannot open file: '%s'", QFile::encodeName(fileName).constData());
        return;
    }
    file.write(text);
}

QString Configurator::readPrinterSettings()
{
    problem.clear();
    QString text;
    if (useLocal) {
        const QString path = resolvePath(QLatin1String(kLocalSpecification));
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            TAV_LOG(9, "Cannot open file: '%s'", QFile::encodeName(path).constData());
            problem = QCoreApplication::translate("Configurator", "The file %1 cannot be read.")
                          .arg(QDir::toNativeSeparators(path));
            return QString();
        }
        text = QString::fromLatin1(file.readAll());
    } else {
        const Capabilities* capabilities = &caps;
        const QString path = devPath;
        TAVClient::Failure failure = TAVClient::Failure::None;
        DeviceTask::run(QCoreApplication::translate("Configurator", "Reading the settings of %1...")
                            .arg(devName),
                        [&text, &failure, path, capabilities](ExchangeProgress& progress) {
                            auto client = makeClient(path, capabilities, progress);
                            text = client->useIds() ? client->getSpecification_ids()
                                                    : client->getSpecification_tav();
                            failure = client->failure();
                        });
        problem = TAVClient::failureText(failure);
        if (text.isEmpty() && problem.isEmpty())
            problem = QCoreApplication::translate("Configurator", "The printer sent no settings.");
    }
    if (saveSpec)
        saveText(withDevName("./tav(%1).xml"), text.toLatin1());
    return text;
}

Element* Configurator::getPrinterSettings()
{
    const QString text = readPrinterSettings();
    if (text.isEmpty())
        return nullptr;

    const QString logoPath = resolvePath(QLatin1String(kLogoFile));
    QPixmap logo;
    if (!QPixmapCache::find(logoPath, &logo) && logo.load(logoPath))
        QPixmapCache::insert(logoPath, logo);
    settingsParser.setAboutInfo(AboutInfo(
        devName, applicationTitle(), Version::fromString(readVersion()), copyrightText(), logo));

    // The text carries the document's bytes one to one; the XML reader decodes them by the
    // encoding the document declares.
    settingsParser.setContent(text.toLatin1());
    if (!settingsParser.readPrinterSettings()) {
        problem =
            QCoreApplication::translate("Configurator", "The settings document cannot be read.");
        return nullptr;
    }
    applyTranslation();
    if (saveNew)
        settingsParser.save(withDevName("./tav(%1).xml"));
    settingsParser.readDependencies();
    return settingsParser.root();
}

void Configurator::applyTranslation()
{
    QString locale = GetSystemLocale();
    TAV_LOG(9, "TAV System locale: %s \n", qPrintable(locale));
    QString folder = resolvePath(QLatin1String(kTranslationFolder) + locale);
    TAV_LOG(9, "TAV folderName: %s \n", qPrintable(folder));
    // No locale at all (one that is not installed) counts as an unknown language; its empty
    // name would name the folder of all languages.
    if (locale.isEmpty() || !QFileInfo(folder).isDir()) {
        locale = QStringLiteral("en");
        folder = resolvePath(QLatin1String(kTranslationFolder) + locale);
    }
    TAV_LOG(9, "TAV [en]folderName: %s \n", qPrintable(folder));
    if (!QFileInfo(folder).isDir()) {
        TAV_LOG(9, "TAV [en]folderName: %s doesn't exist!!! \n", qPrintable(folder));
        return;
    }
    const QString file = resolvePath(QStringLiteral("%1%2/%3").arg(
        QLatin1String(kTranslationFolder), locale, QStringLiteral("tav_%1.xml").arg(locale)));
    TAV_LOG(9, "Translation file: %s", qPrintable(file));
    const Translator translator(file);
    settingsParser.translate(translator);
}

bool Configurator::setPrinterSettings(const QString& id)
{
    TAV_LOG(9, "id='%s'", qPrintable(id));
    if (saveSend)
        saveText(withDevName("./tav_send(%1).xml"), settingsParser.getChanges(id).toUtf8());

    problem.clear();
    const QString changes = settingsParser.getChanges(id);
    QDomDocument document;
    if (!document.setContent(changes)) {
        TAV_LOG(9, "the change document does not parse: nothing sent");
        return false;
    }
    if (reportsNothing(document)) {
        TAV_LOG(9, "nothing changed: no change document sent");
        return true;
    }
    bool accepted = false;
    TAVClient::Failure failure = TAVClient::Failure::None;
    const Capabilities* capabilities = &caps;
    const QString path = devPath;
    DeviceTask::run(
        QCoreApplication::translate("Configurator", "Sending the settings to %1...").arg(devName),
        [&accepted, &failure, &changes, path, capabilities](ExchangeProgress& progress) {
            auto client = makeClient(path, capabilities, progress);
            accepted = client->useIds() ? client->setChanges_ids(changes)
                                        : client->setChanges_tav(changes);
            failure = client->failure();
        });
    problem = TAVClient::failureText(failure);
    return accepted;
}

bool Configurator::applySettings(const QString& id)
{
    return setPrinterSettings(id);
}

void Configurator::phoneBookStart()
{
    ExternalPrograms::startBook(programDir, ExternalPrograms::PhoneBookPath,
                                ExternalPrograms::PhoneBookConfig,
                                settingsParser.getPhoneBookDescription(), devPath);
}

void Configurator::emailBookStart()
{
    ExternalPrograms::startBook(programDir, ExternalPrograms::EmailBookPath,
                                ExternalPrograms::EmailBookConfig,
                                settingsParser.getEmailBookDescription(), devPath);
}

void Configurator::addressBookStart()
{
    ExternalPrograms::startBook(programDir, ExternalPrograms::AddressBookPath,
                                ExternalPrograms::AddressBookConfig,
                                settingsParser.getAddressBookDescription(), devPath);
}

void Configurator::wirelessSetupStart()
{
    ExternalPrograms::runWirelessSetup(programDir, {devPath});
}

// The ink maintenance wizards. Each finds out from the button's kind whether the press goes
// out as a change document or as a command block on the data channel.
void Configurator::ijTestPagePrint(SettingsDialog* parent, const QString& buttonId)
{
    InkTestPageWizard wizard(this, buttonId, parent);
    wizard.exec();
}

void Configurator::ijCartridgeClean(SettingsDialog* parent, const QString& buttonId)
{
    InkCleanWizard wizard(this, buttonId, parent);
    wizard.exec();
    if (wizard.testPageWanted())
        ijTestPagePrint(parent, testPageButtonId());
}

void Configurator::ijCartridgeAlignSFP(bool photoInk, SettingsDialog* parent,
                                       const QString& buttonId)
{
    InkAlignSFPWizard wizard(this, buttonId, photoInk, parent);
    wizard.exec();
}

void Configurator::ijCartridgeAlignMFP(SettingsDialog* parent, const QString& buttonId)
{
    InkAlignMFPWizard wizard(this, buttonId, parent);
    wizard.exec();
}

QString Configurator::testPageButtonId() const
{
    Element* root = settingsParser.root();
    QString id;
    if (root)
        root->iterateElements(findTestPageButton, &id);
    return id;
}

bool Configurator::findTestPageButton(Element* element, void* data)
{
    const int type = element->type();
    if (type != etInkTestPagePrint && type != etInkTestPagePrint_XML)
        return true;
    *static_cast<QString*>(data) = element->id();
    return false;
}
