#include "cli/CtlSource.h"

#include "app/CapabilityLookup.h"
#include "app/SettingsEdit.h"
#include "app/SystemLocale.h"
#include "cli/CtlMessages.h"
#include "elements/TextElement.h"
#include "io/DeviceAccess.h"
#include "io/IOClient.h"
#include "io/IOClientUsbEp0.h"
#include "io/PrinterDiscovery.h"
#include "io/TAVClient.h"
#include "xml/ElementType.h"
#include "xml/SettingLocator.h"
#include "xml/Translator.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

// The dialog's timing: poll 200 ms, give up after 3 s in which not a byte moved.
constexpr int kPollMs = 200;
constexpr int kIdleLimitMs = 3000;

std::unique_ptr<TAVClient> makeClient(const QString& path, const Capabilities* caps)
{
    auto client = std::make_unique<TAVClient>(path, caps);
    client->setTimings(kPollMs, kPollMs, kIdleLimitMs);
    return client;
}

// Up to one byte beyond the reader's limit, so that the reader refuses a larger file; a
// buffer of that size is taken only for a file that large.
QByteArray readLimited(const QString& path, bool* ok)
{
    QFile file(path);
    *ok = file.open(QIODevice::ReadOnly);
    if (!*ok)
        return QByteArray();
    return file.read(qBound<qint64>(1, file.size() + 1, DomParser::kMaxDocumentBytes + 1));
}

} // namespace

CtlSource::CtlSource(const QString& shareDir, const QString& target, Kind kind,
                     const QString& model)
    : shareDir(shareDir)
    , _target(target)
    , _kind(kind)
    , _model(model)
{
}

CtlSource::Kind CtlSource::kindOf(const QString& path)
{
    const QFileInfo info(path);
    if (!info.isFile())
        return Device;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Device;
    return file.read(4096).contains("<TavolorBackup") ? BackupFile : SpecificationFile;
}

CtlStatus CtlSource::load(Depth depth)
{
    const CtlStatus status = _kind == Device ? loadDevice() : loadFile();
    if (status != csDone || _kind == BackupFile || depth == DocumentOnly)
        return status;
    return build(depth);
}

CtlStatus CtlSource::build(Depth depth)
{
    const CtlStatus parsed = parse(_text);
    if (parsed != csDone)
        return parsed;
    if (!_parser.readPrinterSettings()) {
        CtlMessages::error(CtlMessages::tr("the settings of %1 cannot be read: %2")
                               .arg(_target, CtlMessages::tr("not a settings specification")));
        return csUnreachable;
    }
    if (depth == TreeWithRules) {
        applyTranslation();
        // The local dependency declarations sit beside the program, where the dialog reads
        // them; the user's folder is back in place for the files named on the command line.
        const QString userFolder = QDir::currentPath();
        QDir::setCurrent(shareDir + QStringLiteral("/../bin"));
        _parser.readDependencies();
        QDir::setCurrent(userFolder);
    }
    if (_model.isEmpty())
        _model = modelFromTree();
    return csDone;
}

CtlStatus CtlSource::loadDevice()
{
    IOClient probe(_target);
    if (!probe.open(QIODevice::ReadWrite)) {
        const QString permission = DeviceAccess::permissionProblem(_target);
        CtlMessages::error(
            permission.isEmpty()
                ? CtlMessages::tr("cannot open the device %1: %2").arg(_target, probe.errorString())
                : permission);
        return csUnreachable;
    }
    probe.close();
    if (_model.isEmpty()) {
        const QString deviceId =
            QString::fromLatin1(probe.ep0().getDeviceID(IOClientUsbEp0::kTimeoutMs));
        _model = PrinterDiscovery::idFields(deviceId).value(QStringLiteral("MDL"));
    }
    // Without a model every capability holds, as in the dialog for an unknown model.
    if (!_model.isEmpty())
        caps = lookupCapabilities(shareDir + QStringLiteral("/capabilities.xml"), _model);
    auto client = makeClient(_target, &caps);
    const QString text =
        client->useIds() ? client->getSpecification_ids() : client->getSpecification_tav();
    if (text.isEmpty()) {
        CtlMessages::error(CtlMessages::tr("the device %1 did not send its settings").arg(_target));
        return csUnreachable;
    }
    _text = text.toLatin1();
    return csDone;
}

