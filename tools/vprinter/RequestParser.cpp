#include "RequestParser.h"

#include "io/InkCommands.h"

#include <QString>

namespace {

constexpr char kEscape = 0x1B;
constexpr int kTavHeader = 6;
constexpr int kIdsHeader = 10;

uint32_t bigEndian32(const char* source)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(source);
    return uint32_t(bytes[0]) << 24 | uint32_t(bytes[1]) << 16 | uint32_t(bytes[2]) << 8 |
           uint32_t(bytes[3]);
}

} // namespace

RequestParser::RequestParser(Reporter report)
    : report(std::move(report))
{
}

void RequestParser::feed(const char* data, int length)
{
    buffer.append(data, length);
}

void RequestParser::clear()
{
    if (hasPartial() && report)
        report(QStringLiteral("dropping %1 bytes of an incomplete request")
                   .arg(buffer.size() - offset));
    buffer.clear();
    offset = 0;
    padding = 0;
}

// ESC '#' or ESC '$' (a settings request), or the ink block marker; a prefix of either at
// the end of the buffer counts, as the rest may still arrive.
bool RequestParser::startsCommand(qsizetype at) const
{
    if (buffer.at(at) == kEscape)
        return at + 1 >= buffer.size() || buffer.at(at + 1) == '#' || buffer.at(at + 1) == '$';
    const qsizetype available = qMin<qsizetype>(InkCommands::kMarkerSize, buffer.size() - at);
    return buffer.mid(at, available) == QByteArray(InkCommands::kMarker).left(available);
}

// Moves to the next command; false when none is complete yet. Zero bytes are padding a host
// sends ahead of ink blocks: counted, not reported.
bool RequestParser::skipToMarker()
{
    qsizetype at = offset;
    qsizetype skipped = 0;
    while (at < buffer.size() && !startsCommand(at)) {
        if (buffer.at(at) == '\0') {
            ++padding;
        } else {
            ++skipped;
            padding = 0;
        }
        ++at;
    }
    if (skipped > 0 && report)
        report(QStringLiteral("ignoring %1 bytes that start no request").arg(at - offset));
    offset = at;
    return buffer.size() - offset >= 2;
}

// An ink block at offset. False with *complete unset when more bytes are needed; a block
// with a bad count is skipped past its marker.
bool RequestParser::nextInk(PrinterRequest& request, bool* complete)
{
    *complete = false;
    if (buffer.size() - offset < InkCommands::kHeaderSize)
        return false;
    const char count = buffer.at(offset + InkCommands::kHeaderSize - 1);
    if (count < '0' || count > '0' + InkCommands::kMaxParameters) {
        if (report)
            report(QStringLiteral("ignoring an ink command with a bad parameter count"));
        offset += InkCommands::kMarkerSize;
        padding = 0;
        *complete = true;
        return false;
    }
    const qsizetype size = InkCommands::kHeaderSize + (count - '0');
    if (buffer.size() - offset < size)
        return false;
    request.framing = PrinterRequest::Ink;
    request.code = 0;
    request.data = buffer.mid(offset, size);
    request.padding = padding;
    padding = 0;
    offset += size;
    *complete = true;
    return true;
}

void RequestParser::compact()
{
    if (offset == buffer.size()) {
        buffer.clear();
        offset = 0;
    } else if (offset > 65536 && offset > buffer.size() / 2) {
        buffer.remove(0, offset);
        offset = 0;
    }
}

bool RequestParser::next(PrinterRequest& request)
{
    while (skipToMarker()) {
        if (buffer.at(offset) != kEscape) {
            bool complete = false;
            if (nextInk(request, &complete)) {
                compact();
                return true;
            }
            if (complete)
                continue;
            return false;
        }
        const bool ids = buffer.at(offset + 1) == '$';
        const int header = ids ? kIdsHeader : kTavHeader;
        if (buffer.size() - offset < header)
            return false;
        const char* start = buffer.constData() + offset;
        const uint32_t length = bigEndian32(start + (ids ? 6 : 2));
        if (length > kMaxDataSize) {
            if (report)
                report(QStringLiteral("ignoring a request that announces %1 bytes").arg(length));
            offset += 2; // look for the next marker behind this one
            continue;
        }
        if (uint64_t(buffer.size() - offset) < uint64_t(header) + length)
            return false;
        request.framing = ids ? PrinterRequest::Ids : PrinterRequest::Tav;
        request.code = ids ? bigEndian32(start + 2) : 0;
        request.data = buffer.mid(offset + header, qsizetype(length));
        request.padding = padding;
        padding = 0;
        offset += header + qsizetype(length);
        compact();
        return true;
    }
    compact();
    return false;
}
