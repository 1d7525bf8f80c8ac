#include "admin/StatusReport.h"

#include "platform/NumberFormat.h"
#include "text/NumberText.h"
#include "text/TextBuilder.h"

#include <array>

namespace admin {
namespace {

constexpr size_t formattedNumbers = 8;
constexpr int64_t secondsPerDay = 86400;

constexpr std::array globalBuffers = {"key_buffer_size", "net_buffer_length"};
constexpr std::array oldBuffersPerConnection = {"myisam_sort_buffer_size", "record_buffer", "join_buffer_size",
                                                "record_rnd_buffer"};
constexpr std::array buffersPerConnection = {"sort_buffer_size", "myisam_sort_buffer_size", "join_buffer_size",
                                             "read_buffer_size", "read_rnd_buffer_size"};

bool IsDigit(std::string_view text, size_t at)
{
    return at < text.size() && text[at] >= '0' && text[at] <= '9';
}

size_t SkipDigits(std::string_view text, size_t at)
{
    while (IsDigit(text, at))
        ++at;
    return at;
}

/// The next number of `text` at or behind `from`; empty, at the end of `text`, when there is none.
std::string_view NextNumber(std::string_view text, size_t from)
{
    while (from < text.size() && !IsDigit(text, from))
        ++from;
    size_t end = SkipDigits(text, from);
    if (end < text.size() && text[end] == '.' && IsDigit(text, end + 1))
        end = SkipDigits(text, end + 1);
    return text.substr(from, end - from);
}

std::string TwoDigits(int64_t number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string UptimeOf(std::string_view number)
{
    int64_t seconds = 0;
    return text::ParseInt64(number, seconds) ? FormatUptime(seconds) : std::string(number);
}

/// What replacing "\n " and " \n" by "\n" comes to when it is done until there is neither.
std::string WithoutBlanksAroundLineFeeds(std::string_view text)
{
    std::string result;
    bool isLineStart = false;
    for (const char character : text) {
        if (character == ' ' && isLineStart)
            continue;
        isLineStart = character == '\n';
        while (isLineStart && !result.empty() && result.back() == ' ')
            result.pop_back();
        result += character;
    }
    return result;
}

} // namespace

std::string FormatNumber(std::string_view number)
{
    std::string text = platform::FormatNumber(number);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    if (text.empty() || text.front() == '.')
        text.insert(0, 1, '0');
    return text;
}

std::string FormatUptime(int64_t seconds)
{
    const int64_t days = seconds / secondsPerDay;
    std::string text;
    if (days > 0)
        text = std::to_string(days) + (days > 1 ? " days " : " day ");
    text += TwoDigits(seconds % secondsPerDay / 3600) + " hrs ";
    text += TwoDigits(seconds % 3600 / 60) + " min ";
    text += TwoDigits(seconds % 60) + " sec\n";
    return text;
}

std::string FormatStatusLine(std::string_view line)
{
    std::string text;
    size_t at = 0;
    for (size_t position = 0; position < formattedNumbers; ++position) {
        const std::string_view number = NextNumber(line, at);
        if (number.empty())
            break;
        const auto begin = static_cast<size_t>(number.data() - line.data());
        text += line.substr(at, begin - at);
        text += position == 0 ? UptimeOf(number) : FormatNumber(number);
        at = begin + number.size();
    }
    text += line.substr(at);
    return WithoutBlanksAroundLineFeeds(text);
}

MemoryVariables MemoryVariablesOf(const UtCString& version) noexcept
{
    // KEPT K-122: as texts, so that the versions from 10 on count as older than 4.0.
    if (version < UtCString("4.0"))
        return {globalBuffers, oldBuffersPerConnection, "max_connections"};
    return {globalBuffers, buffersPerConnection, "max_connections"};
}

int64_t MemoryEstimate::TotalBytes() const noexcept
{
    const uint64_t all = static_cast<uint64_t>(connections) * static_cast<uint64_t>(bytesPerConnection);
    return static_cast<int64_t>(all + static_cast<uint64_t>(globalBytes));
}

UtCString ReportText(const ServerReport& report)
{
    // KEPT K-123: each number is cut to whole megabytes for itself, so the parts may add up to less than the total.
    const auto megabytes = [](int64_t bytes) { return std::to_string(bytes / 1048576); };
    text::TextBuilder text(UT_ENCODING_DEFAULT);
    text.Append("Server: ");
    text.AppendText(report.host);
    text.Append("\nVersion: ");
    text.AppendText(report.version);
    text.Append("\nDataDir: ");
    text.AppendText(report.dataDirectory);
    text.Append("\nMax. Memory: " + megabytes(report.memory.TotalBytes()) + " MB = ");
    text.Append(megabytes(report.memory.globalBytes) + " MB + (" + std::to_string(report.memory.connections) + " * ");
    text.Append(megabytes(report.memory.bytesPerConnection) + " MB)\n");
    text.Append(report.status, UT_ENCODING_UTF8);
    return text.Take();
}

} // namespace admin
