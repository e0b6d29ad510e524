#pragma once

#include "io/IOClient.h"
#include "io/TAVCommand.h"
#include "xml/Capabilities.h"

#include <QElapsedTimer>
#include <QStringList>

class ExchangeProgress;

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

    // How long a reply may take under setTimings(): the first byte of a reply may take
    // `firstByteMs` (a printer waking from deep sleep or busy with a job); once the device
    // answers, the whole exchange ends within `exchangeMs` plus `msPerBlock` for every
    // kDeadlineBlock bytes it moves, so that a device trickling bytes cannot hold it for ever.
    struct ReplyLimits
    {
        int firstByteMs = 30000;
        int exchangeMs = 5000;
        int msPerBlock = 1000;
    };
    static constexpr uint32_t kDeadlineBlock = 16 * 1024;

    // Why the last exchange failed.
    enum class Failure
    {
        None,
        Device,    // not opened, or it went away
        NoAnswer,  // no first byte within the limit
        Stalled,   // no byte moved within the idle limit
        Deadline,  // the exchange as a whole took too long
        Cancelled, // the person waiting stopped it
        Mismatch,  // the reply answers another request
        Refused    // the device answered that it has nothing to give
    };

    TAVClient(const QString& devicePath, const Capabilities* capabilities);

    // The timing the settings dialog runs with: `pollMs` is the longest one read waits for
    // the device before the clock is checked again, `writePollMs` the same for writing, and
    // `idleMs` the time without a single byte moving after which an exchange fails. Every
    // byte moved restarts that clock, so a silent device fails within `idleMs` while a large
    // specification that keeps arriving is never cut off. Without this call every exchange
    // blocks until it completes, however long that takes.
    void setTimings(int pollMs, int writePollMs, int idleMs);
    int timeout() const { return timeoutMs; }
    void setReplyLimits(const ReplyLimits& replyLimits) { limits = replyLimits; }
    // Told when the device is slow to answer, and asked at every step whether to stop.
    void setProgress(ExchangeProgress* exchangeProgress) { progress = exchangeProgress; }

    Failure failure() const { return failed; }
    // The failure in words for the user; empty for None.
    static QString failureText(Failure failure);

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
    // The command's reply when it answers this request; nothing otherwise. `text` for the
    // specification text, short replies otherwise.
    QByteArray request(const TAVCommand& command, uint32_t replyLength, bool text);
    // request() for an exchange that carries a settings document, which may hold passwords:
    // the debug log shows how many bytes moved, not what they were.
    QByteArray documentRequest(const TAVCommand& command, uint32_t replyLength, bool text);
    // A short reply is framed as the request was, and an IDS reply does not name another
    // command; a specification text does not start like a short reply.
    bool answers(const TAVCommand& request, const QByteArray& reply, bool text);
    // Moves `length` bytes under the reply limits; `reply` when they are a reply.
    TransferResult paced(uint32_t length, int idleMs, bool reply, const BlockStep& step);
    Failure stopReason(bool awaitingFirst, qint64 idleElapsed, int idleMs) const;
    void fail(Failure failure);

    int timeoutMs = -1;
    bool ids = false;
    bool idleTimeouts = false; // setTimings() was called: limits count time without progress
    ReplyLimits limits;
    ExchangeProgress* progress = nullptr;
    Failure failed = Failure::None;
    QElapsedTimer exchangeClock; // runs from the start of the current exchange
    qint64 waitedMs = 0;         // of that, spent waiting for the first byte of the reply
    qint64 budgetMs = 0;         // the rest of the exchange ends within this
};
