// tavctl: the printer's settings from a shell. Needs no display.

#include "app/Log.h"
#include "app/ProgramPaths.h"
#include "app/QtTranslation.h"
#include "cli/CtlArguments.h"
#include "cli/CtlCommands.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QString shareDir =
        QDir(QFileInfo(applicationFilePath()).absolutePath() + QStringLiteral("/../share"))
            .absolutePath();
    for (const char* const* name = translationNames; *name; ++name)
        installTranslation(&app, shareDir, QString::fromLatin1(*name));
    // The library's diagnostics stay quiet unless asked for: standard error carries the
    // command's own messages.
    logLevel = 0;

    CtlArguments arguments;
    bool helpShown = false;
    if (!arguments.parse(QCoreApplication::arguments(), &helpShown))
        return csUsage;
    if (helpShown)
        return csDone;
    if (arguments.isSet(QStringLiteral("debug")))
        logLevel = kDebugLogLevel;
    return CtlCommands(arguments, shareDir).run();
}
