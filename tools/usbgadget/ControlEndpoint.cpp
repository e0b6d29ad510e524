#include "usbgadget/ControlEndpoint.h"

#include <QFile>
#include <QThread>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <endian.h>
#include <fcntl.h>
#include <linux/usb/ch9.h>
#include <linux/usb/functionfs.h>
#include <unistd.h>

namespace {

constexpr uint8_t kPrinterClass = 7;
constexpr uint8_t kPrinterSubclass = 1;
constexpr uint8_t kBidirectional = 2;
constexpr uint16_t kFullSpeedPacket = 64;
constexpr uint16_t kHighSpeedPacket = 512;

// Printer class requests.
constexpr uint8_t kGetDeviceId = 0x00;
constexpr uint8_t kGetPortStatus = 0x01;
constexpr uint8_t kSoftReset = 0x02;
constexpr uint8_t kPortStatusSelected = 0x18; // selected, no error, paper present
// Vendor requests.
constexpr uint8_t kRequestStatus = 0x02;
constexpr uint8_t kRequestWakeup = 0x99;
constexpr uint8_t kRequestExtendedId = 0xE0;
constexpr int kStatusLength = 8;

struct __attribute__((packed)) Function
{
    usb_interface_descriptor interface;
    usb_endpoint_descriptor_no_audio out;
    usb_endpoint_descriptor_no_audio in;
};

Function function(uint16_t packetSize)
{
    Function f{};
    f.interface.bLength = sizeof f.interface;
    f.interface.bDescriptorType = USB_DT_INTERFACE;
    f.interface.bNumEndpoints = 2;
    f.interface.bInterfaceClass = kPrinterClass;
    f.interface.bInterfaceSubClass = kPrinterSubclass;
    f.interface.bInterfaceProtocol = kBidirectional;
    f.interface.iInterface = 1;
    for (usb_endpoint_descriptor_no_audio* endpoint : {&f.out, &f.in}) {
        endpoint->bLength = sizeof *endpoint;
        endpoint->bDescriptorType = USB_DT_ENDPOINT;
        endpoint->bmAttributes = USB_ENDPOINT_XFER_BULK;
        endpoint->wMaxPacketSize = htole16(packetSize);
    }
    f.out.bEndpointAddress = 1 | USB_DIR_OUT;
    f.in.bEndpointAddress = 2 | USB_DIR_IN;
    return f;
}

struct __attribute__((packed)) Descriptors
{
    usb_functionfs_descs_head_v2 header;
    uint32_t fullSpeedCount;
    uint32_t highSpeedCount;
    Function fullSpeed;
    Function highSpeed;
};

constexpr char kInterfaceName[] = "Printer";

struct __attribute__((packed)) Strings
{
    usb_functionfs_strings_head header;
    uint16_t language;
    char text[sizeof kInterfaceName];
};

void ignoreResult(ssize_t) {}

bool writeWhole(int fd, const void* data, size_t length)
{
    return ::write(fd, data, length) == ssize_t(length);
}

} // namespace

ControlEndpoint::ControlEndpoint(const Identity& identity, Reporter reporter)
    : identity(identity)
    , report(std::move(reporter))
{
}

ControlEndpoint::~ControlEndpoint()
{
    stopping.store(true);
    // The read of the next event blocks; a signal (SIGUSR1, handled without restart by the
    // bulk port) ends it.
    while (worker.joinable() && !done.load()) {
        pthread_kill(worker.native_handle(), SIGUSR1);
        QThread::msleep(10);
    }
    if (worker.joinable())
        worker.join();
    if (fd >= 0)
        ::close(fd);
}

bool ControlEndpoint::open(const QString& functionFsDir, QString* error)
{
    fd = ::open(QFile::encodeName(functionFsDir + "/ep0").constData(), O_RDWR | O_CLOEXEC);
    if (fd < 0) {
        *error = QStringLiteral("cannot open %1/ep0: %2")
                     .arg(functionFsDir, QString::fromLocal8Bit(strerror(errno)));
        return false;
    }
    Descriptors descriptors{};
    descriptors.header.magic = htole32(FUNCTIONFS_DESCRIPTORS_MAGIC_V2);
    descriptors.header.flags = htole32(FUNCTIONFS_HAS_FS_DESC | FUNCTIONFS_HAS_HS_DESC);
    descriptors.header.length = htole32(sizeof descriptors);
    descriptors.fullSpeedCount = htole32(3);
    descriptors.highSpeedCount = htole32(3);
    descriptors.fullSpeed = function(kFullSpeedPacket);
    descriptors.highSpeed = function(kHighSpeedPacket);

    Strings strings{};
    strings.header.magic = htole32(FUNCTIONFS_STRINGS_MAGIC);
    strings.header.length = htole32(sizeof strings);
    strings.header.str_count = htole32(1);
    strings.header.lang_count = htole32(1);
    strings.language = htole16(0x0409);
    memcpy(strings.text, kInterfaceName, sizeof kInterfaceName);

    if (!writeWhole(fd, &descriptors, sizeof descriptors) ||
        !writeWhole(fd, &strings, sizeof strings)) {
        *error = QStringLiteral("FunctionFS refused the descriptors: %1")
                     .arg(QString::fromLocal8Bit(strerror(errno)));
        return false;
    }
    return true;
}

