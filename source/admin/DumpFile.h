#pragma once

#include "framework/CFile.h"
#include "sql/DumpText.h"

#include <mysql.h>

#include <memory>
#include <string_view>

namespace admin {

/// The lines of a dump on their way into a file. They are put together in one block of memory, which is written out
/// whenever it is full, and grows only for a value that does not fit into it.
///
/// The members throw what the file throws (CFileException*) and std::bad_alloc.
class DumpFile
{
public:
    /// `file` is open and stays the caller's. `handle` is the connection whose escape is used.
    DumpFile(CFile& file, const sql::DumpFormat& format, MYSQL* handle);

    void AddHeader(MYSQL_RES* result);
    void AddRow(const char* const* values, const unsigned long* lengths, unsigned int count);

    void WriteOut(); ///< Gives the file what is not there yet.

private:
    /// A short text with room to be copied as a whole.
    class Piece
    {
    public:
        explicit Piece(std::string_view text);
        size_t size() const noexcept { return m_text.size(); }
        char* CopyTo(char* to) const noexcept;

    private:
        std::string_view m_text;
        char m_start[16] = {};
    };

    void AddValue(std::string_view value);
    void Add(const Piece& piece);
    void Add(std::string_view text);
    void MakeRoom(size_t size);

    CFile& m_file;
    MYSQL* m_handle;
    Piece m_separator;
    Piece m_enclosure;
    Piece m_lineEnd;
    Piece m_null;
    const sql::DumpFormat& m_format;
    size_t m_capacity;
    std::unique_ptr<char[]> m_block;
    size_t m_size = 0;
};

} // namespace admin
