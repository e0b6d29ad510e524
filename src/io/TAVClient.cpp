#include "io/TAVClient.h"

#include "app/Log.h"
#include "io/ExchangeProgress.h"

#include <QCoreApplication>

namespace {

constexpr uint8_t kVendorIn = 0xC1;
constexpr uint8_t kRequestExtendedId = 0xE0;
constexpr uint16_t kExtendedIdValue = 0x0100;
constexpr uint16_t kExtendedIdLength = 255;

const QByteArray kAllQuery("ALL?");
const QByteArray kDataQuery("DATA");

// A device's text up to its first NUL, one character per byte.
QString specificationText(const QByteArray& reply)
{
    const int nul = reply.indexOf('\0');
    return QString::fromLatin1(nul < 0 ? reply : reply.left(nul));
}

} // namespace

TAVClient::TAVClient(const QString& devicePath, const Capabilities* capabilities)
    : IOClient(devicePath)
{
    TAV_LOG(10, "TAVClient::TAVClient(%s)", qPrintable(devicePath));
    const QByteArray extendedId = ep0().getData(kVendorIn, kRequestExtendedId, kExtendedIdValue, 0,
                                                kExtendedIdLength, IOClientUsbEp0::kTimeoutMs);
    const QString text = specificationText(extendedId);
    TAV_LOG(10, "\textDevID: <%s>", qPrintable(text));
    const bool idsCapable = capabilities ? capabilities->ids : Capabilities().ids;
    ids = commandSets(text).contains(QStringLiteral("IDS")) && idsCapable;
}

QStringList TAVClient::commandSets(const QString& extendedId)
{
    const QStringList fields = extendedId.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (const QString& field : fields) {
        const int colon = field.indexOf(QLatin1Char(':'));
        if (colon < 0 || field.left(colon) != QLatin1String("CMD"))
            continue;
        return field.mid(colon + 1).split(QLatin1Char(','));
    }
    return QStringList();
}

void TAVClient::setTimings(int pollMs, int writePollMs, int idleMs)
{
    setReadPollTimeout(pollMs < 0 ? -1 : pollMs * 1000);
    setWritePollTimeout(writePollMs < 0 ? -1 : writePollMs * 1000);
    timeoutMs = idleMs;
    idleTimeouts = true;
}

TransferResult TAVClient::writeWithLimit(const char* data, uint32_t length, int limitMs)
{
    if (!idleTimeouts || limitMs == -1)
        return IOClient::writeWithLimit(data, length, limitMs);
    return paced(length, limitMs, false,
                 [&](uint32_t done) { return writeBlock(data + done, qint64(length - done)); });
}

TransferResult TAVClient::readWithLimit(char* data, uint32_t length, int limitMs)
{
    if (!idleTimeouts || limitMs == -1)
        return IOClient::readWithLimit(data, length, limitMs);
    return paced(length, limitMs, true,
                 [&](uint32_t done) { return readBlock(data + done, qint64(length - done)); });
}

TransferResult TAVClient::paced(uint32_t length, int idleMs, bool reply, const BlockStep& step)
{
    TransferResult result;
    QElapsedTimer clock;
    QElapsedTimer idle;
    clock.start();
    idle.start();
    bool toldWaiting = false;
    while (result.size < length && failed == Failure::None) {
        const bool awaitingFirst = reply && result.size == 0;
        const Failure stop = stopReason(awaitingFirst, idle.elapsed(), idleMs);
        if (stop != Failure::None) {
            fail(stop);
            break;
        }
        if (awaitingFirst && !toldWaiting && progress && idle.elapsed() >= idleMs) {
            progress->waitingForAnswer();
            toldWaiting = true;
        }
        const qint64 moved = step(result.size);
        if (moved < 0) {
            fail(Failure::Device);
        } else if (moved > 0) {
            if (awaitingFirst)
                waitedMs += idle.elapsed();
            result.size += uint32_t(moved);
            idle.restart();
        }
    }
    result.elapsed = uint32_t(clock.elapsed());
    result.ok = result.size == length;
    return result;
}

