#include "io/InkSender.h"

#include "app/Log.h"
#include "io/IOClient.h"
#include "io/InkCommands.h"

namespace {

// Poll steps short against kWriteLimitMs, so that the limit is what bounds a stuck write.
constexpr int kPollUs = 20000;

// The padding, then the block, each with the write limit. The client is open.
bool writePadded(IOClient& client, const QByteArray& block)
{
    const QByteArray padding(InkCommands::kPaddingSize, '\0');
    const TransferResult zeros = client.writeWithLimit(
        padding.constData(), uint32_t(padding.size()), InkSender::kWriteLimitMs);
    if (!zeros.ok) {
        TAV_LOG(9, "InkSender: padding not written (%u of %d bytes)", zeros.size,
                int(padding.size()));
        return false;
    }
    const TransferResult data =
        client.writeWithLimit(block.constData(), uint32_t(block.size()), InkSender::kWriteLimitMs);
    if (!data.ok)
        TAV_LOG(9, "InkSender: block not written (%u of %d bytes)", data.size, int(block.size()));
    return data.ok;
}

bool openClient(IOClient& client, QIODevice::OpenMode mode)
{
    client.setReadPollTimeout(kPollUs);
    client.setWritePollTimeout(kPollUs);
    if (client.open(mode | QIODevice::Unbuffered))
        return true;
    TAV_LOG(9, "InkSender: can't open device '%s': %s", qPrintable(client.devicePath()),
            qPrintable(client.errorString()));
    return false;
}

} // namespace

InkSender::InkSender(const QString& devicePath)
    : devicePath(devicePath)
{
}

InkSender::Outcome InkSender::send(const QByteArray& block) const
{
    TAV_LOG(9, "InkSender::send(%s)", block.constData());
    IOClient client(devicePath);
    if (!openClient(client, QIODevice::WriteOnly))
        return Outcome::CannotOpen;
    const bool written = writePadded(client, block);
    client.close();
    return written ? Outcome::Sent : Outcome::WriteFailed;
}

InkSender::Outcome InkSender::sendAndWait(const QByteArray& block, int limitMs) const
{
    TAV_LOG(9, "InkSender::sendAndWait(%s)", block.constData());
    IOClient client(devicePath);
    if (!openClient(client, QIODevice::ReadWrite))
        return Outcome::CannotOpen;
    client.discardPendingInput(); // the verdict read next is this block's
    if (!writePadded(client, block)) {
        client.close();
        return Outcome::WriteFailed;
    }
    QByteArray reply(InkCommands::kReplySize, '\0');
    const TransferResult read = client.readWithLimit(reply.data(), uint32_t(reply.size()), limitMs);
    client.close();
    if (!read.ok) {
        TAV_LOG(9, "InkSender: no verdict (%u of %d bytes)", read.size, int(reply.size()));
        return Outcome::NoReply;
    }
    TAV_LOG(9, "InkSender: verdict '%s'", reply.constData());
    if (reply == InkCommands::kScanDone)
        return Outcome::Sent;
    return reply == InkCommands::kScanFailed ? Outcome::Refused : Outcome::NoReply;
}
