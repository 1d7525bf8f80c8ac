#include "CMyRecordSet.h"
#include "connection/DatabaseAccess.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/FieldTypes.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"
#include "sql/KeyValue.h"
#include "sql/ValueText.h"

#include <cstdint>
#include <utility>

// Values for the next statement. The type that a setter passes decides about apostrophes, not the column.

using recordset::ResultColumns;

bool CMyRecordSet::SetFieldValue(const UtCString& field, const UtCString& value)
{
    return SetFieldValue(field, value, MYTYPE_TEXT);
}

bool CMyRecordSet::SetFieldValue(const UtCString& field, const UtCString& value, MYTYPES type)
{
    if (field.IsEmpty())
        return false;
    const bool isText = type == MYTYPE_TEXT || type == MYTYPE_MEMO;
    const eUtEncodingType encoding = isText ? EncodingForWriting(field) : ResultColumns::unconverted;
    if (encoding == ResultColumns::unconverted || encoding == value.GetEncodingType())
        return EnterValue(field, value, type);
    const UtCString converted(value, encoding);
    return converted.IsEmpty() == value.IsEmpty() ? EnterValue(field, converted, type) : LoseChange();
}

bool CMyRecordSet::EnterValue(const UtCString& field, const UtCString& value, MYTYPES type)
{
    UtCString sqlValue;
    if (!SqlValueOf(value, type, sqlValue))
        return LoseChange();
    return KeepChange(field, std::move(sqlValue), value.string(), value.GetByteLength());
}

/// False when there is no memory for the text, or no connection to escape it with.
bool CMyRecordSet::SqlValueOf(const UtCString& value, MYTYPES type, UtCString& sqlValue)
{
    if (sql::IsNullWord(value)) { // KEPT K-88: the text "null" is SQL NULL, whatever the type.
        sqlValue = "null";
        return true;
    }
    if (!sql::IsQuotedType(type)) { // KEPT K-89: everything else stands in the statement as it is, unchecked.
        sqlValue = value;
        return sqlValue.IsEmpty() == value.IsEmpty();
    }
    UtCString escaped;
    const bool isEscaped = sql::NeedsEscape(value);
    if (isEscaped && !EscapeText(value, escaped))
        return false;
    sqlValue = sql::Quoted(isEscaped ? escaped : value);
    return !sqlValue.IsEmpty();
}

bool CMyRecordSet::EscapeText(const UtCString& value, UtCString& escaped)
{
    if (value.GetEncodingType() == UT_ENCODING_UTF32) // never converted, so its bytes are what it is
        return EscapeBytes(value.string(), value.GetByteLength(), escaped);
    if (!OpenForEscaping())
        return false;
    m_database->MakeEscapeString(value, escaped);
    return !escaped.IsEmpty();
}

bool CMyRecordSet::EscapeBytes(const void* data, size_t length, UtCString& escaped)
{
    if (!OpenForEscaping())
        return false;
    m_database->MakeEscapeString(data, length, escaped);
    return !escaped.IsEmpty();
}

/// Only the client of an open connection knows how to escape, and without it the value would be lost.
bool CMyRecordSet::OpenForEscaping()
{
    if (!m_database)
        return false;
    if (!m_database->IsConnected())
        connection::Guarded(false, [&] { return m_database->Open(false, UtCString()); });
    return m_database->IsConnected();
}

/// The encoding in which the server sends a column's texts, and in which they are read back.
eUtEncodingType CMyRecordSet::EncodingForWriting(const UtCString& field) const
{
    if (!m_tableName.IsEmpty()) {
        const CMyField* declared = DeclaredField(field);
        return declared ? metadata::EncodingOfCharset(declared->GetCharsetNr()) : ResultColumns::unconverted;
    }
    unsigned int nr = 0;
    return GetFieldCharsetNr(field, nr) ? metadata::EncodingOfCharset(nr) : ResultColumns::unconverted;
}

bool CMyRecordSet::SetFieldBuffer(const UtCString& field, const void* data, unsigned long length)
{
    return KeepBytes(field, data, length);
}