TAVClient::Failure TAVClient::stopReason(bool awaitingFirst, qint64 idleElapsed, int idleMs) const
{
    if (progress && progress->cancelled())
        return Failure::Cancelled;
    if (awaitingFirst)
        return idleElapsed >= qMax(idleMs, limits.firstByteMs) ? Failure::NoAnswer : Failure::None;
    if (idleElapsed >= idleMs)
        return Failure::Stalled;
    const bool late = exchangeClock.isValid() && exchangeClock.elapsed() - waitedMs >= budgetMs;
    return late ? Failure::Deadline : Failure::None;
}

void TAVClient::fail(Failure failure)
{
    failed = failure;
    switch (failure) {
    case Failure::NoAnswer:
        TAV_LOG(9, "no answer from the device within %d ms", qMax(timeoutMs, limits.firstByteMs));
        break;
    case Failure::Stalled:
        TAV_LOG(9, "the device moved no byte for %d ms", timeoutMs);
        break;
    case Failure::Deadline:
        TAV_LOG(9, "the exchange took longer than its deadline of %lld ms; ended",
                static_cast<long long>(budgetMs));
        break;
    case Failure::Cancelled:
        TAV_LOG(9, "the exchange was cancelled");
        break;
    case Failure::Mismatch:
        TAV_LOG(9, "the reply does not answer this request; refused");
        break;
    case Failure::Refused:
    case Failure::Device:
    case Failure::None:
        break;
    }
}

QString TAVClient::failureText(Failure failure)
{
    switch (failure) {
    case Failure::None:
        return QString();
    case Failure::Device:
        return QCoreApplication::translate("TAVClient", "The printer could not be reached.");
    case Failure::NoAnswer:
        return QCoreApplication::translate("TAVClient", "The printer did not answer.");
    case Failure::Stalled:
        return QCoreApplication::translate("TAVClient",
                                           "The printer stopped in the middle of its answer.");
    case Failure::Deadline:
        return QCoreApplication::translate("TAVClient",
                                           "The printer took too long to answer; it was stopped.");
    case Failure::Cancelled:
        return QCoreApplication::translate("TAVClient", "The exchange was cancelled.");
    case Failure::Mismatch:
        return QCoreApplication::translate("TAVClient",
                                           "The printer's answer did not match the request.");
    case Failure::Refused:
        return QCoreApplication::translate("TAVClient", "The printer refused the request.");
    }
    return QString();
}

// The request that was just written moved bytes, so the response starts with a fresh clock.
int TAVClient::limitLeftForRead(int limitMs, uint32_t elapsedMs) const
{
    return idleTimeouts ? limitMs : IOClient::limitLeftForRead(limitMs, elapsedMs);
}

QByteArray TAVClient::command(const TAVCommand& command, uint32_t replyLength)
{
    QByteArray reply(qsizetype(replyLength), Qt::Uninitialized);
    TAV_LOG(10, "I/O: Host -> FW:%s", qPrintable(command.description()));
    failed = Failure::None;
    waitedMs = 0;
    budgetMs = limits.exchangeMs + qint64(limits.msPerBlock) *
                                       ((qint64(command.size()) + replyLength) / kDeadlineBlock);
    exchangeClock.start();
    const TransferResult result = IOClient::command(command.constData(), uint32_t(command.size()),
                                                    reply.data(), replyLength, timeoutMs);
    if (!result.ok && failed == Failure::None)
        fail(Failure::Device);
    return result.ok ? reply : QByteArray();
}

QByteArray TAVClient::request(const TAVCommand& command, uint32_t replyLength, bool text)
{
    const QByteArray reply = this->command(command, replyLength);
    return reply.isEmpty() || answers(command, reply, text) ? reply : QByteArray();
}

