#include "../elements/Rows.h"
#include "LogCapture.h"
#include "PrinterThread.h"
#include "UsbPrinterMock.h"
#include "io/ExchangeProgress.h"
#include "io/TAVClient.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString kSpecification = QStringLiteral(TAV_IO_TEST_DATA "/printer.xml");

VirtualPrinterOptions options(bool ids)
{
    VirtualPrinterOptions result;
    result.specificationFile = kSpecification;
    result.ids = ids;
    return result;
}

// Stops the exchange once it is told that the device is slow to answer, when `cancel` is set.
struct CancelWhenWaiting : ExchangeProgress
{
    bool cancel = false;
    std::atomic<bool> told{false};
    bool cancelled() const override { return cancel && told; }
    void waitingForAnswer() override { told = true; }
};

} // namespace

// The settings command protocol end to end: the client's framing chosen from an emulated
// USB printer's extended ID (umockdev), the data channel served by the virtual printer on
// the emulated usblp node or on a pseudo-terminal of its own.
class TestTAVClient : public QObject
{
    Q_OBJECT

    UsbPrinterMock mock; // before anything starts libusb

    static UsbPrinterMock::Behaviour framing(bool ids)
    {
        UsbPrinterMock::Behaviour behaviour;
        behaviour.extendedId = ids ? "MFG:Ormund;CMD:PJL,IDS;MDL:MFC-100;" : "CMD:PJL;";
        return behaviour;
    }
    static QString fetch(TAVClient& client)
    {
        return client.useIds() ? client.getSpecification_ids() : client.getSpecification_tav();
    }
    static bool send(TAVClient& client, const QString& changes)
    {
        return client.useIds() ? client.setChanges_ids(changes) : client.setChanges_tav(changes);
    }

private slots:
    void framingChoice_data()
    {
        columns<QByteArray, bool, bool>({"extendedId", "capable", "ids"});
        QTest::newRow("IDS among several")
            << QByteArray("MFG:Ormund;CMD:PCL,PJL,IDS;MDL:MFC-100;") << true << true;
        QTest::newRow("model not capable") << QByteArray("CMD:PCL,PJL,IDS;") << false << false;
        QTest::newRow("other sets only") << QByteArray("CMD:PCL,PJL;MDL:X;") << true << false;
        QTest::newRow("IDSX") << QByteArray("MFG:Ormund;CMD:PCL,IDSX;") << true << false;
        QTest::newRow("lower-case key") << QByteArray("MFG:Ormund;cmd:IDS;") << true << false;
        QTest::newRow("lower-case set") << QByteArray("CMD:ids;") << true << false;
        QTest::newRow("COMMAND SET key") << QByteArray("COMMAND SET:IDS;") << true << false;
        QTest::newRow("first CMD field counts") << QByteArray("CMD:PJL;CMD:IDS;") << true << false;
        QTest::newRow("empty fields skipped") << QByteArray(";;CMD:IDS;;") << true << true;
        QTest::newRow("no extended ID") << QByteArray() << true << false;
    }
    void framingChoice()
    {
        const auto [extendedId, capable, ids] = ::fetch<QByteArray, bool, bool>();
        UsbPrinterMock::Behaviour behaviour;
        behaviour.extendedId = extendedId;
        mock.setBehaviour(behaviour);
        Capabilities capabilities;
        capabilities.ids = capable;
        LogCapture log(10);
        TAVClient client(UsbPrinterMock::kUsblp, &capabilities);
        QCOMPARE(client.useIds(), ids);
        QVERIFY(log.text().contains("\textDevID: <" + extendedId + ">"));
    }

