// Cost of a log call that its level filters out, beside one that is written (to /dev/null),
// both measured against a plain out-of-line call in the same run.
#include "app/Log.h"

#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

__attribute__((noinline)) void emptyCall(uint32_t level, const char* function, int line,
                                         const char* file, const char* format, int value)
{
    asm volatile(""
                 :
                 : "r"(level), "r"(function), "r"(line), "r"(file), "r"(format), "r"(value)
                 : "memory");
}

template <typename F>
double nanosecondsPerCall(int calls, F&& body)
{
    double best = 1e300;
    for (int round = 0; round < 5; ++round) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < calls; ++i)
            body(i);
        const std::chrono::duration<double, std::nano> spent =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, spent.count() / calls);
    }
    return best;
}

} // namespace

int main()
{
    const int saved = dup(STDERR_FILENO);
    const int devNull = open("/dev/null", O_WRONLY);
    dup2(devNull, STDERR_FILENO);

    logLevel = kDefaultLogLevel;
    const double baseline = nanosecondsPerCall(
        20000000, [](int i) { emptyCall(11, __func__, __LINE__, "bench_log.cpp", "value=%d", i); });
    const double filtered =
        nanosecondsPerCall(20000000, [](int i) { TAV_LOG(11, "value=%d text=%s", i, "filtered"); });
    const double written =
        nanosecondsPerCall(200000, [](int i) { TAV_LOG(9, "value=%d text=%s", i, "written"); });
    logLevel = kDebugLogLevel;
    const double prefixed = nanosecondsPerCall(
        200000, [](int i) { TAV_LOG(9, "value=%d text=%s", i, "written with prefix"); });

    dup2(saved, STDERR_FILENO);
    close(devNull);
    close(saved);

    printf("%-34s %10s %12s\n", "call", "ns/call", "x empty call");
    printf("%-34s %10.2f %12.2f\n", "empty out-of-line call", baseline, 1.0);
    printf("%-34s %10.2f %12.2f\n", "log filtered out by level", filtered, filtered / baseline);
    printf("%-34s %10.2f %12.2f\n", "log written to /dev/null", written, written / baseline);
    printf("%-34s %10.2f %12.2f\n", "log written with debug prefix", prefixed, prefixed / baseline);
    printf("written / filtered: %.0fx\n", written / filtered);
    return 0;
}
