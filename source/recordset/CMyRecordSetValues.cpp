#include "CMyRecordSet.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "datetime/ServerDate.h"
#include "framework/GuidText.h"
#include "metadata/FieldCache.h"
#include "metadata/FieldTypes.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"
#include "text/NumberText.h"

#include <algorithm>
#include <new>
#include <string_view>

// Values by position.

using recordset::ResultColumns;

namespace {

/// `bytes` in `source` as a text in the encoding that `text` has.
void AssignText(std::string_view bytes, eUtEncodingType source, UtCString& text)
{
    const eUtEncodingType target = text.GetEncodingType();
    if (source == ResultColumns::unconverted)
        source = text::IsUtf16(target) ? UT_ENCODING_DEFAULT : target;
    text.SetMemCopy(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), source);
    if (source != target)
        text.ChangeEncodingType(target);
}

bool HoldsDigitsAsBytes(eUtEncodingType encoding)
{
    return !text::IsUtf16(encoding);
}

bool Parse(std::string_view text, int32_t& number)
{
    return text::ParseInt32(text, number);
}

bool Parse(std::string_view text, int64_t& number)
{
    return text::ParseInt64(text, number);
}

bool Parse(std::string_view text, double& number)
{
    return text::ParseDouble(text, number);
}

bool Parse(std::string_view text, float& number)
{
    return text::ParseFloat(text, number);
}

} // namespace

CMyRecordSet::Value CMyRecordSet::ReadValue(unsigned long no) const
{
    if (!HasCell(no) || !m_currentRow[no]) // KEPT K-35: NULL in the row hides a pending change.
        return {nullptr, 0};
    if (m_pendingChanges) {
        if (recordset::PendingChange* change = m_pendingChanges->FindNoCase(m_columns->Name(no)))
            return {change->Data(), change->Size()};
    }
    return {m_currentRow[no], m_lengths[no]};
}

char* CMyRecordSet::GetFieldValue(unsigned long no) const
{
    return ReadValue(no).data;
}

/// The encoding of the server's bytes of a column.
eUtEncodingType CMyRecordSet::SourceEncoding(unsigned long no) const
{
    if (!m_columns->IsText(no))
        return ResultColumns::unconverted;
    if (!m_columns->KnowsEncodings(CFieldCache::Instance().GetGeneration()))
        LearnEncodings();
    return m_columns->Encoding(no);
}

/// Asks once for all columns: each loading of a table may change the cache again.
void CMyRecordSet::LearnEncodings() const
{
    const CTableCache* entry = m_tableName.IsEmpty() ? nullptr : EntryForTexts();
    for (unsigned long no = 0; no < m_columns->Count(); ++no) {
        if (m_columns->IsText(no))
            m_columns->SetEncoding(no, EncodingFor(no, entry));
    }
    m_columns->SetEncodingsKnown(CFieldCache::Instance().GetGeneration());
}

eUtEncodingType CMyRecordSet::EncodingFor(unsigned long no, const CTableCache* entry) const
{
    if (m_tableName.IsEmpty())
        return metadata::EncodingOfCharset(m_columns->Field(no)->charsetnr);
    const CMyField* declared = entry ? entry->GetField(GetFieldName(no)) : nullptr;
    return declared ? metadata::EncodingOfCharset(declared->GetCharsetNr()) : ResultColumns::unconverted;
}

/// While a stream is being read, its connection cannot load a table: the attempt would only leave an error (2014) that
/// hides the one of a broken stream. KEPT K-43: its texts stay unconverted then.
const CTableCache* CMyRecordSet::EntryForTexts() const
{
    const CFieldCache& cache = CFieldCache::Instance();
    if (m_tableEntry && m_tableEntryGeneration == cache.GetGeneration())
        return m_tableEntry.get();
    unsigned long position = 0;
    if (IsStreamed() && !cache.Find(m_tableName, position))
        return nullptr;
    return LoadTableEntry() ? m_tableEntry.get() : nullptr;
}