    void endToEnd_data()
    {
        // 0: no limits, waiting for ever
        // 0: at once
        columns<bool, int, int, int>({"ids", "pollMs", "idleMs", "bytesPerSecond"});
        QTest::newRow("TAV, waiting for ever") << false << 0 << 0 << 0;
        QTest::newRow("TAV, dialog timings") << false << 200 << 3000 << 0;
        // Over a second for the whole text, in steps of 0.1 s: never idle for 500 ms.
        QTest::newRow("TAV, slow but moving is not cut off") << false << 20 << 500 << 1000;
        QTest::newRow("IDS, waiting for ever") << true << 0 << 0 << 0;
        QTest::newRow("IDS, dialog timings") << true << 200 << 3000 << 0;
    }
    void endToEnd()
    {
        const auto [ids, pollMs, idleMs, bytesPerSecond] = ::fetch<bool, int, int, int>();
        UsbPrinterMock::Behaviour behaviour = framing(ids);
        mock.setBehaviour(behaviour);
        VirtualPrinterOptions settings = options(ids);
        settings.bytesPerSecond = bytesPerSecond;
        PrinterThread printer(settings);
        QVERIFY(printer.start(mock.dataMaster()));
        Capabilities capabilities;
        TAVClient client(UsbPrinterMock::kUsblp, &capabilities);
        QCOMPARE(client.useIds(), ids);
        if (pollMs)
            client.setTimings(pollMs, pollMs, idleMs);
        behaviour.silentProbes = 1; // asleep now: the first exchange has to wake it
        mock.setBehaviour(behaviour);
        QCOMPARE(fetch(client).toLatin1(), PrinterThread::fileText(kSpecification));
        QVERIFY(send(client,
                     "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<root><PrinterSettingsInfo>"
                     "<SleepTime CURRENT=\"17\"/></PrinterSettingsInfo></root>\n"));
        QCOMPARE(printer.printer.state().current("SleepTime"), QStringLiteral("17"));
        QVERIFY(fetch(client).contains("CURRENT=\"17\""));
        QCOMPARE(mock.controlRequests().count(0x99), 1);
    }

    void faultsFail_data()
    {
        // send changes rather than fetch the specification
        columns<bool, QString, bool, QString, int>({"ids", "fault", "changes", "logged", "served"});
        const auto row = [](bool ids, const char* name, const char* fault, bool changes,
                            const QString& logged) {
            QTest::addRow("%s, %s", ids ? "IDS" : "TAV", name)
                << ids << fault << changes << logged << 1;
        };
        for (bool ids : {false, true}) {
            const QString wrongSize = "\twrong size of response 0";
            row(ids, "size 0 asks no more", "zero", false,
                QString("TAVClient::getSpecification_%1(): size of buffer is 0!")
                    .arg(ids ? "ids" : "tav"));
            row(ids, "huge size asks no more", "huge", false,
                "exceeds the limit of 67108864 bytes; refused");
            row(ids, "short size reply", "short", false, wrongSize);
            row(ids, "short change reply", "short", true, wrongSize);
            row(ids, "rejected", "reject", true, QString());
            row(ids, "never answers", "mute", false, wrongSize);
        }
        QTest::newRow("TAV, garbage") << false << "garbage" << false << QString() << -1;
        QTest::newRow("empty changes are not sent") << false << "empty" << true << QString() << 0;
    }
    // Each fails in a way the caller can report, within the idle limit, and changes nothing.
    void faultsFail()
    {
        const auto [ids, fault, changes, logged, served] =
            ::fetch<bool, QString, bool, QString, int>();
        QTemporaryDir dir;
        VirtualPrinterOptions settings = options(ids);
        if (fault == "zero") {
            settings.specificationFile = dir.filePath("empty.xml");
            QFile empty(settings.specificationFile);
            QVERIFY(empty.open(QIODevice::WriteOnly));
        }
        settings.announcedSize =
            fault == "huge" ? (ids ? 64u * 1024u * 1024u + 1u : 0xFFFFFFFFu) : 0;
        settings.shortReplies = fault == "short";
        settings.rejectChanges = fault == "reject";
        settings.mute = fault == "mute";
        settings.garbage = fault == "garbage";
        mock.setBehaviour(framing(ids));
        PrinterThread printer(settings);
        QVERIFY(printer.start(mock.dataMaster()));
        TAVClient client(UsbPrinterMock::kUsblp, nullptr);
        QCOMPARE(client.useIds(), ids);
        client.setTimings(20, 20, 1000);
        LogCapture log(9);
        if (changes)
            QVERIFY(!send(client, fault == "empty" ? QString()
                                                   : "<root><IDSInfo><SleepTime CURRENT=\"3\"/>"
                                                     "</IDSInfo></root>"));
        else
            QVERIFY(fetch(client).isEmpty());
        const QByteArray text = log.text();
        QVERIFY2(text.contains(logged.toUtf8()), text.constData());
        if (served >= 0)
            QCOMPARE(printer.printer.requestsServed(), served);
        if (fault == "reject")
            QCOMPARE(printer.printer.state().current("SleepTime"), QStringLiteral("5"));
    }

