#include "IOClient.h"
#include "LogCapture.h"
#include "PrinterThread.h"
#include "PseudoTerminal.h"
#include "TAVCommand.h"
#include "UsbPrinterMock.h"

#include <QFileInfo>
#include <QTest>

#include <unistd.h>

// Block transfers and the request/response exchange of the data channel: bounded transfers
// on a pseudo-terminal, the exchange on an emulated usblp node (umockdev).
class TestIOClient : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void readWithLimit_data();
    void readWithLimit();
    void writeStopsAtLimit();
    void commandWakesAndExchanges();
    void zeroByteCommand();
    void commandNeedsReadWrite();

private:
    UsbPrinterMock mock; // before anything starts libusb
    PseudoTerminal terminal;
};

void TestIOClient::initTestCase()
{
    QString error;
    QVERIFY2(terminal.open(&error), qPrintable(error));
}

void TestIOClient::readWithLimit_data()
{
    QTest::addColumn<int>("available");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("pollUs");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("size");

    QTest::newRow("complete") << 8 << 8 << 2000 << 20000 << true << 8;
    QTest::newRow("limit runs out after a partial read") << 3 << 8 << 200 << 20000 << false << 3;
    QTest::newRow("limit 0") << 8 << 8 << 0 << 20000 << false << 0;
    QTest::newRow("nothing to read") << 0 << 0 << 0 << 20000 << true << 0;
    QTest::newRow("no limit, blocking read") << 8 << 8 << -1 << -1 << true << 8;
}

void TestIOClient::readWithLimit()
{
    QFETCH(int, available);
    QFETCH(int, length);
    QFETCH(int, limit);
    QFETCH(int, pollUs);
    QFETCH(bool, ok);
    QFETCH(int, size);

    IOClient client(terminal.slavePath());
    client.setReadPollTimeout(pollUs);
    QVERIFY(client.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    const QByteArray sent("ABCDEFGH", available);
    QCOMPARE(::write(terminal.master(), sent.constData(), size_t(available)), ssize_t(available));

    QByteArray buffer(qMax(length, 1), '\0');
    const TransferResult result = client.readWithLimit(buffer.data(), uint32_t(length), limit);
    QCOMPARE(result.ok, ok);
    QCOMPARE(int(result.size), size);
    QCOMPARE(buffer.left(size), sent.left(size));
    if (!ok && size > 0)
        QVERIFY(int(result.elapsed) >= limit);
    client.close();
    terminal.dropUnreadReplies();
}

void TestIOClient::writeStopsAtLimit()
{
    // Nobody reads the master, so the terminal's buffer fills and the write stalls.
    IOClient client(terminal.slavePath());
    client.setWritePollTimeout(20000);
    QVERIFY(client.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    const QByteArray data(1 << 20, 'w');
    const TransferResult result =
        client.writeWithLimit(data.constData(), uint32_t(data.size()), 300);
    QVERIFY(!result.ok);
    QVERIFY(result.size > 0);
    QVERIFY(result.size < uint32_t(data.size()));

    QByteArray drain(65536, '\0');
    while (::read(terminal.master(), drain.data(), size_t(drain.size())) > 0) {
    }
    const TransferResult none = client.writeWithLimit(data.constData(), 4, 0);
    QVERIFY(!none.ok);
    QCOMPARE(none.size, 0u);
}

void TestIOClient::commandWakesAndExchanges()
{
    mock.setBehaviour(UsbPrinterMock::Behaviour());
    VirtualPrinterOptions options;
    options.specificationFile = QStringLiteral(TAV_IO_TEST_DATA "/printer.xml");
    PrinterThread printer(options);
    QVERIFY(printer.attach(mock.dataMaster()));

    IOClient client(mock.usblpPath());
    mock.clearRecord();
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
    QCOMPARE(mock.countOf(0x02), 1); // the status probe found it awake
    QVERIFY(!client.isOpen());
    QVERIFY(log.text().contains("IOClient::command(): write command data:\nresult = OK    size = "
                                "10 bytes    elapsed = "));
    QVERIFY(log.text().contains("IOClient::command(): read response data:\nresult = OK    size = "
                                "8 bytes    elapsed = "));
}

void TestIOClient::zeroByteCommand()
{
    mock.setBehaviour(UsbPrinterMock::Behaviour());
    IOClient client(mock.usblpPath());
    mock.clearRecord();
    const TransferResult result = client.command(nullptr, 0, nullptr, 0, 1000);
    QVERIFY(result.ok);
    QCOMPARE(result.size, 0u);
    QCOMPARE(mock.countOf(0x02), 1); // still woken
    QVERIFY(mock.usblpOpens() >= 1); // and opened
}

// A device left open read-only cannot carry an exchange: nothing is written.
void TestIOClient::commandNeedsReadWrite()
{
    mock.setBehaviour(UsbPrinterMock::Behaviour());
    IOClient client(mock.usblpPath());
    QVERIFY(client.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    LogCapture log(9);
    const TransferResult result = client.command("x", 1, nullptr, 0, 1000);
    QVERIFY(!result.ok);
    QCOMPARE(result.size, 0u);
    QVERIFY(log.text().contains("IOClient::command(): can't open device: </dev/usb/lp0> !"));
}

QTEST_GUILESS_MAIN(TestIOClient)
#include "TestIOClient.moc"
