// Finding a setting in the 10,000-setting specification: each keystroke in the find field,
// until the tree is laid out and painted again, beside rebuilding the unfiltered tree
// (fillSettings) in the same run. The target is 50 ms per keystroke.
#include "../parse/SpecGenerator.h"
#include "app/Configurator.h"
#include "app/Log.h"
#include "ui/SettingsDialog.h"
#include "ui/TreeFilter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr int kSettings = 10000;
constexpr int kFills = 5;
constexpr double kTargetMs = 50.0;
const char kTyped[] = "name 12";

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    const int n = int(values.size());
    return n == 0 ? 0.0 : n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

// Runs `step` and lets the tree lay itself out and paint, as a keystroke would.
double timed(const std::function<void()>& step)
{
    QElapsedTimer clock;
    clock.start();
    step();
    QApplication::processEvents();
    return double(clock.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    logLevel = 0; // the log's own cost is measured by bench_log

    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("tav.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(SpecGenerator::generate(kSettings)) < 0)
        return 1;
    file.close();
    Configurator configurator(dir.path(), QString(), QStringLiteral("Bench"), true, false, false,
                              false);
    configurator.getPrinterSettings();
    SettingsDialog dialog;
    dialog.initialize(&configurator, QStringLiteral("Bench"));
    dialog.show();
    QApplication::processEvents();
    auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("filterField"));
    const auto* filter = dialog.findChild<TreeFilter*>();
    if (!field || !filter)
        return 1;

    QVector<double> fills;
    for (int i = 0; i < kFills; ++i)
        fills << timed([&] { dialog.fillSettings(configurator.rootElement()); });

    // As with Ctrl+F: the field takes focus, and the filter reads the tree's texts then.
    dialog.activateWindow();
    const double focusMs = timed([&] { field->setFocus(Qt::ShortcutFocusReason); });
    QVector<double> keys;
    QString matches;
    for (const char* c = kTyped; *c; ++c) {
        keys << timed([&] { field->insert(QString(QLatin1Char(*c))); });
        matches += QStringLiteral(" %1").arg(filter->matchCount());
    }
    const double clearMs = timed([&] { field->clear(); });

    const double fillMs = median(fills);
    const double keyMs = median(keys);
    const double worstMs = *std::max_element(keys.cbegin(), keys.cend());
    printf("%d settings: rebuilding the unfiltered tree (fillSettings), median of %d: %.1f ms\n",
           kSettings, kFills, fillMs);
    printf("the find field takes focus and indexes the tree: %.1f ms\n", focusMs);
    printf("typing \"%s\" one key at a time: median %.2f ms, slowest %.2f ms per keystroke "
           "(settings left:%s); clearing the field: %.2f ms\n",
           kTyped, keyMs, worstMs, qPrintable(matches), clearMs);
    printf("ratio keystroke/rebuild: median %.3f, slowest %.3f\n", keyMs / fillMs,
           worstMs / fillMs);
    printf("within %.0f ms per keystroke: %s (median), %s (slowest)\n", kTargetMs,
           keyMs <= kTargetMs ? "yes" : "NO", worstMs <= kTargetMs ? "yes" : "NO");
    return 0;
}
