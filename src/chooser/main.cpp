// tavolor: finds the connected printers and opens the settings dialog for the one chosen,
// at once when there is exactly one.

#include "app/Log.h"
#include "app/ProgramPaths.h"
#include "app/QtTranslation.h"
#include "chooser/ChooserWindow.h"
#include "io/PrinterDiscovery.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QString binDir = QFileInfo(applicationFilePath()).absolutePath();
    const QString shareDir = QDir(binDir + QStringLiteral("/../share")).absolutePath();
    for (const char* const* name = translationNames; *name; ++name)
        installTranslation(&app, shareDir, QString::fromLatin1(*name));
    installQtTranslation(&app);

    const DiscoveredPrinters printers = PrinterDiscovery::list();
    if (printers.size() == 1 && !app.arguments().contains(QStringLiteral("--choose"))) {
        return ChooserWindow::launch(binDir, printers.first()) ? 0 : 1;
    }
    ChooserWindow window(binDir);
    window.show();
    return app.exec();
}
