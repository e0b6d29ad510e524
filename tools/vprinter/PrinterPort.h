#pragma once

#include <QString>

// The printer's end of its data channel: where requests arrive and replies leave. A
// pseudo-terminal is one; a USB function's bulk endpoints are another.
class PrinterPort
{
public:
    virtual ~PrinterPort() = default;

    // Polls readable when request bytes wait; reading it takes them.
    virtual int inputDescriptor() const = 0;
    // Non-blocking; polls writable when a reply can move on.
    virtual int outputDescriptor() const = 0;
    // Where the host reaches the printer, for reports.
    virtual QString hostPath() const = 0;
    // Drops reply bytes the host never read, so the next exchange starts clean.
    virtual void dropUnreadReplies() = 0;
    // The device goes away in the middle of a reply, as when unplugged, and comes back;
    // false when it cannot come back.
    virtual bool hangUp(QString* error) = 0;
};
