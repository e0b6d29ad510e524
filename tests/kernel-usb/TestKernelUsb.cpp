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
const QString kSerial = "usb:serial=TAV0001"; // the gadget's serial number string
const QString kPlugged = "/sys/bus/usb/devices/1-1/";

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

// The printer driver loaded, with its /dev/usb/lp0, or not: then only libusb reaches the printer.
bool setUsblp(bool loaded)
{
    if (readAll("/proc/modules").contains("usblp ") == loaded)
        return true;
    const QStringList command = loaded ? QStringList{"insmod", "/run/tav-guest/modules/usblp.ko"}
                                       : QStringList{"rmmod", "usblp"};
    return QProcess::execute("/run/tav-guest/busybox", command) == 0;
}

// The printer by bus and address, as this plug-in numbered it.
QString busAddress()
{
    return QString::asprintf("usb:%03d:%03d", readAll(kPlugged + "busnum").trimmed().toInt(),
                             readAll(kPlugged + "devnum").trimmed().toInt());
}

QString savedSpecification()
{
    return kInstall + "/bin/tav(" + kDevName + ").xml";
}

// Runs `tav DEVICE` (default /dev/usb/lp0) until it has saved the whole specification (`served`) or
// has said it failed, for at most `limitMs` after the printer got the first request (the emulated
// machine takes its own time to start the program); `during` runs once the printer has started
// sending the text. Gives the program's log.
QByteArray runTav(int limitMs, const QString& served = kSample,
                  const std::function<void()>& during = {}, const QString& device = kLp)
{
    QFile::remove(savedSpecification());
    QProcess tav;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("QT_QPA_PLATFORM", "offscreen");
    env.insert("XDG_RUNTIME_DIR", "/tmp");
    tav.setProcessEnvironment(env);
    tav.start(kInstall + "/bin/tav", {device, kDevName, "debug", "save_tav"});
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
    void init() { QVERIFY(setUsblp(true)); }
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
        columns<QStringList, int>({"options", "limitMs"});
        // A printer that never answers is given the 30 s a sleeping printer may take for its
        // first byte; every other fault shows within 10 s.
        QTest::newRow("--mute") << QStringList{"--mute"} << 40000;
        for (const char* fault : {"--short", "--hangup", "--huge", "--broken-xml", "--garbage"})
            QTest::newRow(fault) << QStringList{fault} << 10000;
    }
    void faultIsReported()
    {
        const auto [options, limitMs] = fetch<QStringList, int>();
        QVERIFY(plugIn(options));
        const QByteArray log = runTav(limitMs);
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

    // tavctl's set and get, through the driver's node and through libusb alone.
    void tavctlSetAndGet_data()
    {
        columns<bool, QString>({"usblp", "device"});
        QTest::newRow("/dev/usb/lp0") << true << kLp;
        QTest::newRow("usb:BUS:ADDR") << false << QString();
        QTest::newRow("usb:serial=") << false << kSerial;
    }
    void tavctlSetAndGet()
    {
        const auto [usblp, named] = fetch<bool, QString>();
        QVERIFY(setUsblp(usblp));
        QFile::remove(kState);
        QVERIFY(plugIn({"--state", kState}));
        const QString device = named.isEmpty() ? busAddress() : named;
        QProcess tavctl;
        tavctl.start(TAV_BIN_DIR "/tavctl", {"set", device, "SleepTimer=42"});
        QVERIFY(tavctl.waitForFinished(60000));
        QVERIFY2(tavctl.exitCode() == 0, tavctl.readAllStandardError().constData());
        const QRegularExpression stored("<SleepTimer [^>]*CURRENT=\"42\"");
        QVERIFY(QString::fromUtf8(readAll(kState)).contains(stored));
        tavctl.start(TAV_BIN_DIR "/tavctl", {"get", device, "SleepTimer"});
        QVERIFY(tavctl.waitForFinished(60000));
        QCOMPARE(tavctl.readAllStandardOutput(), QByteArray("42\n"));
    }

    void specificationWithoutUsblp_data()
    {
        columns<bool, QStringList, QString, QByteArray>({"usblp", "options", "device", "reported"});
        QTest::newRow("TAV usb:BUS:ADDR")
            << false << QStringList() << QString() << QByteArray("TAV \"DATA\"");
        QTest::newRow("IDS usb:serial=")
            << false << QStringList{"--ids"} << kSerial << QByteArray("IDS 0xF5010000");
        QTest::newRow("asleep") << false << QStringList{"--wake-probes", "3"} << kSerial
                                << QByteArray("control: awake after 3 status probes");
        QTest::newRow("usblp detached")
            << true << QStringList() << kSerial << QByteArray("TAV \"DATA\"");
    }
    // The bulk endpoints of the printer interface carry the exchange when the device is named
    // rather than its driver's node; a bound driver is detached for it and attached again.
    void specificationWithoutUsblp()
    {
        const auto [usblp, options, named, reported] =
            fetch<bool, QStringList, QString, QByteArray>();
        QVERIFY(setUsblp(usblp));
        QVERIFY(plugIn(options));
        QCOMPARE(QFile::exists(kLp), usblp);
        const QByteArray log = runTav(60000, kSample, {}, named.isEmpty() ? busAddress() : named);
        QCOMPARE(readAll(savedSpecification()), readAll(kSample));
        QVERIFY2(readAll(kGadgetLog).contains(reported), readAll(kGadgetLog).constData());
        QCOMPARE(log.contains("kernel driver detached"), usblp);
        QCOMPARE(QFile::exists(kLp), usblp);
    }

    void faultWithoutUsblp_data()
    {
        columns<QStringList, bool>({"options", "unplug"});
        QTest::newRow("--hangup") << QStringList{"--hangup"} << false;
        QTest::newRow("unplugged") << QStringList{"--slow", "10000"} << true;
    }
    // The same clear message as through the driver's node; once plugged in again (at a new
    // address), the serial number finds the printer.
    void faultWithoutUsblp()
    {
        const auto [options, unplug] = fetch<QStringList, bool>();
        QVERIFY(setUsblp(false));
        QVERIFY(plugIn(options));
        const auto pull = [unplug = unplug] {
            if (unplug)
                gadget({"unbind"});
        };
        QVERIFY(runTav(10000, kSample, pull, busAddress()).contains(kFailure));
        QVERIFY(plugIn({}));
        runTav(60000, kSample, {}, kSerial);
        QCOMPARE(readAll(savedSpecification()), readAll(kSample));
    }
};

QTEST_MAIN(TestKernelUsb)
#include "TestKernelUsb.moc"
