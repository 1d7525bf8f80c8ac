// Prints a small table. Widths count characters, not bytes, so that a name with an accent takes one place.
#pragma once

#include "CMyRecordSet.h"
#include "text/UtCString.h"

#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

/// A column of the current row as UTF-8 text; a dash for NULL.
inline UtCString TextOf(const CMyRecordSet& rows, const char* column)
{
    UtCString text(UT_ENCODING_UTF8);
    if (rows.IsFieldNull(column) || !rows.GetFieldText(column, text))
        return UtCString("-", UT_ENCODING_UTF8);
    return text;
}

class Table
{
public:
    struct Column
    {
        const char* title;
        int width;
        bool isNumber = false;
    };

    Table(std::initializer_list<Column> columns) : m_columns(columns)
    {
        std::string titles;
        std::string lines;
        for (const Column& column : m_columns) {
            titles += Cell(UtCString(column.title, UT_ENCODING_UTF8), column);
            lines += "  ";
            for (int place = 0; place < column.width; ++place)
                lines += "\xE2\x94\x80"; // a horizontal line
        }
        Print(titles);
        Print(lines);
    }

    void Row(std::initializer_list<UtCString> cells) const
    {
        std::string row;
        size_t number = 0;
        for (const UtCString& cell : cells)
            row += Cell(cell, m_columns[number++]);
        Print(row);
    }

private:
    static std::string Cell(const UtCString& cell, const Column& column)
    {
        const UtCString text = Shortened(UtCString(cell, UT_ENCODING_UTF8), column.width);
        const std::string blanks(static_cast<size_t>(column.width - text.GetLength()), ' ');
        return column.isNumber ? "  " + blanks + text.string() : std::string("  ") + text.string() + blanks;
    }

    static void Print(const std::string& line) { std::puts(line.substr(0, line.find_last_not_of(' ') + 1).c_str()); }

    static UtCString Shortened(const UtCString& text, int width)
    {
        return text.GetLength() <= width ? text
                                         : text.substr(0, width - 1) + UtCString("\xE2\x80\xA6", UT_ENCODING_UTF8);
    }

    std::vector<Column> m_columns;
};