CtlStatus CtlSource::loadFile()
{
    bool ok = false;
    const QByteArray data = readLimited(_target, &ok);
    if (!ok) {
        CtlMessages::error(CtlMessages::tr("cannot read %1").arg(_target));
        return csUnreachable;
    }
    if (_kind == SpecificationFile) {
        _text = data;
        return csDone;
    }
    QString error;
    if (!_backup.read(data, &error)) {
        CtlMessages::error(CtlMessages::tr("the backup %1 is refused: %2").arg(_target, error));
        return csValueRefused;
    }
    if (_model.isEmpty())
        _model = _backup.model;
    return csDone;
}

CtlStatus CtlSource::parse(const QByteArray& text)
{
    const QString refusal = DomParser::screen(text);
    if (!refusal.isEmpty() || !_parser.setContent(text) || settingsNode().isNull()) {
        CtlMessages::error(CtlMessages::tr("the settings of %1 cannot be read: %2")
                               .arg(_target, refusal.isEmpty()
                                                 ? CtlMessages::tr("not a settings specification")
                                                 : refusal));
        return csUnreachable;
    }
    return csDone;
}

void CtlSource::applyTranslation()
{
    const QString folder = shareDir + QStringLiteral("/translation/");
    QString locale = GetSystemLocale();
    if (!QFileInfo(folder + locale).isDir())
        locale = QStringLiteral("en");
    const QString file = folder + QStringLiteral("%1/tav_%1.xml").arg(locale);
    if (QFileInfo::exists(file))
        _parser.translate(Translator(file));
}

QString CtlSource::modelFromTree() const
{
    const auto* name = qobject_cast<TextElement*>(_parser.findElement(QStringLiteral("ModelName")));
    return name ? name->textLabel() : QString();
}

QDomElement CtlSource::settingsNode() const
{
    const QDomNode ids = _parser.find(QStringLiteral("root/IDSInfo"));
    return (ids.isNull() ? _parser.find(QStringLiteral("root/PrinterSettingsInfo")) : ids)
        .toElement();
}

CtlStatus CtlSource::readSettings(const QStringList& ids)
{
    _fromMarkup = buildFromMarkup(ids);
    if (_fromMarkup)
        return csDone;
    built.clear();
    looked.clear();
    fragments.clear();
    const CtlStatus status = build(TreeWithRules);
    if (status == csDone)
        SettingsEdit evaluated(_parser); // dependencies evaluated, as `show` shows them
    return status;
}

bool CtlSource::buildFromMarkup(const QStringList& ids)
{
    // Ids the reader gives or repairs while it reads the whole tree: table cells, the about
    // record, subnet masks; the gateway always has a dependency.
    for (const QString& id : ids) {
        if (id.contains(QLatin1Char('.')) || id == FixedIds::SubnetMask ||
            id == FixedIds::AboutElement || id == FixedIds::Gateway)
            return false;
    }
    SettingLocator locator(ids);
    QSet<QString> governed;
    if (!locator.locate(_text) || !declaredDependencies(&governed))
        return false;
    governed.unite(locator.declared());
    for (const QString& id : ids) {
        if (governed.contains(id))
            return false;
        const QByteArrayView markup = locator.markup(id);
        if (markup.isEmpty()) {
            built.insert(id, nullptr);
            continue;
        }
        fragments.push_back(std::make_unique<DomParser>());
        if (!fragments.back()->setContent(markup.toByteArray()))
            return false;
        looked.emplace_back(_parser.createElement(fragments.back()->document().documentElement(),
                                                  &markupParent, nullptr));
        // A text shows its title, which a translation may change.
        if (!looked.back() || qobject_cast<TextElement*>(looked.back().get()))
            return false;
        built.insert(id, looked.back().get());
    }
    return true;
}

bool CtlSource::declaredDependencies(QSet<QString>* ids) const
{
    // The declarations the dialog merges in from beside the program.
    const QString file = shareDir + QStringLiteral("/../bin/dependencies.xml");
    if (!QFileInfo::exists(file))
        return true;
    bool read = false;
    SettingLocator locator({});
    if (!locator.run(readLimited(file, &read)) || !read)
        return false;
    *ids = locator.declared();
    return true;
}

const Element* CtlSource::lookup(const QString& id) const
{
    if (_parser.root())
        return _parser.findElement(id);
    return built.value(id);
}

CtlStatus CtlSource::send(const QString& changes)
{
    auto client = makeClient(_target, &caps);
    const bool accepted =
        client->useIds() ? client->setChanges_ids(changes) : client->setChanges_tav(changes);
    if (accepted)
        return csDone;
    IOClient probe(_target);
    if (!probe.open(QIODevice::ReadWrite))
        return csUnreachable;
    return csDeviceRefused;
}
