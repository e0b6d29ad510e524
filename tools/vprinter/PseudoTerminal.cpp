#include "PseudoTerminal.h"

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

QString systemError(const char* what)
{
    return QStringLiteral("%1: %2").arg(QLatin1String(what),
                                        QString::fromLocal8Bit(strerror(errno)));
}

} // namespace

PseudoTerminal::~PseudoTerminal()
{
    close();
}

bool PseudoTerminal::open(QString* error)
{
    close();
    masterFd = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (masterFd < 0) {
        *error = systemError("posix_openpt");
        return false;
    }
    ownMaster = true;
    if (grantpt(masterFd) < 0 || unlockpt(masterFd) < 0) {
        *error = systemError("grantpt/unlockpt");
        close();
        return false;
    }
    return openSlave(error);
}

bool PseudoTerminal::attach(int fd, QString* error)
{
    close();
    masterFd = fd;
    ownMaster = false;
    return openSlave(error);
}

bool PseudoTerminal::openSlave(QString* error)
{
    char name[128];
    if (ptsname_r(masterFd, name, sizeof name) != 0) {
        *error = systemError("ptsname");
        close();
        return false;
    }
    path = QString::fromLocal8Bit(name);
    slaveFd = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slaveFd < 0) {
        *error = systemError("open slave");
        close();
        return false;
    }
    termios settings{};
    if (tcgetattr(slaveFd, &settings) < 0) {
        *error = systemError("tcgetattr");
        close();
        return false;
    }
    cfmakeraw(&settings);
    if (tcsetattr(slaveFd, TCSANOW, &settings) < 0) {
        *error = systemError("tcsetattr");
        close();
        return false;
    }
    const int flags = fcntl(masterFd, F_GETFL);
    fcntl(masterFd, F_SETFL, flags | O_NONBLOCK);
    return true;
}

void PseudoTerminal::close()
{
    removeLink();
    if (slaveFd >= 0)
        ::close(slaveFd);
    if (masterFd >= 0 && ownMaster)
        ::close(masterFd);
    slaveFd = -1;
    masterFd = -1;
    ownMaster = false;
    path.clear();
}

bool PseudoTerminal::link(const QString& linkPath, QString* error)
{
    // A new link is made beside the old one and renamed over it, so the path never dangles.
    const QByteArray target = QFile::encodeName(path);
    const QByteArray name = QFile::encodeName(linkPath);
    const QByteArray temporary = name + ".new";
    ::unlink(temporary.constData());
    if (symlink(target.constData(), temporary.constData()) < 0 ||
        rename(temporary.constData(), name.constData()) < 0) {
        *error = systemError("symlink");
        ::unlink(temporary.constData());
        return false;
    }
    linked = linkPath;
    return true;
}

void PseudoTerminal::removeLink()
{
    if (linked.isEmpty())
        return;
    ::unlink(QFile::encodeName(linked).constData());
    linked.clear();
}

void PseudoTerminal::dropUnreadReplies()
{
    if (slaveFd >= 0)
        tcflush(slaveFd, TCIFLUSH);
}

bool PseudoTerminal::hangUp(QString* error)
{
    const QString linkPath = linked;
    if (!ownMaster) {
        close();
        *error = QStringLiteral("the terminal was made elsewhere");
        return false;
    }
    if (!open(error))
        return false;
    return linkPath.isEmpty() || link(linkPath, error);
}
