#pragma once

#include "vprinter/PrinterPort.h"

#include <QString>

#include <atomic>
#include <mutex>
#include <pthread.h>
#include <thread>

// The bulk endpoints of a FunctionFS printer function as the virtual printer's port. The
// endpoint files block and cannot be polled, so a thread each moves their bytes through a
// pipe: requests from the OUT endpoint into one, replies from the other onto the IN endpoint.
class FunctionFsPort : public PrinterPort
{
public:
    // `hostPath` only names the printer in reports.
    explicit FunctionFsPort(const QString& hostPath);
    ~FunctionFsPort() override;
    FunctionFsPort(const FunctionFsPort&) = delete;
    FunctionFsPort& operator=(const FunctionFsPort&) = delete;

    // Opens ep1 (OUT) and ep2 (IN) in the FunctionFS folder, once its descriptors are written.
    bool open(const QString& functionFsDir, QString* error);

    int inputDescriptor() const override { return requests[0]; }
    int outputDescriptor() const override { return replies[1]; }
    QString hostPath() const override { return name; }
    void dropUnreadReplies() override;
    // Halts the IN endpoint, so that the host's read fails as when a device is unplugged,
    // and clears it after a while.
    bool hangUp(QString* error) override;

private:
    void receive();
    void send();
    bool replyPending();
    void drainReplies();

    QString name;
    int outFd = -1;
    int inFd = -1;
    int requests[2] = {-1, -1};
    int replies[2] = {-1, -1};
    std::thread receiver;
    std::thread sender;
    pthread_t senderThread{};
    std::mutex sending; // guards taking a chunk from the pipe and `busy`
    bool busy = false;  // the sender holds a chunk it writes to the IN endpoint
    std::atomic<bool> stopping{false};
    std::atomic<int> running{0};
};
