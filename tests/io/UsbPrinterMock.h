#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstdint>
#include <memory>

// An emulated USB printer for the code under test, made with umockdev (the test runs under
// umockdev-wrapper): a usblp node "/dev/usb/lp0" that answers LPIOC_GET_DEVICE_ID and
// LPIOC_GET_BUS_ADDRESS and carries the data channel on a pseudo-terminal, and a USB device
// at bus 3, address 7 (vendor 0x04f9, product 0x0042) with sysfs descriptors whose usbfs
// node answers the vendor and class control requests.
//
// Make it before anything in the process initialises libusb: libusb takes its device list
// when it starts.
class UsbPrinterMock
{
public:
    struct Behaviour
    {
        int busNumber = 3; // what LPIOC_GET_BUS_ADDRESS reports
        int deviceAddress = 7;
        bool busAddressFails = false;
        QByteArray deviceId;      // LPIOC_GET_DEVICE_ID; empty makes the ioctl fail
        QByteArray classDeviceId; // the whole reply to GET_DEVICE_ID on endpoint 0
        QByteArray extendedId;
        uint32_t statusId = 0x123456;
        int statusLength = 8;
        int silentProbes = 0; // status probes answered with nothing first; -1: all of them
        bool wakeupFails = false;
        bool controlStalls = false; // every control request stalls
    };

    static constexpr uint16_t kVendor = 0x04f9;
    static constexpr uint16_t kProduct = 0x0042;

    UsbPrinterMock();
    ~UsbPrinterMock();

    void setBehaviour(const Behaviour& behaviour);
    // Forgets the requests seen so far.
    void clearRecord();

    QString usblpPath() const;
    // The printer side of the data channel.
    int dataMaster() const;

    // bRequest of every control transfer, in order.
    QList<uint8_t> controlRequests() const;
    int countOf(uint8_t request) const;
    int usblpOpens() const;

    struct Private;

private:
    std::unique_ptr<Private> d;
};