bool CMyRecordSet::KeepBytes(const UtCString& field, const void* data, size_t length)
{
    if (field.IsEmpty())
        return false;
    if (!data)
        return KeepChange(field, "null", nullptr, 0);
    if (length == 0)
        return KeepChange(field, "''", data, 0);
    UtCString escaped;
    if (!EscapeBytes(data, length, escaped))
        return LoseChange();
    UtCString sqlValue = sql::Quoted(escaped);
    return sqlValue.IsEmpty() ? LoseChange() : KeepChange(field, std::move(sqlValue), data, length);
}

/// Sets a text made here, which is empty only when there was no memory for it.
bool CMyRecordSet::SetFieldRendered(const UtCString& field, const UtCString& text, MYTYPES type)
{
    if (field.IsEmpty())
        return false;
    return text.IsEmpty() ? LoseChange() : SetFieldValue(field, text, type);
}

bool CMyRecordSet::SetFieldBool(const UtCString& field, bool value)
{
    return SetFieldByte(field, value ? 1 : 0);
}

bool CMyRecordSet::SetFieldByte(const UtCString& field, unsigned char value)
{
    return SetFieldValue(field, UtCString(int{value}), MYTYPE_SHORT);
}

bool CMyRecordSet::SetFieldShort(const UtCString& field, short value)
{
    return SetFieldValue(field, UtCString(int{value}), MYTYPE_SHORT);
}

bool CMyRecordSet::SetFieldWord(const UtCString& field, unsigned short value)
{
    return SetFieldShort(field, static_cast<int16_t>(value)); // KEPT K-90: above 32767 it is sent negative.
}

bool CMyRecordSet::SetFieldLong(const UtCString& field, long value)
{
    return SetFieldValue(field, UtCString(int{static_cast<int32_t>(value)}), MYTYPE_LONG);
}

bool CMyRecordSet::SetFieldDWord(const UtCString& field, unsigned long value)
{
    return SetFieldLong(field, static_cast<int32_t>(value)); // KEPT K-91: above 2147483647 it is sent negative.
}

bool CMyRecordSet::SetFieldInt64(const UtCString& field, __int64 value)
{
    return SetFieldValue(field, UtCString(value), MYTYPE_INT64);
}

bool CMyRecordSet::SetFieldFloat(const UtCString& field, float value)
{
    return SetFieldRendered(field, sql::FloatText(value, field.GetEncodingType()), MYTYPE_FLOAT);
}

bool CMyRecordSet::SetFieldDouble(const UtCString& field, double value)
{
    return SetFieldValue(field, sql::DoubleText(value), MYTYPE_DOUBLE);
}

bool CMyRecordSet::SetFieldText(const UtCString& field, const UtCString& value)
{
    return SetFieldValue(field, value, MYTYPE_TEXT);
}

bool CMyRecordSet::SetFieldBlob(const UtCString& field, const CByteArray& value)
{
    const unsigned char* bytes = value.GetData();
    return KeepBytes(field, bytes ? static_cast<const void*>(bytes) : "", static_cast<size_t>(value.GetSize()));
}

bool CMyRecordSet::SetFieldDate(const UtCString& field, const CDateTime& value)
{
    constexpr unsigned int dateOnly = 11;
    constexpr unsigned int dateAndTime = 9;
    // KEPT K-92: a null date is written as an empty text, never as NULL.
    const UtCString text = value.GetDate(value.IsTimeNull() ? dateOnly : dateAndTime);
    return value.IsNull() ? SetFieldValue(field, text, MYTYPE_DATETIME)
                          : SetFieldRendered(field, text, MYTYPE_DATETIME);
}

bool CMyRecordSet::SetFieldGUID(const UtCString& field, _GUID value)
{
    if (value == _GUID{})
        return SetFieldValue(field, UtCString(), MYTYPE_TEXT);
    return SetFieldRendered(field, sql::KeyValue(value), MYTYPE_TEXT);
}

bool CMyRecordSet::SetFieldNull(const UtCString& field)
{
    if (field.IsEmpty())
        return false;
    const CMyField* declared = DeclaredField(field);
    if (declared && (declared->GetFlags() & NOT_NULL_FLAG) != 0)
        return KeepBytes(field, "", 0); // KEPT K-93: a column that cannot be NULL gets the empty text.
    return KeepBytes(field, nullptr, 0);
}

bool CMyRecordSet::SetFieldOperation(const UtCString& field, const UtCString& expression)
{
    return SetFieldValue(field, expression, MYTYPE_UNKNOWN);
}
