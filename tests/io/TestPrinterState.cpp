#include "PrinterState.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray changes(const QByteArray& items, const QByteArray& root = "PrinterSettingsInfo")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root><" + root + ">" + items + "</" +
           root + "></root>";
}

} // namespace

// The virtual printer's copy of its settings and how change documents alter it.
class TestPrinterState : public QObject
{
    Q_OBJECT

private slots:
    void appliesChanges_data()
    {
        QTest::addColumn<QByteArray>("document");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("note");
        QTest::newRow("nested setting")
            << changes("<NodeName CURRENT=\"OFFICE\"/>") << true << "NodeName" << QString("OFFICE")
            << "setting <NodeName>: \"BRN001\" -> \"OFFICE\"";
        QTest::newRow("table cell") << changes("<Trays.2.2 CURRENT=\"A4\"/>") << true << "Trays.2.2"
                                    << QString("A4") << "setting <Trays.2.2>: \"Letter\" -> \"A4\"";
        QTest::newRow("button pressed")
            << changes("<PrintTestPage CURRENT=\"PRESSED\"/>") << true << "PrintTestPage"
            << QString() << "button <PrintTestPage> pressed";
        QTest::newRow("unknown setting rejects all")
            << changes("<SleepTime CURRENT=\"9\"/><Missing CURRENT=\"1\"/>") << false << "SleepTime"
            << QString("5") << "unknown setting <Missing>";
        QTest::newRow("cell out of range")
            << changes("<Trays.3.1 CURRENT=\"A4\"/>") << false << "Trays.1.2" << QString("A4")
            << "unknown setting <Trays.3.1>";
        QTest::newRow("broken document")
            << QByteArray("<root><PrinterSettingsInfo>") << false << "SleepTime" << QString("5")
            << "the change document does not parse";
        QTest::newRow("IDS root") << changes("<SleepTime CURRENT=\"30\"/>", "IDSInfo") << true
                                  << "SleepTime" << QString("30")
                                  << "setting <SleepTime>: \"5\" -> \"30\"";
    }
    void appliesChanges()
    {
        QFETCH(QByteArray, document);
        QFETCH(bool, accepted);
        QFETCH(QString, id);
        QFETCH(QString, value);
        QFETCH(QString, note);
        PrinterState state;
        QString error;
        QVERIFY2(state.load(TAV_IO_TEST_DATA "/printer.xml", QString(), &error), qPrintable(error));
        QStringList notes;
        QCOMPARE(state.applyChanges(document, &notes), accepted);
        QCOMPARE(state.current(id), value);
        QVERIFY2(notes.contains(note), qPrintable(notes.join('\n')));
    }

    void unparsedSpecificationRejectsChanges()
    {
        QTemporaryDir dir;
        QFile file(dir.filePath("broken.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<root><PrinterSettingsInfo><A CURRENT=\"1\">");
        file.close();
        PrinterState state;
        QString error;
        QVERIFY(state.load(file.fileName(), QString(), &error));
        QVERIFY(!state.isParsed());
        QCOMPARE(state.specification(), QByteArray("<root><PrinterSettingsInfo><A CURRENT=\"1\">"));
        QStringList notes;
        QVERIFY(!state.applyChanges(changes("<A CURRENT=\"2\"/>"), &notes));
        QCOMPARE(notes, QStringList{"the served specification does not parse"});
        QVERIFY(!state.load(dir.filePath("missing.xml"), QString(), &error));
        QVERIFY(error.startsWith("cannot read "));
    }
};

QTEST_GUILESS_MAIN(TestPrinterState)
#include "TestPrinterState.moc"
