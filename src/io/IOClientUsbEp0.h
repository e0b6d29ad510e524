#pragma once

#include <QByteArray>

#include <cstdint>

class IOClient;
struct libusb_device;

// The printer's USB control endpoint 0, beside the printer-class data channel. Identifies
// the device (IEEE 1284 device ID, extended ID, status word), wakes it before an exchange
// and issues single control transfers. No USB handle is kept between calls: each transfer
// finds the device, opens it, transfers and closes it again.
class IOClientUsbEp0
{
public:
    // The status id reported when the device gave no valid answer.
    static constexpr uint32_t kNoAnswerId = 0xAAAAAA;
    static constexpr int kTimeoutMs = 5000;
    static constexpr int kWakeupStepMs = 500;

    // Locates the USB device through the bus address the usblp device file reports.
    explicit IOClientUsbEp0(IOClient* usblp);
    // Locates the first USB device with this vendor and product (0 matches any).
    IOClientUsbEp0(uint16_t vid, uint16_t pid, const QByteArray& serial);
    virtual ~IOClientUsbEp0();
    IOClientUsbEp0(const IOClientUsbEp0&) = delete;
    IOClientUsbEp0& operator=(const IOClientUsbEp0&) = delete;

    // One control transfer: bytes transferred, or -1 on any failure.
    int command(uint8_t requesttype, uint8_t request, uint16_t value, uint16_t index,
                unsigned char* buffer, uint16_t size, int timeout);
    // The same after a wake-up request, for callers that cannot rely on an earlier one.
    int command_safe(uint8_t requesttype, uint8_t request, uint16_t value, uint16_t index,
                     unsigned char* buffer, uint16_t size, int timeout);
    // An IN transfer's bytes; empty on failure.
    QByteArray getData(uint8_t requesttype, uint8_t request, uint16_t value, uint16_t index,
                       uint16_t length, int timeout);

    // True once the device answers the status probe with a valid id.
    bool wakeup_ensure(int timeout);
    // The 24-bit id of a status probe, kNoAnswerId unless exactly 8 bytes came back.
    uint32_t probeStatus();

    // The device with an extra reference the caller releases (libusb_unref_device), or null.
    libusb_device* findUsbDevice(IOClient* client);
    libusb_device* findUsbDevice(uint16_t vendor, uint16_t product, const QByteArray& serialNumber);

    static bool get_usb_bus_address(IOClient* client, int& busNumber, int& deviceNumber);
    static QByteArray getDeviceID_usblp(IOClient* client);
    // The ioctl first, the class request only when that gave nothing.
    QByteArray getDeviceID(int timeout);

    // Logs the device ID, the extended ID and the status; changes nothing.
    void init();

    uint16_t vendorId() const { return vid; }
    uint16_t productId() const { return pid; }

private:
    libusb_device* locateDevice();

    uint16_t vid = 0;
    uint16_t pid = 0;
    QByteArray serial;
    IOClient* usblp = nullptr; // not owned
};
