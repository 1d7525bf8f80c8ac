#pragma once

#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace harness {

/// One command that a server received.
struct LoggedCommand
{
    unsigned long threadId; ///< of the connection; RawConnection::ThreadId and CMyDatabase::GetThreadID give the same
    std::string name;       ///< "Query", "Connect", "Field List", "Quit", "Statistics" ...; a ping is not logged
    std::string text;       ///< the bytes of a statement, line breaks included

    bool operator==(const LoggedCommand&) const = default;
};

/// How a failed expectation shows a command.
std::ostream& operator<<(std::ostream& stream, const LoggedCommand& command);

/// The commands in a piece of a general log file. A line of a statement that looks like the start of an entry is taken
/// for one.
std::vector<LoggedCommand> ParseGeneralLog(std::string_view log);

/// Reads what a server received: the exact bytes of every statement, whoever sent it. The server writes an entry before
/// it runs the command, so everything that has been answered is there.
class GeneralLog
{
public:
    /// Marks the present end of the shared server's log. Throws std::runtime_error when the file cannot be read.
    GeneralLog();
    explicit GeneralLog(const std::filesystem::path& file);

    void Mark(); ///< forgets everything up to now

    std::vector<LoggedCommand> Commands() const; ///< since the mark
    std::vector<LoggedCommand> Commands(unsigned long threadId) const;
    std::vector<std::string> Statements() const; ///< the texts of the "Query" commands since the mark
    std::vector<std::string> Statements(unsigned long threadId) const;

private:
    std::filesystem::path m_file;
    std::uintmax_t m_mark = 0;
};

} // namespace harness
