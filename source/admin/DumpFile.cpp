#include "admin/DumpFile.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace admin {
namespace {

constexpr size_t blockSize = 128 * 1024;

/// The longest value of which the escaped form fits into the 32 bits that the client counts in on every system.
constexpr size_t longestValue = 2147483647;

} // namespace

DumpFile::Piece::Piece(std::string_view text) : m_text(text)
{
    std::copy_n(text.data(), std::min(text.size(), sizeof m_start), m_start);
}

// A copy of fixed size takes no call; what is too much is written over by what comes next.
char* DumpFile::Piece::CopyTo(char* to) const noexcept
{
    if (m_text.size() <= sizeof m_start)
        std::memcpy(to, m_start, sizeof m_start);
    else
        std::memcpy(to, m_text.data(), m_text.size());
    return to + m_text.size();
}

DumpFile::DumpFile(CFile& file, const sql::DumpFormat& format, MYSQL* handle)
    : m_file(file), m_handle(handle), m_separator(format.separator), m_enclosure(format.enclosure),
      m_lineEnd(format.lineEnd), m_null(sql::dumpNull), m_format(format), m_capacity(blockSize),
      m_block(std::make_unique_for_overwrite<char[]>(blockSize))
{
}

void DumpFile::AddHeader(MYSQL_RES* result)
{
    const MYSQL_FIELD* const fields = mysql_fetch_fields(result);
    std::vector<std::string_view> names;
    for (unsigned int i = 0; i < mysql_num_fields(result); ++i)
        names.emplace_back(fields[i].name, fields[i].name_length);
    Add(sql::DumpHeader(names, m_format));
}

void DumpFile::AddRow(const char* const* values, const unsigned long* lengths, unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i) {
        if (i != 0)
            Add(m_separator);
        if (values[i])
            AddValue({values[i], lengths[i]});
        else
            Add(m_null);
    }
    Add(m_lineEnd);
}

void DumpFile::AddValue(std::string_view value)
{
    if (value.size() > longestValue)
        throw std::bad_alloc();
    MakeRoom(2 * value.size() + 1 + 2 * m_enclosure.size() + 2 * sizeof(Piece));
    char* to = m_enclosure.CopyTo(m_block.get() + m_size);
    if (sql::CopyUnescapedValue(value, to)) {
        to += value.size();
    } else {
        const unsigned long length =
            mysql_real_escape_string(m_handle, to, value.data(), static_cast<unsigned long>(value.size()));
        if (length > 2 * value.size())
            throw std::bad_alloc();
        to += length;
    }
    m_size = static_cast<size_t>(m_enclosure.CopyTo(to) - m_block.get());
}

void DumpFile::Add(const Piece& piece)
{
    MakeRoom(piece.size() + sizeof(Piece));
    m_size = static_cast<size_t>(piece.CopyTo(m_block.get() + m_size) - m_block.get());
}

void DumpFile::Add(std::string_view text)
{
    MakeRoom(text.size());
    m_size += text.copy(m_block.get() + m_size, text.size());
}

void DumpFile::MakeRoom(size_t size)
{
    if (size <= m_capacity - m_size)
        return;
    WriteOut();
    if (size <= m_capacity)
        return;
    m_block.reset();
    m_capacity = 0;
    m_block = std::make_unique_for_overwrite<char[]>(size);
    m_capacity = size;
}

void DumpFile::WriteOut()
{
    constexpr size_t atOnce = 1u << 30;
    for (size_t at = 0; at < m_size; at += atOnce)
        m_file.Write(m_block.get() + at, static_cast<unsigned int>(std::min(atOnce, m_size - at)));
    m_size = 0;
}

} // namespace admin
