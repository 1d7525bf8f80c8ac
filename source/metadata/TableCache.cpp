#include "metadata/TableCache.h"

#include <new>

CTableCache::CTableCache(const UtCString& key) : m_name(key) {}

unsigned long CTableCache::GetFieldCount() const noexcept
{
    return static_cast<unsigned long>(m_fields.GetCount());
}

const CMyField* CTableCache::GetField(unsigned long position) const noexcept
{
    return position < m_fields.GetCount() ? m_fields[position].get() : nullptr;
}

const CMyField* CTableCache::GetField(const UtCString& name) const
{
    unsigned long position = 0;
    return FindField(name, position) ? GetField(position) : nullptr;
}

bool CTableCache::FindField(const UtCString& name, unsigned long& position) const
{
    if (name.IsEmpty())
        return false;
    const unsigned long* found = m_fieldIndex.Find(name);
    if (!found) // a name in upper case, as keys have it, takes no copy
        found = m_fieldIndex.Find(name.toUpper());
    if (!found)
        return false;
    position = *found;
    return true;
}

bool CTableCache::AppendField(const CMyField& field)
{
    std::unique_ptr<CMyField> copy(new (std::nothrow) CMyField(field));
    if (!copy || !m_fields.Add(std::move(copy)))
        return false;
    return m_fieldIndex.Set(field.GetName().toUpper(), GetFieldCount() - 1);
}

void CTableCache::SetEngine(const UtCString& engine)
{
    m_engine = engine;
    m_transactional = engine.EqualNoCase("InnoDB");
}
