#pragma once

#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "text/UtCString.h"

#include <cstdint>

/// Descriptor of one column. Never changes after construction.
class MYDB_EXPORT CMyField
{
public:
    CMyField() = default;
    CMyField(const UtCString& name, MYTYPES fieldType, uint32_t mySQLType, uint32_t length, uint32_t flags,
             uint32_t decimals, const UtCString& defaultValue, uint32_t charsetNr);

    const UtCString& GetName() const noexcept { return m_name; }
    MYTYPES GetFieldType() const noexcept { return m_fieldType; }
    uint32_t GetMySQLType() const noexcept { return m_mySQLType; }
    uint32_t GetLength() const noexcept { return m_length; }
    uint32_t GetFlags() const noexcept { return m_flags; }
    uint32_t GetDecimals() const noexcept { return m_decimals; }
    const UtCString& GetDefault() const noexcept { return m_default; }
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
