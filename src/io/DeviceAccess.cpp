#include "io/DeviceAccess.h"

#include <QCoreApplication>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

QString DeviceAccess::permissionProblem(const QString& node)
{
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
