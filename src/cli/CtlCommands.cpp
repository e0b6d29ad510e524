#include "cli/CtlCommands.h"

#include "app/SettingsEdit.h"
#include "cli/CtlMessages.h"
#include "cli/CtlTree.h"
#include "elements/ConcreteElement.h"
#include "io/PrinterDiscovery.h"
#include "xml/IdentitySettings.h"

#include <QDateTime>
#include <QFile>
#include <QHash>

#include <cstdio>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

CtlCommands::CtlCommands(const CtlArguments& arguments, const QString& shareDir)
    : arguments(arguments)
    , shareDir(shareDir)
    , operands(arguments.operands())
{
}

CtlStatus CtlCommands::run()
{
    const QString command = arguments.command();
    if (command == QLatin1String("list"))
        return list();
    if (command == QLatin1String("show"))
        return show();
    if (command == QLatin1String("get"))
        return get();
    if (command == QLatin1String("set"))
        return set();
    if (command == QLatin1String("export"))
        return exportBackup();
    if (command == QLatin1String("import"))
        return importBackup();
    return diff();
}

CtlStatus CtlCommands::usage(const QString& message) const
{
    CtlMessages::error(message);
    CtlMessages::error(
        CtlMessages::tr("'tavctl %1 --help' shows how to use it").arg(arguments.command()));
    return csUsage;
}

std::unique_ptr<CtlSource> CtlCommands::openSource(bool changes)
{
    const QString model = arguments.value(QStringLiteral("model"));
    if (arguments.isSet(QStringLiteral("spec"))) {
        if (changes && !arguments.isSet(QStringLiteral("dry-run"))) {
            usage(CtlMessages::tr("--spec only reads: add --dry-run"));
            return nullptr;
        }
        return std::make_unique<CtlSource>(shareDir, arguments.value(QStringLiteral("spec")),
                                           CtlSource::SpecificationFile, model);
    }
    if (operands.isEmpty()) {
        usage(CtlMessages::tr("name a device or give --spec FILE"));
        return nullptr;
    }
    return std::make_unique<CtlSource>(shareDir, operands.takeFirst(), CtlSource::Device, model);
}

CtlStatus CtlCommands::list()
{
    const DiscoveredPrinters printers = PrinterDiscovery::list();
    if (arguments.isSet(QStringLiteral("json"))) {
        QJsonArray array;
        for (const DiscoveredPrinter& printer : printers) {
            array.append(QJsonObject{{QStringLiteral("node"), printer.node},
                                     {QStringLiteral("manufacturer"), printer.manufacturer},
                                     {QStringLiteral("model"), printer.model},
                                     {QStringLiteral("serial"), printer.serial},
                                     {QStringLiteral("framing"), printer.framing}});
        }
        CtlMessages::out(QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact)));
        return csDone;
    }
    if (printers.isEmpty())
        CtlMessages::error(CtlMessages::tr("no USB printer is connected"));
    for (const DiscoveredPrinter& printer : printers) {
        CtlMessages::out(QStringLiteral("%1\t%2\t%3\t%4\t%5")
                             .arg(printer.node, printer.manufacturer, printer.model, printer.serial,
                                  printer.framing));
    }
    return csDone;
}

CtlStatus CtlCommands::show()
{
    auto source = openSource(false);
    if (!source)
        return csUsage;
    if (!operands.isEmpty())
        return usage(CtlMessages::tr("unexpected operand '%1'").arg(operands.first()));
    const CtlStatus status = source->load(CtlSource::TreeWithRules);
    if (status != csDone)
        return status;
    SettingsEdit evaluated(source->parser()); // disabled settings as the dialog shows them
    Element* top = source->parser().root();
    if (arguments.isSet(QStringLiteral("group"))) {
        top = source->parser().findElement(arguments.value(QStringLiteral("group")));
        if (!top) {
            CtlMessages::error(CtlMessages::tr("no such group '%1'")
                                   .arg(arguments.value(QStringLiteral("group"))));
            return csValueRefused;
        }
    }
    const CtlTree tree(arguments.isSet(QStringLiteral("changed")));
    if (arguments.isSet(QStringLiteral("json"))) {
        const QJsonObject document{{QStringLiteral("model"), source->model()},
                                   {QStringLiteral("settings"), tree.json(top)}};
        CtlMessages::out(QString::fromUtf8(QJsonDocument(document).toJson()));
    } else {
        for (const QString& line : tree.lines(top))
            CtlMessages::out(line);
    }
    return csDone;
}

