#pragma once

#include <QByteArray>

#include <cstdint>
#include <functional>

// One framed command received from the host.
struct PrinterRequest
{
    enum Framing
    {
        Tav,
        Ids,
        Ink // an ink maintenance command block (InkCommands), carried whole in data
    };
    Framing framing = Tav;
    uint32_t code = 0; // IDS command code; 0 for TAV
    QByteArray data;
    int padding = 0; // zero bytes that came right before the command
};

// Cuts the byte stream from the host into framed commands and ink command blocks. Bytes
// that cannot start a command are skipped and reported (zero padding only counted), and a header
// announcing more data than any command needs is dropped, so that a confused host cannot make the
// printer buffer without bound.
class RequestParser
{
public:
    static constexpr uint32_t kMaxDataSize = 64u * 1024u * 1024u;

    using Reporter = std::function<void(const QString&)>;
    explicit RequestParser(Reporter report = Reporter());

    void feed(const char* data, int length);
    // The next complete command, if one has arrived.
    bool next(PrinterRequest& request);
    // Bytes of an incomplete command are waiting.
    bool hasPartial() const { return buffer.size() > offset; }
    void clear();

private:
    bool startsCommand(qsizetype at) const;
    bool skipToMarker();
    bool nextInk(PrinterRequest& request, bool* complete);
    void compact();

    Reporter report;
    QByteArray buffer;
    qsizetype offset = 0;
    int padding = 0;
};
