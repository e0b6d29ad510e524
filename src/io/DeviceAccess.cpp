#include "io/DeviceAccess.h"

#include "io/UsbContext.h"
#include "io/UsbDeviceName.h"

#include <QCoreApplication>
#include <QFile>

#include <libusb.h>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

// The file to open: the path itself, or the usbfs node of the USB device it names.
QString DeviceAccess::nodeOf(const QString& path)
{
    const UsbDeviceName name = UsbDeviceName::parse(path);
    if (!name.isValid())
        return path;
    libusb_device* device = UsbContext::find(name);
    if (!device)
        return QString();
    const QString node = UsbContext::nodePath(device);
    libusb_unref_device(device);
    return node;
}

QString DeviceAccess::permissionProblem(const QString& path)
{
    const QString node = nodeOf(path);
    if (node.isEmpty())
        return {};
    // Opened rather than asked with access(), which answers for the real user id and misses
    // what the opening itself meets (a security module, a redirected /dev).
    const int fd = ::open(QFile::encodeName(node).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (fd >= 0) {
        ::close(fd);
        return {};
    }
    if (errno != EACCES && errno != EPERM)
        return {};
    return QCoreApplication::translate(
               "DeviceAccess",
               "No permission to open %1: install Tavolor's udev rule (it comes with the "
               "package) or add your user to the \"lp\" group, then plug the printer in again.")
        .arg(node);
}
