#include "io/IOClientUsbEp0.h"

#include "app/Log.h"
#include "io/IOClient.h"
#include "io/IOClientLocker.h"
#include "io/UsbContext.h"

#include <QThread>

#include <libusb.h>

#include <cerrno>
#include <cstring>
#include <sys/ioctl.h>

namespace {

// Requests of the Linux usblp driver (ioctl type 'P').
constexpr unsigned long kLpiocGetDeviceId1024 = 0x84005001UL; // read, 1024 bytes
constexpr unsigned long kLpiocGetBusAddress = 0x80085005UL;   // read, two ints
constexpr int kDeviceIdBufferSize = 1024;

constexpr uint8_t kVendorIn = 0xC1; // vendor, interface, device-to-host
constexpr uint8_t kClassIn = 0xA1;  // class, interface, device-to-host
constexpr uint8_t kRequestStatus = 0x02;
constexpr uint8_t kRequestWakeup = 0x99;
constexpr uint8_t kRequestExtendedId = 0xE0;
constexpr uint16_t kExtendedIdValue = 0x0100;
constexpr uint16_t kExtendedIdLength = 255;
constexpr uint8_t kRequestGetDeviceId = 0x00;
constexpr uint16_t kDeviceIdLength = 1023;
constexpr int kStatusLength = 8;

// Bytes in the form of the log's buffer report: "[0xnn]" each.
QByteArray bracketDump(const unsigned char* data, int length)
{
    QByteArray text;
    text.reserve(length * 6);
    char item[8];
    for (int i = 0; i < length; ++i) {
        snprintf(item, sizeof item, "[0x%.2x]", data[i]);
        text += item;
    }
    return text;
}

} // namespace

IOClientUsbEp0::IOClientUsbEp0(IOClient* usblp)
    : usblp(usblp)
{
    init();
}

IOClientUsbEp0::IOClientUsbEp0(uint16_t vid, uint16_t pid, const QByteArray& serial)
    : vid(vid)
    , pid(pid)
    , serial(serial)
{
    init();
}

IOClientUsbEp0::~IOClientUsbEp0() = default;

libusb_device* IOClientUsbEp0::locateDevice()
{
    if (pid != 0)
        return findUsbDevice(vid, pid, serial);
    if (usblp && usblp->usbDevice().isValid()) {
        TAV_LOG(11, "IOClientUsbEp0::findUsbDevice(%s)", qPrintable(usblp->devicePath()));
        return UsbContext::find(usblp->usbDevice());
    }
    if (usblp)
        return findUsbDevice(usblp);
    return nullptr;
}

int IOClientUsbEp0::command(uint8_t requesttype, uint8_t request, uint16_t value, uint16_t index,
                            unsigned char* buffer, uint16_t size, int timeout)
{
    if (!UsbContext::get())
        return -1;
    libusb_device* device = locateDevice();
    if (!device) {
        TAV_LOG(11, "ERROR: findUsbDevice() failed");
        return -1;
    }
    libusb_device_handle* handle = nullptr;
    const int opened = libusb_open(device, &handle);
    libusb_unref_device(device);
    if (opened < 0) {
        TAV_LOG(11, "ERROR: usb_open() failed: <%s>", libusb_strerror(opened));
        return -1;
    }

    const bool out = (requesttype & 0x80) == 0;
    TAV_LOG(11, "INFO: usb_control_msg(,0x%02x,0x%02x,0x%04x,0x%04x,%p,%u,%d)", requesttype,
            request, value, index, static_cast<void*>(buffer), unsigned(size), timeout);
    const QByteArray sent = out && buffer ? bracketDump(buffer, size) : QByteArray();
    TAV_LOG(11, "I/O: ep0: HOST>FW: %02x %02x %04x %04x %04x %s[%u bytes of data]", requesttype,
            request, value, index, unsigned(size), sent.constData(), out ? unsigned(size) : 0u);

    const int result = libusb_control_transfer(handle, requesttype, request, value, index, buffer,
                                               size, unsigned(qMax(timeout, 0)));
    if (result < 0) {
        TAV_LOG(11, "I/O: ep0: HOST<FW: failed: <%s>", libusb_strerror(result));
        TAV_LOG(11, "ERROR: usb_control_msg failed: <%s>", libusb_strerror(result));
    } else {
        const int shown = !out && buffer ? qMin(result, int(size)) : 0;
        const QByteArray received = bracketDump(buffer, shown);
        TAV_LOG(11, "I/O: ep0: HOST<FW: %s[%u bytes of data]", received.constData(),
                unsigned(out ? 0 : result));
    }
    // libusb_close() cannot fail, so a good transfer is never voided by the close.
    libusb_close(handle);
    return result < 0 ? -1 : result;
}

