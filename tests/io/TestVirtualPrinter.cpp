#include "PrinterThread.h"
#include "TAVClient.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString kSpecification = QStringLiteral(TAV_IO_TEST_DATA "/printer.xml");

// Starts the program and returns the device path it prints.
QString startProgram(QProcess& process, const QStringList& arguments)
{
    process.start(QStringLiteral(TAV_BIN_DIR "/tav-vprinter"), arguments);
    if (!process.waitForStarted() || !process.waitForReadyRead(10000))
        return QString();
    return QString::fromLocal8Bit(process.readLine()).trimmed();
}

QString fetch(const QString& device, int idleMs = 3000)
{
    TAVClient client(device, nullptr);
    client.setTimings(20, 20, idleMs);
    return client.getSpecification_tav();
}

} // namespace

// The virtual printer over a real pseudo-terminal, as a program and in-process.
class TestVirtualPrinter : public QObject
{
    Q_OBJECT

private slots:
    void programServesAndKeepsState()
    {
        QTemporaryDir dir;
        const QString link = dir.filePath("lp0");
        const QStringList arguments{"--link", link, "--state", dir.filePath("state.xml"),
                                    kSpecification};
        QProcess process;
        const QString path = startProgram(process, arguments);
        QVERIFY(path.startsWith("/dev/pts/"));
        QCOMPARE(QFileInfo(link).symLinkTarget(), path);
        TAVClient client(link, nullptr);
        client.setTimings(200, 200, 3000);
        QVERIFY(client.setChanges_tav("<root><PrinterSettingsInfo><Language CURRENT=\"German\"/>"
                                      "</PrinterSettingsInfo></root>"));
        process.terminate();
        QVERIFY(process.waitForFinished(10000));
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(!QFileInfo::exists(link));
        QVERIFY(process.readAllStandardError().contains(
            "setting <Language>: \"English\" -> \"German\""));
        QProcess restarted;
        QVERIFY(!startProgram(restarted, arguments).isEmpty());
        QVERIFY(fetch(link).contains("CURRENT=\"German\""));
        restarted.terminate();
        QVERIFY(restarted.waitForFinished(10000));
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
