// glib names a member "signals", which Qt defines as a keyword: glib first.
#include <umockdev.h>

#include "chooser/ChooserWindow.h"
#include "io/PrinterDiscovery.h"

#include <QLabel>
#include <QListWidget>
#include <QProcess>
#include <QtTest>

#include <unistd.h>

// `tavctl list` and the chooser's list against udev devices that umockdev emulates: a USB
// printer device, its printer interface with the ID the driver exposes, and the usblp node.
class TestPrinterDiscovery : public QObject
{
    Q_OBJECT

private:
    UMockdevTestbed* testbed = nullptr;

    // The usblp node's syspath.
    QString plug(const char* name, const char* deviceId, const char* product, const char* serial)
    {
        const QByteArray usbName = QByteArray("1-") + name;
        gchar* usb = umockdev_testbed_add_device(
            testbed, "usb", usbName.constData(), nullptr, "manufacturer", "USB Maker", "product",
            product, "serial", serial, nullptr, "DEVTYPE", "usb_device", nullptr);
        const QByteArray interfaceName = usbName + ":1.0";
        gchar* interface = umockdev_testbed_add_device(testbed, "usb", interfaceName.constData(),
                                                       usb, "ieee1284_id", deviceId, nullptr,
                                                       "DEVTYPE", "usb_interface", nullptr);
        const QByteArray node = QByteArray("usb/") + name;
        gchar* lp = umockdev_testbed_add_device(testbed, "usbmisc", name, interface, nullptr,
                                                "DEVNAME", node.constData(), nullptr);
        const QString syspath = QString::fromUtf8(lp);
        g_free(usb);
        g_free(interface);
        g_free(lp);
        return syspath;
    }

    static QByteArray tavctlList()
    {
        QProcess process;
        process.start(QStringLiteral(TAV_BIN_DIR "/tavctl"), {"list", "--json"});
        process.waitForFinished(30000);
        return process.readAllStandardOutput().trimmed();
    }

private slots:
    void init() { testbed = umockdev_testbed_new(); }
    void cleanup() { g_clear_object(&testbed); }

    void listed_data()
    {
        QTest::addColumn<QByteArray>("deviceId");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("short keys, IDS")
            << QByteArray("MFG:Tavolor;MDL:Laser MFP 4200;CMD:PCL,IDS;SN:TL42;")
            << QByteArray("[{\"framing\":\"IDS\",\"manufacturer\":\"Tavolor\",\"model\":\"Laser "
                          "MFP 4200\",\"node\":\"/dev/usb/lp0\",\"serial\":\"TL42\"}]");
        QTest::newRow("long keys, TAV")
            << QByteArray("MANUFACTURER:Tavolor;MODEL:InkJet 310;COMMAND SET:PCL,TAV;")
            << QByteArray("[{\"framing\":\"TAV\",\"manufacturer\":\"Tavolor\",\"model\":\"InkJet "
                          "310\",\"node\":\"/dev/usb/lp0\",\"serial\":\"S-USB\"}]");
        QTest::newRow("no ID: the USB strings")
            << QByteArray("")
            << QByteArray("[{\"framing\":\"TAV\",\"manufacturer\":\"USB Maker\",\"model\":\"USB "
                          "Printer\",\"node\":\"/dev/usb/lp0\",\"serial\":\"S-USB\"}]");
    }

    void listed()
    {
        QFETCH(QByteArray, deviceId);
        QFETCH(QByteArray, expected);
        plug("lp0", deviceId.constData(), "USB Printer", "S-USB");
        QCOMPARE(tavctlList(), expected);
    }

    void noneListed() { QCOMPARE(tavctlList(), QByteArray("[]")); }

    // A printer interface without the driver: listed under its USB device name.
    void listedWithoutDriverNode()
    {
        gchar* usb =
            umockdev_testbed_add_device(testbed, "usb", "1-2", nullptr, "busnum", "1", "devnum",
                                        "5", "manufacturer", "USB Maker", "product", "Bare",
                                        "serial", "S9", nullptr, "DEVTYPE", "usb_device", nullptr);
        g_free(umockdev_testbed_add_device(testbed, "usb", "1-2:1.0", usb, "bInterfaceClass", "07",
                                           "bInterfaceSubClass", "01", nullptr, "DEVTYPE",
                                           "usb_interface", nullptr));
        g_free(usb);
        QCOMPARE(tavctlList(),
                 QByteArray("[{\"framing\":\"TAV\",\"manufacturer\":\"USB Maker\",\"model\":"
                            "\"Bare\",\"node\":\"usb:001:005\",\"serial\":\"S9\"}]"));
    }

    void chooserFollowsPlugAndUnplug()
    {
        ChooserWindow chooser(QStringLiteral(TAV_BIN_DIR));
        QVERIFY(chooser.findChild<QLabel*>(QStringLiteral("noneLabel"))->isVisibleTo(&chooser));
        const QString first = plug("lp0", "MFG:Tavolor;MDL:A;", "A", "1");
        umockdev_testbed_uevent(testbed, first.toUtf8().constData(), "add");
        const QString second = plug("lp1", "MFG:Tavolor;MDL:B;", "B", "2");
        umockdev_testbed_uevent(testbed, second.toUtf8().constData(), "add");
        auto* list = chooser.findChild<QListWidget*>(QStringLiteral("printerList"));
        QTRY_COMPARE(list->count(), 2);
        QCOMPARE(list->item(1)->text(), QStringLiteral("Tavolor B (serial 2) at /dev/usb/lp1"));

        umockdev_testbed_uevent(testbed, first.toUtf8().constData(), "remove");
        umockdev_testbed_remove_device(testbed, first.toUtf8().constData());
        QTRY_COMPARE(list->count(), 1);
        QCOMPARE(chooser.printers().first().model, QStringLiteral("B"));
    }

    // A node the user may not open is reported in one line with the remedy. Root opens any
    // node, so as root the program runs as nobody.
    void deniedNodeIsNamedWithTheRemedy()
    {
        plug("lp0", "MFG:Tavolor;MDL:A;CMD:TAV;", "A", "1");
        const QString node = QString::fromUtf8(umockdev_testbed_get_root_dir(testbed)) +
                             QStringLiteral("/dev/usb/lp0");
        QDir().mkpath(QFileInfo(node).path());
        QFile file(node);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.setPermissions(QFileDevice::ReadOwner));
        QStringList command{QStringLiteral(TAV_BIN_DIR "/tavctl"), "get", "/dev/usb/lp0", "X"};
        if (geteuid() == 0)
            command = QStringList{"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"} +
                      command;
        QProcess process;
        process.start(command.takeFirst(), command);
        QVERIFY(process.waitForFinished(30000));
        const QByteArray error = process.readAllStandardError();
        QCOMPARE(process.exitCode(), 4);
        QCOMPARE(error.count('\n'), 1);
        QVERIFY2(error.contains("/dev/usb/lp0: install Tavolor's udev rule"), error.constData());
    }
};

QTEST_MAIN(TestPrinterDiscovery)
#include "TestPrinterDiscovery.moc"
