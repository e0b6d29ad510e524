#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

// Process-wide diagnostic threshold: a message is written when its level is at most this.
// 9 shows the program's ordinary messages; the "debug" keyword raises it to 11, which also
// turns on the time/process/location prefix of every line.
extern uint32_t logLevel;

// Base names of the Qt translations installed at start-up; null-terminated.
extern const char* const translationNames[];

constexpr uint32_t kDefaultLogLevel = 9;
constexpr uint32_t kDebugLogLevel = 11;

// Writes one line to standard error. Formats into a fixed stack buffer: no heap allocation,
// and nothing is formatted when the level is filtered out.
void log(uint32_t level, const char* function, int line, const char* file, const char* format, ...)
    __attribute__((format(printf, 5, 6)));

// Logs at level 9: title, then "[0xNN]" for each of the first min(length, shown) bytes, then
// " ... shown from length" when bytes were left out.
void ReportBuffer(const void* data, uint32_t length, uint32_t shown, const char* title);

// Two uppercase hex digits per byte; from 17 bytes on only the first 16 and "...".
QString hexText(const void* data, int length);
QString hexText(const QByteArray& data);

// Two lowercase hex digits per byte, all bytes.
QByteArray hexByteString(const void* data, int length);
QByteArray hexByteString(const QByteArray& data);

// Ad-hoc tracing aids, kept for bench work on a device; nothing in the program calls them.
void traceToFile(const char* format, ...) __attribute__((format(printf, 1, 2)));
void traceToStdout(const char* format, ...) __attribute__((format(printf, 1, 2)));

// The file name part of a source path, so that log prefixes stay short.
constexpr const char* sourceFileName(const char* path)
{
    const char* name = path;
    for (const char* p = path; *p; ++p) {
        if (*p == '/')
            name = p + 1;
    }
    return name;
}

#define TAV_LOG(level, ...)                                                                        \
    ::log((level), __func__, __LINE__, sourceFileName(__FILE__), __VA_ARGS__)

// Assertions report and let the program go on.
#define TAV_ASSERT(cond)                                                                           \
    do {                                                                                           \
        if (!(cond))                                                                               \
            ::log(9, __func__, __LINE__, sourceFileName(__FILE__), "ASSERT: \"%s\" in %s (%d)",    \
                  #cond, sourceFileName(__FILE__), __LINE__);                                      \
    } while (0)

// For assertion texts that must read exactly as written rather than as the expression.
#define TAV_ASSERT_TEXT(cond, text)                                                                \
    do {                                                                                           \
        if (!(cond))                                                                               \
            ::log(9, __func__, __LINE__, sourceFileName(__FILE__), "ASSERT: \"%s\" in %s (%d)",    \
                  text, sourceFileName(__FILE__), __LINE__);                                       \
    } while (0)
