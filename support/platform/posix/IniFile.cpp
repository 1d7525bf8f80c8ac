#include "platform/IniFile.h"

#include <algorithm>
#include <cerrno>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using platform::IniValue;

bool IsBlank(char character) noexcept
{
    return character == ' ' || character == '\t' || character == '\r' || character == '\v' || character == '\f';
}

char ToLower(char character) noexcept
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool EqualNoCase(std::string_view left, std::string_view right) noexcept
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return ToLower(a) == ToLower(b); });
}

IniValue MakeValue(std::string_view text) noexcept
{
    IniValue value{};
    value.length = std::min(text.size(), IniValue::maximumLength);
    std::copy_n(text.data(), value.length, value.text);
    return value;
}

/// What stands between the blanks of a text of any length, of which only the first bytes and the last one are kept.
class TrimmedText
{
public:
    void Clear() noexcept { m_length = m_trimmedLength = 0; }

    void Add(char character) noexcept
    {
        if (m_length == 0 && IsBlank(character))
            return;
        if (m_length < sizeof m_head)
            m_head[m_length] = character;
        ++m_length;
        if (IsBlank(character))
            return;
        m_trimmedLength = m_length;
        m_last = character;
    }

    bool IsName(std::string_view name) const noexcept
    {
        return m_trimmedLength == name.size() && EqualNoCase(Head(), name);
    }

    std::string_view Unquoted() const noexcept
    {
        const bool isQuoted = m_trimmedLength >= 2 && (m_head[0] == '"' || m_head[0] == '\'') && m_last == m_head[0];
        return isQuoted ? Head().substr(1, m_trimmedLength - 2) : Head();
    }

private:
    std::string_view Head() const noexcept { return {m_head, std::min(m_trimmedLength, sizeof m_head)}; }

    char m_head[IniValue::maximumLength + 1]; ///< one more than arrives: the opening quote goes
    char m_last = 0;
    std::size_t m_length = 0;
    std::size_t m_trimmedLength = 0;
};

/// Looks for one entry in the bytes of a file, which come in pieces.
class EntrySearch
{
public:
    EntrySearch(std::string_view section, std::string_view key) noexcept : m_section(section), m_key(key) {}

    void Take(std::string_view bytes) noexcept
    {
        for (std::size_t position = 0; position < bytes.size() && !m_isOver; ++position) {
            if (m_state == State::Rest)
                position = std::min(bytes.find('\n', position), bytes.size() - 1);
            TakeByte(bytes[position]);
        }
    }

    bool IsOver() const noexcept { return m_isOver; }
    bool IsFound() const noexcept { return m_isFound; }
    std::string_view Value() const noexcept { return m_text.Unquoted(); }

private:
    enum class State
    {
        LineStart,
        SectionName,
        Key,
        Value,
        Rest
    };

    void TakeByte(char character) noexcept
    {
        if (character == '\n')
            EndLine();
        else if (character == '\0')
            m_state = State::Rest;
        else if (m_state == State::LineStart)
            StartLine(character);
        else if (m_state == State::SectionName && character == ']')
            EndSectionName();
        else if (m_state == State::Key && character == '=')
            EndKey();
        else if (m_state != State::Rest)
            m_text.Add(character);
    }

    void EndLine() noexcept
    {
        m_isOver = m_isOver || m_isFound;
        m_state = State::LineStart;
    }

    void StartLine(char character) noexcept
    {
        if (IsBlank(character))
            return;
        m_text.Clear();
        m_state = State::Rest;
        if (character == '[')
            m_state = State::SectionName;
        else if (m_isInSection && character != ';')
            StartKey(character);
    }

    void StartKey(char character) noexcept
    {
        m_state = State::Key;
        TakeByte(character);
    }

    void EndSectionName() noexcept
    {
        m_isOver = m_isInSection;
        m_isInSection = m_text.IsName(m_section);
        m_state = State::Rest;
    }

    void EndKey() noexcept
    {
        m_isFound = m_text.IsName(m_key);
        m_text.Clear();
        m_state = m_isFound ? State::Value : State::Rest;
    }

    std::string_view m_section;
    std::string_view m_key;
    TrimmedText m_text;
    State m_state = State::LineStart;
    bool m_isInSection = false;
    bool m_isFound = false;
    bool m_isOver = false;
};

/// An open file that closes itself. Only a regular file opens: a pipe could block, a device never ends.
class RegularFile
{
public:
    explicit RegularFile(const char* path) noexcept : m_descriptor(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
        struct stat status
        {
        };
        m_isRegular = m_descriptor >= 0 && fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
    }
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;
    ~RegularFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    /// Fills the buffer as far as the file reaches; an error ends the file.
    std::size_t Read(char* buffer, std::size_t size) const noexcept
    {
        std::size_t filled = 0;
        while (m_isRegular && filled < size) {
            const ssize_t count = read(m_descriptor, buffer + filled, size - filled);
            if (count > 0)
                filled += static_cast<std::size_t>(count);
            else if (count == 0 || errno != EINTR)
                break;
        }
        return filled;
    }

private:
    int m_descriptor;
    bool m_isRegular = false;
};

/// What Windows-1252 has at 0x80 to 0x9F; 0 where it has nothing.
constexpr char16_t specialCharacters[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0, //
                                            0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char ToWindows1252(char16_t unit) noexcept
{
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return static_cast<char>(unit);
    const auto* const found = std::find(std::begin(specialCharacters), std::end(specialCharacters), unit);
    return found == std::end(specialCharacters) ? '?' : static_cast<char>(0x80 + (found - specialCharacters));
}

/// Converts in place and gives the number of characters; half a unit at the end is dropped.
std::size_t ConvertUtf16(char* buffer, std::size_t size) noexcept
{
    for (std::size_t index = 0; index < size / 2; ++index) {
        const auto low = static_cast<unsigned char>(buffer[2 * index]);
        const auto high = static_cast<unsigned char>(buffer[2 * index + 1]);
        buffer[index] = ToWindows1252(static_cast<char16_t>(low | (high << 8)));
    }
    return size / 2;
}

void SearchFile(const RegularFile& file, EntrySearch& search) noexcept
{
    // KEPT K-78: the mark of UTF-8 is none, so it hides what stands on the first line.
    constexpr std::string_view utf16Mark = "\xFF\xFE";
    char buffer[16384];
    std::size_t size = file.Read(buffer, sizeof buffer);
    const bool isUtf16 = std::string_view(buffer, size).starts_with(utf16Mark);
    std::size_t begin = isUtf16 ? utf16Mark.size() : 0;
    while (size > 0 && !search.IsOver()) {
        char* const piece = buffer + begin;
        search.Take({piece, isUtf16 ? ConvertUtf16(piece, size - begin) : size - begin});
        begin = 0;
        size = file.Read(buffer, sizeof buffer);
    }
}

} // namespace

platform::IniValue platform::ReadIniValue(const std::string& nativePath, const char* section, const char* key,
                                          const char* defaultValue) noexcept
{
    EntrySearch search(section, key);
    SearchFile(RegularFile(nativePath.c_str()), search);
    return MakeValue(search.IsFound() ? search.Value() : std::string_view(defaultValue));
}
