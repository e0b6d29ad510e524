#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

// The bytes of one framed settings command, with a readable rendering of its header for the
// log. Building one reports the header and the first data bytes as a buffer dump.
class TAVCommand : public QByteArray
{
public:
    static constexpr char kEscape = 0x1B;
    static constexpr char kTavMarker = '#';
    static constexpr char kIdsMarker = '$';
    static constexpr int kTavHeaderSize = 6;
    static constexpr int kIdsHeaderSize = 10;

    // IDS command codes.
    static constexpr uint32_t kIdsSpecificationSize = 0xF5000000;
    static constexpr uint32_t kIdsSpecificationText = 0xF5010000;
    static constexpr uint32_t kIdsApplyChanges = 0xF5020000;

    TAVCommand(const QByteArray& header, const QByteArray& data, const QString& description);

    // ESC '#', 32-bit length, data.
    static TAVCommand tav(const QByteArray& data);
    // ESC '$', 32-bit command code, 32-bit length, data.
    static TAVCommand ids(uint32_t code, const QByteArray& data = QByteArray());

    const QString& description() const { return text; }

    static void putBigEndian32(char* target, uint32_t value);
    static uint32_t bigEndian32(const char* source);

private:
    QString text;
};
