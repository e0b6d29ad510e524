#pragma once

#include <QByteArray>
#include <QString>

// Writes ink maintenance command blocks (InkCommands) to the printer's data channel: opens
// the device for this one block, writes the zero padding and then the block, each within
// kWriteLimitMs, and closes it again. Blocking: callers run it off the interface thread.
class InkSender
{
public:
    enum class Outcome
    {
        Sent,        // written whole (and, for a scan, answered with success)
        CannotOpen,  // the device could not be opened: gone, or not ours to open
        WriteFailed, // the device did not take the bytes in time
        NoReply,     // a scan was written but its result never arrived whole
        Refused,     // the printer answered that the scan failed
    };

    static constexpr int kWriteLimitMs = 100;
    // Scanning a page takes a real device the better part of a minute.
    static constexpr int kScanLimitMs = 90000;

    explicit InkSender(const QString& devicePath);

    // Write-only: the printer does not answer these blocks.
    Outcome send(const QByteArray& block) const;
    // Writes the block and waits up to limitMs for the printer's verdict.
    Outcome sendAndWait(const QByteArray& block, int limitMs = kScanLimitMs) const;

private:
    QString devicePath;
};