int IOClientUsbEp0::command_safe(uint8_t requesttype, uint8_t request, uint16_t value,
                                 uint16_t index, unsigned char* buffer, uint16_t size, int timeout)
{
    if (command(kVendorIn, kRequestWakeup, 0, 0, nullptr, 0, kTimeoutMs) < 0)
        TAV_LOG(11, "wakeup failed");
    return command(requesttype, request, value, index, buffer, size, timeout);
}

QByteArray IOClientUsbEp0::getData(uint8_t requesttype, uint8_t request, uint16_t value,
                                   uint16_t index, uint16_t length, int timeout)
{
    TAV_ASSERT_TEXT((requesttype & 0x80) == 0x80, "(((requesttype) & 0x80) == ((0x80) & 0x80))");
    QByteArray data(length, '\0');
    const int received = command(requesttype, request, value, index,
                                 reinterpret_cast<unsigned char*>(data.data()), length, timeout);
    if (received < 0) {
        TAV_LOG(11, "IOClientUsbEp0::command failed");
        return QByteArray();
    }
    data.truncate(qMin(received, int(length)));
    return data;
}

uint32_t IOClientUsbEp0::probeStatus()
{
    unsigned char status[kStatusLength] = {};
    const int received =
        command(kVendorIn, kRequestStatus, 0, 0, status, kStatusLength, kTimeoutMs);
    if (received != kStatusLength)
        return kNoAnswerId;
    return uint32_t(status[1]) << 16 | uint32_t(status[2]) << 8 | uint32_t(status[3]);
}

bool IOClientUsbEp0::wakeup_ensure(int timeout)
{
    TAV_LOG(11, "IOClientUsbEp0::wakeup(%d)", timeout);
    uint32_t id = probeStatus();
    if (id != kNoAnswerId)
        return true;
    if (command(kVendorIn, kRequestWakeup, 0, 0, nullptr, 0, kTimeoutMs) < 0) {
        TAV_LOG(11, "wakeup failed");
        return false;
    }
    int remaining = timeout;
    do {
        remaining -= kWakeupStepMs;
        QThread::msleep(kWakeupStepMs);
        id = probeStatus();
        TAV_LOG(11, "\ttimeout=%d id=%06x", remaining, id);
    } while (remaining >= 1 && id == kNoAnswerId);
    return id != kNoAnswerId;
}

bool IOClientUsbEp0::get_usb_bus_address(IOClient* client, int& busNumber, int& deviceNumber)
{
    IOClientLocker locker(client);
    TAV_LOG(11, "IOClientUsbEp0::get_usb_bus_address: m_usblp: name=<%s>",
            client ? qPrintable(client->devicePath()) : "");
    if (!locker.isValid()) {
        TAV_LOG(11, "\tinvalid client");
        return false;
    }
    int address[2] = {0, 0};
    if (ioctl(client->handle(), kLpiocGetBusAddress, address) < 0) {
        TAV_LOG(11, "ioctl(GET_BUS_ADDRESS) failure: <%s>", strerror(errno));
        return false;
    }
    busNumber = address[0];
    deviceNumber = address[1];
    return true;
}

libusb_device* IOClientUsbEp0::findUsbDevice(IOClient* client)
{
    TAV_LOG(11, "IOClientUsbEp0::findUsbDevice(%p)", static_cast<void*>(client));
    libusb_context* context = UsbContext::get();
    if (!context)
        return nullptr;
    const UsbContext::DeviceList list(context);
    int bus = 0;
    int address = 0;
    if (!get_usb_bus_address(client, bus, address)) {
        TAV_LOG(11, "get_usb_bus_address() failure");
        return nullptr;
    }
    bool busSeen = false;
    for (ssize_t i = 0; i < list.count; ++i) {
        libusb_device* device = list.devices[i];
        if (libusb_get_bus_number(device) != bus)
            continue;
        busSeen = true;
        if (libusb_get_device_address(device) == address)
            return libusb_ref_device(device);
    }
    // Like a walk of the bus directories: an unknown bus ends the search silently.
    if (busSeen)
        TAV_LOG(11, "usb device (bus=%03d device=%03d) hasn't been found", bus, address);
    return nullptr;
}

