// Opening one group of 3,000 settings beside one of 50,000 in the same run: reading the
// specification, then building the dialog until it is shown with the group's first controls,
// then until the panel holds every control of the group (made while the window is already
// answering). The ratio of the times against the ratio of the sizes shows whether opening a
// group grows linearly with it.
#include "app/Configurator.h"
#include "app/Log.h"
#include "ui/SettingsDialog.h"
#include "ui/SettingsPanel.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int kSmall = 3000;
constexpr int kLarge = 50000;

const char* const kKinds[] = {
    "<S%1 TYPE=\"INTEGER\" STRING=\"Integer %1\" MIN=\"0\" MAX=\"99\" CURRENT=\"5\"/>",
    "<S%1 TYPE=\"EDITBOX\" STRING=\"Edit %1\" MAX=\"20\" CURRENT=\"text\"/>",
    "<S%1 TYPE=\"CHECKBOX\" STRING=\"Check %1\" CURRENT=\"On\"><Off/><On/></S%1>",
    "<S%1 TYPE=\"COMBOBOX\" STRING=\"Combo %1\" CURRENT=\"B\"><A/><B/><C/></S%1>",
};
constexpr int kKindCount = int(sizeof(kKinds) / sizeof(kKinds[0]));

QByteArray specification(int settings)
{
    QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?><root>"
                                  "<PrinterSettingsInfo><Big STRING=\"Big group\">");
    for (int i = 0; i < settings; ++i)
        text += QString::fromLatin1(kKinds[i % kKindCount]).arg(i);
    text += QStringLiteral("</Big></PrinterSettingsInfo></root>");
    return text.toUtf8();
}

struct Timing
{
    qint64 readMs = 0;
    qint64 showMs = 0;
    qint64 completeMs = 0; // from the start, until every control is made
    int controls = 0;
};

// The group as the program opens it from a local specification file.
Timing open(int settings)
{
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("tav.xml")));
    if (!file.open(QIODevice::WriteOnly) || file.write(specification(settings)) < 0)
        return {};
    file.close();
    Timing timing;
    QElapsedTimer clock;
    clock.start();
    Configurator configurator(dir.path(), QString(), QStringLiteral("Bench"), true, false, false,
                              false);
    configurator.getPrinterSettings();
    timing.readMs = clock.restart();
    SettingsDialog dialog;
    dialog.initialize(&configurator, QStringLiteral("Bench"));
    dialog.show();
    QApplication::processEvents();
    timing.showMs = clock.elapsed();
    const auto* panel = dialog.findChild<SettingsPanel*>();
    while (!panel->isComplete())
        QApplication::processEvents();
    timing.completeMs = timing.readMs + clock.elapsed();
    for (const QWidget* block : dialog.panel()->findChildren<QWidget*>(QStringLiteral("panelBlock"),
                                                                       Qt::FindDirectChildrenOnly))
        timing.controls += block->layout()->count();
    return timing;
}

void print(const char* name, int settings, const Timing& timing)
{
    printf("%-6s %7d settings: read %6lld ms, dialog shown %6lld ms, shown after %6lld ms, "
           "every control after %6lld ms (%.1f us per setting; %d controls)\n",
           name, settings, static_cast<long long>(timing.readMs),
           static_cast<long long>(timing.showMs),
           static_cast<long long>(timing.readMs + timing.showMs),
           static_cast<long long>(timing.completeMs), 1000.0 * double(timing.completeMs) / settings,
           timing.controls);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    logLevel = 0; // the log's own cost is measured by bench_log

    open(kSmall / 10); // warm up: fonts, styles, images
    const Timing small = open(kSmall);
    const Timing large = open(kLarge);
    print("small", kSmall, small);
    print("large", kLarge, large);

    const double sizeRatio = double(kLarge) / kSmall;
    const auto ratio = [](qint64 a, qint64 b) { return double(a) / double(qMax<qint64>(b, 1)); };
    printf("ratio large/small: settings %.1f, read %.1f, dialog shown %.1f, shown after %.1f, "
           "every control %.1f (linear growth gives the settings ratio)\n",
           sizeRatio, ratio(large.readMs, small.readMs), ratio(large.showMs, small.showMs),
           ratio(large.readMs + large.showMs, small.readMs + small.showMs),
           ratio(large.completeMs, small.completeMs));
    printf("large group shown within 5 s: %s; every control made within 5 s: %s\n",
           large.readMs + large.showMs <= 5000 ? "yes" : "NO",
           large.completeMs <= 5000 ? "yes" : "NO");
    return 0;
}
