// Reading a specification into the element tree and writing a change document, each beside
// the plain DOM doing the corresponding work on the same input, for growing documents. Each
// size runs in its own child process so that its peak memory is its own.

#include "SpecGenerator.h"
#include "app/Log.h"
#include "elements/ConcreteElement.h"
#include "elements/FloatElement.h"
#include "elements/ListElement.h"
#include "elements/Parameter.h"
#include "xml/SettingsParser.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kRuns = 5;

// The median of several runs, in milliseconds.
double measure(const std::function<void()>& work)
{
    std::vector<double> times;
    for (int i = 0; i < kRuns; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

// Kilobytes of a "VmRSS"/"VmHWM" line of /proc/self/status.
long statusKilobytes(const char* key)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(int(qstrlen(key))).trimmed().split(' ').first().toLong();
    }
    return 0;
}

// A value the setting's kind accepts and that differs from the current one.
bool changeValue(Element* element, void*)
{
    auto* concrete = qobject_cast<ConcreteElement*>(element);
    if (!concrete)
        return true;
    if (auto* list = qobject_cast<ListElement*>(concrete)) {
        for (const Parameter* parameter : list->parameters()) {
            if (parameter->id() != concrete->current()) {
                concrete->valueChange(parameter->id());
                break;
            }
        }
    } else if (qobject_cast<FloatElement*>(concrete)) {
        concrete->valueChange(QStringLiteral("1.5"));
    } else {
        concrete->valueChange(concrete->current() + QStringLiteral("1"));
    }
    return true;
}

// The same number of elements as the change document, serialised by the plain DOM.
QDomDocument plainChangeDocument(int settings)
{
    QDomDocument document;
    QDomElement top = document.createElement(QStringLiteral("PrinterSettingsInfo"));
    document.appendChild(document.createElement(QStringLiteral("root"))).appendChild(top);
    for (int n = 0; n < settings; ++n) {
        QDomElement e = document.createElement(QStringLiteral("S%1").arg(n));
        e.setAttribute(QStringLiteral("CURRENT"), QStringLiteral("value %1").arg(n));
        top.appendChild(e);
    }
    return document;
}

void runSize(int settings)
{
    const long baseline = statusKilobytes("VmRSS:");
    const QByteArray bytes = SpecGenerator::generate(settings);

    const double raw = measure([&] {
        QDomDocument document;
        document.setContent(bytes);
    });
    const double build = measure([&] {
        SettingsParser parser;
        parser.setContent(bytes);
        parser.readPrinterSettings();
    });

    SettingsParser parser;
    parser.setContent(bytes);
    const long beforeTree = statusKilobytes("VmRSS:");
    parser.readPrinterSettings();
    const long treeKilobytes = statusKilobytes("VmRSS:") - beforeTree;
    parser.enumerateElements(changeValue, nullptr);
    qsizetype length = 0;
    const double changes = measure([&] { length = parser.getChanges(QString()).size(); });
    const QDomDocument plain = plainChangeDocument(settings);
    const double serialise = measure([&] { plain.toString(); });
    const double buildAndSerialise = measure([&] { plainChangeDocument(settings).toString(); });

    const long peak = statusKilobytes("VmHWM:");
    std::printf("%7d settings\n  tree:   parse+build %8.2f ms  raw setContent %8.2f ms  ratio "
                "%.2f  (%.2f us/setting)\n",
                settings, build, raw, build / raw, build * 1000.0 / settings);
    std::printf("  change: document %8.2f ms (%lld chars)  DOM build+serialise %8.2f ms  ratio "
                "%.2f  DOM serialise alone %8.2f ms  ratio %.2f  (%.2f us/setting)\n",
                changes, static_cast<long long>(length), buildAndSerialise,
                changes / buildAndSerialise, serialise, changes / serialise,
                changes * 1000.0 / settings);
    std::printf("  memory: peak %.0f bytes/setting (document, tree and both change documents), "
                "element tree alone %.0f bytes/setting\n",
                double(peak - baseline) * 1024.0 / settings,
                double(treeKilobytes) * 1024.0 / settings);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    // Every changed value is logged at the ordinary level; the figures are what is wanted.
    logLevel = 0;
    std::printf("bench_parse: median of %d runs per figure; targets: tree <= 3x raw parse at "
                "50000, change doc <= 2x DOM serialisation\n",
                kRuns);
    std::fflush(stdout);
    int status = 0;
    for (const int settings : {1000, 10000, 50000}) {
        const pid_t child = fork();
        if (child == 0) {
            runSize(settings);
            _exit(0);
        }
        int childStatus = 0;
        if (child < 0 || waitpid(child, &childStatus, 0) < 0 || childStatus != 0)
            status = 1;
    }
    return status;
}
