#include "io/IOClient.h"

#include "app/Log.h"
#include "io/IOClientLocker.h"
#include "io/UsbBulkChannel.h"

#include <QElapsedTimer>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int kWakeupTimeoutMs = 5000;
// Stale input is dropped in pieces of this size, and no more than kMaxDiscarded bytes of it: a
// device that never stops sending cannot hold the exchange here.
constexpr qint64 kDiscardChunk = 4096;
constexpr qint64 kMaxDiscarded = 64 * 1024 * 1024;

int openFlags(QIODevice::OpenMode mode)
{
    int flags = O_NOCTTY | O_CLOEXEC;
    if ((mode & QIODevice::ReadWrite) == QIODevice::ReadWrite)
        flags |= O_RDWR;
    else if (mode & QIODevice::WriteOnly)
        flags |= O_WRONLY;
    else
        flags |= O_RDONLY;
    if (mode & QIODevice::Append)
        flags |= O_APPEND;
    if (mode & QIODevice::Truncate)
        flags |= O_TRUNC;
    return flags;
}

uint32_t millisecondsOf(const QElapsedTimer& clock)
{
    return static_cast<uint32_t>(clock.elapsed());
}

} // namespace

IOClient::IOClient(const QString& devicePath)
    : QFile(devicePath)
    , path(devicePath)
    , usbName(UsbDeviceName::parse(devicePath))
    , bulk(usbName.isValid() ? std::make_unique<UsbBulkChannel>(usbName) : nullptr)
    , usbEp0(this)
{
}

// Closed here: QFile's own closing would look for a file that a USB channel never had.
IOClient::~IOClient()
{
    close();
}

bool IOClient::open(OpenMode mode)
{
    if (bulk)
        return openBulk(mode);
    if (isOpen() || path.isEmpty())
        return QFile::open(mode);
    const int fd = ::open(QFile::encodeName(path).constData(), openFlags(mode));
    nonBlockingMode = false;
    if (fd < 0)
        return QFile::open(mode | ExistingOnly); // fails again and records why, creating nothing
    if (QFile::open(fd, mode, QFileDevice::AutoCloseHandle))
        return true;
    ::close(fd);
    return false;
}

bool IOClient::openBulk(OpenMode mode)
{
    if (isOpen())
        return false;
    QString error;
    if (!bulk->open(&error)) {
        setErrorString(error);
        return false;
    }
    return QIODevice::open(mode);
}

void IOClient::close()
{
    if (bulk) {
        bulk->close();
        QIODevice::close();
        return;
    }
    QFile::close();
    nonBlockingMode = false;
    setFileName(path);
}

unsigned IOClient::classicOpenMode(OpenMode mode)
{
    unsigned flags = 0;
    if (mode & QIODevice::ReadOnly)
        flags |= 0x01;
    if (mode & QIODevice::WriteOnly)
        flags |= 0x02;
    if (mode & QIODevice::Append)
        flags |= 0x04;
    if (mode & QIODevice::Truncate)
        flags |= 0x08;
    if (mode & QIODevice::Text)
        flags |= 0x10;
    if (mode & QIODevice::Unbuffered)
        flags |= 0x40;
    return flags;
}

qint64 IOClient::writeBlock(const char* data, qint64 length)
{
    const qint64 written =
        bulk ? bulk->write(data, length, writePollUs)
        : writePollUs == -1
            ? (setNonBlocking(false), write(data, length))
            : polled(true, writePollUs, [&](int fd) { return ::write(fd, data, size_t(length)); });
    if (written > 0 && logLevel >= 11)
        TAV_LOG(11, "I/O: HOST>FW: %s [%d bytes]",
                contentLogged ? qPrintable(hexText(data, int(written))) : "(not logged)",
                int(written));
    return written;
}

qint64 IOClient::readBlock(char* data, qint64 length)
{
    const qint64 received =
        bulk ? bulk->read(data, length, readPollUs)
        : readPollUs == -1
            ? (setNonBlocking(false), read(data, length))
            : polled(false, readPollUs, [&](int fd) { return ::read(fd, data, size_t(length)); });
    logReceived(data, received);
    return received;
}

qint64 IOClient::readPending(char* data, qint64 length)
{
    const qint64 received =
        bulk ? bulk->read(data, length, 0)
             : polled(false, 0, [&](int fd) { return ::read(fd, data, size_t(length)); });
    logReceived(data, received);
    return received;
}

void IOClient::logReceived(const char* data, qint64 received) const
{
    if (received > 0 && logLevel >= 11)
        TAV_LOG(11, "I/O: HOST<FW: %s [%d bytes]",
                contentLogged ? qPrintable(hexText(data, int(received))) : "(not logged)",
                int(received));
}

qint64 IOClient::discardPendingInput()
{
    char buffer[kDiscardChunk];
    qint64 dropped = 0;
    qint64 received = 0;
    while (dropped < kMaxDiscarded && (received = readPending(buffer, kDiscardChunk)) > 0)
        dropped += received;
    if (dropped > 0)
        TAV_LOG(9, "discarded %lld bytes that the device sent before this request",
                static_cast<long long>(dropped));
    return dropped;
}

