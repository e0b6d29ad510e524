#pragma once

#include "../app/StderrCapture.h"

#include "Log.h"

// Collects what the diagnostic log writes to standard error at the given level while it
// lives, or until text() is first asked for; restores both afterwards.
class LogCapture : public StderrCapture
{
public:
    explicit LogCapture(uint32_t level = 11)
        : savedLevel(logLevel)
    {
        logLevel = level;
    }
    ~LogCapture() { logLevel = savedLevel; }

private:
    uint32_t savedLevel;
};