void ControlEndpoint::start()
{
    worker = std::thread([this] {
        serve();
        done.store(true);
    });
}

void ControlEndpoint::serve()
{
    while (!stopping.load()) {
        usb_functionfs_event event{};
        if (::read(fd, &event, sizeof event) != ssize_t(sizeof event))
            continue;
        switch (event.type) {
        case FUNCTIONFS_ENABLE:
            // A new configuration: a sleepy device starts asleep again.
            asleep = identity.wakeProbes > 0;
            probesSinceWake = -1;
            report(QStringLiteral("control: configured by the host"));
            break;
        case FUNCTIONFS_DISABLE:
            report(QStringLiteral("control: unconfigured"));
            break;
        case FUNCTIONFS_SETUP:
            answerSetup(event.u.setup);
            break;
        default:
            break;
        }
    }
}

void ControlEndpoint::answerSetup(const usb_ctrlrequest& setup)
{
    const bool in = setup.bRequestType & USB_DIR_IN;
    const uint8_t type = setup.bRequestType & USB_TYPE_MASK;
    const uint16_t length = le16toh(setup.wLength);
    if (type == USB_TYPE_CLASS && setup.bRequest == kGetDeviceId && in) {
        reply(deviceIdReply(), length);
    } else if (type == USB_TYPE_CLASS && setup.bRequest == kGetPortStatus && in) {
        reply(QByteArray(1, char(kPortStatusSelected)), length);
    } else if (type == USB_TYPE_CLASS && setup.bRequest == kSoftReset && !in) {
        report(QStringLiteral("control: soft reset"));
        acknowledge(in);
    } else if (type == USB_TYPE_VENDOR && setup.bRequest == kRequestExtendedId && in) {
        reply(identity.deviceId + '\0', length);
    } else if (type == USB_TYPE_VENDOR && setup.bRequest == kRequestStatus && in) {
        answerStatus();
    } else if (type == USB_TYPE_VENDOR && setup.bRequest == kRequestWakeup) {
        report(QStringLiteral("control: wake-up request"));
        if (asleep)
            probesSinceWake = 0;
        acknowledge(in);
    } else {
        report(QStringLiteral("control: request 0x%1/0x%2 not understood; stalled")
                   .arg(setup.bRequestType, 2, 16, QLatin1Char('0'))
                   .arg(setup.bRequest, 2, 16, QLatin1Char('0')));
        stall(in);
    }
}

// A sleeping device stalls the probe until the wake-up request and as many probes after it
// as it takes to wake.
void ControlEndpoint::answerStatus()
{
    if (asleep && probesSinceWake >= 0 && ++probesSinceWake >= identity.wakeProbes) {
        asleep = false;
        report(QStringLiteral("control: awake after %1 status probes").arg(probesSinceWake));
    }
    if (asleep) {
        report(QStringLiteral("control: status probe while asleep; stalled"));
        stall(true);
        return;
    }
    QByteArray status(kStatusLength, '\0');
    status[1] = char(identity.statusId >> 16);
    status[2] = char(identity.statusId >> 8);
    status[3] = char(identity.statusId);
    report(QStringLiteral("control: status id %1").arg(identity.statusId, 6, 16, QLatin1Char('0')));
    reply(status, kStatusLength);
}

// The ID with its two-byte big-endian length, which counts itself.
QByteArray ControlEndpoint::deviceIdReply() const
{
    const int total = int(identity.deviceId.size()) + 2;
    QByteArray data;
    data.append(char(total >> 8)).append(char(total & 0xFF)).append(identity.deviceId);
    return data;
}

void ControlEndpoint::reply(const QByteArray& data, uint16_t length)
{
    const size_t count = size_t(qMin(int(length), int(data.size())));
    if (::write(fd, data.constData(), count) < 0)
        report(QStringLiteral("control: reply failed: %1")
                   .arg(QString::fromLocal8Bit(strerror(errno))));
}

// The status stage of a request without data goes the opposite way of its direction bit.
void ControlEndpoint::acknowledge(bool in)
{
    ignoreResult(in ? ::write(fd, nullptr, 0) : ::read(fd, nullptr, 0));
}

// FunctionFS halts endpoint 0 when its data stage is taken in the wrong direction.
void ControlEndpoint::stall(bool in)
{
    ignoreResult(in ? ::read(fd, nullptr, 0) : ::write(fd, nullptr, 0));
}
