#pragma once

#include <QString>
#include <QStringList>

// Sibling programs that sit beside this one ("../../<Tool>/bin/<tool>" from the program
// folder) and the web browser. All are started through the shell in the background; the
// program never waits for them.
namespace ExternalPrograms {

inline const QString WirelessSetupPath = QStringLiteral("../../WirelessSetup/bin/wirelesssetup");
inline const QString AddressBookPath = QStringLiteral("../../AddressBook/bin/addressbook");
inline const QString EmailBookPath = QStringLiteral("../../EmailBook/bin/emailbook");
inline const QString PhoneBookPath = QStringLiteral("../../PhoneBook/bin/phonebook");
inline const QString AddressBookConfig = QStringLiteral("../../AddressBook/bin/.config");
inline const QString EmailBookConfig = QStringLiteral("../../EmailBook/bin/.config");
inline const QString PhoneBookConfig = QStringLiteral("../../PhoneBook/bin/.config");

// A word exactly as given when it holds only letters, digits and / . _ - : = , + @ %;
// otherwise single-quoted for the shell, so that text from a device or the command line
// can never run anything.
QString shellQuote(const QString& word);

// The program path in single quotes, then each argument as shellQuote gives it.
QString launchCommand(const QString& program, const QStringList& arguments);

bool runWirelessSetup(const QString& programDir, const QStringList& arguments);
bool runAddressBook(const QString& programDir, const QStringList& arguments);
bool runEmailBook(const QString& programDir, const QStringList& arguments);
bool runPhoneBook(const QString& programDir, const QStringList& arguments);

// Writes a book's ".config" (emptied even when the text is empty), then starts the book
// with the device path and the configuration file's path.
bool startBook(const QString& programDir, const QString& programPath, const QString& configPath,
               const QString& description, const QString& devPath);

QStringList defaultBrowsers();

// Opens an address in the first browser of the list that exists; tells the user when there
// is none or it cannot be started.
void StartWebBrowser(const QString& address, const QStringList& browsers = defaultBrowsers());

} // namespace ExternalPrograms
