#include "CMyField.h"

CMyField::CMyField(const UtCString& name, MYTYPES fieldType, uint32_t mySQLType, uint32_t length, uint32_t flags,
                   uint32_t decimals, const UtCString& defaultValue, uint32_t charsetNr)
    : m_name(name), m_fieldType(fieldType), m_mySQLType(mySQLType), m_length(length), m_flags(flags),
      m_decimals(decimals), m_default(defaultValue), m_charsetNr(charsetNr)
{
}
