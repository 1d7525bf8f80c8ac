#pragma once

#include "MyDbExport.h"

/// Receives the warnings of the application log. A host may replace it.
class MYDB_EXPORT UtAppLogSink
{
public:
    virtual ~UtAppLogSink() = default;
    virtual void Warning(const char* file, long line, const char* key, const char* function) = 0;
};

class MYDB_EXPORT UtAppLogging
{
public:
    /// Appends one warning to the application log (default: one line on standard error).
    static void LogWarning(const char* file, long line, const char* key, const char* function) noexcept;
    /// Replaces the sink (null: the default one) and returns the previous one (null: it was the default). Not owned.
    static UtAppLogSink* SetSink(UtAppLogSink* sink) noexcept;
};
