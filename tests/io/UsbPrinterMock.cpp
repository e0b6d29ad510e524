// umockdev's headers come first: they must not see Qt's keyword macros.
#include <umockdev.h>

#include "UsbPrinterMock.h"

#include <QtGlobal>

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <linux/usbdevice_fs.h>
#include <mutex>
#include <sys/ioctl.h>

namespace {

constexpr unsigned long kLpiocGetDeviceId1024 = 0x84005001UL;
constexpr unsigned long kLpiocGetBusAddress = 0x80085005UL;
constexpr const char* kUsbNode = "/dev/bus/usb/003/007";

// A printer-class interface with a bulk OUT and a bulk IN endpoint.
constexpr const char* kDevices =
    "P: /devices/pci0000:00/0000:00:14.0/usb3/3-1\nN: bus/usb/003/007\n"
    "E: DEVNAME=/dev/bus/usb/003/007\nE: DEVTYPE=usb_device\nE: DRIVER=usb\nE: SUBSYSTEM=usb\n"
    "E: BUSNUM=003\nE: DEVNUM=007\nA: busnum=3\nA: devnum=7\nA: speed=480\nA: idVendor=04f9\n"
    "A: idProduct=0042\nA: bConfigurationValue=1\nA: bNumConfigurations=1\nA: dev=189:262\n"
    // device, configuration, interface 7/1/2, endpoints 0x01 and 0x82
    "H: descriptors=1201000200000040F9044200000101020301"
    "09022000010100C032"
    "090400000207010200"
    "07050102000200"
    "07058202000200\n\n"
    "P: /devices/pci0000:00/0000:00:14.0/usb3/3-1/3-1:1.0/usbmisc/lp0\nN: usb/lp0\n"
    "E: DEVNAME=/dev/usb/lp0\nE: SUBSYSTEM=usbmisc\nA: dev=180:0\n";

} // namespace

struct UsbPrinterMock::Private
{
    UMockdevTestbed* testbed = umockdev_testbed_new();
    UMockdevIoctlBase* handler = umockdev_ioctl_base_new(); // for both nodes
    mutable std::mutex mutex;
    Behaviour behaviour;
    QList<uint8_t> requests;
    int statusProbes = 0;
    QList<gulong> finishedUrbs;

    // Answers with `size` bytes at the argument, or fails with errno `error`.
    static void answer(UMockdevIoctlClient* client, const void* data, size_t size, int error)
    {
        if (error) {
            umockdev_ioctl_client_complete(client, -1, error);
            return;
        }
        UMockdevIoctlData* argument = umockdev_ioctl_client_get_arg(client);
        memcpy(umockdev_ioctl_data_resolve(argument, 0, size, nullptr)->data, data, size);
        umockdev_ioctl_client_complete(client, 0, 0);
    }

    void handle(UMockdevIoctlClient* client)
    {
        std::lock_guard<std::mutex> lock(mutex);
        const gulong request = umockdev_ioctl_client_get_request(client);
        if (request == kLpiocGetBusAddress) {
            const int address[2] = {behaviour.busNumber, behaviour.deviceAddress};
            answer(client, address, sizeof address, behaviour.busAddressFails ? EIO : 0);
        } else if (request == kLpiocGetDeviceId1024) {
            // Two bytes of big-endian length, the length included, then the text.
            const QByteArray id = behaviour.deviceId.left(1022);
            QByteArray reply(1024, '\0');
            reply[0] = char((id.size() + 2) >> 8);
            reply[1] = char(id.size() + 2);
            reply.replace(2, id.size(), id);
            answer(client, reply.constData(), 1024, id.isEmpty() ? ENOTTY : 0);
        } else if (request == USBDEVFS_SUBMITURB) {
            submit(client);
        } else if (request == USBDEVFS_REAPURB || request == USBDEVFS_REAPURBNDELAY) {
            const gulong address = finishedUrbs.isEmpty() ? 0 : finishedUrbs.takeFirst();
            answer(client, &address, sizeof address, address ? 0 : EAGAIN);
        } else {
            answer(client, nullptr, 0, ENOTTY);
        }
    }

