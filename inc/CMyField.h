#pragma once

#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "text/UtCString.h"

#include <cstdint>

/// Descriptor of one column, as the client reported it. Never changes after construction.
class MYDB_EXPORT CMyField
{
public:
    CMyField() = default; ///< empty texts, all numbers 0: the descriptor of no column
    CMyField(const UtCString& name, MYTYPES fieldType, uint32_t mySQLType, uint32_t length, uint32_t flags,
             uint32_t decimals, const UtCString& defaultValue, uint32_t charsetNr);

    /// The column's name as the server spells it. Tagged with encoding 256 whatever the connection's encoding is: the
    /// bytes are the server's, so a name outside ASCII reads as UTF-8 in single bytes.
    const UtCString& GetName() const noexcept { return m_name; }
    MYTYPES GetFieldType() const noexcept { return m_fieldType; }
    uint32_t GetMySQLType() const noexcept { return m_mySQLType; } ///< the client's enum_field_types code
    uint32_t GetLength() const noexcept { return m_length; }       ///< declared width in bytes, not characters
    uint32_t GetFlags() const noexcept { return m_flags; }         ///< the client's field flags (PRI_KEY_FLAG ...)
    uint32_t GetDecimals() const noexcept { return m_decimals; }
    /// The column's default value as text, empty when it has none; encoding as GetName.
    const UtCString& GetDefault() const noexcept { return m_default; }
    /// The number of the column's character set, as the server reports it: for texts that of the connection, 63 for
    /// binary columns and numbers.
    uint32_t GetCharsetNr() const noexcept { return m_charsetNr; }

private:
    UtCString m_name;
    MYTYPES m_fieldType = MYTYPE_UNKNOWN;
    uint32_t m_mySQLType = 0;
    uint32_t m_length = 0;
    uint32_t m_flags = 0;
    uint32_t m_decimals = 0;
    UtCString m_default;
    uint32_t m_charsetNr = 0;
};