bool CMyRecordSet::GetFieldText(unsigned long no, UtCString& text) const
{
    const Value value = ReadValue(no);
    if (value.data)
        AssignText({value.data, value.size}, SourceEncoding(no), text);
    else
        text.SetEmpty();
    return true;
}

UtCString CMyRecordSet::GetFieldTextInternal(unsigned long no) const
{
    UtCString text(GetEncodingType());
    GetFieldText(no, text);
    return text;
}

/// A number is the text of the value, converted. Where that text has the value's own bytes for digits they are read in
/// place.
template <class Number> Number CMyRecordSet::ReadNumber(unsigned long no) const
{
    const Value value = ReadValue(no);
    Number number = 0;
    if (!value.data)
        return number;
    const eUtEncodingType source = SourceEncoding(no);
    if (HoldsDigitsAsBytes(source))
        Parse({value.data, value.size}, number);
    else
        Parse(UtCString(UtCString(std::string_view(value.data, value.size), source), UT_ENCODING_UTF8).View(), number);
    return number;
}

long CMyRecordSet::GetFieldLong(unsigned long no) const
{
    return ReadNumber<int32_t>(no);
}

unsigned long CMyRecordSet::GetFieldDWord(unsigned long no) const
{
    return static_cast<uint32_t>(ReadNumber<int32_t>(no)); // KEPT K-36: a signed conversion taken as unsigned.
}

short CMyRecordSet::GetFieldShort(unsigned long no) const
{
    return static_cast<short>(ReadNumber<int32_t>(no)); // KEPT K-37: cut to the width, not checked.
}

unsigned short CMyRecordSet::GetFieldWord(unsigned long no) const
{
    return static_cast<unsigned short>(ReadNumber<int32_t>(no));
}

unsigned char CMyRecordSet::GetFieldByte(unsigned long no) const
{
    return static_cast<unsigned char>(ReadNumber<int32_t>(no));
}

bool CMyRecordSet::GetFieldBool(unsigned long no) const
{
    return ReadNumber<int32_t>(no) != 0; // KEPT K-48: only numbers are true, not words.
}

__int64 CMyRecordSet::GetFieldInt64(unsigned long no) const
{
    return ReadNumber<int64_t>(no);
}

double CMyRecordSet::GetFieldDouble(unsigned long no) const
{
    return ReadNumber<double>(no);
}

float CMyRecordSet::GetFieldFloat(unsigned long no) const
{
    return ReadNumber<float>(no);
}

CDateTime CMyRecordSet::GetFieldDate(unsigned long no) const
{
    const Value value = ReadValue(no);
    return datetime::FromServerText({value.data, value.size});
}

_GUID CMyRecordSet::GetFieldGUID(unsigned long no) const
{
    const Value value = ReadValue(no);
    return framework::GuidFromLooseText(UtCString(std::string_view(value.data, value.size), UT_ENCODING_DEFAULT));
}

bool CMyRecordSet::IsFieldNull(unsigned long no) const
{
    return !ReadValue(no).data;
}

bool CMyRecordSet::IsFieldEmpty(unsigned long no) const
{
    return ReadValue(no).size == 0;
}

// KEPT K-44: the raw accessors read the row, not the pending changes.

bool CMyRecordSet::GetFieldBlob(unsigned long no, CByteArray& bytes) const
{
    if (!HasCell(no))
        return false;
    return connection::Guarded(false, [&] {
        bytes.SetSize(static_cast<intptr_t>(m_lengths[no]));
        std::copy_n(m_currentRow[no], m_lengths[no], bytes.GetData());
        return true;
    });
}

const void* CMyRecordSet::GetFieldDataPtr(unsigned long no) const
{
    return HasCell(no) ? m_currentRow[no] : nullptr;
}

unsigned long CMyRecordSet::GetFieldDataLen(unsigned long no) const
{
    return HasCell(no) ? m_lengths[no] : 0;
}

void CMyRecordSet::String2CDateTime(const UtCString& text, CDateTime& dateTime) const
{
    dateTime = datetime::FromServerText(UtCString(text, UT_ENCODING_DEFAULT).View());
}
