#include "SpecGenerator.h"
#include "WindowWatch.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <vector>

// Start-up time: from starting the process to its dialog's window first exposed, for tav on
// the sample laser MFP and on a 10,000-setting specification (both served by the virtual
// printer), beside a bare Qt dialog started in the same run and the raw DOM parse of the large
// specification in a fresh process. Rounds alternate them so that the machine's noise falls on
// all of them alike.
namespace {

constexpr int kRounds = 5;
constexpr int kLargeSettings = 10000;

struct Program
{
    QString path;
    QStringList arguments;
    QByteArray windowName;
};

// A virtual printer serving a specification for as long as the object lives.
class Printer
{
public:
    Printer(const QString& specification, const QString& link)
    {
        process.start(QStringLiteral(TAV_BIN_DIR "/tav-vprinter"),
                      {specification, QStringLiteral("--link"), link});
        for (int i = 0; i < 500 && !QFile::exists(link); ++i)
            QThread::msleep(10);
    }
    ~Printer()
    {
        process.terminate();
        process.waitForFinished(3000);
    }

private:
    QProcess process;
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

// Milliseconds to the first expose, or -1 when the window never came.
double startToExpose(WindowWatch& watch, const Program& program)
{
    watch.reset();
    QProcess process;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    process.setProcessEnvironment(env);
    process.setStandardErrorFile(QProcess::nullDevice());
    QElapsedTimer clock;
    clock.start();
    process.start(program.path, program.arguments);
    const bool shown = watch.waitForExpose(program.windowName, 60000);
    const double ms = clock.nsecsElapsed() / 1e6;
    process.kill();
    process.waitForFinished(5000);
    return shown ? ms : -1;
}

// The raw parse in this process, warm: the allocator reuses memory the earlier rounds mapped.
double warmParseMs(const QByteArray& text)
{
    std::vector<double> times;
    for (int i = 0; i < kRounds; ++i) {
        QElapsedTimer clock;
        clock.start();
        QDomDocument document;
        document.setContent(text);
        times.push_back(clock.nsecsElapsed() / 1e6);
    }
    return median(times);
}

// The raw parse in a fresh process, as tav meets it at start: every page of the document's
// tree is touched for the first time, which costs several times the parse itself here.
double freshParseMs(const QString& file)
{
    QProcess process;
    process.start(QStringLiteral(TAV_BIN_DIR "/../bench/raw-parse"), {file});
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return -1;
    bool ok = false;
    const double ms = process.readAllStandardOutput().trimmed().toDouble(&ok);
    return ok ? ms : -1;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    WindowWatch watch;
    if (!watch.isValid()) {
        std::fprintf(stderr, "bench_startup: needs an X server (make bench provides one)\n");
        return 1;
    }
    QTemporaryDir dir;
    const QByteArray large = SpecGenerator::generate(kLargeSettings);
    QFile file(dir.filePath(QStringLiteral("large.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(large) != large.size())
        return 1;
    file.close();
    const QString laserLink = dir.filePath(QStringLiteral("laser"));
    const QString largeLink = dir.filePath(QStringLiteral("large"));
    Printer laserPrinter(QStringLiteral(TAV_DATA_DIR "/laser_mfp.xml"), laserLink);
    Printer largePrinter(file.fileName(), largeLink);

    const QString tav = QStringLiteral(TAV_BIN_DIR "/tav");
    const std::vector<Program> programs{
        {QStringLiteral(TAV_BIN_DIR "/../bench/bare-dialog"),
         {QStringLiteral("Bench Bare")},
         "Bench Bare"},
        {tav, {laserLink, QStringLiteral("Bench Laser")}, "Bench Laser"},
        {tav, {largeLink, QStringLiteral("Bench Large")}, "Bench Large"}};
    std::vector<std::vector<double>> times(programs.size());
    std::vector<double> freshParses;
    for (int round = 0; round < kRounds; ++round) {
        freshParses.push_back(freshParseMs(file.fileName()));
        if (freshParses.back() < 0) {
            std::fprintf(stderr, "bench_startup: the raw parse failed\n");
            return 1;
        }
        for (size_t i = 0; i < programs.size(); ++i) {
            const double ms = startToExpose(watch, programs[i]);
            if (ms < 0) {
                std::fprintf(stderr, "bench_startup: no window for %s\n",
                             programs[i].windowName.constData());
                return 1;
            }
            times[i].push_back(ms);
        }
    }
    const double bare = median(times[0]);
    const double laser = median(times[1]);
    const double big = median(times[2]);
    const double warmParse = warmParseMs(large);
    const double freshParse = median(freshParses);
    std::printf("start to dialog shown, median of %d (ms): bare Qt dialog %.1f, sample MFP %.1f, "
                "%d settings %.1f; raw parse of those %.1f in a fresh process, %.1f warm\n",
                kRounds, bare, laser, kLargeSettings, big, freshParse, warmParse);
    std::printf("sample MFP / bare dialog: %.2fx (target <= 2x)\n", laser / bare);
    std::printf(
        "%d settings / (bare dialog + raw parse in a fresh process): %.2fx (target <= 3x)\n",
        kLargeSettings, big / (bare + freshParse));
    std::printf("%d settings / (bare dialog + warm raw parse): %.2fx\n", kLargeSettings,
                big / (bare + warmParse));
    return 0;
}
