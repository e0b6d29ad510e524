#include "usbgadget/FunctionFsPort.h"

#include <QFile>
#include <QThread>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <linux/usb/functionfs.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

// The high-speed bulk packet size of dummy_hcd's ports; reads of one packet each never wait
// for a transfer's end, and a reply that ends on a packet boundary needs a zero-length packet.
constexpr int kPacketSize = 512;
constexpr int kChunk = 65536;
constexpr int kReplyPipeSize = 1 << 20;
constexpr int kRetryMs = 50;
// How long the endpoint stays halted when the device "hangs up".
constexpr int kHangUpMs = 1000;
constexpr int kDrainWaitMs = 3000;

void onInterrupt(int) {}

// A signal that interrupts a blocking endpoint write without ending the process: the kernel
// then cancels the transfer in flight.
void installInterrupt()
{
    struct sigaction action
    {
    };
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGUSR1, &action, nullptr); // no SA_RESTART: the write returns EINTR
}

QString systemError(const QString& what)
{
    return QStringLiteral("%1: %2").arg(what, QString::fromLocal8Bit(strerror(errno)));
}

} // namespace

FunctionFsPort::FunctionFsPort(const QString& hostPath)
    : name(hostPath)
{
}

FunctionFsPort::~FunctionFsPort()
{
    stopping.store(true);
    // A signal ends a blocking endpoint or pipe call; it is repeated in case one came just
    // before the call.
    while (running.load() > 0) {
        pthread_kill(receiver.native_handle(), SIGUSR1);
        pthread_kill(sender.native_handle(), SIGUSR1);
        QThread::msleep(10);
    }
    if (receiver.joinable())
        receiver.join();
    if (sender.joinable())
        sender.join();
    for (int fd : {outFd, inFd, requests[0], requests[1], replies[0], replies[1]}) {
        if (fd >= 0)
            ::close(fd);
    }
}

bool FunctionFsPort::open(const QString& functionFsDir, QString* error)
{
    outFd = ::open(QFile::encodeName(functionFsDir + "/ep1").constData(), O_RDWR | O_CLOEXEC);
    inFd = ::open(QFile::encodeName(functionFsDir + "/ep2").constData(), O_RDWR | O_CLOEXEC);
    if (outFd < 0 || inFd < 0) {
        *error = systemError(QStringLiteral("cannot open the bulk endpoints in ") + functionFsDir);
        return false;
    }
    if (pipe2(requests, O_CLOEXEC | O_NONBLOCK) < 0 || pipe2(replies, O_CLOEXEC | O_NONBLOCK) < 0) {
        *error = systemError(QStringLiteral("pipe"));
        return false;
    }
    fcntl(replies[1], F_SETPIPE_SZ, kReplyPipeSize);
    installInterrupt();
    running.store(2);
    receiver = std::thread([this] {
        receive();
        --running;
    });
    sender = std::thread([this] {
        send();
        --running;
    });
    senderThread = sender.native_handle();
    return true;
}

// Host to device: one packet per read, passed on whole.
void FunctionFsPort::receive()
{
    char buffer[kPacketSize];
    while (!stopping.load()) {
        const ssize_t count = ::read(outFd, buffer, sizeof buffer);
        if (count <= 0) {
            // Not configured, or unplugged: wait for the host to come back.
            QThread::msleep(kRetryMs);
            continue;
        }
        ssize_t done = 0;
        while (done < count) {
            const ssize_t written = ::write(requests[1], buffer + done, size_t(count - done));
            if (written > 0)
                done += written;
            else if (errno == EAGAIN)
                QThread::msleep(1);
            else
                break;
        }
    }
}

// Device to host: whatever the printer wrote, in chunks as large as the pipe gives. A chunk
// is taken under the lock, so a drop either finds it still in the pipe or being sent.
void FunctionFsPort::send()
{
    static char buffer[kChunk];
    while (!stopping.load()) {
        pollfd ready{replies[0], POLLIN, 0};
        if (poll(&ready, 1, kRetryMs) <= 0)
            continue;
        ssize_t count;
        {
            std::lock_guard<std::mutex> lock(sending);
            count = ::read(replies[0], buffer, sizeof buffer);
            busy = count > 0;
        }
        if (count <= 0)
            continue;
        ssize_t written = ::write(inFd, buffer, size_t(count));
        if (written == count && count % kPacketSize == 0 && !replyPending())
            written = ::write(inFd, buffer, 0) == 0 ? count : -1;
        std::lock_guard<std::mutex> lock(sending);
        busy = false;
        if (written != count) {
            // The host went away or the reply was dropped: the rest of it is stale.
            drainReplies();
        }
    }
}

bool FunctionFsPort::replyPending()
{
    pollfd pending{replies[0], POLLIN, 0};
    return poll(&pending, 1, 0) > 0;
}

void FunctionFsPort::drainReplies()
{
    char buffer[4096];
    while (replyPending() && ::read(replies[0], buffer, sizeof buffer) > 0) {
    }
}

void FunctionFsPort::dropUnreadReplies()
{
    std::lock_guard<std::mutex> lock(sending);
    drainReplies();
    if (busy)
        pthread_kill(senderThread, SIGUSR1);
}

bool FunctionFsPort::hangUp(QString* error)
{
    // What was written before the hang-up reaches the host first, as on a terminal.
    for (int waited = 0; waited < kDrainWaitMs; waited += kRetryMs) {
        {
            std::lock_guard<std::mutex> lock(sending);
            if (!busy && !replyPending())
                break;
        }
        QThread::msleep(kRetryMs);
    }
    dropUnreadReplies();
    char byte;
    // Reading an IN endpoint is the wrong direction: FunctionFS halts it.
    if (::read(inFd, &byte, 1) >= 0 || errno != EBADMSG) {
        *error = QStringLiteral("the IN endpoint did not halt");
        return false;
    }
    QThread::msleep(kHangUpMs);
    if (ioctl(inFd, FUNCTIONFS_CLEAR_HALT) < 0) {
        *error = systemError(QStringLiteral("cannot clear the halt"));
        return false;
    }
    return true;
}
