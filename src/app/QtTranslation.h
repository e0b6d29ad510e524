#pragma once

#include <QString>

class QCoreApplication;

// Loads the Qt translation "<name>-<locale>" from the "tr" folder of the share folder and
// installs it when it loads; a missing file is silently ignored.
void installTranslation(QCoreApplication* application, const QString& shareFolder,
                        const QString& name);

// Installs Qt's own translation for the system's language (the texts of Qt's dialogs, buttons
// and context menus), from where Qt keeps its translations; none is needed for English.
void installQtTranslation(QCoreApplication* application);
