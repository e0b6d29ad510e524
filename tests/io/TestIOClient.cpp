#include "../elements/Rows.h"
#include "LogCapture.h"
#include "io/IOClient.h"
#include "io/IOClientLocker.h"
#include "vprinter/PseudoTerminal.h"

#include <QTest>

#include <unistd.h>

// The data channel on a pseudo-terminal: opening it for one operation, bounded reads.
// The request/response exchange itself is proven end to end by TestTAVClient.
class TestIOClient : public QObject
{
    Q_OBJECT

    PseudoTerminal terminal;

private slots:
    void initTestCase()
    {
        QString error;
        QVERIFY2(terminal.open(&error), qPrintable(error));
    }

    void lockerOpensOnlyWhatIsClosed_data()
    {
        // 0: closed, -1: no such device
        columns<int, bool, QString>({"initialMode", "valid", "logged"});
        const int raw = QIODevice::Unbuffered;
        QTest::newRow("closed") << 0 << true << "\tm_isValid=1";
        QTest::newRow("raw read-write") << int(QIODevice::ReadWrite | raw) << true << "mode 43";
        QTest::newRow("read-only") << int(QIODevice::ReadOnly | raw) << false << "mode 41";
        QTest::newRow("buffered") << int(QIODevice::ReadWrite) << false
                                  << "\talready open with mode 3";
        QTest::newRow("missing device") << -1 << false
                                        << "can't open device '/nonexistent/lp0' status=5: "
                                           "open/readable/writable/raw: 0/0/0/0";
    }
    void lockerOpensOnlyWhatIsClosed()
    {
        const auto [initialMode, valid, logged] = fetch<int, bool, QString>();
        IOClient client(initialMode < 0 ? "/nonexistent/lp0" : terminal.slavePath());
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
        columns<int, int, int, bool, int>({"available", "limit", "pollUs", "ok", "size"});
        QTest::newRow("complete") << 8 << 2000 << 20000 << true << 8;
        QTest::newRow("limit runs out after a partial read") << 3 << 200 << 20000 << false << 3;
        QTest::newRow("limit 0") << 8 << 0 << 20000 << false << 0;
        QTest::newRow("no limit, blocking read") << 8 << -1 << -1 << true << 8;
    }
    void readWithLimit()
    {
        const auto [available, limit, pollUs, ok, size] = fetch<int, int, int, bool, int>();
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
};

QTEST_GUILESS_MAIN(TestIOClient)
#include "TestIOClient.moc"
