#pragma once

#include <QByteArray>
#include <QList>

#include <cstdint>
#include <memory>

// How the emulated printer answers.
struct UsbPrinterBehaviour
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

// An emulated USB printer made with umockdev (the test runs under umockdev-wrapper): the usblp
// node kUsblp answers LPIOC_GET_DEVICE_ID and LPIOC_GET_BUS_ADDRESS and carries the data
// channel on a pseudo-terminal; the USB device at bus 3, address 7 answers the vendor and
// class control requests on its usbfs node.
//
// Make it before anything in the process initialises libusb: libusb takes its device list
// when it starts.
class UsbPrinterMock
{
public:
    using Behaviour = UsbPrinterBehaviour;
    static constexpr const char* kUsblp = "/dev/usb/lp0";

    UsbPrinterMock();
    ~UsbPrinterMock();

    // Also forgets the requests seen so far.
    void setBehaviour(const Behaviour& behaviour = {});
    // bRequest of every control transfer since, in order.
    QList<uint8_t> controlRequests() const;
    // The printer side of the data channel.
    int dataMaster() const;

    struct Private;

private:
    std::unique_ptr<Private> d;
};
