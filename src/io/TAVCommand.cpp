#include "io/TAVCommand.h"

#include "app/Log.h"

namespace {

constexpr int kDataBytesReported = 8;
constexpr int kCommandBytesShown = 4;

QString shownCommand(const QByteArray& data)
{
    return QString::fromLatin1(data.left(kCommandBytesShown));
}

} // namespace

TAVCommand::TAVCommand(const QByteArray& header, const QByteArray& data, const QString& description)
    : text(description)
{
    ReportBuffer(header.constData(), uint32_t(header.size()), uint32_t(header.size()),
                 "command header: ");
    ReportBuffer(data.constData(), uint32_t(data.size()), kDataBytesReported, "command data: ");
    reserve(header.size() + data.size());
    append(header);
    append(data);
}

void TAVCommand::putBigEndian32(char* target, uint32_t value)
{
    target[0] = char(value >> 24);
    target[1] = char(value >> 16);
    target[2] = char(value >> 8);
    target[3] = char(value);
}

uint32_t TAVCommand::bigEndian32(const char* source)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(source);
    return uint32_t(bytes[0]) << 24 | uint32_t(bytes[1]) << 16 | uint32_t(bytes[2]) << 8 |
           uint32_t(bytes[3]);
}

TAVCommand TAVCommand::tav(const QByteArray& data)
{
    QByteArray header(kTavHeaderSize, '\0');
    header[0] = kEscape;
    header[1] = kTavMarker;
    putBigEndian32(header.data() + 2, uint32_t(data.size()));
    const QString description = QString::asprintf(
        "\n\tstart marker: %s\n\tsize: %u\n\tcmd: <%s>", qPrintable(hexText(header.left(2))),
        unsigned(data.size()), qPrintable(shownCommand(data)));
    return TAVCommand(header, data, description);
}

TAVCommand TAVCommand::ids(uint32_t code, const QByteArray& data)
{
    QByteArray header(kIdsHeaderSize, '\0');
    header[0] = kEscape;
    header[1] = kIdsMarker;
    putBigEndian32(header.data() + 2, code);
    putBigEndian32(header.data() + 6, uint32_t(data.size()));
    const QString description = QString::asprintf(
        "\n\tstart marker: %s\n\tcmd: %s\n\tsize: %u\n\tdata: %s",
        qPrintable(hexText(header.left(2))), qPrintable(hexText(header.mid(2, 4))),
        unsigned(data.size()), qPrintable(shownCommand(data)));
    return TAVCommand(header, data, description);
}
