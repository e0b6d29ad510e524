#include "app/QtTranslation.h"

#include "app/Log.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

void installTranslation(QCoreApplication* application, const QString& shareFolder,
                        const QString& name)
{
    const QString folder = shareFolder + QStringLiteral("/tr");
    const QString file = name + QLatin1Char('-') + QLocale::system().name();
    TAV_LOG(10, "translation='%s/%s'", qPrintable(folder), qPrintable(file));
    auto* translator = new QTranslator(application);
    if (translator->load(file, folder))
        application->installTranslator(translator);
    else
        delete translator;
}

void installQtTranslation(QCoreApplication* application)
{
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    auto* translator = new QTranslator(application);
    if (translator->load(QLocale::system(), QStringLiteral("qtbase"), QStringLiteral("_"),
                         folder)) {
        application->installTranslator(translator);
        return;
    }
    TAV_LOG(10, "no Qt translation for '%s' in '%s'", qPrintable(QLocale::system().name()),
            qPrintable(folder));
    delete translator;
}
