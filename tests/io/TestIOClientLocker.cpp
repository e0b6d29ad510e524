#include "IOClient.h"
#include "IOClientLocker.h"
#include "LogCapture.h"
#include "PseudoTerminal.h"

#include <QTest>

// Opening the data channel for one operation, on a pseudo-terminal standing in for it.
class TestIOClientLocker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void opensOnlyWhatIsClosed_data();
    void opensOnlyWhatIsClosed();
    void missingDeviceIsInvalid();

private:
    PseudoTerminal terminal;
};

void TestIOClientLocker::initTestCase()
{
    QString error;
    QVERIFY2(terminal.open(&error), qPrintable(error));
}

void TestIOClientLocker::opensOnlyWhatIsClosed_data()
{
    QTest::addColumn<int>("initialMode"); // 0: closed
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("openedHere");
    QTest::addColumn<QString>("logged");

    QTest::newRow("closed") << 0 << true << true << QString();
    QTest::newRow("open raw read-write") << int(QIODevice::ReadWrite | QIODevice::Unbuffered)
                                         << true << false << "\talready open with mode 43";
    QTest::newRow("open read-only") << int(QIODevice::ReadOnly | QIODevice::Unbuffered) << false
                                    << false << "\talready open with mode 41";
    QTest::newRow("open buffered")
        << int(QIODevice::ReadWrite) << false << false << "\talready open with mode 3";
}

void TestIOClientLocker::opensOnlyWhatIsClosed()
{
    QFETCH(int, initialMode);
    QFETCH(bool, valid);
    QFETCH(bool, openedHere);
    QFETCH(QString, logged);

    IOClient client(terminal.slavePath());
    if (initialMode)
        QVERIFY(client.open(QIODevice::OpenMode(initialMode)));
    LogCapture log;
    {
        IOClientLocker locker(&client);
        QCOMPARE(locker.isValid(), valid);
        QCOMPARE(locker.isOpenedHere(), openedHere);
        QVERIFY(client.isOpen());
    }
    // Closed again only when the locker opened it.
    QCOMPARE(client.isOpen(), initialMode != 0);
    QVERIFY(log.text().contains(QStringLiteral("\tm_isValid=%1").arg(int(valid))));
    QVERIFY(log.text().contains("IODeviceLocker::IODeviceLocker(0x"));
    QVERIFY(log.text().contains(",43)"));
    if (!logged.isEmpty())
        QVERIFY2(log.text().contains(logged), qPrintable(log.text()));
    QCOMPARE(client.devicePath(), terminal.slavePath());
}

void TestIOClientLocker::missingDeviceIsInvalid()
{
    IOClient client(QStringLiteral("/nonexistent/lp0"));
    LogCapture log;
    IOClientLocker locker(&client);
    QVERIFY(!locker.isValid());
    QVERIFY(log.text().contains("can't open device '/nonexistent/lp0' status=5: "
                                "open/readable/writable/raw: 0/0/0/0"));
}

QTEST_GUILESS_MAIN(TestIOClientLocker)
#include "TestIOClientLocker.moc"
