#include "app/AppSettings.h"
#include "app/Configurator.h"
#include "app/Log.h"
#include "app/ProgramPaths.h"
#include "app/QtSingleApplication.h"
#include "app/QtTranslation.h"
#include "io/DeviceAccess.h"
#include "ui/SettingsDialog.h"
#include "ui/StartupError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLayout>

#include <cstdio>
#include <cstdlib>

namespace {

// Qt's xcb platform carries the X selections of the single-instance guard; XWayland
// provides it on Wayland desktops.
void preferXcbPlatform()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
}

// Every relative file name of the program is relative to the executable's folder. The folder
// comes from /proc rather than argv[0], which may be a bare name found along PATH.
void changeToExecutableFolder()
{
    TAV_LOG(9, "QDir::currentDirPath=<%s>", QFile::encodeName(QDir::currentPath()).constData());
    const QString folder = QFileInfo(applicationFilePath()).absolutePath();
    if (!QDir::setCurrent(folder))
        TAV_LOG(9, "Failed to change the current directory");
    TAV_LOG(9, "QDir::currentDirPath=<%s>", QFile::encodeName(QDir::currentPath()).constData());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        ::log(9, "main", __LINE__, "main", "Usage: tav <devPath> <devName>");
        return 1;
    }
    const AppSettings settings(argc, argv);
    if (settings.has(QStringLiteral("--help")))
        return 0;
    if (settings.has(QStringLiteral("debug")) && logLevel < kDebugLogLevel)
        logLevel = kDebugLogLevel;

    preferXcbPlatform();
    const QString instanceId = QString::asprintf("%s %s", argv[1], argv[2]);
    QtSingleApplication app(instanceId, argc, argv, true);

    const QString shareFolder =
        QDir(QFileInfo(applicationFilePath()).absolutePath() + QStringLiteral("/../share"))
            .absolutePath();
    for (const char* const* name = translationNames; *name; ++name)
        installTranslation(&app, shareFolder, QString::fromLatin1(*name));
    installQtTranslation(&app);

    // Another instance already works on this printer for this user: it keeps the device.
    if (app.sendMessage(instanceId, 5000))
        return 0;
    // A later start for the same printer brings this window back to the front.
    app.initialize(true);

    // Resolved before the working directory changes: a relative argv[0] names the program
    // from where it was started.
    QString programDir = programDirFromArgument(argv[0], qgetenv("PATH"));
    if (programDir.isEmpty()) {
        // Started under another name (exec -a) or from outside PATH: the executable's own
        // folder, rather than paths resolved under "/".
        programDir = QFileInfo(applicationFilePath()).absolutePath();
        TAV_LOG(9, "the program folder is not found from <%s>; using <%s>", argv[0],
                QFile::encodeName(programDir).constData());
    }

    TAV_LOG(9, "Qt version: build: <%x> run: <%s>", QT_VERSION, qVersion());
    changeToExecutableFolder();
    const QStringList& args = settings.arguments();
    for (int i = 0; i < args.size(); ++i)
        TAV_LOG(9, "arg[%d] = %s", i, QFile::encodeName(args.at(i)).constData());

    TAV_LOG(10, "programDir=<%s>", QFile::encodeName(programDir).constData());
    Configurator configurator(
        programDir, args.at(1), args.at(2), settings.has(QStringLiteral("use_local_tav")),
        settings.has(QStringLiteral("save_tav_send")), settings.has(QStringLiteral("save_tav")),
        settings.has(QStringLiteral("save_new_tav")));

    bool settingsRead = configurator.getPrinterSettings() != nullptr;
    while (!settingsRead) {
        const QString permission = DeviceAccess::permissionProblem(args.at(1));
        if (!permission.isEmpty())
            fprintf(stderr, "tav: %s\n", qPrintable(permission));
        if (!StartupError::askRetry(
                permission.isEmpty() ? configurator.exchangeProblem() : permission, args.at(1)))
            break;
        settingsRead = configurator.getPrinterSettings() != nullptr;
    }

    SettingsDialog dialog(nullptr);
    dialog.initialize(&configurator, args.at(2));
    const int result = dialog.exec();
    // No event loop runs before the dialog's, so an exit request made here would be lost.
    return settingsRead ? result : 1;
}
