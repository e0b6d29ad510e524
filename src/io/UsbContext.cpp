#include "io/UsbContext.h"

#include "app/Log.h"
#include "io/UsbDeviceName.h"

#include <libusb.h>

namespace {

constexpr uint8_t kPrinterClass = 7;
constexpr uint8_t kPrinterSubclass = 1;
constexpr uint8_t kBidirectional = 2;
constexpr int kSerialLength = 256;

// The bulk endpoints of one alternate setting; false unless it has one of each direction.
bool bulkEndpoints(const libusb_interface_descriptor& setting, UsbContext::PrinterInterface* found)
{
    found->outEndpoint = 0;
    found->inEndpoint = 0;
    for (int e = 0; e < setting.bNumEndpoints; ++e) {
        const libusb_endpoint_descriptor& endpoint = setting.endpoint[e];
        if ((endpoint.bmAttributes & LIBUSB_TRANSFER_TYPE_MASK) != LIBUSB_TRANSFER_TYPE_BULK)
            continue;
        if ((endpoint.bEndpointAddress & LIBUSB_ENDPOINT_IN) && !found->inEndpoint) {
            found->inEndpoint = endpoint.bEndpointAddress;
            found->inPacketSize = endpoint.wMaxPacketSize & 0x7ff;
        } else if (!(endpoint.bEndpointAddress & LIBUSB_ENDPOINT_IN) && !found->outEndpoint) {
            found->outEndpoint = endpoint.bEndpointAddress;
        }
    }
    return found->outEndpoint && found->inEndpoint && found->inPacketSize > 0;
}

// The first printer setting with both bulk endpoints, a bidirectional one before any other.
bool printerSetting(const libusb_config_descriptor& config, UsbContext::PrinterInterface* found)
{
    for (bool bidirectionalOnly : {true, false}) {
        for (int i = 0; i < config.bNumInterfaces; ++i) {
            const libusb_interface& interface = config.interface[i];
            for (int a = 0; a < interface.num_altsetting; ++a) {
                const libusb_interface_descriptor& setting = interface.altsetting[a];
                if (setting.bInterfaceClass != kPrinterClass ||
                    setting.bInterfaceSubClass != kPrinterSubclass ||
                    (bidirectionalOnly && setting.bInterfaceProtocol != kBidirectional))
                    continue;
                if (bulkEndpoints(setting, found)) {
                    found->number = setting.bInterfaceNumber;
                    found->altsetting = setting.bAlternateSetting;
                    return true;
                }
            }
        }
    }
    return false;
}

} // namespace

UsbContext::DeviceList::DeviceList(libusb_context* context)
    : count(libusb_get_device_list(context, &devices))
{
}

UsbContext::DeviceList::~DeviceList()
{
    if (devices)
        libusb_free_device_list(devices, 1);
}

libusb_context* UsbContext::get()
{
    static bool initialised = false;
    static libusb_context* context = nullptr;
    if (!initialised) {
        initialised = true;
        const int rc = libusb_init(&context);
        if (rc < 0) {
            TAV_LOG(11, "ERROR: usb_init() failed: <%s>", libusb_strerror(rc));
            context = nullptr;
        }
    }
    return context;
}

libusb_device* UsbContext::find(const UsbDeviceName& name)
{
    if (!name.bySerial())
        return find(name.bus(), name.address());
    libusb_context* context = get();
    if (!context)
        return nullptr;
    const UsbContext::DeviceList list(context);
    const QByteArray wanted = name.serial().toUtf8();
    for (ssize_t i = 0; i < list.count; ++i) {
        PrinterInterface printer;
        if (printerInterface(list.devices[i], &printer) && serialNumber(list.devices[i]) == wanted)
            return libusb_ref_device(list.devices[i]);
    }
    TAV_LOG(11, "no USB printer with the serial number <%s>", wanted.constData());
    return nullptr;
}

libusb_device* UsbContext::find(int bus, int address)
{
    libusb_context* context = get();
    if (!context)
        return nullptr;
    const UsbContext::DeviceList list(context);
    for (ssize_t i = 0; i < list.count; ++i) {
        libusb_device* device = list.devices[i];
        if (libusb_get_bus_number(device) == bus && libusb_get_device_address(device) == address)
            return libusb_ref_device(device);
    }
    TAV_LOG(11, "usb device (bus=%03d device=%03d) hasn't been found", bus, address);
    return nullptr;
}

bool UsbContext::printerInterface(libusb_device* device, PrinterInterface* found)
{
    libusb_config_descriptor* config = nullptr;
    // An unconfigured device has no active configuration; its first is what it would get.
    if (libusb_get_active_config_descriptor(device, &config) < 0 &&
        libusb_get_config_descriptor(device, 0, &config) < 0)
        return false;
    const bool printer = printerSetting(*config, found);
    libusb_free_config_descriptor(config);
    return printer;
}

QByteArray UsbContext::serialNumber(libusb_device* device)
{
    libusb_device_descriptor descriptor{};
    if (libusb_get_device_descriptor(device, &descriptor) < 0 || descriptor.iSerialNumber == 0)
        return QByteArray();
    libusb_device_handle* handle = nullptr;
    if (libusb_open(device, &handle) < 0)
        return QByteArray();
    unsigned char text[kSerialLength] = {};
    const int length =
        libusb_get_string_descriptor_ascii(handle, descriptor.iSerialNumber, text, sizeof text);
    libusb_close(handle);
    return length > 0 ? QByteArray(reinterpret_cast<const char*>(text), length) : QByteArray();
}

QString UsbContext::nodePath(libusb_device* device)
{
    return QString::asprintf("/dev/bus/usb/%03d/%03d", libusb_get_bus_number(device),
                             libusb_get_device_address(device));
}
