#include "../elements/Rows.h"
#include "SystemLocale.h"

#include <QtTest>

#include <clocale>
#include <cstdlib>

// The system language as the translation folders name it.
class TestSystemLocale : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        qunsetenv("LC_ALL");
        std::setlocale(LC_CTYPE, "C");
    }
    void language_data()
    {
        addRows({"environment", "language", "fileName"},
                {{"POSIX default", "C", "C", "tav_C.xml"},
                 {"POSIX", "POSIX", "C", "tav_C.xml"},
                 {"with codeset", "C.UTF-8", "C.", "tav_C..xml"}});
    }
    void language()
    {
        QFETCH(QString, environment);
        QFETCH(QString, language);
        QFETCH(QString, fileName);
        qputenv("LC_ALL", environment.toUtf8());
        QCOMPARE(GetSystemLocale() + ' ' + localizedFileName("tav", "xml"),
                 language + ' ' + fileName);
    }
    void german()
    {
        qputenv("LC_ALL", "de_DE.UTF-8");
        if (!std::setlocale(LC_CTYPE, ""))
            QSKIP("the de_DE.UTF-8 locale is not installed on this machine");
        QCOMPARE(GetSystemLocale() + ' ' + localizedFileName("help", "html"), "de help_de.html");
    }
};

QTEST_MAIN(TestSystemLocale)
#include "TestSystemLocale.moc"
