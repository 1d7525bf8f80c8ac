#include "CMyRecordSet.h"
#include "CMyTable.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/FieldCache.h"
#include "metadata/FieldTypes.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"

// Columns of the result and of the table.

namespace {

constexpr unsigned long fewColumns = 4; ///< from here on names are worth an index
constexpr int32_t fewRows = 11;

} // namespace

bool CMyRecordSet::GetFieldNo(const UtCString& name, unsigned long& no) const
{
    no = 0;
    if (m_fieldCount == 0 || name.IsEmpty())
        return false;
    if (!m_fieldNameIndex && IsSearchedPlainly()) {
        const unsigned long found = m_columns->Find(name);
        if (found < m_columns->Count())
            no = found;
        return found < m_columns->Count();
    }
    if (!m_fieldNameIndex && !LoadFieldHash())
        return false;
    const unsigned long* found = m_fieldNameIndex->Find(name);
    if (found)
        no = *found;
    return found != nullptr;
}

/// Whether the result is too small for an index of its names.
bool CMyRecordSet::IsSearchedPlainly() const noexcept
{
    return m_fieldCount < fewColumns ||
           (!IsStreamed() && static_cast<int32_t>(mysql_num_rows(m_result.get())) < fewRows);
}

bool CMyRecordSet::LoadFieldHash() const
{
    if (!m_columns || m_columns->Count() == 0)
        return false;
    return connection::Guarded(false, [&] {
        auto index = std::make_unique<UtCMap<UtCString, unsigned long>>();
        for (unsigned long no = 0; no < m_columns->Count(); ++no) {
            const UtCString name(m_columns->Name(no), UT_ENCODING_DEFAULT); // KEPT K-45: also on a UTF-8 connection.
            const bool isWhole = name.GetByteLength() == m_columns->Name(no).size(); // or there was no memory
            if (!isWhole || (!index->Find(name) && !index->Insert(name, no)))
                return false;
        }
        m_fieldNameIndex = std::move(index);
        return true;
    });
}

const MYSQL_FIELD* CMyRecordSet::ResultField(unsigned long no) const noexcept
{
    return m_columns ? m_columns->Field(no) : nullptr;
}

const MYSQL_FIELD* CMyRecordSet::ResultField(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? ResultField(no) : nullptr;
}

UtCString CMyRecordSet::GetFieldName(unsigned long no) const
{
    return ResultField(no) ? UtCString(m_columns->Name(no), UT_ENCODING_DEFAULT) : UtCString();
}

bool CMyRecordSet::GetFieldCharsetNr(unsigned long no, unsigned int& nr) const
{
    const MYSQL_FIELD* field = ResultField(no);
    if (!field)
        return false;
    if (!m_tableName.IsEmpty()) // KEPT K-33: the declared character set counts, not that of the connection.
        return GetFieldCharsetNr(GetFieldName(no), nr);
    nr = field->charsetnr;
    return true;
}

bool CMyRecordSet::GetFieldCharsetNr(const UtCString& name, unsigned int& nr) const
{
    if (!m_tableName.IsEmpty())
        return connection::Guarded(false, [&] { return CMyTable(GetDB(), m_tableName).GetFieldCharsetNr(name, nr); });
    unsigned long no = 0;
    return GetFieldNo(name, no) && GetFieldCharsetNr(no, nr);
}

long CMyRecordSet::GetFieldSize(const UtCString& name) const
{
    const MYSQL_FIELD* field = ResultField(name);
    return field ? static_cast<int32_t>(field->length) : 0; // KEPT K-34: 4294967295 reads as -1.
}

MYTYPES CMyRecordSet::GetFieldType(unsigned long no) const
{
    const MYSQL_FIELD* field = ResultField(no);
    return field ? metadata::ClassifyField(*field) : MYTYPE_UNKNOWN;
}

MYTYPES CMyRecordSet::GetFieldType(const UtCString& name) const
{
    const MYSQL_FIELD* field = ResultField(name);
    return field ? metadata::ClassifyField(*field) : MYTYPE_UNKNOWN;
}

namespace {

UtCString TypeName(const MYSQL_FIELD* field)
{
    return field ? metadata::FieldTypeName(field->type, field->length) : UtCString("fehler!");
}

} // namespace

UtCString CMyRecordSet::GetFieldTypeString(unsigned long no) const
{
    return TypeName(ResultField(no));
}

UtCString CMyRecordSet::GetFieldTypeString(const UtCString& name) const
{
    return TypeName(ResultField(name));
}

CMyField CMyRecordSet::GetField(const UtCString& name) const
{
    const MYSQL_FIELD* field = ResultField(name);
    if (!field)
        return CMyField();
    return CMyField(UtCString(std::string_view(field->name, field->name_length), UT_ENCODING_DEFAULT),
                    metadata::ClassifyField(*field), 0, static_cast<uint32_t>(field->length), field->flags,
                    field->decimals, UtCString(field->def), 0);
}

const CMyField* CMyRecordSet::GetTableFieldPtr(const UtCString& name) const
{
    return LoadTableEntry() ? m_tableEntry->GetField(name) : nullptr;
}

const CMyField* CMyRecordSet::GetTableFieldPtr(long no) const
{
    return LoadTableEntry() ? m_tableEntry->GetField(static_cast<unsigned long>(no)) : nullptr;
}

bool CMyRecordSet::LoadTableEntry() const
{
    return LoadTableEntry(GetDB());
}

bool CMyRecordSet::LoadTableEntry(CMyDatabase* connection) const
{
    m_tableEntry = connection::Guarded(std::shared_ptr<CTableCache>(),
                                       [&] { return CFieldCache::Instance().GetOrLoad(connection, m_tableName); });
    m_tableEntryGeneration = CFieldCache::Instance().GetGeneration();
    return m_tableEntry != nullptr;
}

MYTYPES CMyRecordSet::GetTableFieldType(const UtCString& name) const
{
    const CMyField* field = GetTableFieldPtr(name);
    return field ? field->GetFieldType() : MYTYPE_UNKNOWN;
}
