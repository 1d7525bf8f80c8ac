#pragma once

#include "log/UtAppLogging.h"

#include <string>
#include <vector>

namespace harness {

/// Takes the place of the application log while it lives and writes down the warnings. Recorders may be nested; the
/// inner one must end first.
class LogRecorder final : public UtAppLogSink
{
public:
    struct Entry
    {
        std::string file;
        long line;
        std::string key;
        std::string function;
    };

    LogRecorder() : m_previous(UtAppLogging::SetSink(this)) {}
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;
    ~LogRecorder() override { UtAppLogging::SetSink(m_previous); }

    const std::vector<Entry>& Entries() const { return m_entries; }

    void Warning(const char* file, long line, const char* key, const char* function) override
    {
        m_entries.push_back({file, line, key, function});
    }

private:
    UtAppLogSink* m_previous;
    std::vector<Entry> m_entries;
};

} // namespace harness
