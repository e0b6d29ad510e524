#include "IOClient.h"
#include "IOClientLocker.h"
#include "LogCapture.h"
#include "PrinterThread.h"
#include "PseudoTerminal.h"
#include "TAVCommand.h"
#include "UsbPrinterMock.h"

#include <QFileInfo>
#include <QTest>

#include <unistd.h>

// The data channel: opening it for one operation and bounded transfers on a pseudo-terminal,
// the request/response exchange on an emulated usblp node (umockdev).
class TestIOClient : public QObject
{
    Q_OBJECT

    UsbPrinterMock mock; // before anything starts libusb
    PseudoTerminal terminal;

private slots:
    void initTestCase()
    {
        QString error;
        QVERIFY2(terminal.open(&error), qPrintable(error));
    }

    void lockerOpensOnlyWhatIsClosed_data()
    {
        QTest::addColumn<int>("initialMode"); // 0: closed, -1: no such device
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("logged");
        const int raw = QIODevice::Unbuffered;
        QTest::newRow("closed") << 0 << true << QString("\tm_isValid=1");
        QTest::newRow("open raw read-write")
            << int(QIODevice::ReadWrite | raw) << true << QString("\talready open with mode 43");
        QTest::newRow("open read-only")
            << int(QIODevice::ReadOnly | raw) << false << QString("\talready open with mode 41");
        QTest::newRow("open buffered")
            << int(QIODevice::ReadWrite) << false << QString("\talready open with mode 3");
        QTest::newRow("missing device") << -1 << false
                                        << QString("can't open device '/nonexistent/lp0' "
                                                   "status=5: open/readable/writable/raw: 0/0/0/0");
    }
    void lockerOpensOnlyWhatIsClosed()
    {
        QFETCH(int, initialMode);
        QFETCH(bool, valid);
        QFETCH(QString, logged);
        IOClient client(initialMode < 0 ? QString("/nonexistent/lp0") : terminal.slavePath());
        if (initialMode > 0)
            QVERIFY(client.open(QIODevice::OpenMode(initialMode)));
        LogCapture log;
        {
            IOClientLocker locker(&client);
            QCOMPARE(locker.isValid(), valid);
            QCOMPARE(locker.isOpenedHere(), initialMode == 0);
        }
        // Closed again only when the locker opened it.
        QCOMPARE(client.isOpen(), initialMode > 0);
        const QByteArray text = log.text();
        QVERIFY2(text.contains(logged.toUtf8()), text.constData());
    }

    void readWithLimit_data()
    {
        QTest::addColumn<int>("available");
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("pollUs");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<int>("size");
        QTest::newRow("complete") << 8 << 2000 << 20000 << true << 8;
        QTest::newRow("limit runs out after a partial read") << 3 << 200 << 20000 << false << 3;
        QTest::newRow("limit 0") << 8 << 0 << 20000 << false << 0;
        QTest::newRow("no limit, blocking read") << 8 << -1 << -1 << true << 8;
    }
    void readWithLimit()
    {
        QFETCH(int, available);
        QFETCH(int, limit);
        QFETCH(int, pollUs);
        QFETCH(bool, ok);
        QFETCH(int, size);
        IOClient client(terminal.slavePath());
        client.setReadPollTimeout(pollUs);
        QVERIFY(client.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        const QByteArray sent("ABCDEFGH", available);
        QCOMPARE(::write(terminal.master(), sent.constData(), size_t(available)), available);
        QByteArray buffer(8, '\0');
        const TransferResult result = client.readWithLimit(buffer.data(), 8, limit);
        QCOMPARE(result.ok, ok);
        QCOMPARE(int(result.size), size);
        QCOMPARE(buffer.left(size), sent.left(size));
        if (!ok && size > 0)
            QVERIFY(int(result.elapsed) >= limit);
        client.close();
        terminal.dropUnreadReplies();
    }

    void writeStopsAtLimit()
    {
        // Nobody reads the master, so the terminal's buffer fills and the write stalls.
        IOClient client(terminal.slavePath());
        client.setWritePollTimeout(20000);
        QVERIFY(client.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        const QByteArray data(1 << 20, 'w');
        const TransferResult result =
            client.writeWithLimit(data.constData(), uint32_t(data.size()), 300);
        QVERIFY(!result.ok);
        QVERIFY(result.size > 0 && result.size < uint32_t(data.size()));
        QByteArray drain(65536, '\0');
        while (::read(terminal.master(), drain.data(), size_t(drain.size())) > 0) {
        }
        const TransferResult none = client.writeWithLimit(data.constData(), 4, 0);
        QVERIFY(!none.ok);
        QCOMPARE(none.size, 0u);
    }

    void commandWakesAndExchanges()
    {
        mock.setBehaviour();
        VirtualPrinterOptions options;
        options.specificationFile = QStringLiteral(TAV_IO_TEST_DATA "/printer.xml");
        PrinterThread printer(options);
        QVERIFY(printer.start(mock.dataMaster()));
        IOClient client(UsbPrinterMock::kUsblp);
        mock.setBehaviour();
        const TAVCommand query = TAVCommand::tav("ALL?");
        char reply[8] = {};
        LogCapture log(10);
        const TransferResult result =
            client.command(query.constData(), uint32_t(query.size()), reply, sizeof reply, 5000);
        QVERIFY(result.ok);
        QCOMPARE(result.size, 8u);
        QCOMPARE(QByteArray(reply, 2), QByteArray("\x1b#"));
        QCOMPARE(TAVCommand::bigEndian32(reply + 2),
                 uint32_t(QFileInfo(options.specificationFile).size()));
        QCOMPARE(mock.controlRequests().count(0x02), 1); // the status probe found it awake
        QVERIFY(!client.isOpen());
        QVERIFY(log.text().contains("IOClient::command(): read response data:\nresult = OK    "
                                    "size = 8 bytes    elapsed = "));
        // Nothing to send still wakes the device.
        mock.setBehaviour();
        QVERIFY(client.command(nullptr, 0, nullptr, 0, 1000).ok);
        QCOMPARE(mock.controlRequests().count(0x02), 1);
    }

    // A device left open read-only cannot carry an exchange: nothing is written.
    void commandNeedsReadWrite()
    {
        mock.setBehaviour();
        IOClient client(UsbPrinterMock::kUsblp);
        QVERIFY(client.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        LogCapture log(9);
        const TransferResult result = client.command("x", 1, nullptr, 0, 1000);
        QVERIFY(!result.ok);
        QCOMPARE(result.size, 0u);
        QVERIFY(log.text().contains("IOClient::command(): can't open device: </dev/usb/lp0> !"));
    }
};

QTEST_GUILESS_MAIN(TestIOClient)
#include "TestIOClient.moc"
