// tavctl's get and import, run in-process through the command code, beside the bare work
// they cannot avoid, through the same client against the virtual printer in the same run:
//   get:    one setting of the sample  vs  fetching the specification
//   import: a backup changing every setting of a 10,000-setting specification  vs  fetching
//           and reading that specification plus sending the same change document

#include "../parse/SpecGenerator.h"
#include "app/Log.h"
#include "app/SettingsEdit.h"
#include "cli/CtlArguments.h"
#include "cli/CtlCommands.h"
#include "elements/InputRules.h"
#include "io/TAVClient.h"
#include "vprinter/VirtualPrinter.h"
#include "xml/BackupDocument.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int kRounds = 7;

// Runs one tavctl command with its standard output thrown away; its status.
int tavctl(const QStringList& arguments)
{
    fflush(stdout);
    const int saved = dup(1);
    const int null = open("/dev/null", O_WRONLY);
    dup2(null, 1);
    CtlArguments parsed;
    bool help = false;
    int status = csUsage;
    if (parsed.parse(QStringList{QStringLiteral("tavctl")} + arguments, &help))
        status = CtlCommands(parsed, QStringLiteral(TAV_BIN_DIR "/../share")).run();
    fflush(stdout);
    dup2(saved, 1);
    close(null);
    close(saved);
    return status;
}

QString fetch(const QString& path)
{
    TAVClient client(path, nullptr);
    client.setTimings(200, 200, 3000);
    return client.getSpecification_tav();
}

bool send(const QString& path, const QString& changes)
{
    TAVClient client(path, nullptr);
    client.setTimings(200, 200, 3000);
    return client.setChanges_tav(changes);
}

double milliseconds(const std::function<bool()>& work)
{
    QElapsedTimer clock;
    clock.start();
    const bool ok = work();
    return ok ? double(clock.nsecsElapsed()) / 1e6 : 1e18;
}

// Two backups of the specification: every setting changed, and everything as it was.
int writeBackups(const QByteArray& spec, const QString& changedFile, const QString& originalFile)
{
    SettingsParser parser;
    parser.setContent(spec);
    parser.readPrinterSettings();
    BackupDocument original;
    original.takeFrom(parser.root());
    BackupDocument changed;
    changed.model = original.model;
    changed.values = original.values;
    // Counted only where the setting's own rules take the new value.
    int count = 0;
    for (int i = 0; i < changed.values.size(); ++i) {
        QString& value = changed.values[i].second;
        value = SpecGenerator::changedValue(changed.values[i].first.mid(1).toInt());
        if (value != original.values[i].second &&
            InputRules::check(parser.findElement(changed.values[i].first), value).accepted)
            ++count;
    }
    QFile a(changedFile);
    QFile b(originalFile);
    if (!a.open(QIODevice::WriteOnly) || !b.open(QIODevice::WriteOnly))
        return 0;
    a.write(changed.toXml());
    b.write(original.toXml());
    return count;
}

struct Served
{
    explicit Served(const QString& file)
    {
        options.specificationFile = file;
        printer = std::make_unique<VirtualPrinter>(options);
        printer->setReporter([](const QString&) {});
        QString error;
        if (printer->start(&error))
            serving = std::thread([this] { printer->run(); });
    }
    ~Served()
    {
        printer->stop();
        if (serving.joinable())
            serving.join();
    }
    VirtualPrinterOptions options;
    std::unique_ptr<VirtualPrinter> printer;
    std::thread serving;
};

void benchGet()
{
    Served served(QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml"));
    const QString path = served.printer->devicePath();
    double bare = 1e18;
    double get = 1e18;
    for (int round = 0; round < kRounds; ++round) {
        bare = qMin(bare, milliseconds([&] { return !fetch(path).isEmpty(); }));
        get = qMin(get, milliseconds([&] { return tavctl({"get", path, "SleepTimer"}) == 0; }));
    }
    printf("get of one setting (sample)      : exchange %8.2f ms   tavctl get %8.2f ms   "
           "ratio %.2f (target <= 1.3)\n",
           bare, get, get / bare);
}

void benchImport(const QString& folder)
{
    const QByteArray spec = SpecGenerator::generate(10000);
    const QString specFile = folder + QStringLiteral("/spec10000.xml");
    QFile out(specFile);
    if (!out.open(QIODevice::WriteOnly) || out.write(spec) != spec.size())
        return;
    out.close();
    const QString changedFile = folder + QStringLiteral("/changed.xml");
    const QString originalFile = folder + QStringLiteral("/original.xml");
    const int count = writeBackups(spec, changedFile, originalFile);
    Served served(specFile);
    const QString path = served.printer->devicePath();

    // The change document the import sends, made once outside the clock.
    SettingsParser parser;
    parser.setContent(spec);
    parser.readPrinterSettings();
    QString changes;
    {
        SettingsEdit edit(parser);
        BackupDocument backup;
        QFile file(changedFile);
        file.open(QIODevice::ReadOnly);
        QString error;
        backup.read(file.readAll(), &error);
        for (const BackupDocument::Value& value : backup.values)
            if (edit.deviceValue(value.first) != value.second)
                edit.assign(value.first, value.second);
        changes = edit.changeDocument();
    }
    if (getenv("BENCH_KEEP")) {
        QFile::copy(specFile, QStringLiteral("/tmp/cli-spec10000.xml"));
        QFile::copy(changedFile, QStringLiteral("/tmp/cli-changed.xml"));
        QFile::copy(originalFile, QStringLiteral("/tmp/cli-original.xml"));
        QFile c(QStringLiteral("/tmp/cli-changes.xml"));
        c.open(QIODevice::WriteOnly);
        c.write(changes.toUtf8());
    }
    double bare = 1e18;
    double import = 1e18;
    for (int round = 0; round < kRounds; ++round) {
        bare = qMin(bare, milliseconds([&] {
                        SettingsParser reader;
                        reader.setContent(fetch(path).toLatin1());
                        return reader.readPrinterSettings() && send(path, changes);
                    }));
        // The bare round left the changed values on the device, so each import changes every
        // setting: back to the original, then the changed backup again.
        import = qMin(import, milliseconds([&] {
                          return tavctl({"import", path, originalFile}) == 0 &&
                                 tavctl({"import", path, changedFile}) == 0;
    }) / 2);
}
printf("import of %5d changes (10,000) : read+send %8.2f ms   tavctl import %8.2f ms   "
       "ratio %.2f (target <= 2)\n",
       count, bare, import, import / bare);
} // namespace

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    logLevel = 0;
    QTemporaryDir folder;
    printf("tavctl beside the bare exchange through the same client, best of %d rounds\n", kRounds);
    benchGet();
    benchImport(folder.path());
    return 0;
}
