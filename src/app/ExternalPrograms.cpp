#include "app/ExternalPrograms.h"

#include "app/Log.h"
#include "app/ProgramPaths.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>

#include <cstdlib>

namespace ExternalPrograms {

namespace {

bool safeCharacter(QChar c)
{
    if (c.unicode() > 0x7f)
        return false;
    const char a = char(c.unicode());
    return (a >= 'a' && a <= 'z') || (a >= 'A' && a <= 'Z') || (a >= '0' && a <= '9') ||
           QByteArray("/._-:=,+@%").contains(a);
}

QString singleQuoted(const QString& word)
{
    QString escaped = word;
    escaped.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

// The two log texts of each launcher differ on purpose: the first names the wireless tool
// with a tripled "s".
struct Launcher
{
    const QString& path;
    const char* unresolved;
    const char* failed;
};

bool launch(const Launcher& launcher, const QString& programDir, const QStringList& arguments)
{
    const QString program = resolveProgramPath(programDir, launcher.path);
    if (program.isNull()) {
        TAV_LOG(9, "%s", launcher.unresolved);
        return false;
    }
    const QByteArray command = QFile::encodeName(launchCommand(program, arguments));
    TAV_LOG(9, "Command: %s", command.constData());
    if (std::system(command.constData()) == -1) {
        TAV_LOG(9, "%s", launcher.failed);
        return false;
    }
    return true;
}

} // namespace

QString shellQuote(const QString& word)
{
    if (!word.isEmpty() && std::all_of(word.cbegin(), word.cend(), safeCharacter))
        return word;
    return singleQuoted(word);
}

QString launchCommand(const QString& program, const QStringList& arguments)
{
    QStringList quoted;
    quoted.reserve(arguments.size());
    for (const QString& argument : arguments)
        quoted << shellQuote(argument);
    return QStringLiteral("%1 %2 &").arg(singleQuoted(program), quoted.join(QLatin1Char(' ')));
}

bool runWirelessSetup(const QString& programDir, const QStringList& arguments)
{
    return launch(
        {WirelessSetupPath, "Unable to run wirelessssetup", "Unable to run wirelesssetup"},
        programDir, arguments);
}

bool runAddressBook(const QString& programDir, const QStringList& arguments)
{
    return launch({AddressBookPath, "Unable to run addressbook", "Unable to run addressbook"},
                  programDir, arguments);
}

bool runEmailBook(const QString& programDir, const QStringList& arguments)
{
    return launch({EmailBookPath, "Unable to run emailbook", "Unable to run emailbook"}, programDir,
                  arguments);
}

bool runPhoneBook(const QString& programDir, const QStringList& arguments)
{
    return launch({PhoneBookPath, "Unable to run phonebook", "Unable to run phonebook"}, programDir,
                  arguments);
}

bool startBook(const QString& programDir, const QString& programPath, const QString& configPath,
               const QString& description, const QString& devPath)
{
    const QString config = resolveProgramPath(programDir, configPath);
    QFile file(config);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        if (!description.isEmpty())
            file.write(description.toUtf8());
        file.close();
    }
    const QStringList arguments{devPath, config};
    if (programPath == AddressBookPath)
        return runAddressBook(programDir, arguments);
    if (programPath == EmailBookPath)
        return runEmailBook(programDir, arguments);
    return runPhoneBook(programDir, arguments);
}

QStringList defaultBrowsers()
{
    return {QStringLiteral("/usr/bin/mozilla"),        QStringLiteral("/usr/bin/konqueror"),
            QStringLiteral("/opt/kde3/bin/konqueror"), QStringLiteral("/usr/bin/firefox"),
            QStringLiteral("/usr/bin/galeon"),         QStringLiteral("/usr/bin/opera"),
            QStringLiteral("/usr/bin/netscape"),       QStringLiteral("/usr/bin/epiphany"),
            QStringLiteral("/usr/bin/mozilla-firefox")};
}

void StartWebBrowser(const QString& address, const QStringList& browsers)
{
    const auto found = std::find_if(browsers.cbegin(), browsers.cend(),
                                    [](const QString& path) { return QFileInfo::exists(path); });
    if (found == browsers.cend()) {
        QMessageBox::warning(
            QApplication::activeWindow(), QApplication::translate("Browser", "Warning"),
            QApplication::translate("Browser", "Web browser not found.\nUse that address:\n%1")
                .arg(address));
        return;
    }
    const QByteArray command =
        QFile::encodeName(QStringLiteral("%1 %2 &").arg(shellQuote(*found), shellQuote(address)));
    TAV_LOG(9, "StartWebBrowser command : \"%s\"", command.constData());
    if (std::system(command.constData()) == -1) {
        qWarning("Unable to execute command %s", command.constData());
        QMessageBox::warning(QApplication::activeWindow(),
                             QApplication::translate("Browser", "Web browser"),
                             QApplication::translate("Browser", "Error starting %1").arg(*found));
    }
}

} // namespace ExternalPrograms