CtlStatus CtlCommands::get()
{
    auto source = openSource(false);
    if (!source)
        return csUsage;
    if (operands.isEmpty())
        return usage(CtlMessages::tr("name at least one setting"));
    CtlStatus status = source->load(CtlSource::DocumentOnly);
    if (status == csDone)
        status = source->readSettings(operands);
    if (status != csDone)
        return status;
    QJsonObject values;
    CtlStatus result = csDone;
    for (const QString& id : std::as_const(operands)) {
        const Element* element = source->lookup(id);
        if (!element || !element->isConcrete()) {
            CtlMessages::error(CtlMessages::tr("%1: no such setting").arg(id));
            result = csValueRefused;
            continue;
        }
        values.insert(id, CtlTree::valueOf(element));
        if (!arguments.isSet(QStringLiteral("json")))
            CtlMessages::out(CtlTree::valueOf(element));
    }
    if (arguments.isSet(QStringLiteral("json")))
        CtlMessages::out(QString::fromUtf8(QJsonDocument(values).toJson(QJsonDocument::Compact)));
    return result;
}

CtlStatus CtlCommands::reportRefusals(const SettingsEdit& edit)
{
    for (const SettingsEdit::Refusal& refusal : edit.refusals()) {
        CtlMessages::error(CtlMessages::tr("%1: the value '%2' is refused: %3")
                               .arg(refusal.id, refusal.value, refusal.reason));
    }
    if (edit.refusals().isEmpty())
        return csDone;
    CtlMessages::error(CtlMessages::tr("nothing was sent"));
    return csValueRefused;
}

CtlStatus CtlCommands::sendChanges(CtlSource& source, SettingsEdit& edit)
{
    const QString changes = edit.changeDocument();
    if (changes.isEmpty()) {
        CtlMessages::error(CtlMessages::tr("nothing to change"));
        return csDone;
    }
    if (arguments.isSet(QStringLiteral("dry-run"))) {
        CtlMessages::out(changes);
        return csDone;
    }
    const CtlStatus status = source.send(changes);
    if (status == csDeviceRefused)
        CtlMessages::error(
            CtlMessages::tr("the device %1 refused the changes").arg(source.target()));
    else if (status == csUnreachable)
        CtlMessages::error(
            CtlMessages::tr("the device %1 went away while the change document of %2 was being "
                            "sent: it may hold all or none of them")
                .arg(source.target(), edit.changedIds().join(QStringLiteral(", "))));
    return status;
}

CtlStatus CtlCommands::set()
{
    auto source = openSource(true);
    if (!source)
        return csUsage;
    if (operands.isEmpty())
        return usage(CtlMessages::tr("name at least one ID=VALUE"));
    for (const QString& operand : std::as_const(operands)) {
        if (operand.indexOf(QLatin1Char('=')) <= 0)
            return usage(CtlMessages::tr("'%1' is not ID=VALUE").arg(operand));
    }
    const CtlStatus status = source->load(CtlSource::TreeWithRules);
    if (status != csDone)
        return status;
    SettingsEdit edit(source->parser());
    for (const QString& operand : std::as_const(operands)) {
        const int equals = operand.indexOf(QLatin1Char('='));
        edit.assign(operand.left(equals), operand.mid(equals + 1));
    }
    edit.refuseDisabled();
    const CtlStatus refused = reportRefusals(edit);
    return refused != csDone ? refused : sendChanges(*source, edit);
}

bool CtlCommands::underGroup(const Element* element, const QString& group) const
{
    for (const Element* e = element; e; e = e->parentElement()) {
        if (e->id() == group)
            return true;
    }
    return false;
}

CtlStatus CtlCommands::exportBackup()
{
    auto source = openSource(false);
    if (!source)
        return csUsage;
    if (!operands.isEmpty())
        return usage(CtlMessages::tr("unexpected operand '%1'").arg(operands.first()));
    const CtlStatus status = source->load(CtlSource::Tree);
    if (status != csDone)
        return status;
    BackupDocument backup;
    backup.takeFrom(source->parser().root());
    backup.model = source->model();
    backup.date = QDateTime::currentDateTimeUtc();
    const QByteArray text = backup.toXml();
    if (!arguments.isSet(QStringLiteral("o"))) {
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
        return csDone;
    }
    QFile file(arguments.value(QStringLiteral("o")));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size()) {
        CtlMessages::error(
            CtlMessages::tr("cannot write %1: %2").arg(file.fileName(), file.errorString()));
        return csUsage;
    }
    return csDone;
}

