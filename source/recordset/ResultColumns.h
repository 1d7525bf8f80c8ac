#pragma once

#include "MyDbTypes.h"
#include "text/UtCString.h"

#include <mysql.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace recordset {

/// The columns of one result: what the client says about them, and what has been derived from that once for all rows.
class ResultColumns
{
public:
    /// The encoding of a column whose bytes are taken as they are.
    static constexpr eUtEncodingType unconverted = UT_ENCODING_UTF32;

    /// Takes over the columns of a result, which must live as long as they are used; `fields` null: none of them is
    /// known. No encoding is known yet. The memory of the columns before is used again.
    void Assign(const MYSQL_FIELD* fields, unsigned long count);

    /// The client's description of a column; null when the column or all descriptions are missing.
    const MYSQL_FIELD* Field(unsigned long no) const noexcept
    {
        return no < m_columns.size() ? m_fields + no : nullptr;
    }
    unsigned long Count() const noexcept { return static_cast<unsigned long>(m_columns.size()); }
    std::string_view Name(unsigned long no) const noexcept { return {m_fields[no].name, m_fields[no].name_length}; }

    /// The first column whose name equals `name`, Count() when there is none.
    unsigned long Find(const UtCString& name) const noexcept;

    /// Text or memo: the only columns that are converted.
    bool IsText(unsigned long no) const noexcept { return no < m_columns.size() && m_columns[no].isText; }

    // The encodings of the text columns, in which the server's bytes are, hold for one state of the table cache.
    bool KnowsEncodings(uint64_t cacheGeneration) const noexcept
    {
        return m_knowsEncodings && m_cacheGeneration == cacheGeneration;
    }
    void ForgetEncodings() noexcept { m_knowsEncodings = false; }
    void SetEncodingsKnown(uint64_t cacheGeneration) noexcept
    {
        m_knowsEncodings = true;
        m_cacheGeneration = cacheGeneration;
    }
    eUtEncodingType Encoding(unsigned long no) const noexcept { return m_columns[no].encoding; }
    void SetEncoding(unsigned long no, eUtEncodingType encoding) noexcept { m_columns[no].encoding = encoding; }

private:
    struct Column
    {
        bool isText;
        eUtEncodingType encoding;
    };

    const MYSQL_FIELD* m_fields = nullptr;
    std::vector<Column> m_columns;
    bool m_knowsEncodings = false;
    uint64_t m_cacheGeneration = 0;
};

} // namespace recordset
