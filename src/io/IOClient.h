#pragma once

#include "io/IOClientUsbEp0.h"
#include "io/TransferResult.h"
#include "io/UsbDeviceName.h"

#include <QFile>

#include <functional>
#include <memory>

class UsbBulkChannel;

// The printer's data channel: the device file given on the command line, typically a usblp
// character device, or, when the path names a USB device (UsbDeviceName), the bulk endpoints
// of its printer interface; either way with the same exchange rules. Adds logged block transfers
// that can wait for the device in bounded steps, transfers bounded in time, and one
// request/response exchange (`command`) that first wakes the device over the control endpoint.
//
// Every exchange opens and closes the file itself, so no descriptor stays open in between.
class IOClient : public QFile
{
public:
    // Constructing the client already queries the device over the control endpoint.
    explicit IOClient(const QString& devicePath);
    ~IOClient() override;

    // Opens without making a terminal device the controlling terminal of the process: the
    // virtual printer is a pseudo-terminal, and its hang-up must not signal us.
    bool open(OpenMode mode) override;
    using QFile::open;
    void close() override;

    // The device path. QFile forgets its name while it runs on the descriptor opened here.
    const QString& devicePath() const { return path; }
    // Valid when the path names a USB device rather than a device node.
    const UsbDeviceName& usbDevice() const { return usbName; }

    qint64 writeBlock(const char* data, qint64 length);
    qint64 readBlock(char* data, qint64 length);
    // Reads what the device has sent already, without waiting: 0 when nothing is waiting, -1
    // when the read failed or the device went away. Another data channel reads its own way.
    virtual qint64 readPending(char* data, qint64 length);

    // Reads and drops whatever the device sent that nobody read, such as the late reply to an
    // exchange that gave up waiting, so that the next reply read answers the next request.
    // Logs and returns the number of bytes dropped.
    qint64 discardPendingInput();

    // Transfer exactly `length` bytes. A limit of -1 waits for ever; otherwise the transfer
    // fails once `limitMs` milliseconds have passed. A failing block operation (the device
    // went away) ends the transfer at once.
    virtual TransferResult writeWithLimit(const char* data, uint32_t length, int limitMs);
    virtual TransferResult readWithLimit(char* data, uint32_t length, int limitMs);

    // Wakes the device, drops unread input, writes the request and reads `readLength` bytes of
    // response.
    TransferResult command(const char* writeData, uint32_t writeLength, char* readBuffer,
                           uint32_t readLength, int limitMs);

    // Microseconds a block read waits for data; -1 reads blocking.
    int readPollTimeout() const { return readPollUs; }
    void setReadPollTimeout(int microseconds) { readPollUs = microseconds; }
    // Microseconds a block write waits for the device to accept data; -1 writes blocking.
    int writePollTimeout() const { return writePollUs; }
    void setWritePollTimeout(int microseconds) { writePollUs = microseconds; }

    IOClientUsbEp0& ep0() { return usbEp0; }

    // Whether the debug log shows the bytes moved or only their number: documents that may
    // hold passwords are never written to the log.
    bool isContentLogged() const { return contentLogged; }
    void setContentLogged(bool on) { contentLogged = on; }

    // The classic flag word of an open mode (raw 0x40, write 0x02, read 0x01, ...), which
    // the log prints.
    static unsigned classicOpenMode(OpenMode mode);

protected:
    using BlockStep = std::function<qint64(uint32_t done)>;

    // The limit the response read gets after the request took `elapsedMs`; -1 stays -1.
    virtual int limitLeftForRead(int limitMs, uint32_t elapsedMs) const;

    static TransferResult transferWithin(uint32_t length, int limitMs, const BlockStep& step);

private:
    static constexpr qint64 kWouldBlock = -2;

    bool openBulk(OpenMode mode);

    qint64 polled(bool forWriting, int microseconds,
                  const std::function<qint64(int fd)>& operation) const;
    int waitForDescriptor(bool forWriting, int microseconds) const;
    bool hungUp() const;
    qint64 nonBlocking(const std::function<qint64(int fd)>& operation) const;
    bool setNonBlocking(bool on) const;
    static void logResult(const char* what, const TransferResult& result);
    void logReceived(const char* data, qint64 received) const;

    QString path;
    UsbDeviceName usbName;
    std::unique_ptr<UsbBulkChannel> bulk; // set when usbName is valid
    int readPollUs = -1;
    int writePollUs = -1;
    bool contentLogged = true;
    mutable bool nonBlockingMode = false; // the open descriptor's O_NONBLOCK, as last set
    IOClientUsbEp0 usbEp0; // after the settings above: its construction already uses the file
};
