#include "../elements/Rows.h"
#include "app/Configurator.h"
#include "elements/ConcreteElement.h"
#include "elements/Element.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString kLp = "/dev/usb/lp0";
const QString kGadgetLog = "/tmp/gadget.log";
const QString kState = "/tmp/gadget-state.xml";
const QString kInstall = "/tmp/tav-install";
const QString kSample = TAV_DATA_DIR "/laser_mfp.xml";
const char kDevName[] = "Kernel USB";
const QByteArray kFailure = "Cannot get printer settings!";

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool gadget(const QStringList& arguments)
{
    return QProcess::execute(TAV_SOURCE_DIR "/scripts/usb-guest/setup-gadget.sh", arguments) == 0;
}

// The printer plugged in, serving the sample specification with `options`.
bool plugIn(const QStringList& options)
{
    QFile::remove(kGadgetLog);
    return gadget(QStringList{"start", TAV_BIN_DIR, kSample} + options);
}

// The program in a writable folder of its own, so that "save_tav" can write beside it.
void install()
{
    QDir().mkpath(kInstall + "/bin");
    for (const char* name : {"tav", "dependencies.xml", ".version"})
        QFile::copy(TAV_BIN_DIR "/" + QString(name), kInstall + "/bin/" + name);
    QFile::link(TAV_SHARE_DIR, kInstall + "/share");
}

QString savedSpecification()
{
    return kInstall + "/bin/tav(" + kDevName + ").xml";
}

// Runs `tav DEVICE` until it has saved the whole specification (`served`) or has said it failed,
// for at most `limitMs` after the printer got the first request (the emulated machine takes its own
// time to start the program); `during` runs once the printer has started sending the text. Gives
// the program's log.
QByteArray runTav(int limitMs, const QString& served = kSample,
                  const std::function<void()>& during = {})
{
    QFile::remove(savedSpecification());
    QProcess tav;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    env.insert("XDG_RUNTIME_DIR", "/tmp");
    tav.setProcessEnvironment(env);
    tav.start(kInstall + "/bin/tav", {kLp, kDevName, "debug", "save_tav"});
    const qint64 whole = readAll(served).size();
    QByteArray log;
    QElapsedTimer clock;
    clock.start();
    bool asked = false;
    bool sent = false;
    while (clock.elapsed() < limitMs && !log.contains(kFailure) &&
           QFileInfo(savedSpecification()).size() < whole) {
        tav.waitForReadyRead(50);
        log += tav.readAllStandardError();
        const QByteArray report = readAll(kGadgetLog);
        if (!asked && report.contains("request: ")) {
            asked = true;
            clock.restart();
        }
        if (during && !sent && report.contains("(specification text)")) {
            sent = true;
            during();
        }
    }
    tav.kill();
    tav.waitForFinished();
    return log + tav.readAllStandardError();
}

} // namespace

// The real program through the kernel's USB printer path: dummy_hcd joins tav-usbgadget (the
// virtual printer as a FunctionFS function) to usblp, as a USB printer plugged into a machine.
// Runs inside the USB test guest (scripts/usb-guest/run-test.sh boots it).
class TestKernelUsb : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!QFile::exists("/sys/class/udc/dummy_udc.0"))
            QSKIP("runs inside the USB test guest");
        qputenv("TAV_GADGET_LOG", kGadgetLog.toLocal8Bit());
        install();
    }
    void cleanup() { gadget({"stop"}); }

    void specificationThroughUsblp_data()
    {
        columns<QStringList, QByteArray, QByteArray>({"options", "framing", "control"});
        QTest::newRow("TAV") << QStringList() << QByteArray("TAV \"DATA\"")
                             << QByteArray("control: status id 0c0ffe");
        QTest::newRow("IDS") << QStringList{"--ids"} << QByteArray("IDS 0xF5010000")
                             << QByteArray("control: status id 0c0ffe");
        QTest::newRow("asleep") << QStringList{"--wake-probes", "3"} << QByteArray("TAV \"DATA\"")
                                << QByteArray("control: awake after 3 status probes");
    }
    // The kernel reports the device ID with its framing; the bus address from the driver
    // leads libusb to the device for the status and wake-up requests.
    void specificationThroughUsblp()
    {
        const auto [options, framing, control] = fetch<QStringList, QByteArray, QByteArray>();
        QVERIFY(plugIn(options));
        const QByteArray cmd = options.contains("--ids") ? "CMD:IDS;" : "CMD:TAV;";
        QVERIFY(readAll("/sys/class/usbmisc/lp0/device/ieee1284_id").contains(cmd));
        const QByteArray log = runTav(60000);
        QCOMPARE(readAll(savedSpecification()), readAll(kSample));
        QVERIFY2(!log.contains("GET_BUS_ADDRESS) failure"), log.constData());
        const QByteArray report = readAll(kGadgetLog);
        QVERIFY2(report.contains("request: " + framing), report.constData());
        QVERIFY2(report.contains(control), report.constData());
    }

    void faultIsReported_data()
    {
        columns<QStringList>({"options"});
        for (const char* fault :
             {"--mute", "--short", "--hangup", "--huge", "--broken-xml", "--garbage"})
            QTest::newRow(fault) << QStringList{fault};
    }
    void faultIsReported()
    {
        const auto [options] = fetch<QStringList>();
        QVERIFY(plugIn(options));
        const QByteArray log = runTav(10000);
        QVERIFY2(log.contains(kFailure), (log.right(2000) + readAll(kGadgetLog)).constData());
    }

    void slowPrinterIsWaitedFor()
    {
        QVERIFY(plugIn({"--slow", "20000"}));
        runTav(30000);
        QCOMPARE(readAll(savedSpecification()), readAll(kSample));
    }

    // Unplugged while it sends the specification: the program says so, and once plugged in
    // again the next start works.
    void unplugAndPlugIn()
    {
        QVERIFY(plugIn({"--slow", "10000"}));
        QVERIFY(runTav(10000, kSample, [] { gadget({"unbind"}); }).contains(kFailure));
        QVERIFY(plugIn({}));
        runTav(60000);
        QCOMPARE(readAll(savedSpecification()), readAll(kSample));
    }

    void applyReachesTheStoredSettings_data()
    {
        columns<QStringList, bool>({"options", "accepted"});
        QTest::newRow("accepted") << QStringList() << true;
        QTest::newRow("rejected") << QStringList{"--reject"} << false;
    }
    // The dialog's Apply path, then a second start of the program shows the stored value.
    void applyReachesTheStoredSettings()
    {
        const auto [options, accepted] = fetch<QStringList, bool>();
        QFile::remove(kState);
        QVERIFY(plugIn(QStringList{"--state", kState} + options));
        {
            Configurator configurator(kInstall + "/bin", kLp, kDevName, false, false, false, false);
            Element* root = configurator.getPrinterSettings();
            QVERIFY(root);
            auto* timer = qobject_cast<ConcreteElement*>(root->findElement("SleepTimer"));
            QVERIFY(timer);
            timer->valueChange("42");
            QCOMPARE(configurator.applySettings(QString()), accepted);
            QVERIFY2(accepted == readAll(kState).contains("CURRENT=\"42\""),
                     readAll(kGadgetLog).constData());
        }
        QVERIFY(plugIn(QStringList{"--state", kState}));
        runTav(60000, QFile::exists(kState) ? kState : kSample);
        const QRegularExpression stored("<SleepTimer [^>]*CURRENT=\"42\"");
        QCOMPARE(QString::fromUtf8(readAll(savedSpecification())).contains(stored), accepted);
    }
};

QTEST_MAIN(TestKernelUsb)
#include "TestKernelUsb.moc"
