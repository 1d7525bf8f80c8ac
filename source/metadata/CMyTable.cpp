#include "CMyTable.h"

#include "CMyDatabase.h"
#include "connection/Guarded.h"
#include "metadata/FieldCache.h"
#include "metadata/FieldList.h"
#include "metadata/FieldTypes.h"

#include <cstdint>

CMyTable::CMyTable(const CMyDatabase* database, const UtCString& name)
    : m_tableName(name), m_database(const_cast<CMyDatabase*>(database)),
      m_entry(CFieldCache::Instance().GetOrLoad(m_database, name))
{
}

CMyTable::CMyTable(const CMyTable& other) = default;

CMyTable& CMyTable::operator=(const CMyTable& other) = default;

CMyTable::~CMyTable() = default;

bool CMyTable::IsValid() const
{
    return m_entry != nullptr;
}

const UtCString& CMyTable::GetTableName() const
{
    return m_tableName;
}

eUtEncodingType CMyTable::GetEncodingType() const
{
    return m_database ? m_database->GetServer().GetEncodingType() : UT_ENCODING_DEFAULT;
}

long CMyTable::GetFieldCount() const
{
    return m_entry ? static_cast<long>(m_entry->GetFieldCount()) : 0;
}

bool CMyTable::GetFieldNo(const UtCString& name, unsigned long& no) const
{
    return m_entry && m_entry->FindField(name, no);
}

bool CMyTable::ExistField(const UtCString& name) const
{
    return GetField(name) != nullptr;
}

const CMyField* CMyTable::GetField(const UtCString& name) const
{
    return m_entry ? m_entry->GetField(name) : nullptr;
}

const CMyField* CMyTable::GetField(unsigned long no) const
{
    return m_entry ? m_entry->GetField(no) : nullptr;
}

UtCString CMyTable::GetFieldName(unsigned long no) const
{
    const CMyField* field = GetField(no);
    return field ? field->GetName() : UtCString();
}

MYTYPES CMyTable::GetFieldType(const UtCString& name) const
{
    const CMyField* field = GetField(name);
    return field ? field->GetFieldType() : MYTYPE_UNKNOWN;
}

UtCString CMyTable::GetFieldTypeString(const UtCString& name) const
{
    const CMyField* field = GetField(name);
    return field ? metadata::FieldTypeName(field->GetMySQLType(), field->GetLength()) : UtCString("fehler!");
}

long CMyTable::GetFieldSize(const UtCString& name) const
{
    const CMyField* field = GetField(name);
    return field ? static_cast<int32_t>(field->GetLength()) : 0;
}

bool CMyTable::GetFieldCharsetNr(const UtCString& name, unsigned int& nr) const
{
    const CMyField* field = GetField(name);
    if (!field)
        return false;
    nr = field->GetCharsetNr();
    return true;
}

UtCString CMyTable::GetFields(const UtCString& exclude) const
{
    if (!m_entry)
        return UtCString();
    const UtCString list = metadata::FieldList(*m_entry);
    return exclude.IsEmpty() ? list : RemoveFieldsFromFieldList(list, exclude);
}

UtCString CMyTable::RemoveFieldsFromFieldList(const UtCString& list, const UtCString& exclude) const
{
    return connection::Guarded(UtCString(), [&] { return metadata::WithoutFields(list, exclude); });
}

UtCString CMyTable::GetPrimaryKeyFieldName() const
{
    return m_entry ? metadata::PrimaryKeyFields(*m_entry) : UtCString();
}

eTableTypes CMyTable::GetTableType() const
{
    return m_entry ? metadata::TableTypeOfEngine(m_entry->GetEngine()) : TABLE_TYPE_UNKNOWN;
}

bool CMyTable::SupportTransaction() const
{
    return m_entry && m_entry->IsTransactional();
}

bool CMyTable::RegisterTable(bool reload)
{
    if (!reload && m_entry)
        return true;
    if (reload)
        CFieldCache::Instance().Remove(m_tableName);
    m_entry = CFieldCache::Instance().GetOrLoad(m_database, m_tableName);
    return m_entry != nullptr;
}

bool CMyTable::UnregisterTable()
{
    if (!CFieldCache::Instance().Remove(m_tableName))
        return false;
    m_entry.reset();
    return true;
}

void CMyTable::ClearTableCache()
{
    CFieldCache& cache = CFieldCache::Instance();
    cache.RemoveAll();
    cache.Remove(m_tableName);
    // KEPT K-23: the entry is asked for twice in a row.
    cache.GetOrLoad(m_database, m_tableName);
    m_entry = cache.GetOrLoad(m_database, m_tableName);
}