// One non-blocking transfer that waits up to `microseconds` for the device when it is not
// ready. Bytes already waiting are taken without the wait: polling a terminal first costs a
// context switch per block, which a large specification would pay thousands of times.
// Returns what moved, 0 when the device stayed busy, -1 when it failed or went away.
qint64 IOClient::polled(bool forWriting, int microseconds,
                        const std::function<qint64(int fd)>& operation) const
{
    if (!isOpen())
        return -1;
    qint64 moved = nonBlocking(operation);
    if (moved == kWouldBlock) {
        const int ready = waitForDescriptor(forWriting, microseconds);
        if (ready < 1)
            return ready;
        moved = nonBlocking(operation);
    }
    if (moved == kWouldBlock)
        return 0;
    if (moved == 0 && !forWriting && hungUp())
        return -1; // end of file: the device hung up
    return moved;
}

// Waits like select() would, and also reports a device that went away (hang-up or error
// without data) as -1, so that a vanished device fails at once instead of looking idle.
int IOClient::waitForDescriptor(bool forWriting, int microseconds) const
{
    pollfd descriptor{handle(), short(forWriting ? POLLOUT : POLLIN), 0};
    if (descriptor.fd < 0)
        return -1;
    const int ready = poll(&descriptor, 1, (microseconds + 999) / 1000);
    if (ready < 1)
        return 0;
    if (descriptor.revents & (forWriting ? POLLOUT : POLLIN))
        return 1;
    return (descriptor.revents & (POLLHUP | POLLERR | POLLNVAL)) ? -1 : 0;
}

// Readable but nothing to read: end of file if the device also reports a hang-up.
bool IOClient::hungUp() const
{
    pollfd descriptor{handle(), POLLIN, 0};
    return poll(&descriptor, 1, 0) > 0 && (descriptor.revents & (POLLHUP | POLLERR));
}

// One transfer on the non-blocking descriptor; kWouldBlock when the device was not ready.
qint64 IOClient::nonBlocking(const std::function<qint64(int fd)>& operation) const
{
    if (!setNonBlocking(true))
        return -1;
    qint64 result = operation(handle());
    if (result < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR))
        result = kWouldBlock;
    return result;
}

// The descriptor is switched only when the wanted mode differs from the one it has: a
// transfer of many blocks then pays for the switch once instead of three system calls per
// block, which a pseudo-terminal handing over 4 KiB at a time would make thousands of.
bool IOClient::setNonBlocking(bool on) const
{
    if (nonBlockingMode == on || !isOpen())
        return true;
    const int fd = handle();
    const int flags = fcntl(fd, F_GETFL);
    if (flags < 0 || fcntl(fd, F_SETFL, on ? flags | O_NONBLOCK : flags & ~O_NONBLOCK) < 0)
        return false;
    nonBlockingMode = on;
    return true;
}

TransferResult IOClient::transferWithin(uint32_t length, int limitMs, const BlockStep& step)
{
    TransferResult result;
    if (limitMs == -1) {
        // Waits for ever while the device stays silent, as -1 promises.
        while (result.size < length) {
            const qint64 moved = step(result.size);
            if (moved < 0)
                return result;
            result.size += uint32_t(moved);
        }
        result.ok = true;
        return result;
    }
    QElapsedTimer clock;
    clock.start();
    while (result.size < length) {
        result.elapsed = millisecondsOf(clock);
        if (qint64(result.elapsed) >= limitMs)
            return result;
        const qint64 moved = step(result.size);
        if (moved < 0) {
            result.elapsed = millisecondsOf(clock);
            return result;
        }
        result.size += uint32_t(moved);
    }
    result.elapsed = millisecondsOf(clock);
    result.ok = true;
    return result;
}

TransferResult IOClient::writeWithLimit(const char* data, uint32_t length, int limitMs)
{
    return transferWithin(length, limitMs, [&](uint32_t done) {
        return writeBlock(data + done, qint64(length - done));
    });
}

TransferResult IOClient::readWithLimit(char* data, uint32_t length, int limitMs)
{
    return transferWithin(length, limitMs, [&](uint32_t done) {
        return readBlock(data + done, qint64(length - done));
    });
}

int IOClient::limitLeftForRead(int limitMs, uint32_t elapsedMs) const
{
    if (limitMs == -1)
        return -1;
    return qMax(0, limitMs - int(elapsedMs)); // never -1 by subtraction: that would wait for ever
}

void IOClient::logResult(const char* what, const TransferResult& result)
{
    TAV_LOG(10, "%s\nresult = %s    size = %u bytes    elapsed = %u ms    ", what,
            result.ok ? "OK" : "FAIL", result.size, result.elapsed);
}

TransferResult IOClient::command(const char* writeData, uint32_t writeLength, char* readBuffer,
                                 uint32_t readLength, int limitMs)
{
    TransferResult result;
    if (!usbEp0.wakeup_ensure(kWakeupTimeoutMs))
        TAV_LOG(10, "wakeup failed");

    IOClientLocker locker(this);
    if (!locker.isValid()) {
        TAV_LOG(9, "IOClient::command(): can't open device: <%s> !", qPrintable(path));
        return result;
    }

    discardPendingInput();
    QElapsedTimer clock;
    clock.start();
    result = writeWithLimit(writeData, writeLength, limitMs);
    logResult("IOClient::command(): write command data:", result);
    if (!result.ok)
        return result;

    const int readLimit = limitLeftForRead(limitMs, millisecondsOf(clock));
    result = readWithLimit(readBuffer, readLength, readLimit);
    logResult("IOClient::command(): read response data:", result);
    return result;
}