CtlStatus CtlCommands::importBackup()
{
    auto source = openSource(true);
    if (!source)
        return csUsage;
    if (operands.size() != 1)
        return usage(CtlMessages::tr("name one backup file"));
    CtlSource file(shareDir, operands.first(), CtlSource::BackupFile, QString());
    CtlStatus status = file.load(CtlSource::Tree);
    if (status != csDone)
        return status;
    status = source->load(CtlSource::TreeWithRules);
    if (status != csDone) {
        CtlMessages::error(CtlMessages::tr("nothing was sent"));
        return status;
    }
    const BackupDocument& backup = file.backup();
    if (!BackupDocument::sameModel(backup.model, source->model()) &&
        !arguments.isSet(QStringLiteral("force"))) {
        CtlMessages::error(CtlMessages::tr("the backup is of the model '%1', the device is '%2': "
                                           "--force imports it anyway; nothing was sent")
                               .arg(backup.model, source->model()));
        return csValueRefused;
    }
    const QString group = arguments.value(QStringLiteral("group"));
    const bool withIdentity = arguments.isSet(QStringLiteral("include-identity"));
    SettingsEdit edit(source->parser());
    QStringList lacking;
    QStringList leftOut;
    for (const BackupDocument::Value& value : backup.values) {
        const ConcreteElement* element = edit.element(value.first);
        if (!element) {
            lacking.append(value.first);
        } else if (!group.isEmpty() && !underGroup(element, group)) {
            continue;
        } else if (!withIdentity && IdentitySettings::contains(value.first)) {
            leftOut.append(value.first);
        } else if (edit.deviceValue(value.first) != value.second) {
            edit.assign(value.first, value.second);
        }
    }
    edit.refuseDisabled();
    if (!lacking.isEmpty())
        CtlMessages::out(
            CtlMessages::tr("not on the device: %1").arg(lacking.join(QStringLiteral(", "))));
    if (!leftOut.isEmpty())
        CtlMessages::out(CtlMessages::tr("left out (identify one printer): %1")
                             .arg(leftOut.join(QStringLiteral(", "))));
    const CtlStatus refused = reportRefusals(edit);
    if (refused != csDone)
        return refused;
    const QStringList changed = edit.changedIds();
    status = sendChanges(*source, edit);
    if (status == csDone && !arguments.isSet(QStringLiteral("dry-run")) && !changed.isEmpty())
        CtlMessages::out(CtlMessages::tr("changed: %1").arg(changed.join(QStringLiteral(", "))));
    return status;
}

CtlStatus CtlCommands::diff()
{
    if (operands.size() != 2)
        return usage(CtlMessages::tr("name two devices or files"));
    QList<QHash<QString, QString>> sides;
    QList<QStringList> orders;
    for (const QString& operand : std::as_const(operands)) {
        CtlSource source(shareDir, operand, CtlSource::kindOf(operand),
                         arguments.value(QStringLiteral("model")));
        const CtlStatus status = source.load(CtlSource::Tree);
        if (status != csDone)
            return status;
        BackupDocument taken;
        if (source.kind() != CtlSource::BackupFile)
            taken.takeFrom(source.parser().root());
        const auto& values =
            source.kind() == CtlSource::BackupFile ? source.backup().values : taken.values;
        QHash<QString, QString> side;
        QStringList order;
        for (const BackupDocument::Value& value : values) {
            side.insert(value.first, value.second);
            order.append(value.first);
        }
        sides.append(side);
        orders.append(order);
    }
    for (const QString& id : std::as_const(orders[0])) {
        if (!sides[1].contains(id))
            CtlMessages::out(QStringLiteral("- %1 = %2").arg(id, sides[0].value(id)));
        else if (sides[0].value(id) != sides[1].value(id))
            CtlMessages::out(
                QStringLiteral("~ %1 = %2 -> %3").arg(id, sides[0].value(id), sides[1].value(id)));
    }
    for (const QString& id : std::as_const(orders[1])) {
        if (!sides[0].contains(id))
            CtlMessages::out(QStringLiteral("+ %1 = %2").arg(id, sides[1].value(id)));
    }
    return csDone;
}
