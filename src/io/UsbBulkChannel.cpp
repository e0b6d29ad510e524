#include "io/UsbBulkChannel.h"

#include "app/Log.h"

#include <QCoreApplication>

#include <libusb.h>

namespace {

// The largest single bulk transfer, either way; a multiple of every bulk packet size.
constexpr qint64 kMaxTransfer = 64 * 1024;

QString tr(const char* text)
{
    return QCoreApplication::translate("UsbBulkChannel", text);
}

QString libusbText(int code)
{
    return QString::fromLocal8Bit(libusb_strerror(code));
}

} // namespace

UsbBulkChannel::UsbBulkChannel(const UsbDeviceName& name)
    : name(name)
{
}

UsbBulkChannel::~UsbBulkChannel()
{
    close();
}

bool UsbBulkChannel::open(QString* error)
{
    if (handle)
        return true;
    libusb_device* device = UsbContext::get() ? UsbContext::find(name) : nullptr;
    if (!device) {
        *error = tr("no such USB printer is connected");
        return false;
    }
    const bool printerFound = UsbContext::printerInterface(device, &printer);
    const int opened = printerFound ? libusb_open(device, &handle) : LIBUSB_SUCCESS;
    libusb_unref_device(device);
    if (!printerFound) {
        *error = tr("the USB device has no printer interface");
        return false;
    }
    if (opened < 0) {
        handle = nullptr;
        *error = libusbText(opened);
        TAV_LOG(9, "UsbBulkChannel: usb_open() failed: <%s>", libusb_strerror(opened));
        return false;
    }
    if (!claim(error)) {
        close();
        return false;
    }
    bufferStart = bufferEnd = 0;
    TAV_LOG(10, "UsbBulkChannel: interface %d claimed, OUT 0x%02x, IN 0x%02x (%d-byte packets)",
            printer.number, printer.outEndpoint, printer.inEndpoint, printer.inPacketSize);
    return true;
}

// Takes the interface from a kernel driver bound to it, then claims it.
bool UsbBulkChannel::claim(QString* error)
{
    if (libusb_kernel_driver_active(handle, printer.number) == 1) {
        const int detached = libusb_detach_kernel_driver(handle, printer.number);
        if (detached < 0) {
            *error = tr("the kernel driver keeps the printer: %1").arg(libusbText(detached));
            return false;
        }
        reattach = true;
        TAV_LOG(10, "UsbBulkChannel: kernel driver detached from interface %d", printer.number);
    }
    int rc = libusb_claim_interface(handle, printer.number);
    if (rc == 0 && printer.altsetting != 0)
        rc = libusb_set_interface_alt_setting(handle, printer.number, printer.altsetting);
    if (rc < 0) {
        *error = tr("the printer interface cannot be claimed: %1").arg(libusbText(rc));
        return false;
    }
    return true;
}

void UsbBulkChannel::close()
{
    if (!handle)
        return;
    libusb_release_interface(handle, printer.number);
    if (reattach) {
        const int rc = libusb_attach_kernel_driver(handle, printer.number);
        if (rc < 0)
            TAV_LOG(9, "UsbBulkChannel: the kernel driver could not be attached again: <%s>",
                    libusb_strerror(rc));
    }
    reattach = false;
    libusb_close(handle);
    handle = nullptr;
    bufferStart = bufferEnd = 0;
}

unsigned int UsbBulkChannel::timeoutMs(int timeoutUs)
{
    if (timeoutUs < 0)
        return 0; // libusb's "no limit"
    return unsigned(qMax(1, (timeoutUs + 999) / 1000));
}

qint64 UsbBulkChannel::write(const char* data, qint64 length, int timeoutUs)
{
    if (!handle)
        return -1;
    int transferred = 0;
    // libusb takes a non-const buffer for either direction; an OUT transfer only reads it.
    auto* bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(data));
    const int rc =
        libusb_bulk_transfer(handle, printer.outEndpoint, bytes, int(qMin(length, kMaxTransfer)),
                             &transferred, timeoutMs(timeoutUs));
    if (rc == 0 || rc == LIBUSB_ERROR_TIMEOUT || rc == LIBUSB_ERROR_INTERRUPTED || transferred > 0)
        return transferred;
    return failed(rc, printer.outEndpoint);
}

qint64 UsbBulkChannel::read(char* data, qint64 length, int timeoutUs)
{
    if (!handle)
        return -1;
    if (length <= 0)
        return 0;
    if (bufferStart == bufferEnd) {
        const qint64 received = fill(length, timeoutUs);
        if (received <= 0)
            return received;
    }
    return takeBuffered(data, length);
}

// One bulk IN transfer of whole packets into the buffer, enough for `wanted` bytes: a reply
// that ends exactly at the wanted length completes the transfer without waiting for more.
qint64 UsbBulkChannel::fill(qint64 wanted, int timeoutUs)
{
    const qint64 packet = printer.inPacketSize;
    const qint64 size = qMin((wanted + packet - 1) / packet, kMaxTransfer / packet) * packet;
    if (buffer.size() < size)
        buffer.resize(size);
    int transferred = 0;
    const int rc = libusb_bulk_transfer(handle, printer.inEndpoint,
                                        reinterpret_cast<unsigned char*>(buffer.data()), int(size),
                                        &transferred, timeoutMs(timeoutUs));
    bufferStart = 0;
    bufferEnd = transferred;
    // Bytes that arrived before a time-out or an error are the device's answer all the same.
    if (rc == 0 || rc == LIBUSB_ERROR_TIMEOUT || rc == LIBUSB_ERROR_INTERRUPTED || transferred > 0)
        return transferred;
    return failed(rc, printer.inEndpoint);
}

qint64 UsbBulkChannel::takeBuffered(char* data, qint64 length)
{
    const int taken = int(qMin(length, qint64(bufferEnd - bufferStart)));
    memcpy(data, buffer.constData() + bufferStart, size_t(taken));
    bufferStart += taken;
    return taken;
}

// A stalled endpoint (the device halted it, as on a hang-up) is cleared for the next
// exchange; this one fails like every other error, a device that went away included.
qint64 UsbBulkChannel::failed(int code, uint8_t endpoint)
{
    TAV_LOG(9, "UsbBulkChannel: bulk transfer on endpoint 0x%02x failed: <%s>", endpoint,
            libusb_strerror(code));
    if (code == LIBUSB_ERROR_PIPE)
        libusb_clear_halt(handle, endpoint);
    return -1;
}