    // The device's answer to a control request: the bytes, or a negative errno status.
    int controlReply(const unsigned char* setup, QByteArray& reply)
    {
        requests.append(setup[1]);
        if (behaviour.controlStalls)
            return -EPIPE;
        switch (setup[0] << 8 | setup[1]) {
        case 0xC102: // status probe
            if (behaviour.silentProbes < 0 || statusProbes++ < behaviour.silentProbes)
                return 0;
            reply = QByteArray(behaviour.statusLength, '\0');
            for (int i = 0; i < 3 && i + 1 < reply.size(); ++i)
                reply[i + 1] = char(behaviour.statusId >> (16 - 8 * i));
            return 0;
        case 0xC199: // wake-up
            return behaviour.wakeupFails ? -EPIPE : 0;
        case 0xC1E0:
            reply = behaviour.extendedId;
            return 0;
        case 0xA100:
            reply = behaviour.classDeviceId;
            return 0;
        default:
            return -EPIPE;
        }
    }

    // Completes a control URB at once. A reply longer than the host asked for is what a
    // babbling device causes: the kernel reports an overflow and nothing more.
    void submit(UMockdevIoctlClient* client)
    {
        UMockdevIoctlData* argument = umockdev_ioctl_client_get_arg(client);
        const gulong address = *reinterpret_cast<gulong*>(argument->data);
        UMockdevIoctlData* urbData =
            umockdev_ioctl_data_resolve(argument, 0, sizeof(usbdevfs_urb), nullptr);
        auto* urb = reinterpret_cast<usbdevfs_urb*>(urbData->data);
        UMockdevIoctlData* buffer = umockdev_ioctl_data_resolve(
            urbData, offsetof(usbdevfs_urb, buffer), size_t(urb->buffer_length), nullptr);
        if (urb->type != USBDEVFS_URB_TYPE_CONTROL || !buffer || urb->buffer_length < 8) {
            umockdev_ioctl_client_complete(client, -1, EINVAL);
            return;
        }
        const int wanted = buffer->data[6] | buffer->data[7] << 8;
        QByteArray reply;
        int status = controlReply(buffer->data, reply);
        const int length = int(qMin<qsizetype>(reply.size(), wanted));
        if (status == 0 && reply.size() > wanted)
            status = -EOVERFLOW;
        memcpy(buffer->data + 8, reply.constData(), size_t(length));
        urb->status = status;
        urb->actual_length = status == -EPIPE ? 0 : length;
        finishedUrbs.append(address);
        umockdev_ioctl_client_complete(client, 0, 0);
    }
};

UsbPrinterMock::UsbPrinterMock()
    : d(std::make_unique<Private>())
{
    const auto handle = [](UMockdevIoctlBase*, UMockdevIoctlClient* client, Private* self) {
        self->handle(client);
        return gboolean(TRUE);
    };
    using Handler = gboolean (*)(UMockdevIoctlBase*, UMockdevIoctlClient*, Private*);
    g_signal_connect(d->handler, "handle-ioctl", G_CALLBACK(Handler(handle)), d.get());
    GError* error = nullptr;
    if (!umockdev_testbed_add_from_string(d->testbed, kDevices, &error) ||
        !umockdev_testbed_attach_ioctl(d->testbed, kUsblp, d->handler, &error) ||
        !umockdev_testbed_attach_ioctl(d->testbed, kUsbNode, d->handler, &error))
        qFatal("umockdev: %s", error->message);
}

UsbPrinterMock::~UsbPrinterMock()
{
    g_object_unref(d->testbed);
    g_object_unref(d->handler);
}

void UsbPrinterMock::setBehaviour(const Behaviour& behaviour)
{
    std::lock_guard<std::mutex> lock(d->mutex);
    d->behaviour = behaviour;
    d->requests.clear();
    d->statusProbes = 0;
}

QList<uint8_t> UsbPrinterMock::controlRequests() const
{
    std::lock_guard<std::mutex> lock(d->mutex);
    return d->requests;
}

int UsbPrinterMock::dataMaster() const
{
    return umockdev_testbed_get_dev_fd(d->testbed, kUsblp);
}
