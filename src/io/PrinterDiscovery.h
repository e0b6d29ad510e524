#pragma once

#include "io/DiscoveredPrinter.h"

#include <QHash>

struct udev;
struct udev_device;

// The USB printers connected now, from udev: the usblp device nodes, the IEEE 1284 ID the
// driver exposes on the printer interface, and the USB device's strings; printers that the
// driver does not serve under their USB device name ("usb:BUS:ADDR").
class PrinterDiscovery
{
public:
    static DiscoveredPrinters list();

    // A device ID's fields by key ("MFG", "MDL", ...), with the long key names folded into
    // the short ones.
    static QHash<QString, QString> idFields(const QString& deviceId);
    // One printer from its usbmisc device.
    static DiscoveredPrinter describe(udev_device* device);

private:
    static QString attribute(udev_device* device, const char* name);
    static DiscoveredPrinter describeWithoutNode(udev_device* interface);
    static void addPrintersWithoutNode(udev* context, DiscoveredPrinters& printers);
};