QByteArray TAVClient::documentRequest(const TAVCommand& command, uint32_t replyLength, bool text)
{
    const bool logged = isContentLogged();
    setContentLogged(false);
    const QByteArray reply = request(command, replyLength, text);
    setContentLogged(logged);
    return reply;
}

bool TAVClient::answers(const TAVCommand& request, const QByteArray& reply, bool text)
{
    const char marker = request.at(1);
    const bool framed =
        reply.size() >= 2 && reply.at(0) == TAVCommand::kEscape && reply.at(1) == marker;
    bool matches = text ? !framed : framed;
    if (matches && !text && marker == TAVCommand::kIdsMarker && reply.size() >= 6) {
        const uint32_t code = TAVCommand::bigEndian32(reply.constData() + 2);
        const bool named = code == TAVCommand::kIdsSpecificationSize ||
                           code == TAVCommand::kIdsSpecificationText ||
                           code == TAVCommand::kIdsApplyChanges;
        matches = !named || code == TAVCommand::bigEndian32(request.constData() + 2);
    }
    if (!matches)
        fail(Failure::Mismatch);
    return matches;
}

bool TAVClient::sizeAcceptable(uint32_t size)
{
    if (size <= kMaxSpecificationSize)
        return true;
    TAV_LOG(9, "announced specification size %u exceeds the limit of %u bytes; refused", size,
            kMaxSpecificationSize);
    return false;
}

QString TAVClient::fetchSpecification(bool idsFraming)
{
    const int sizeReplyLength = idsFraming ? kIdsReplySize : kTavReplySize;
    const QByteArray sizeReply =
        request(idsFraming ? TAVCommand::ids(TAVCommand::kIdsSpecificationSize)
                           : TAVCommand::tav(kAllQuery),
                uint32_t(sizeReplyLength), false);
    if (sizeReply.size() < sizeReplyLength) {
        TAV_LOG(9, "\twrong size of response %d", int(sizeReply.size()));
        return QString();
    }
    const uint32_t size = TAVCommand::bigEndian32(sizeReply.constData() + (idsFraming ? 6 : 2));
    if (size == 0) {
        if (idsFraming)
            TAV_LOG(9, "TAVClient::getSpecification_ids(): size of buffer is 0!");
        else
            TAV_LOG(9, "TAVClient::getSpecification_tav(): size of buffer is 0!");
        fail(Failure::Refused);
        return QString();
    }
    if (!sizeAcceptable(size))
        return QString();
    return specificationText(
        documentRequest(idsFraming ? TAVCommand::ids(TAVCommand::kIdsSpecificationText)
                                   : TAVCommand::tav(kDataQuery),
                        size, true));
}

QString TAVClient::getSpecification_tav()
{
    TAV_LOG(10, "TAVClient::getSpecification_tav()");
    return fetchSpecification(false);
}

bool TAVClient::setChanges_tav(const QString& changes)
{
    TAV_LOG(10, "TAVClient::setChanges_tav()");
    if (changes.isEmpty())
        return false;
    const QByteArray reply =
        documentRequest(TAVCommand::tav(changes.toUtf8()), kTavReplySize, false);
    if (reply.size() < kTavReplySize) {
        TAV_LOG(9, "\twrong size of response %d", int(reply.size()));
        return false;
    }
    return reply.at(7) == 0; // the TAV framing reports acceptance as 0
}

QString TAVClient::getSpecification_ids()
{
    TAV_LOG(10, "TAVClient::getSpecification_ids()");
    return fetchSpecification(true);
}

bool TAVClient::setChanges_ids(const QString& changes)
{
    TAV_LOG(10, "TAVClient::setChanges_ids()");
    if (changes.isEmpty())
        return false;
    const QByteArray reply = documentRequest(
        TAVCommand::ids(TAVCommand::kIdsApplyChanges, changes.toUtf8()), kIdsReplySize, false);
    if (reply.size() >= kIdsReplySize)
        return reply.at(9) != 0; // the IDS framing reports acceptance as non-zero
    TAV_LOG(9, "\twrong size of response %d", int(reply.size()));
    return false;
}
