#include "io/TAVClient.h"

#include "app/Log.h"

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
    if (!idleTimeouts)
        return IOClient::writeWithLimit(data, length, limitMs);
    return transferWhileMoving(length, limitMs, [&](uint32_t done) {
        return writeBlock(data + done, qint64(length - done));
    });
}

TransferResult TAVClient::readWithLimit(char* data, uint32_t length, int limitMs)
{
    if (!idleTimeouts)
        return IOClient::readWithLimit(data, length, limitMs);
    return transferWhileMoving(length, limitMs, [&](uint32_t done) {
        return readBlock(data + done, qint64(length - done));
    });
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
    const TransferResult result = IOClient::command(command.constData(), uint32_t(command.size()),
                                                    reply.data(), replyLength, timeoutMs);
    return result.ok ? reply : QByteArray();
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
        command(idsFraming ? TAVCommand::ids(TAVCommand::kIdsSpecificationSize)
                           : TAVCommand::tav(kAllQuery),
                uint32_t(sizeReplyLength));
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
        return QString();
    }
    if (!sizeAcceptable(size))
        return QString();
    return specificationText(command(idsFraming ? TAVCommand::ids(TAVCommand::kIdsSpecificationText)
                                                : TAVCommand::tav(kDataQuery),
                                     size));
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
    const QByteArray reply = command(TAVCommand::tav(changes.toUtf8()), kTavReplySize);
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
    const QByteArray reply =
        command(TAVCommand::ids(TAVCommand::kIdsApplyChanges, changes.toUtf8()), kIdsReplySize);
    if (reply.size() >= kIdsReplySize)
        return reply.at(9) != 0; // the IDS framing reports acceptance as non-zero
    TAV_LOG(9, "\twrong size of response %d", int(reply.size()));
    return false;
}
