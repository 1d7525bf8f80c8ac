#pragma once

#include "text/UtCString.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// What the server report says, from the values that the server gave. ASCII throughout, except for what is passed in.
namespace admin {

/// A number for people: thousands separated by "'", at most four decimals without closing zeros. "1234567" gives
/// "1'234'567", "0.50" gives "0.5". `number` is as platform::FormatNumber takes it; another text gives "0".
std::string FormatNumber(std::string_view number);

/// A time span: "2 days 01 hrs 01 min 01 sec" and a line feed; without the days when there is none, "1 day" for one.
/// `seconds` is not negative.
std::string FormatUptime(int64_t seconds);

/// The status line of a server, its first number as FormatUptime and the seven behind it as FormatNumber, so that the
/// uptime stands on a line of its own. Labels and separators stay, only blanks next to a line feed go. A number is a
/// run of digits, with the decimals where a point and another digit follow. Numbers that are not there are not missed,
/// a ninth one stays, and so does a first one that is no whole number of seconds.
std::string FormatStatusLine(std::string_view line);

/// The system variables that the memory estimate adds up.
struct MemoryVariables
{
    std::span<const char* const> global;
    std::span<const char* const> perConnection;
    const char* connections;
};

/// Those of a server, by its version as a text: "10.11" is a smaller text than "4.0".
MemoryVariables MemoryVariablesOf(const UtCString& version) noexcept;

/// What a server may use, in bytes. Sums and products that exceed 64 bits wrap.
struct MemoryEstimate
{
    int64_t globalBytes;
    int64_t bytesPerConnection;
    int64_t connections;

    int64_t TotalBytes() const noexcept;
};

struct ServerReport
{
    const UtCString& host;
    const UtCString& version;
    const UtCString& dataDirectory;
    MemoryEstimate memory;
    std::string_view status; ///< see FormatStatusLine; in UTF-8
};

/// The report as a text of encoding 256; empty, never a part, when there is no memory. Megabytes are cut to whole ones,
/// each number for itself.
UtCString ReportText(const ServerReport& report);

} // namespace admin
