#include "LogCapture.h"
#include "PrinterThread.h"
#include "TAVClient.h"
#include "UsbPrinterMock.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

// The settings command protocol end to end: the client's framing chosen from an emulated
// USB printer's extended ID (umockdev), the data channel served by the virtual printer on
// the emulated usblp node or on a pseudo-terminal of its own.
class TestTAVClient : public QObject
{
    Q_OBJECT

private slots:
    void framingChoice_data();
    void framingChoice();
    void endToEnd_data();
    void endToEnd();
    void faultsFail_data();
    void faultsFail();
    void slowButMovingIsNotCutOff();
    void hangUpMidTransfer();

private:
    QString specification() const { return QStringLiteral(TAV_IO_TEST_DATA "/printer.xml"); }
    VirtualPrinterOptions options(bool ids) const;
    void useFraming(bool ids);

    UsbPrinterMock mock; // before anything starts libusb
};

VirtualPrinterOptions TestTAVClient::options(bool ids) const
{
    VirtualPrinterOptions result;
    result.specificationFile = specification();
    result.ids = ids;
    return result;
}

void TestTAVClient::useFraming(bool ids)
{
    UsbPrinterMock::Behaviour behaviour;
    behaviour.extendedId = ids ? "MFG:Ormund;CMD:PJL,PCL,IDS;MDL:MFC-100;" : "MFG:Ormund;CMD:PJL;";
    mock.setBehaviour(behaviour);
}

void TestTAVClient::framingChoice_data()
{
    QTest::addColumn<QByteArray>("extendedId");
    QTest::addColumn<bool>("capable");
    QTest::addColumn<bool>("ids");

    QTest::newRow("IDS among several")
        << QByteArray("MFG:Ormund;CMD:PCL,PJL,IDS;MDL:MFC-100;") << true << true;
    QTest::newRow("model not capable")
        << QByteArray("MFG:Ormund;CMD:PCL,PJL,IDS;") << false << false;
    QTest::newRow("other sets only")
        << QByteArray("MFG:Ormund;CMD:PCL,PJL;MDL:X;") << true << false;
    QTest::newRow("IDSX") << QByteArray("MFG:Ormund;CMD:PCL,IDSX;") << true << false;
    QTest::newRow("lower-case key") << QByteArray("MFG:Ormund;cmd:IDS;") << true << false;
    QTest::newRow("lower-case set") << QByteArray("CMD:ids;") << true << false;
    QTest::newRow("COMMAND SET key") << QByteArray("COMMAND SET:IDS;") << true << false;
    QTest::newRow("first CMD field counts") << QByteArray("CMD:PJL;CMD:IDS;") << true << false;
    QTest::newRow("empty fields skipped") << QByteArray(";;CMD:IDS;;") << true << true;
    QTest::newRow("no extended ID") << QByteArray() << true << false;
}

void TestTAVClient::framingChoice()
{
    QFETCH(QByteArray, extendedId);
    QFETCH(bool, capable);
    QFETCH(bool, ids);

    UsbPrinterMock::Behaviour behaviour;
    behaviour.extendedId = extendedId;
    mock.setBehaviour(behaviour);
    Capabilities capabilities;
    capabilities.ids = capable;
    LogCapture log(10);
    TAVClient client(mock.usblpPath(), &capabilities);
    QCOMPARE(client.useIds(), ids);
    QVERIFY(log.text().contains(QStringLiteral("TAVClient::TAVClient(/dev/usb/lp0)")));
    QVERIFY(log.text().contains(
        QStringLiteral("\textDevID: <%1>").arg(QString::fromLatin1(extendedId))));
}

void TestTAVClient::endToEnd_data()
{
    QTest::addColumn<bool>("ids");
    QTest::addColumn<bool>("timed");
    QTest::newRow("TAV, waiting for ever") << false << false;
    QTest::newRow("TAV, dialog timings") << false << true;
    QTest::newRow("IDS, waiting for ever") << true << false;
    QTest::newRow("IDS, dialog timings") << true << true;
}

void TestTAVClient::endToEnd()
{
    QFETCH(bool, ids);
    QFETCH(bool, timed);

    useFraming(ids);
    PrinterThread printer(options(ids));
    QVERIFY(printer.attach(mock.dataMaster()));
    Capabilities capabilities;
    TAVClient client(mock.usblpPath(), &capabilities);
    QCOMPARE(client.useIds(), ids);
    if (timed)
        client.setTimings(200, 200, 3000);

    const QString text = ids ? client.getSpecification_ids() : client.getSpecification_tav();
    QCOMPARE(text.toLatin1(), PrinterThread::fileText(specification()));

    const QString changes =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root><PrinterSettingsInfo>"
                       "<SleepTime CURRENT=\"17\"/></PrinterSettingsInfo></root>\n");
    QVERIFY(ids ? client.setChanges_ids(changes) : client.setChanges_tav(changes));
    QCOMPARE(printer.printer().state().current("SleepTime"), QStringLiteral("17"));
    const QString again = ids ? client.getSpecification_ids() : client.getSpecification_tav();
    QVERIFY(again.contains("CURRENT=\"17\""));
}

