#include "PrinterThread.h"
#include "TAVClient.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

// The virtual printer over a real pseudo-terminal, as a program and in-process.
class TestVirtualPrinter : public QObject
{
    Q_OBJECT

private slots:
    void programServesAndKeepsState();
    void survivesReopening();
    void servesAsConfigured_data();
    void servesAsConfigured();

private:
    QString specification() const { return QStringLiteral(TAV_IO_TEST_DATA "/printer.xml"); }
    QString startProgram(QProcess& process, const QStringList& arguments);
};

// Starts the program and returns the device path it prints.
QString TestVirtualPrinter::startProgram(QProcess& process, const QStringList& arguments)
{
    process.start(QStringLiteral(TAV_BIN_DIR "/tav-vprinter"), arguments);
    if (!process.waitForStarted() || !process.waitForReadyRead(10000))
        return QString();
    return QString::fromLocal8Bit(process.readLine()).trimmed();
}

void TestVirtualPrinter::programServesAndKeepsState()
{
    QTemporaryDir dir;
    const QString link = dir.filePath("lp0");
    const QStringList arguments{"--link", link, "--state", dir.filePath("state.xml"),
                                specification()};
    const QString change =
        QStringLiteral("<root><PrinterSettingsInfo><Language CURRENT=\"German\"/>"
                       "</PrinterSettingsInfo></root>");
    {
        QProcess process;
        const QString path = startProgram(process, arguments);
        QVERIFY(path.startsWith("/dev/pts/"));
        QCOMPARE(QFileInfo(link).symLinkTarget(), path);
        TAVClient client(link, nullptr);
        client.setTimings(200, 200, 3000);
        QCOMPARE(client.getSpecification_tav().toLatin1(),
                 PrinterThread::fileText(specification()));
        QVERIFY(client.setChanges_tav(change));
        process.terminate();
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(!QFileInfo::exists(link));
        const QByteArray log = process.readAllStandardError();
        QVERIFY(log.contains("setting <Language>: \"English\" -> \"German\""));
    }
    QProcess restarted;
    QVERIFY(!startProgram(restarted, arguments).isEmpty());
    TAVClient client(link, nullptr);
    client.setTimings(200, 200, 3000);
    QVERIFY(client.getSpecification_tav().contains("CURRENT=\"German\""));
    restarted.terminate();
    QVERIFY(restarted.waitForFinished(10000));
}

void TestVirtualPrinter::survivesReopening()
{
    VirtualPrinterOptions options;
    options.specificationFile = specification();
    PrinterThread printer(options);
    QVERIFY(printer.start());
    // Every exchange opens and closes the device again.
    for (int round = 0; round < 3; ++round) {
        TAVClient client(printer.devicePath(), nullptr);
        client.setTimings(200, 200, 3000);
        QCOMPARE(client.getSpecification_tav().toLatin1(),
                 PrinterThread::fileText(specification()));
    }
    QCOMPARE(printer.printer().requestsServed(), 6);
}

void TestVirtualPrinter::servesAsConfigured_data()
{
    QTest::addColumn<bool>("ids");
    QTest::addColumn<bool>("brokenXml");
    QTest::addColumn<QString>("reported");

    QTest::newRow("ignores the other framing")
        << true << false << "ignoring a request in the TAV framing: this printer speaks IDS";
    QTest::newRow("serves broken XML") << false << true
                                       << "request: TAV \"DATA\" (specification text): sending "
                                          "640 bytes";
}

void TestVirtualPrinter::servesAsConfigured()
{
    QFETCH(bool, ids);
    QFETCH(bool, brokenXml);
    QFETCH(QString, reported);

    VirtualPrinterOptions options;
    options.specificationFile = specification();
    options.ids = ids;
    options.brokenXml = brokenXml;
    PrinterThread printer(options);
    QVERIFY(printer.start());
    TAVClient client(printer.devicePath(), nullptr);
    client.setTimings(20, 20, 300);
    const QByteArray text = PrinterThread::fileText(specification());
    const QByteArray broken = text.left(text.size() / 2) + "<broken";
    QCOMPARE(client.getSpecification_tav().toLatin1(), ids ? QByteArray() : broken);
    QVERIFY2(printer.reported(reported), qPrintable(printer.reports().join('\n')));
}

QTEST_GUILESS_MAIN(TestVirtualPrinter)
#include "TestVirtualPrinter.moc"
