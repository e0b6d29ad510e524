#pragma once

#include <QString>

// The program's own client fetching the specification, as at start-up: size request,
// wake-ups and text.
class ClientFetch
{
public:
    // Milliseconds for one fetch from the device at `path`, giving up after `idleLimitMs`
    // without a byte; -1 when the text is not `expectedSize` characters long.
    static double milliseconds(const QString& path, int expectedSize, int idleLimitMs);
};
