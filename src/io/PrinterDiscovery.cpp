#include "io/PrinterDiscovery.h"

#include "io/TAVClient.h"

#include <libudev.h>

#include <algorithm>

namespace {

// The long key names a device ID may use for the fields shown.
const QHash<QString, QString> kLongKeys{
    {QStringLiteral("MANUFACTURER"), QStringLiteral("MFG")},
    {QStringLiteral("MODEL"), QStringLiteral("MDL")},
    {QStringLiteral("COMMAND SET"), QStringLiteral("CMD")},
    {QStringLiteral("SERIALNUMBER"), QStringLiteral("SN")},
    {QStringLiteral("SERN"), QStringLiteral("SN")},
};

} // namespace

QHash<QString, QString> PrinterDiscovery::idFields(const QString& deviceId)
{
    QHash<QString, QString> fields;
    for (const QString& field : deviceId.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const int colon = field.indexOf(QLatin1Char(':'));
        if (colon <= 0)
            continue;
        const QString key = field.left(colon).trimmed().toUpper();
        fields.insert(kLongKeys.value(key, key), field.mid(colon + 1).trimmed());
    }
    return fields;
}

QString PrinterDiscovery::attribute(udev_device* device, const char* name)
{
    const char* value = device ? udev_device_get_sysattr_value(device, name) : nullptr;
    return value ? QString::fromUtf8(value).trimmed() : QString();
}

DiscoveredPrinter PrinterDiscovery::describe(udev_device* device)
{
    DiscoveredPrinter printer;
    printer.node = QString::fromUtf8(udev_device_get_devnode(device));
    // The driver puts the ID on the printer interface; the strings live on the USB device.
    udev_device* interface =
        udev_device_get_parent_with_subsystem_devtype(device, "usb", "usb_interface");
    udev_device* usb = udev_device_get_parent_with_subsystem_devtype(device, "usb", "usb_device");
    printer.deviceId = attribute(interface, "ieee1284_id");
    const QHash<QString, QString> fields = idFields(printer.deviceId);
    printer.manufacturer = fields.value(QStringLiteral("MFG"), attribute(usb, "manufacturer"));
    printer.model = fields.value(QStringLiteral("MDL"), attribute(usb, "product"));
    printer.serial = fields.value(QStringLiteral("SN"), attribute(usb, "serial"));
    const bool ids = TAVClient::commandSets(QStringLiteral("CMD:") + fields.value("CMD"))
                         .contains(QStringLiteral("IDS"));
    printer.framing = ids ? QStringLiteral("IDS") : QStringLiteral("TAV");
    return printer;
}

DiscoveredPrinter PrinterDiscovery::describeWithoutNode(udev_device* interface)
{
    DiscoveredPrinter printer;
    udev_device* usb =
        udev_device_get_parent_with_subsystem_devtype(interface, "usb", "usb_device");
    printer.node = QString::asprintf("usb:%03d:%03d", attribute(usb, "busnum").toInt(),
                                     attribute(usb, "devnum").toInt());
    printer.manufacturer = attribute(usb, "manufacturer");
    printer.model = attribute(usb, "product");
    printer.serial = attribute(usb, "serial");
    printer.framing = QStringLiteral("TAV"); // no driver reports the device ID here
    return printer;
}

// Printer-class interfaces that the kernel's printer driver does not serve: reached by
// libusb under their USB device name.
void PrinterDiscovery::addPrintersWithoutNode(udev* context, DiscoveredPrinters& printers)
{
    udev_enumerate* enumerate = udev_enumerate_new(context);
    udev_enumerate_add_match_subsystem(enumerate, "usb");
    udev_enumerate_add_match_property(enumerate, "DEVTYPE", "usb_interface");
    udev_enumerate_add_match_sysattr(enumerate, "bInterfaceClass", "07");
    udev_enumerate_add_match_sysattr(enumerate, "bInterfaceSubClass", "01");
    udev_enumerate_scan_devices(enumerate);
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumerate))
    {
        udev_device* interface =
            udev_device_new_from_syspath(context, udev_list_entry_get_name(entry));
        const char* driver = interface ? udev_device_get_driver(interface) : nullptr;
        if (interface && qstrcmp(driver, "usblp") != 0)
            printers.append(describeWithoutNode(interface));
        udev_device_unref(interface);
    }
    udev_enumerate_unref(enumerate);
}

DiscoveredPrinters PrinterDiscovery::list()
{
    DiscoveredPrinters printers;
    udev* context = udev_new();
    if (!context)
        return printers;
    udev_enumerate* enumerate = udev_enumerate_new(context);
    udev_enumerate_add_match_subsystem(enumerate, "usbmisc");
    udev_enumerate_add_match_sysname(enumerate, "lp*");
    udev_enumerate_scan_devices(enumerate);
    udev_list_entry* entry = nullptr;
    udev_list_entry_foreach(entry, udev_enumerate_get_list_entry(enumerate))
    {
        udev_device* device =
            udev_device_new_from_syspath(context, udev_list_entry_get_name(entry));
        if (device && udev_device_get_devnode(device))
            printers.append(describe(device));
        udev_device_unref(device);
    }
    udev_enumerate_unref(enumerate);
    addPrintersWithoutNode(context, printers);
    udev_unref(context);
    std::sort(
        printers.begin(), printers.end(),
        [](const DiscoveredPrinter& a, const DiscoveredPrinter& b) { return a.node < b.node; });
    return printers;
}
