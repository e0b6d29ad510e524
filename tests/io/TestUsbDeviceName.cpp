#include "../elements/Rows.h"
#include "io/UsbDeviceName.h"

#include <QTest>

// Which device paths name a USB device for the bulk data channel, and which stay file paths.
class TestUsbDeviceName : public QObject
{
    Q_OBJECT

private slots:
    void parse_data()
    {
        columns<QString, bool, int, int, QString>({"path", "valid", "bus", "address", "serial"});
        QTest::newRow("zero-padded") << "usb:001:002" << true << 1 << 2 << "";
        QTest::newRow("plain") << "usb:3:17" << true << 3 << 17 << "";
        QTest::newRow("highest address") << "usb:255:127" << true << 255 << 127 << "";
        QTest::newRow("serial") << "usb:serial=TAV0001" << true << 0 << 0 << "TAV0001";
        QTest::newRow("serial keeps colons") << "usb:serial=A:B=C" << true << 0 << 0 << "A:B=C";
        QTest::newRow("usblp node") << "/dev/usb/lp0" << false << 0 << 0 << "";
        QTest::newRow("relative file") << "usb/001:002" << false << 0 << 0 << "";
        QTest::newRow("empty serial") << "usb:serial=" << false << 0 << 0 << "";
        QTest::newRow("address 0") << "usb:001:000" << false << 0 << 0 << "";
        QTest::newRow("address 128") << "usb:001:128" << false << 0 << 0 << "";
        QTest::newRow("bus 0") << "usb:0:2" << false << 0 << 0 << "";
        QTest::newRow("one number") << "usb:001" << false << 0 << 0 << "";
        QTest::newRow("trailing text") << "usb:001:002x" << false << 0 << 0 << "";
        QTest::newRow("upper-case prefix") << "USB:001:002" << false << 0 << 0 << "";
        QTest::newRow("bare serial") << "TAV0001" << false << 0 << 0 << "";
    }
    void parse()
    {
        const auto [path, valid, bus, address, serial] = fetch<QString, bool, int, int, QString>();
        const UsbDeviceName name = UsbDeviceName::parse(path);
        QCOMPARE(name.isValid(), valid);
        if (!valid)
            return;
        QCOMPARE(name.bus(), bus);
        QCOMPARE(name.address(), address);
        QCOMPARE(name.serial(), serial);
        QCOMPARE(name.bySerial(), !serial.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestUsbDeviceName)
#include "TestUsbDeviceName.moc"