    // On a terminal of the printer's own, which rejects every change: each exchange gets its
    // own reply, however late an earlier one came, and a slow printer is waited for but
    // cannot hold the client.
    void slowAndLateReplies_data()
    {
        columns<int, int, int, int, bool, bool, QString>({"lateFirstMs", "bytesPerSecond",
                                                          "firstByteMs", "exchangeMs", "cancel",
                                                          "fetched", "logged"});
        QTest::newRow("late, within the first-byte wait")
            << 600 << 0 << 5000 << 5000 << false << true << QString();
        QTest::newRow("too late, not taken for the next reply")
            << 600 << 0 << 200 << 5000 << false << false
            << "discarded 8 bytes that the device sent before this request";
        QTest::newRow("cancelled while waiting")
            << 1000 << 0 << 5000 << 5000 << true << false << "the exchange was cancelled";
        QTest::newRow("trickling past the deadline")
            << 0 << 1000 << 5000 << 300 << false << false << "longer than its deadline";
    }
    void slowAndLateReplies()
    {
        const auto [lateFirstMs, bytesPerSecond, firstByteMs, exchangeMs, cancel, fetched, logged] =
            ::fetch<int, int, int, int, bool, bool, QString>();
        VirtualPrinterOptions settings = options(false);
        settings.lateFirstMs = lateFirstMs;
        settings.bytesPerSecond = bytesPerSecond;
        settings.rejectChanges = true;
        PrinterThread printer(settings);
        QVERIFY(printer.start());
        TAVClient client(printer.printer.devicePath(), nullptr);
        client.setTimings(20, 20, 200);
        client.setReplyLimits({firstByteMs, exchangeMs, 0});
        CancelWhenWaiting progress;
        progress.cancel = cancel;
        client.setProgress(&progress);
        LogCapture log(9);
        const QByteArray text = PrinterThread::fileText(kSpecification);
        QCOMPARE(client.getSpecification_tav().toLatin1() == text, fetched);
        if (lateFirstMs) {
            QTRY_VERIFY(printer.reports().contains("fault: late answer sent"));
            progress.cancel = false;
            QVERIFY(!client.setChanges_tav("<root><PrinterSettingsInfo><SleepTime CURRENT=\"3\"/>"
                                           "</PrinterSettingsInfo></root>"));
            QCOMPARE(client.getSpecification_tav().toLatin1(), text);
        }
        QVERIFY2(log.text().contains(logged.toUtf8()), qPrintable(logged));
    }

    // On a terminal of the printer's own, without USB: the control requests fail at once and
    // the TAV framing is used.
    void hangUpMidTransfer()
    {
        VirtualPrinterOptions settings = options(false);
        settings.hangUp = true;
        PrinterThread printer(settings);
        QVERIFY(printer.start());
        TAVClient client(printer.printer.devicePath(), nullptr);
        QVERIFY(!client.useIds());
        client.setTimings(200, 200, 30000);
        QVERIFY(client.getSpecification_tav().isEmpty()); // the hang-up, not the clock, ends it
        const qsizetype size = PrinterThread::fileText(kSpecification).size();
        QVERIFY(printer.reports().contains(
            QStringLiteral("fault: hanging up after %1 of %2 bytes").arg(size / 2).arg(size)));
        // and serves again, on a new terminal.
        QTRY_VERIFY(
            !printer.reports().filter(QRegularExpression("^serving again on /dev/pts/")).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestTAVClient)
#include "TestTAVClient.moc"
