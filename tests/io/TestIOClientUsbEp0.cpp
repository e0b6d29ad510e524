#include "../elements/Rows.h"
#include "LogCapture.h"
#include "UsbPrinterMock.h"
#include "io/IOClient.h"
#include "io/IOClientUsbEp0.h"

#include <QTest>

#include <libusb.h>

// The control endpoint against an emulated USB printer (umockdev).
class TestIOClientUsbEp0 : public QObject
{
    Q_OBJECT

    UsbPrinterMock mock; // before anything starts libusb
    UsbPrinterMock::Behaviour behaviour;

private slots:
    void init() { behaviour = UsbPrinterMock::Behaviour(); }

    void findsDeviceByBusAddress_data()
    {
        // logged: empty when found, and silently so
        columns<int, int, bool, QString>({"bus", "address", "ioctlFails", "logged"});
        QTest::newRow("same bus and address") << 3 << 7 << false << QString();
        QTest::newRow("unknown address")
            << 3 << 9 << false << "usb device (bus=003 device=009) hasn't been found";
        QTest::newRow("unknown bus: silent") << 5 << 7 << false << QString();
        QTest::newRow("ioctl fails")
            << 3 << 7 << true << "ioctl(GET_BUS_ADDRESS) failure: <Input/output error>";
    }
    void findsDeviceByBusAddress()
    {
        const auto [bus, address, ioctlFails, logged] = fetch<int, int, bool, QString>();
        IOClient client(UsbPrinterMock::kUsblp);
        behaviour.busNumber = bus;
        behaviour.deviceAddress = address;
        behaviour.busAddressFails = ioctlFails;
        mock.setBehaviour(behaviour);
        LogCapture log;
        libusb_device* device = client.ep0().findUsbDevice(&client);
        QCOMPARE(device != nullptr, bus == 3 && address == 7 && !ioctlFails);
        if (device) {
            QCOMPARE(int(libusb_get_bus_number(device)), 3);
            QCOMPARE(int(libusb_get_device_address(device)), 7);
            libusb_unref_device(device);
        }
        const QByteArray text = log.text();
        QVERIFY2(logged.isEmpty() ? !text.contains("hasn't been found")
                                  : text.contains(logged.toUtf8()),
                 text.constData());
        QVERIFY(!client.isOpen()); // the locker closed what it opened
    }

    void wakeup_data()
    {
        columns<int, bool, int, bool, int>(
            {"silentProbes", "wakeupFails", "timeout", "awake", "probes"});
        QTest::newRow("valid at once") << 0 << false << 5000 << true << 1;
        QTest::newRow("valid after three probes") << 3 << false << 5000 << true << 4;
        QTest::newRow("never, 1000 ms") << -1 << false << 1000 << false << 3;
        QTest::newRow("never, 0 ms: still one probe") << -1 << false << 0 << false << 2;
        QTest::newRow("wake-up request fails") << -1 << true << 5000 << false << 1;
    }
    void wakeup()
    {
        const auto [silentProbes, wakeupFails, timeout, awake, probes] =
            fetch<int, bool, int, bool, int>();
        IOClient client(UsbPrinterMock::kUsblp);
        behaviour.silentProbes = silentProbes;
        behaviour.wakeupFails = wakeupFails;
        mock.setBehaviour(behaviour);
        LogCapture log;
        QCOMPARE(client.ep0().wakeup_ensure(timeout), awake);
        QCOMPARE(mock.controlRequests().count(0x02), probes);
        QCOMPARE(mock.controlRequests().count(0x99), probes > 1 || wakeupFails ? 1 : 0);
        const QByteArray text = log.text();
        QVERIFY(text.contains(QStringLiteral("IOClientUsbEp0::wakeup(%1)").arg(timeout).toUtf8()));
        if (wakeupFails)
            QVERIFY(text.contains("wakeup failed"));
    }

    void statusReply_data()
    {
        // -1: the request stalls
        columns<int, uint, uint, QString>({"length", "id", "expected", "logged"});
        QTest::newRow("7 bytes: no answer") << 7 << 0x123456u << 0xAAAAAAu << "[7 bytes of data]";
        QTest::newRow("8 bytes") << 8 << 0x123456u << 0x123456u
                                 << "I/O: ep0: HOST<FW: [0x00][0x12][0x34][0x56][0x00][0x00][0x00]"
                                    "[0x00][8 bytes of data]";
        QTest::newRow("9 bytes: overflow, no answer") << 9 << 0x123456u << 0xAAAAAAu << "";
        QTest::newRow("id 0xAAAAAA looks like no answer") << 8 << 0xAAAAAAu << 0xAAAAAAu << "";
        QTest::newRow("stalled") << -1 << 0x123456u << 0xAAAAAAu
                                 << "ERROR: usb_control_msg failed: <Pipe error>";
    }
    void statusReply()
    {
        const auto [length, id, expected, logged] = fetch<int, uint, uint, QString>();
        IOClient client(UsbPrinterMock::kUsblp);
        behaviour.statusLength = length;
        behaviour.controlStalls = length < 0;
        behaviour.statusId = id;
        mock.setBehaviour(behaviour);
        LogCapture log;
        QCOMPARE(uint(client.ep0().probeStatus()), expected);
        QCOMPARE(mock.controlRequests(), QList<uint8_t>{0x02});
        const QByteArray text = log.text();
        QVERIFY2(text.contains("I/O: ep0: HOST>FW: c1 02 0000 0000 0008 [0 bytes of data]"),
                 text.constData());
        QVERIFY2(text.contains(logged.toUtf8()), text.constData());
    }

    void deviceId_data()
    {
        // to the class request
        columns<QByteArray, QByteArray, QByteArray>({"ioctlId", "reply", "expected"});
        const QByteArray reply("\x00\x0bMFG:ACME;", 11);
        QTest::newRow("ioctl first")
            << QByteArray("MFG:Ormund;") << reply << QByteArray("MFG:Ormund;");
        QTest::newRow("request drops last byte") << QByteArray() << reply << QByteArray("MFG:ACME");
        QTest::newRow("three bytes") << QByteArray() << QByteArray("\x00\x03M", 3) << QByteArray();
        QTest::newRow("one byte") << QByteArray() << QByteArray("\x00", 1) << QByteArray();
    }
    void deviceId()
    {
        const auto [ioctlId, reply, expected] = fetch<QByteArray, QByteArray, QByteArray>();
        IOClient client(UsbPrinterMock::kUsblp);
        behaviour.deviceId = ioctlId;
        behaviour.classDeviceId = reply;
        mock.setBehaviour(behaviour);
        LogCapture log;
        QCOMPARE(client.ep0().getDeviceID(1000), expected);
        QCOMPARE(mock.controlRequests().count(0x00), ioctlId.isEmpty() ? 1 : 0);
        QCOMPARE(log.text().contains("ioctl failed with code 25: <Inappropriate ioctl for device>"),
                 ioctlId.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestIOClientUsbEp0)
#include "TestIOClientUsbEp0.moc"
