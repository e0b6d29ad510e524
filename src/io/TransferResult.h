#pragma once

#include <cstdint>

// Outcome of a bounded transfer or of one request/response exchange: whether all bytes
// moved, how many did, and how long it took.
struct TransferResult
{
    bool ok = false;
    uint32_t size = 0;    // bytes transferred
    uint32_t elapsed = 0; // milliseconds spent
};
