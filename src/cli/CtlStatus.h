#pragma once

// The exit statuses of tavctl, which scripts test.
enum CtlStatus : int
{
    csDone = 0,
    csUsage = 1,
    csValueRefused = 2,
    csDeviceRefused = 3,
    csUnreachable = 4,
};
