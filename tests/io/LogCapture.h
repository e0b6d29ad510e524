#pragma once

#include <QString>

#include <cstdint>

// Collects what the diagnostic log writes to standard error while it lives, at the given
// level, and restores both afterwards.
class LogCapture
{
public:
    explicit LogCapture(uint32_t level = 11);
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    // Everything written so far.
    QString text();

private:
    int savedStderr = -1;
    int fd = -1;
    uint32_t savedLevel;
};
