#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

struct usb_ctrlrequest;

// Endpoint 0 of a FunctionFS printer function: describes the function (a printer-class
// interface with one bulk OUT and one bulk IN endpoint) and answers the control requests a
// printer gets: the class request for the IEEE 1284 device ID, port status and soft reset,
// and the vendor requests for the extended device ID, the status id and the wake-up.
class ControlEndpoint
{
public:
    using Reporter = std::function<void(const QString&)>;

    struct Identity
    {
        QByteArray deviceId;   // IEEE 1284 device ID text, also the extended ID
        uint32_t statusId = 0; // the 24-bit id of the status reply
        int wakeProbes = 0;    // 0: always awake; n: asleep until the n-th probe after a wake-up
    };

    ControlEndpoint(const Identity& identity, Reporter reporter);
    ~ControlEndpoint();
    ControlEndpoint(const ControlEndpoint&) = delete;
    ControlEndpoint& operator=(const ControlEndpoint&) = delete;

    // Opens ep0 in the mounted FunctionFS folder and writes the descriptors and strings;
    // afterwards the bulk endpoint files exist and the gadget may be bound.
    bool open(const QString& functionFsDir, QString* error);
    // Serves the control requests on a thread of its own.
    void start();

private:
    void serve();
    void answerSetup(const usb_ctrlrequest& setup);
    void answerStatus();
    void reply(const QByteArray& data, uint16_t length);
    void acknowledge(bool in);
    void stall(bool in);
    QByteArray deviceIdReply() const;

    Identity identity;
    Reporter report;
    int fd = -1;
    bool asleep = false;
    int probesSinceWake = -1; // -1: no wake-up request yet
    std::thread worker;
    std::atomic<bool> stopping{false};
    std::atomic<bool> done{false};
};
