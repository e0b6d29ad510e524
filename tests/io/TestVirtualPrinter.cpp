#include "PrinterState.h"
#include "PrinterThread.h"
#include "RequestParser.h"
#include "TAVClient.h"
#include "TAVCommand.h"

#include <QTemporaryDir>
#include <QTest>

namespace {
// What the parser yields: "T:<data>" or "I:<code hex>:<data>" per request.
QStringList parse(RequestParser& parser)
{
    QStringList seen;
    PrinterRequest request;
    while (parser.next(request)) {
        if (request.framing == PrinterRequest::Tav)
            seen << "T:" + QString::fromLatin1(request.data);
        else
            seen << QStringLiteral("I:%1:").arg(request.code, 8, 16, QLatin1Char('0')) +
                        QString::fromLatin1(request.data);
    }
    return seen;
}

QByteArray tav(const char* data)
{
    return TAVCommand::tav(data);
}

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

// The virtual printer: cutting the host's byte stream into commands, its copy of the settings
// and how change documents alter it, and serving over a pseudo-terminal of its own. The
// program's --link and --state are exercised by TestEndToEnd.
class TestVirtualPrinter : public QObject
{
    Q_OBJECT

private slots:
    void parses_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<QStringList>("requests");
        QTest::addColumn<QStringList>("reports");
        QTest::newRow("TAV") << tav("ALL?") << QStringList{"T:ALL?"} << QStringList();
        QTest::newRow("IDS with data") << QByteArray(TAVCommand::ids(0xF5020000, "<a>"))
                                       << QStringList{"I:f5020000:<a>"} << QStringList();
        QTest::newRow("two back to back")
            << tav("ALL?") + tav("DATA") << QStringList{"T:ALL?", "T:DATA"} << QStringList();
        QTest::newRow("garbage first")
            << QByteArray("xx\x1bq") + tav("DATA") << QStringList{"T:DATA"}
            << QStringList{"ignoring 4 bytes that start no request"};
        QTest::newRow("announces too much")
            << QByteArray("\x1b#\xff\xff\xff\xff", 6) + tav("ALL?") << QStringList{"T:ALL?"}
            << QStringList{"ignoring a request that announces 4294967295 bytes",
                           "ignoring 4 bytes that start no request"};
    }
    void parses()
    {
        QFETCH(QByteArray, stream);
        QFETCH(QStringList, requests);
        QFETCH(QStringList, reports);
        QStringList reported;
        RequestParser whole([&](const QString& line) { reported << line; });
        whole.feed(stream.constData(), int(stream.size()));
        QCOMPARE(parse(whole), requests);
        QCOMPARE(reported, reports);
        QVERIFY(!whole.hasPartial());
        // Byte by byte: the commands must not depend on how reads cut the stream.
        RequestParser pieces;
        QStringList seen;
        for (char byte : stream) {
            pieces.feed(&byte, 1);
            seen += parse(pieces);
        }
        QCOMPARE(seen, requests);
    }

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
        QVERIFY2(state.load(kSpecification, QString(), &error), qPrintable(error));
        QStringList notes;
        QCOMPARE(state.applyChanges(document, &notes), accepted);
        QCOMPARE(state.current(id), value);
        QVERIFY2(notes.contains(note), qPrintable(notes.join('\n')));
    }

    void unparsedSpecificationRejectsChanges()
    {
        QTemporaryDir dir;
        const QByteArray broken = "<root><PrinterSettingsInfo><A CURRENT=\"1\">";
        QFile file(dir.filePath("broken.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(broken) == broken.size());
        file.close();
        PrinterState state;
        QString error;
        QVERIFY(state.load(file.fileName(), QString(), &error));
        QVERIFY(!state.isParsed());
        QCOMPARE(state.specification(), broken);
        QStringList notes;
        QVERIFY(!state.applyChanges(changes("<A CURRENT=\"2\"/>"), &notes));
        QCOMPARE(notes, QStringList{"the served specification does not parse"});
        QVERIFY(!state.load(dir.filePath("missing.xml"), QString(), &error));
        QVERIFY(error.startsWith("cannot read "));
    }

    void servesAsConfigured_data()
    {
        QTest::addColumn<bool>("ids");
        QTest::addColumn<bool>("brokenXml");
        QTest::addColumn<QString>("reported");
        QTest::newRow("plain, every exchange reopening the device")
            << false << false << "request: TAV \"DATA\" (specification text): sending 1266 bytes";
        QTest::newRow("ignores the other framing")
            << true << false << "ignoring a request in the TAV framing: this printer speaks IDS";
        QTest::newRow("serves broken XML")
            << false << true << "request: TAV \"DATA\" (specification text): sending 640 bytes";
    }
    void servesAsConfigured()
    {
        QFETCH(bool, ids);
        QFETCH(bool, brokenXml);
        QFETCH(QString, reported);
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
};

QTEST_GUILESS_MAIN(TestVirtualPrinter)
#include "TestVirtualPrinter.moc"
