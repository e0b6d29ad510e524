#include "../elements/Rows.h"
#include "SpecText.h"

#include "app/SystemLocale.h"
#include "elements/ListElement.h"
#include "elements/Parameter.h"
#include "xml/Translator.h"

#include <QtTest>

#include <clocale>

// Setting texts from a translation file, and the system language as the translation folders
// name it.
class TestTranslator : public QObject
{
    Q_OBJECT

private:
    static QString messages(const QString& body)
    {
        return QStringLiteral("<root><Translation>%1</Translation></root>").arg(body);
    }
    // One message; without a value when `value` is null.
    static QString m(const QString& id, const char* value = nullptr)
    {
        return "<message><Id>" + id + "</Id>" +
               (value ? QString("<Value>%1</Value>").arg(value) : QString()) + "</message>";
    }

private slots:
    void lookup_data()
    {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("expected"); // title|description
        const QString title = m("Copies", "Kopien"), desc = m("Copies description", "Anzahl");
        const QString both = "Kopien|Anzahl", titleOnly = "Kopien|default desc";
        const QString rows[][3] = {
            {"both", title + desc, both},
            {"title only", title, titleOnly},
            {"missing keeps defaults", "", "default|default desc"},
            {"later match replaces until both found", title + m("Copies", "Exemplare") + desc,
             "Exemplare|Anzahl"},
            {"walk stops once both found", title + desc + m("Copies", "Zu spaet"), both},
            {"non-matching message without Value is harmless", m("Other") + title, titleOnly},
            {"others skipped",
             "<note><Id>Copies</Id><Value>X</Value></note><message><Value>Y</Value></message>"
             "<!-- c -->" +
                 title,
             titleOnly},
            {"ids are case-sensitive", m("copies", "x"), "default|default desc"},
            {"after a match no Value later is never reached", title + desc + m("Copies"), both},
        };
        for (const auto& row : rows)
            QTest::newRow(qPrintable(row[0])) << row[1] << row[2];
    }
    void lookup()
    {
        QFETCH(QString, body);
        QFETCH(QString, expected);
        Translator translator;
        QVERIFY(translator.setContent(messages(body)));
        QString title, description;
        translator.lookup("Copies", "default", "default desc", &title, &description);
        QCOMPARE(title + '|' + description, expected);
    }
    void translatesTree()
    {
        const auto parser = SpecText::read(
            "<General STRING=\"General\"><Copies TYPE=\"INTEGER\" STRING=\"Copies\"/>"
            "<Tray TYPE=\"COMBOBOX\"><T1 STRING=\"Tray 1\"/><T2/></Tray></General>");
        Translator translator;
        translator.setContent(messages(m("General", "Allgemein") +
                                       m("Copies description", "Wie viele") + m("T1", "Fach 1")));
        QVERIFY(parser->translate(translator));
        Element* general = parser->findElement("General");
        Element* copies = parser->findElement("Copies");
        auto* tray = qobject_cast<ListElement*>(parser->findElement("Tray"));
        QCOMPARE(
            QStringList({general->title(), general->string(), general->description(),
                         copies->title(), copies->description(), tray->parameters().at(0)->title(),
                         tray->parameters().at(1)->title()}),
            QStringList(
                {"Allgemein", "Allgemein", "General", "Copies", "Wie viele", "Fach 1", "T2"}));
    }
    void missingTranslationNode()
    {
        const auto parser = SpecText::read("<A TYPE=\"INTEGER\"/>");
        Translator translator;
        translator.setContent(
            QString("<root><message><Id>A</Id><Value>x</Value></message></root>"));
        QVERIFY(!parser->translate(translator));
        QCOMPARE(parser->findElement("A")->title(), QString("A"));
    }
    void readsFile()
    {
        QTemporaryDir dir;
        QFile file(dir.filePath("tav_de.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(messages(m("A", "Ä")).toUtf8());
        file.close();
        const Translator translator(file.fileName());
        QVERIFY(translator.isValid());
        QString title, description;
        translator.lookup("A", "A", "A", &title, &description);
        QCOMPARE(title, QString("Ä"));
        const Translator missing(dir.filePath("absent.xml"));
        QVERIFY(!missing.isValid());
        QVERIFY(!missing.errorText().isEmpty());
    }
    void matchingMessageWithoutValueIsFatal()
    {
        // The deliberate stop runs in a child process: this binary with the fatal case only.
        if (qEnvironmentVariableIsSet("TAV_TRANSLATOR_FATAL")) {
            Translator translator;
            translator.setContent(messages(m("A")));
            QString title, description;
            translator.lookup("A", "A", "A", &title, &description);
            return;
        }
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("TAV_TRANSLATOR_FATAL", "1");
        child.setProcessEnvironment(environment);
        child.setProcessChannelMode(QProcess::MergedChannels);
        child.start(QCoreApplication::applicationFilePath(),
                    {"matchingMessageWithoutValueIsFatal"});
        QVERIFY(child.waitForFinished(60000));
        QVERIFY(child.exitStatus() == QProcess::CrashExit || child.exitCode() != 0);
        QVERIFY(child.readAll().contains("Wrong XML format"));
    }
    void cleanup()
    {
        qunsetenv("LC_ALL");
        std::setlocale(LC_CTYPE, "C");
    }
    void language_data()
    {
        addRows({"environment", "expected"}, {{"POSIX default", "C", "C tav_C.xml"},
                                              {"POSIX", "POSIX", "C tav_C.xml"},
                                              {"with codeset", "C.UTF-8", "C. tav_C..xml"}});
    }
    void language()
    {
        QFETCH(QString, environment);
        QFETCH(QString, expected);
        qputenv("LC_ALL", environment.toUtf8());
        QCOMPARE(GetSystemLocale() + ' ' + localizedFileName("tav", "xml"), expected);
    }
    void german()
    {
        qputenv("LC_ALL", "de_DE.UTF-8");
        if (!std::setlocale(LC_CTYPE, ""))
            QSKIP("the de_DE.UTF-8 locale is not installed on this machine");
        QCOMPARE(GetSystemLocale() + ' ' + localizedFileName("help", "html"), "de help_de.html");
    }
};

QTEST_MAIN(TestTranslator)
#include "TestTranslator.moc"