libusb_device* IOClientUsbEp0::findUsbDevice(uint16_t vendor, uint16_t product,
                                             const QByteArray& serialNumber)
{
    TAV_LOG(11, "IOClientUsbEp0::findUsbDevice(0x%04x,0x%04x,%s)", vendor, product,
            serialNumber.constData());
    TAV_LOG(11, "vid=0x%04x pid=0x%04x serial=<%s> usblp=%p(%s)", vid, pid, serial.constData(),
            static_cast<void*>(usblp), usblp ? qPrintable(usblp->devicePath()) : "");
    libusb_context* context = UsbContext::get();
    if (!context)
        return nullptr;
    const UsbContext::DeviceList list(context);
    if (list.count < 0) {
        TAV_LOG(11, "usb_find_devices() failed: <%s>", libusb_strerror(int(list.count)));
        return nullptr;
    }
    // The serial number is reported but never compared.
    for (ssize_t i = 0; i < list.count; ++i) {
        libusb_device_descriptor descriptor{};
        if (libusb_get_device_descriptor(list.devices[i], &descriptor) < 0)
            continue;
        if ((vendor == 0 || descriptor.idVendor == vendor) &&
            (product == 0 || descriptor.idProduct == product))
            return libusb_ref_device(list.devices[i]);
    }
    TAV_LOG(11, "usb device vid=%X pid=%X not found", vendor, product);
    return nullptr;
}

QByteArray IOClientUsbEp0::getDeviceID_usblp(IOClient* client)
{
    // A USB device named directly has no driver to ask; the class request answers instead.
    if (client && client->usbDevice().isValid())
        return QByteArray();
    IOClientLocker locker(client);
    if (!locker.isValid()) {
        TAV_LOG(11, "\tinvalid client");
        return QByteArray();
    }
    unsigned char buffer[kDeviceIdBufferSize] = {};
    if (ioctl(client->handle(), kLpiocGetDeviceId1024, buffer) < 0) {
        const int code = errno;
        TAV_LOG(11, "ioctl failed with code %d: <%s>", code, strerror(code));
        return QByteArray();
    }
    // The first two bytes are the length, big-endian, counting themselves.
    const int length = buffer[0] << 8 | buffer[1];
    const int textLength = qBound(0, length - 2, kDeviceIdBufferSize - 2);
    return QByteArray(reinterpret_cast<const char*>(buffer) + 2, textLength);
}

QByteArray IOClientUsbEp0::getDeviceID(int timeout)
{
    const QByteArray viaIoctl = getDeviceID_usblp(usblp);
    if (!viaIoctl.isEmpty())
        return viaIoctl;
    QByteArray reply(kDeviceIdLength, '\0');
    const int received =
        command(kClassIn, kRequestGetDeviceId, 0, 0, reinterpret_cast<unsigned char*>(reply.data()),
                kDeviceIdLength, timeout);
    if (received < 2)
        return QByteArray();
    // The text is copied into (length - 2) bytes including its terminator, so the last byte
    // received is dropped.
    QByteArray text = reply.mid(2, qMax(0, qMin(received, int(kDeviceIdLength)) - 3));
    const int nul = text.indexOf('\0');
    if (nul >= 0)
        text.truncate(nul);
    return text;
}

void IOClientUsbEp0::init()
{
    TAV_LOG(11, "IOClientUsbEp0::init()");
    const QByteArray deviceId = getDeviceID(kTimeoutMs);
    TAV_LOG(11, "\tdevID[%u]: <%s>", unsigned(deviceId.size()), deviceId.constData());
    const QByteArray extendedId =
        getData(kVendorIn, kRequestExtendedId, kExtendedIdValue, 0, kExtendedIdLength, kTimeoutMs);
    TAV_LOG(11, "\textDevID[%u]: <%s>", unsigned(extendedId.size()), extendedId.constData());
    const QByteArray status = getData(kVendorIn, kRequestStatus, 0, 0, kStatusLength, kTimeoutMs);
    TAV_LOG(11, "\tdevStatus[%u]: <%s>", unsigned(status.size()), qPrintable(hexText(status)));
}
