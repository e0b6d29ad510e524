#include "app/Log.h"

#include <QTime>

#include <cstdarg>
#include <cstdio>
#include <pthread.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

uint32_t logLevel = kDefaultLogLevel;
const char* const translationNames[] = {"tav", nullptr};

namespace {

constexpr size_t kLineCapacity = 4096;

const char* const kLevelWords[] = {
    nullptr,   "FATAL: ",   "EMERGENCY: ", "ALERT: ", "CRITICAL: ",
    "ERROR: ", "WARNING: ", "NOTICE: ",    "INFO: ",
};

// A fixed buffer on the caller's stack. A text that does not fit is cut and the characters
// lost are counted; a text that fills the space exactly loses its last character to the
// terminator without being counted.
struct LineBuffer
{
    char* data;
    size_t capacity;
    size_t position = 0;
    uint32_t overflow = 0;

    void vappend(const char* format, va_list args)
    {
        if (!data || !capacity || position == capacity)
            return;
        const size_t space = capacity - position;
        const int written = vsnprintf(data + position, space, format, args);
        if (written < 0) {
            data[position] = '\0';
            return;
        }
        if (static_cast<size_t>(written) >= space) {
            overflow += static_cast<uint32_t>(static_cast<size_t>(written) - space);
            position = capacity - 1;
        } else {
            position += static_cast<size_t>(written);
        }
    }

    void append(const char* format, ...) __attribute__((format(printf, 2, 3)))
    {
        va_list args;
        va_start(args, format);
        vappend(format, args);
        va_end(args);
    }
};

void appendPrefix(LineBuffer& buffer, int line, const char* function, const char* file)
{
    timeval now{};
    gettimeofday(&now, nullptr);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    buffer.append("%02u.%02u:%02u.%03u|", unsigned(local.tm_hour), unsigned(local.tm_min),
                  unsigned(local.tm_sec), unsigned(now.tv_usec / 1000));
    buffer.append("%lu.%lX|", static_cast<unsigned long>(getpid()),
                  static_cast<unsigned long>(pthread_self()));
    buffer.append("%s:%d|%s| ", file ? file : "", line, function ? function : "");
}

void vtrace(FILE* out, const char* format, va_list args)
{
    char text[kLineCapacity];
    LineBuffer buffer{text, sizeof text};
    text[0] = '\0';
    const QByteArray time =
        QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz")).toLatin1();
    buffer.append("%s> ", time.constData());
    buffer.vappend(format, args);
    fprintf(out, "%s\n", text);
}

} // namespace

void log(uint32_t level, const char* function, int line, const char* file, const char* format, ...)
{
    if (level > logLevel)
        return;

    char text[kLineCapacity];
    text[0] = '\0';
    LineBuffer buffer{text, sizeof text};

    if (logLevel > 9)
        appendPrefix(buffer, line, function, file);
    if (level >= 1 && level <= 8)
        buffer.append("%s", kLevelWords[level]);

    va_list args;
    va_start(args, format);
    buffer.vappend(format, args);
    va_end(args);

    if (buffer.overflow)
        fprintf(stderr, "%s|mem_stream.overflow=%u\n", text, buffer.overflow);
    else
        fprintf(stderr, "%s\n", text);
}

void ReportBuffer(const void* data, uint32_t length, uint32_t shown, const char* title)
{
    if (9 > logLevel)
        return;
    const auto* bytes = static_cast<const unsigned char*>(data);
    const uint32_t count = bytes ? qMin(length, shown) : 0;
    QByteArray line(title ? title : "");
    line.reserve(line.size() + int(count) * 6 + 32);
    char item[8];
    for (uint32_t i = 0; i < count; ++i) {
        snprintf(item, sizeof item, "[0x%.2x]", bytes[i]);
        line += item;
    }
    if (shown < length)
        line +=
            QByteArray(" ... ") + QByteArray::number(shown) + " from " + QByteArray::number(length);
    log(9, "ReportBuffer", __LINE__, sourceFileName(__FILE__), "%s", line.constData());
}

QString hexText(const void* data, int length)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    const int shown = length >= 17 ? 16 : qMax(length, 0);
    static const char digits[] = "0123456789ABCDEF";
    QString text;
    text.reserve(shown * 2 + 3);
    for (int i = 0; i < shown; ++i) {
        text += QLatin1Char(digits[bytes[i] >> 4]);
        text += QLatin1Char(digits[bytes[i] & 0x0f]);
    }
    if (length >= 17)
        text += QLatin1String("...");
    return text;
}

QString hexText(const QByteArray& data)
{
    return hexText(data.constData(), int(data.size()));
}

QByteArray hexByteString(const void* data, int length)
{
    const auto* bytes = static_cast<const unsigned char*>(data);
    QByteArray text;
    text.reserve(qMax(length, 0) * 2);
    char item[4];
    for (int i = 0; i < length; ++i) {
        snprintf(item, sizeof item, "%.2hx", static_cast<unsigned short>(bytes[i]));
        text += item;
    }
    return text;
}

QByteArray hexByteString(const QByteArray& data)
{
    return hexByteString(data.constData(), int(data.size()));
}

void traceToFile(const char* format, ...)
{
    FILE* out = fopen("/opt/Ormund/common.log", "a");
    if (!out)
        return;
    va_list args;
    va_start(args, format);
    vtrace(out, format, args);
    va_end(args);
    fclose(out);
}

void traceToStdout(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    vtrace(stdout, format, args);
    va_end(args);
}
