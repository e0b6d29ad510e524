#pragma once

#include "app/Log.h"

// For per-element traces on hot paths: the arguments (often string conversions) are only
// evaluated when the line will be written.
#define TAV_TRACE(level, ...)                                                                      \
    do {                                                                                           \
        if ((level) <= logLevel)                                                                   \
            TAV_LOG(level, __VA_ARGS__);                                                           \
    } while (0)
