#include "differential/Report.h"

#include <charconv>

namespace differential {
namespace {

constexpr uint64_t digestStart = 0xCBF29CE484222325;
constexpr uint64_t digestFactor = 0x100000001B3;
constexpr char hexDigits[] = "0123456789ABCDEF";

uint64_t Continued(uint64_t digest, std::string_view bytes)
{
    const char* const end = bytes.data() + bytes.size();
    for (const char* at = bytes.data(); at != end; ++at)
        digest = (digest ^ static_cast<unsigned char>(*at)) * digestFactor;
    return digest;
}

bool IsPlain(char byte)
{
    return byte >= ' ' && byte < '\x7F' && byte != '\\';
}

} // namespace

Report::Report(const std::filesystem::path& file, int writtenOneIn)
    : m_file(file, std::ios::binary | std::ios::trunc), m_writtenOneIn(writtenOneIn), m_digest(digestStart)
{
}

void Report::EndBlock(std::string_view name)
{
    const int lines = m_linesOfBlock;
    const uint64_t digest = m_digest;
    AddText("===");
    AddText(name);
    AddNumber(lines);
    AddBits(digest);
    m_file << m_line << '\n';
    m_line.clear();
    m_linesOfBlock = 0;
    m_digest = digestStart;
}

bool Report::Close()
{
    m_file.close();
    return m_file.good();
}

void Report::Add(double value)
{
    AddBits(std::bit_cast<uint64_t>(value));
}

void Report::Add(float value)
{
    AddBits(std::bit_cast<uint32_t>(value));
}

void Report::Add(const UtCString& text)
{
    AddNumber(text.GetEncodingType());
    m_line += ':';
    AddBytes(text.View());
}

void Report::Add(const CDateTime& date)
{
    AddBits(std::bit_cast<uint64_t>(date.GetValue()));
    AddNumber(date.GetStatus());
}

void Report::AddNumber(int64_t value)
{
    char digits[24];
    const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    AddText({digits, static_cast<size_t>(end - digits)});
}

void Report::AddBits(uint64_t bits)
{
    char digits[16];
    for (int index = 15; index >= 0; --index, bits >>= 4)
        digits[index] = hexDigits[bits & 15];
    AddText({digits, sizeof digits});
}

void Report::AddBytes(std::string_view bytes)
{
    for (const char byte : bytes)
        if (IsPlain(byte)) {
            m_line += byte;
        } else {
            const auto number = static_cast<unsigned char>(byte);
            const char escape[] = {'\\', hexDigits[number >> 4], hexDigits[number & 15]};
            m_line.append(escape, sizeof escape);
        }
    m_line += '\t';
}

void Report::AddText(std::string_view text)
{
    m_line += text;
    m_line += '\t';
}

void Report::EndLine()
{
    m_line.back() = '\n';
    m_digest = Continued(m_digest, m_line);
    if (m_lines % m_writtenOneIn == 0)
        m_file << m_line;
    ++m_lines;
    ++m_linesOfBlock;
    m_line.clear();
}

} // namespace differential
