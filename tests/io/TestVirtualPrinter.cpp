#include "../elements/Rows.h"
#include "PrinterThread.h"
#include "io/TAVClient.h"
#include "vprinter/PrinterState.h"
#include "vprinter/VirtualPrinterCommandLine.h"

#include <QTemporaryDir>
#include <QTest>

namespace {
QByteArray changes(const QByteArray& items, const QByteArray& root = "PrinterSettingsInfo")
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root><" + root + ">" + items + "</" +
           root + "></root>";
}

const QString kSpecification = QStringLiteral(TAV_IO_TEST_DATA "/printer.xml");

QString fetch(const QString& device, int idleMs = 3000)
{
    TAVClient client(device, nullptr);
    client.setTimings(20, 20, idleMs);
    return client.getSpecification_tav();
}

} // namespace

// The virtual printer: its copy of the settings and how change documents alter it, and serving
// over a pseudo-terminal of its own. Every client test proves how it cuts the byte stream. The
// program's --link is exercised by TestEndToEnd.
class TestVirtualPrinter : public QObject
{
    Q_OBJECT

private slots:
    void appliesChanges_data()
    {
        columns<QByteArray, bool, QString, QString, QString>(
            {"document", "accepted", "id", "value", "note"});
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
        const auto [document, accepted, id, value, note] =
            fetch<QByteArray, bool, QString, QString, QString>();
        PrinterState state;
        QString error;
        QVERIFY2(state.load(kSpecification, QString(), &error), qPrintable(error));
        QStringList notes;
        QCOMPARE(state.applyChanges(document, &notes), accepted);
        QCOMPARE(state.current(id), value);
        QVERIFY2(notes.contains(note), qPrintable(notes.join('\n')));
    }

    // What `make demo` relies on: a restarted printer serves what was applied before.
    void restartServesAppliedChanges()
    {
        QTemporaryDir dir;
        const QString stateFile = dir.filePath("state.xml");
        QString error;
        PrinterState before;
        QVERIFY2(before.load(kSpecification, stateFile, &error), qPrintable(error));
        QStringList notes;
        QVERIFY(before.applyChanges(changes("<SleepTime CURRENT=\"30\"/>"), &notes));
        PrinterState after;
        QVERIFY2(after.load(kSpecification, stateFile, &error), qPrintable(error));
        QCOMPARE(after.current("SleepTime"), QString("30"));
        QCOMPARE(after.specification(), before.specification());
    }

    void servesAsConfigured_data()
    {
        columns<bool, bool, QString>({"ids", "brokenXml", "reported"});
        QTest::newRow("plain, every exchange reopening the device")
            << false << false << "request: TAV \"DATA\" (specification text): sending 1266 bytes";
        QTest::newRow("ignores the other framing")
            << true << false << "ignoring a request in the TAV framing: this printer speaks IDS";
        QTest::newRow("serves broken XML")
            << false << true << "request: TAV \"DATA\" (specification text): sending 640 bytes";
    }
    void servesAsConfigured()
    {
        const auto [ids, brokenXml, reported] = fetch<bool, bool, QString>();
        VirtualPrinterOptions options;
        options.specificationFile = kSpecification;
        options.ids = ids;
        options.brokenXml = brokenXml;
        PrinterThread printer(options);
        QVERIFY(printer.start());
        const QByteArray text = PrinterThread::fileText(kSpecification);
        const QByteArray served =
            ids ? QByteArray() : (brokenXml ? text.left(text.size() / 2) + "<broken" : text);
        for (int round = 0; round < (ids ? 1 : 2); ++round)
            QCOMPARE(fetch(printer.printer.devicePath(), 300).toLatin1(), served);
        QVERIFY2(printer.reports().contains(reported), qPrintable(printer.reports().join('\n')));
        if (!ids)
            QCOMPARE(printer.printer.requestsServed(), 4);
    }

    // A value written apart or joined means the same; "--huge" alone announces 4 GB.
    void readsCommandLine_data()
    {
        columns<QStringList, uint, int, QString>({"arguments", "huge", "slow", "specification"});
        QTest::newRow("apart") << QStringList{"--huge", "1000000", "--slow", "100", "a.xml"}
                               << 1000000u << 100 << "a.xml";
        QTest::newRow("joined") << QStringList{"--huge=1000000", "--slow=100", "a.xml"} << 1000000u
                                << 100 << "a.xml";
        QTest::newRow("huge alone")
            << QStringList{"--huge", "a.xml"} << 0xFFFFFFFFu << 0 << "a.xml";
    }
    void readsCommandLine()
    {
        const auto [arguments, huge, slow, specification] =
            fetch<QStringList, uint, int, QString>();
        VirtualPrinterCommandLine commandLine(QStringLiteral("test"));
        QCOMPARE(commandLine.parse(QStringList{"tav-vprinter"} + arguments),
                 VirtualPrinterCommandLine::Outcome::Run);
        QCOMPARE(commandLine.options().announcedSize, huge);
        QCOMPARE(commandLine.options().bytesPerSecond, slow);
        QCOMPARE(commandLine.options().specificationFile, specification);
    }
};

QTEST_GUILESS_MAIN(TestVirtualPrinter)
#include "TestVirtualPrinter.moc"
