#include "harness/GeneralLog.h"

#include "harness/PrivateServer.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <stdexcept>

namespace harness {
namespace {

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// The length of what stands before the thread number: two tabs, or a time such as "240131  9:05:07" and a tab.
std::optional<size_t> PrefixLength(std::string_view line)
{
    if (line.starts_with("\t\t")) {
        return 2;
    }
    constexpr std::string_view SHAPE = "ddddddb?d:dd:dd\t";
    if (line.size() < SHAPE.size()) {
        return std::nullopt;
    }
    for (size_t i = 0; i < SHAPE.size(); ++i) {
        const char character = line[i];
        const bool fits = SHAPE[i] == 'd'   ? IsDigit(character)
                          : SHAPE[i] == 'b' ? character == ' '
                          : SHAPE[i] == '?' ? character == ' ' || IsDigit(character)
                                            : character == SHAPE[i];
        if (!fits) {
            return std::nullopt;
        }
    }
    return SHAPE.size();
}

/// The command that starts in this line; nullopt: the line continues the one before it.
std::optional<LoggedCommand> StartOfCommand(std::string_view line)
{
    const std::optional<size_t> prefix = PrefixLength(line);
    if (!prefix) {
        return std::nullopt;
    }
    line.remove_prefix(*prefix);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    LoggedCommand command{};
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), command.threadId);
    line.remove_prefix(static_cast<size_t>(end - line.data()));
    const size_t tab = line.find('\t');
    if (error != std::errc() || !line.starts_with(' ') || tab == std::string_view::npos) {
        return std::nullopt;
    }
    command.name = line.substr(1, tab - 1);
    command.text = line.substr(tab + 1);
    return command;
}

/// The server starts the file, at each of its starts, with three lines of its own; this is the first.
bool IsHeading(std::string_view line)
{
    return line.ends_with(" started with:") && line.find(", Version: ") != std::string_view::npos;
}

std::string_view TakeLine(std::string_view& log)
{
    const std::string_view line = log.substr(0, log.find('\n'));
    log.remove_prefix(std::min(line.size() + 1, log.size()));
    return line;
}

std::vector<std::string> TextsOfQueries(const std::vector<LoggedCommand>& commands)
{
    std::vector<std::string> texts;
    for (const LoggedCommand& command : commands) {
        if (command.name == "Query") {
            texts.push_back(command.text);
        }
    }
    return texts;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const LoggedCommand& command)
{
    return stream << command.threadId << ' ' << command.name << ": " << command.text;
}

std::vector<LoggedCommand> ParseGeneralLog(std::string_view log)
{
    std::vector<LoggedCommand> commands;
    while (!log.empty()) {
        const std::string_view line = TakeLine(log);
        if (IsHeading(line)) {
            TakeLine(log);
            TakeLine(log);
        } else if (std::optional<LoggedCommand> command = StartOfCommand(line)) {
            commands.push_back(*command);
        } else if (!commands.empty()) {
            commands.back().text.append("\n").append(line);
        }
    }
    return commands;
}

GeneralLog::GeneralLog() : GeneralLog(PrivateServer::Get().GeneralLogFile()) {}

GeneralLog::GeneralLog(const std::filesystem::path& file) : m_file(file)
{
    if (!std::ifstream(m_file).is_open()) {
        throw std::runtime_error("the server's general log cannot be read: " + m_file.string());
    }
    Mark();
}

void GeneralLog::Mark()
{
    m_mark = std::filesystem::file_size(m_file);
}

std::vector<LoggedCommand> GeneralLog::Commands() const
{
    std::ifstream file(m_file, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(m_mark));
    const std::string log{std::istreambuf_iterator<char>(file), {}};
    return ParseGeneralLog(log);
}

std::vector<LoggedCommand> GeneralLog::Commands(unsigned long threadId) const
{
    std::vector<LoggedCommand> commands = Commands();
    std::erase_if(commands, [&](const LoggedCommand& command) { return command.threadId != threadId; });
    return commands;
}

std::vector<std::string> GeneralLog::Statements() const
{
    return TextsOfQueries(Commands());
}

std::vector<std::string> GeneralLog::Statements(unsigned long threadId) const
{
    return TextsOfQueries(Commands(threadId));
}

} // namespace harness
