#include "log/UtAppLogging.h"

#include <atomic>
#include <cstdio>

namespace {

std::atomic<UtAppLogSink*> g_sink{nullptr};

const char* OrEmpty(const char* text)
{
    return text == nullptr ? "" : text;
}

void WriteToStandardError(const char* file, long line, const char* key, const char* function)
{
    std::fprintf(stderr, "%s(%ld): warning: %s in %s\n", file, line, key, function);
}

} // namespace

void UtAppLogging::LogWarning(const char* file, long line, const char* key, const char* function) noexcept
try {
    UtAppLogSink* sink = g_sink.load();
    if (sink == nullptr)
        WriteToStandardError(OrEmpty(file), line, OrEmpty(key), OrEmpty(function));
    else
        sink->Warning(OrEmpty(file), line, OrEmpty(key), OrEmpty(function));
} catch (...) {
    // A sink that fails must not take the caller down: the warning is lost, nothing else.
}

UtAppLogSink* UtAppLogging::SetSink(UtAppLogSink* sink) noexcept
{
    return g_sink.exchange(sink);
}