void TestTAVClient::faultsFail_data()
{
    QTest::addColumn<bool>("ids");
    QTest::addColumn<QString>("fault");
    QTest::addColumn<bool>("changes"); // send changes rather than fetch the specification
    QTest::addColumn<QString>("logged");
    QTest::addColumn<int>("served");

    const QString wrongSize = QStringLiteral("\twrong size of response 0");
    const QString tooBig = QStringLiteral("exceeds the limit of 67108864 bytes; refused");
    for (bool ids : {false, true}) {
        const char* framing = ids ? "IDS" : "TAV";
        const QString zero =
            QStringLiteral("TAVClient::getSpecification_%1(): size of buffer is 0!")
                .arg(ids ? "ids" : "tav");
        QTest::addRow("%s, size 0 asks no more", framing) << ids << "zero" << false << zero << 1;
        QTest::addRow("%s, huge size asks no more", framing)
            << ids << "huge" << false << tooBig << 1;
        QTest::addRow("%s, short size reply", framing) << ids << "short" << false << wrongSize << 1;
        QTest::addRow("%s, short change reply", framing)
            << ids << "short" << true << wrongSize << 1;
        QTest::addRow("%s, rejected", framing) << ids << "reject" << true << QString() << 1;
        QTest::addRow("%s, never answers", framing) << ids << "mute" << false << wrongSize << 1;
    }
    QTest::newRow("TAV, garbage") << false << "garbage" << false << QString() << -1;
    QTest::newRow("empty changes are not sent") << false << "empty" << true << QString() << 0;
}

// Each fails in a way the caller can report, within the idle limit, and changes nothing.
void TestTAVClient::faultsFail()
{
    QFETCH(bool, ids);
    QFETCH(QString, fault);
    QFETCH(bool, changes);
    QFETCH(QString, logged);
    QFETCH(int, served);

    QTemporaryDir dir;
    VirtualPrinterOptions settings = options(ids);
    if (fault == "zero") {
        settings.specificationFile = dir.filePath("empty.xml");
        QFile empty(settings.specificationFile);
        QVERIFY(empty.open(QIODevice::WriteOnly));
    }
    settings.announcedSize = fault == "huge" ? (ids ? 64u * 1024u * 1024u + 1u : 0xFFFFFFFFu) : 0;
    settings.shortReplies = fault == "short";
    settings.rejectChanges = fault == "reject";
    settings.mute = fault == "mute";
    settings.garbage = fault == "garbage";
    useFraming(ids);
    PrinterThread printer(settings);
    QVERIFY(printer.attach(mock.dataMaster()));
    TAVClient client(mock.usblpPath(), nullptr);
    QCOMPARE(client.useIds(), ids);
    client.setTimings(20, 20, 1000);

    LogCapture log(9);
    const QString change =
        fault == "empty"
            ? QString()
            : QStringLiteral("<root><IDSInfo><SleepTime CURRENT=\"3\"/></IDSInfo></root>");
    if (changes)
        QVERIFY(!(ids ? client.setChanges_ids(change) : client.setChanges_tav(change)));
    else
        QVERIFY((ids ? client.getSpecification_ids() : client.getSpecification_tav()).isEmpty());
    if (!logged.isEmpty())
        QVERIFY2(log.text().contains(logged), qPrintable(log.text()));
    if (served >= 0)
        QCOMPARE(printer.printer().requestsServed(), served);
    if (fault == "reject")
        QCOMPARE(printer.printer().state().current("SleepTime"), QStringLiteral("5"));
}

void TestTAVClient::slowButMovingIsNotCutOff()
{
    useFraming(false);
    VirtualPrinterOptions settings = options(false);
    settings.bytesPerSecond = 1000; // over a second for the whole text, in steps of 0.1 s
    PrinterThread printer(settings);
    QVERIFY(printer.attach(mock.dataMaster()));
    TAVClient client(mock.usblpPath(), nullptr);
    // Far shorter than the whole transfer, longer than any pause between bytes.
    client.setTimings(20, 20, 500);
    QCOMPARE(client.getSpecification_tav().toLatin1(), PrinterThread::fileText(specification()));
}

// On a terminal of the printer's own, without USB: the control requests fail at once and
// the TAV framing is used.
void TestTAVClient::hangUpMidTransfer()
{
    VirtualPrinterOptions settings = options(false);
    settings.hangUp = true;
    PrinterThread printer(settings);
    QVERIFY(printer.start());
    TAVClient client(printer.devicePath(), nullptr);
    QVERIFY(!client.useIds());
    client.setTimings(200, 200, 30000);
    QVERIFY(client.getSpecification_tav().isEmpty()); // the hang-up, not the clock, ends it

    QVERIFY(printer.reported(QStringLiteral("fault: hanging up after %1 of %2 bytes")
                                 .arg(PrinterThread::fileText(specification()).size() / 2)
                                 .arg(PrinterThread::fileText(specification()).size())));
    // and serves again, on a new terminal.
    QTRY_VERIFY(
        !printer.reports().filter(QRegularExpression("^serving again on /dev/pts/")).isEmpty());
}

QTEST_GUILESS_MAIN(TestTAVClient)
#include "TestTAVClient.moc"
