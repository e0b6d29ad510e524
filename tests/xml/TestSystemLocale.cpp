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
        QTest::addColumn<QByteArray>("environment");
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("POSIX default") << QByteArray("C") << "C"
                                       << "tav_C.xml";
        QTest::newRow("POSIX") << QByteArray("POSIX") << "C"
                               << "tav_C.xml";
        QTest::newRow("with codeset") << QByteArray("C.UTF-8") << "C."
                                      << "tav_C..xml";
    }
    void language()
    {
        QFETCH(QByteArray, environment);
        QFETCH(QString, language);
        QFETCH(QString, fileName);
        qputenv("LC_ALL", environment);
        QCOMPARE(GetSystemLocale(), language);
        QCOMPARE(localizedFileName("tav", "xml"), fileName);
    }
    void german()
    {
        qputenv("LC_ALL", "de_DE.UTF-8");
        if (!std::setlocale(LC_CTYPE, ""))
            QSKIP("the de_DE.UTF-8 locale is not installed on this machine");
        QCOMPARE(GetSystemLocale(), QString("de"));
        QCOMPARE(localizedFileName("help", "html"), QString("help_de.html"));
    }
};

QTEST_MAIN(TestSystemLocale)
#include "TestSystemLocale.moc"
