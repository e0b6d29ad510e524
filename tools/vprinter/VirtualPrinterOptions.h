#pragma once

#include <QString>

#include <cstdint>

// How the virtual printer behaves: what it serves, where it keeps its state, and which
// faults of a real device it imitates.
struct VirtualPrinterOptions
{
    QString specificationFile; // the settings specification served
    QString stateFile;         // the changed copy; served instead when it exists
    QString linkPath;          // a stable symlink to the device path, when set
    bool ids = false;          // speak the IDS framing instead of the TAV framing

    // Faults.
    bool mute = false;          // read requests but never answer
    bool shortReplies = false;  // send only the first half of every reply
    bool rejectChanges = false; // reject every change document
    int bytesPerSecond = 0;     // pace replies; 0 sends at full speed
    int lateFirstMs = 0;        // answer the first request only after this many ms
    bool hangUp = false;        // hang up in the middle of the specification text
    uint32_t announcedSize = 0; // announce this size instead of the real one; 0: the real one
    bool brokenXml = false;     // serve the specification cut in half
    bool garbage = false;       // answer with random bytes instead of a reply header
    bool inkFail = false;       // refuse every ink maintenance command; a scan reports failure
};
