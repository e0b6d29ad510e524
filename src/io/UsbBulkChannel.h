#pragma once

#include "io/UsbContext.h"
#include "io/UsbDeviceName.h"

#include <QByteArray>
#include <QString>

struct libusb_device_handle;

// The data channel over the bulk endpoints of a USB printer's printer-class interface, for
// systems without the kernel's printer driver node. A kernel driver bound to the interface is
// detached while the channel is open and attached again when it closes.
//
// Reads go through a buffer of whole packets: a device may send more than the caller asked
// for, and a bulk read shorter than a packet would lose the rest (an overflow). What the
// caller did not take is handed out by the next read.
class UsbBulkChannel
{
public:
    explicit UsbBulkChannel(const UsbDeviceName& name);
    ~UsbBulkChannel();
    UsbBulkChannel(const UsbBulkChannel&) = delete;
    UsbBulkChannel& operator=(const UsbBulkChannel&) = delete;

    // Finds the device and claims its printer interface; false with the reason in words.
    bool open(QString* error);
    void close();
    bool isOpen() const { return handle != nullptr; }

    // Move up to `length` bytes, waiting at most `timeoutUs` microseconds for the device (-1:
    // until it moves). 0 when nothing moved in that time; -1 when the device failed or went
    // away.
    qint64 write(const char* data, qint64 length, int timeoutUs);
    qint64 read(char* data, qint64 length, int timeoutUs);

private:
    qint64 fill(qint64 wanted, int timeoutUs);
    qint64 takeBuffered(char* data, qint64 length);
    qint64 failed(int code, uint8_t endpoint);
    bool claim(QString* error);
    static unsigned int timeoutMs(int timeoutUs);

    UsbDeviceName name;
    libusb_device_handle* handle = nullptr;
    UsbContext::PrinterInterface printer;
    bool reattach = false; // a kernel driver was detached on opening
    QByteArray buffer;
    int bufferStart = 0;
    int bufferEnd = 0;
};
