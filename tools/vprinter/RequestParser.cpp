#include "RequestParser.h"

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
}

// Moves to the next ESC '#' or ESC '$'; false when none is complete yet.
bool RequestParser::skipToMarker()
{
    qsizetype at = offset;
    while (at < buffer.size()) {
        if (buffer.at(at) == kEscape &&
            (at + 1 >= buffer.size() || buffer.at(at + 1) == '#' || buffer.at(at + 1) == '$'))
            break;
        ++at;
    }
    if (at > offset && report)
        report(QStringLiteral("ignoring %1 bytes that start no request").arg(at - offset));
    offset = at;
    return buffer.size() - offset >= 2;
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
        offset += header + qsizetype(length);
        compact();
        return true;
    }
    compact();
    return false;
}
