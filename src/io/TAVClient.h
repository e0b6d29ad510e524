#pragma once

#include "io/IOClient.h"
#include "io/TAVCommand.h"
#include "xml/Capabilities.h"

#include <QStringList>

// The device's settings channel: fetches the settings specification and sends change
// documents back, each command one write followed by one read of an announced length.
// The framing (TAV or IDS) is chosen once, from the extended device ID and the model's
// capability.
class TAVClient : public IOClient
{
public:
    // Largest specification accepted from a device, the same cap the XML reader applies:
    // a bigger announcement is refused before anything is allocated.
    static constexpr uint32_t kMaxSpecificationSize = 64u * 1024u * 1024u;
    static constexpr int kTavReplySize = 8;
    static constexpr int kIdsReplySize = 10;

    TAVClient(const QString& devicePath, const Capabilities* capabilities);

    // The timing the settings dialog runs with: `pollMs` is the longest one read waits for
    // the device before the clock is checked again, `writePollMs` the same for writing, and
    // `idleMs` the time without a single byte moving after which an exchange fails. Every
    // byte moved restarts that clock, so a silent device fails within `idleMs` while a large
    // specification that keeps arriving is never cut off. Without this call every exchange
    // blocks until it completes, however long that takes.
    void setTimings(int pollMs, int writePollMs, int idleMs);
    int timeout() const { return timeoutMs; }

    bool useIds() const { return ids; }

    QString getSpecification_tav();
    bool setChanges_tav(const QString& changes);
    QString getSpecification_ids();
    bool setChanges_ids(const QString& changes);

    // Sends a command and returns exactly `replyLength` bytes, or nothing on failure.
    QByteArray command(const TAVCommand& command, uint32_t replyLength);

    // The command-set names of the CMD field of an extended device ID.
    static QStringList commandSets(const QString& extendedId);

    TransferResult writeWithLimit(const char* data, uint32_t length, int limitMs) override;
    TransferResult readWithLimit(char* data, uint32_t length, int limitMs) override;

protected:
    int limitLeftForRead(int limitMs, uint32_t elapsedMs) const override;

private:
    // Asks for the size, then for that many bytes of text.
    QString fetchSpecification(bool idsFraming);
    static bool sizeAcceptable(uint32_t size);

    int timeoutMs = -1;
    bool ids = false;
    bool idleTimeouts = false; // setTimings() was called: limits count time without progress
};
