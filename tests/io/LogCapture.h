#pragma once

#include "../app/StderrCapture.h"

#include "app/Log.h"

// Collects what the diagnostic log writes to standard error at the given level while it
// lives, or until text() is first asked for; restores both afterwards.
struct LogCapture : StderrCapture
{
    explicit LogCapture(uint32_t level = 11) { logLevel = level; }
    ~LogCapture() { logLevel = saved; }
    const uint32_t saved = logLevel;
};
