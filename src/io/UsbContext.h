#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <sys/types.h>

class UsbDeviceName;
struct libusb_context;
struct libusb_device;

// The process's one libusb context, and finding a USB printer in it: by bus and address, by
// serial number, and its printer-class interface.
class UsbContext
{
public:
    // The printer-class interface (class 7, subclass 1) of a device's active configuration,
    // with its bulk endpoints.
    struct PrinterInterface
    {
        int number = -1;
        int altsetting = 0;
        uint8_t outEndpoint = 0;
        uint8_t inEndpoint = 0;
        int inPacketSize = 0;
    };

    // The devices connected now, freed with the list; a count below 0 is libusb's error.
    struct DeviceList
    {
        explicit DeviceList(libusb_context* context);
        ~DeviceList();
        DeviceList(const DeviceList&) = delete;
        DeviceList& operator=(const DeviceList&) = delete;

        libusb_device** devices = nullptr;
        ssize_t count = 0;
    };

    // Made on first use and kept for the life of the process; null when libusb cannot start.
    static libusb_context* get();

    // The device the name denotes, with an extra reference the caller releases
    // (libusb_unref_device), or null. A serial number is compared only on devices with a
    // printer interface, each opened briefly to read it.
    static libusb_device* find(const UsbDeviceName& name);
    static libusb_device* find(int bus, int address);
    static bool printerInterface(libusb_device* device, PrinterInterface* found);
    // The device's serial number string; empty when it has none or cannot be opened.
    static QByteArray serialNumber(libusb_device* device);
    // The usbfs node of the device ("/dev/bus/usb/001/002").
    static QString nodePath(libusb_device* device);
};
