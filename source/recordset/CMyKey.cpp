#include "CMyKey.h"

#include "CMyRecordSet.h"
#include "metadata/TableCache.h"
#include "sql/KeyClause.h"
#include "sql/KeyValue.h"
#include "text/TextBuilder.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace {

constexpr int itemsPerCondition = 3;

} // namespace

CMyKey::CMyKey() = default;

CMyKey::~CMyKey() = default;

CMyKey::CMyKey(const CMyKey& other) : UtCStringList(other)
{
    m_isIncomplete = other.m_isIncomplete || GetCount() != other.GetCount();
}

CMyKey& CMyKey::operator=(const CMyKey& other)
{
    if (this == &other)
        return *this;
    Clear();
    UtCStringList::operator=(other);
    m_isIncomplete = other.m_isIncomplete || GetCount() != other.GetCount();
    return *this;
}

CMyKey::CMyKey(const UtCString& field, const UtCString& value, const UtCString& op)
{
    Add(field, value, op);
}

CMyKey::CMyKey(const UtCString& field, const char* value, const UtCString& op)
{
    Add(field, value, op);
}

CMyKey::CMyKey(const UtCString& field, int value, const UtCString& op)
{
    Add(field, value, op);
}

CMyKey::CMyKey(const UtCString& field, long value, const UtCString& op)
{
    Add(field, value, op);
}

CMyKey::CMyKey(const UtCString& field, unsigned long value, const UtCString& op)
{
    Add(field, value, op);
}

CMyKey::CMyKey(const UtCString& field, _GUID value, const UtCString& op)
{
    Add(field, value, op);
}

// --- Adding

CMyKey& CMyKey::Add(const UtCString& field, const UtCString& value, const UtCString& op)
{
    return AddEscaped(field, value.View(), value.GetEncodingType(), op);
}

CMyKey& CMyKey::Add(const UtCString& field, const char* value, const UtCString& op)
{
    return AddEscaped(field, value ? value : "", UT_ENCODING_DEFAULT, op);
}

CMyKey& CMyKey::Add(const UtCString& field, const CDateTime& value, const UtCString& op)
{
    return AddRendered(field, sql::KeyValue(value), op);
}

CMyKey& CMyKey::Add(const UtCString& field, short value, const UtCString& op)
{
    return AddRendered(field, UtCString(value), op);
}

CMyKey& CMyKey::Add(const UtCString& field, int value, const UtCString& op)
{
    return AddRendered(field, UtCString(value), op);
}

CMyKey& CMyKey::Add(const UtCString& field, long value, const UtCString& op)
{
    return AddRendered(field, UtCString(value), op);
}

CMyKey& CMyKey::Add(const UtCString& field, unsigned long value, const UtCString& op)
{
    return AddRendered(field, UtCString(value), op);
}

CMyKey& CMyKey::Add(const UtCString& field, double value, const UtCString& op)
{
    return AddRendered(field, sql::KeyValue(value), op);
}

CMyKey& CMyKey::Add(const UtCString& field, _GUID value, const UtCString& op)
{
    return AddRendered(field, sql::KeyValue(value), op);
}

CMyKey& CMyKey::Add(const UtCString& field, bool value, const UtCString& op)
{
    return AddRendered(field, sql::KeyValue(value), op);
}

void CMyKey::Append(const UtCString& field, const UtCString& value, const UtCString& op)
{
    const std::string_view inner = sql::WithoutQuotes(value.View(), value.GetEncodingType());
    if (inner.empty())
        return Store(field, UtCString(value.GetEncodingType()), op);
    AddRendered(field, UtCString(inner, value.GetEncodingType()), op);
}

CMyKey& CMyKey::AddEscaped(const UtCString& field, std::string_view value, eUtEncodingType encoding,
                           const UtCString& op)
{
    if (!value.empty())
        return AddRendered(field, sql::EscapedKeyValue(value, encoding, op), op);
    Store(field, UtCString(encoding), op);
    return *this;
}

/// Takes what Append would leave of a rendering: an escaped text has no quote at its beginning, the others have none.
CMyKey& CMyKey::AddRendered(const UtCString& field, UtCString&& value, const UtCString& op)
{
    if (value.IsEmpty()) // no memory: nothing renders as the empty text
        m_isIncomplete = true;
    else
        Store(field, std::move(value), op);
    return *this;
}

// The three texts are complete before the list changes: field and operator may be items of it.
void CMyKey::Store(const UtCString& field, UtCString&& value, const UtCString& op)
{
    std::array<UtCString, itemsPerCondition> items = {field.toUpper(), op.IsEmpty() ? UtCString("=") : op,
                                                      std::move(value)};
    const bool areWhole = items[0].IsEmpty() == field.IsEmpty() && !items[1].IsEmpty();
    if (!areWhole || !AddMoved(items))
        m_isIncomplete = true;
}

void CMyKey::Clear()
{
    UtCStringList::Clear();
    m_isIncomplete = false;
}

// --- Reading

bool CMyKey::IsEmpty() const
{
    return GetCount() == 0 && !m_isIncomplete;
}

int CMyKey::GetFieldCount() const
{
    return GetCount(); // KEPT K-80: items, three per condition.
}

UtCString CMyKey::ItemOf(int condition, int part) const
{
    const int64_t position = int64_t{condition} * itemsPerCondition + part;
    return condition >= 0 && position < GetCount() ? item(static_cast<int>(position)) : UtCString();
}

UtCString CMyKey::GetFieldName(int n) const
{
    return ItemOf(n, 0);
}

UtCString CMyKey::GetOperator(int n) const
{
    return ItemOf(n, 1);
}

UtCString CMyKey::GetFieldValue(int n) const
{
    return ItemOf(n, 2);
}

UtCString CMyKey::GetFirstFieldName() const
{
    return GetFieldName(0);
}

// --- Clauses

bool CMyKey::HasWholeConditions() const noexcept
{
    return !m_isIncomplete && GetCount() % itemsPerCondition == 0;
}

UtCString CMyKey::CreateClause(const CMyRecordSet* recordSet) const
{
    const eUtEncodingType encoding = recordSet ? recordSet->GetEncodingType() : UT_ENCODING_DEFAULT;
    if (!recordSet || IsEmpty())
        return UtCString(encoding);
    const UtCString& table = recordSet->GetTableName();
    if (table.IsEmpty())
        return sql::NoTableName(encoding);
    if (!HasWholeConditions())
        return sql::ClauseFailure();
    const CTableCache* const entry = recordSet->EntryForTexts();
    text::TextBuilder clause(encoding, ClauseSize(table, encoding));
    for (int first = 0; first < GetCount(); first += itemsPerCondition) {
        const sql::Condition condition = {table, item(first), item(first + 1), item(first + 2)};
        const CMyField* const column = entry ? entry->GetField(condition.field) : nullptr;
        if (!column || !sql::CanBeNamed(condition))
            return sql::FieldNotExist(condition, encoding);
        if (first != 0)
            clause.Append(" AND ", UT_ENCODING_DEFAULT);
        sql::AppendComparison(clause, condition, column->GetFieldType());
    }
    return sql::TakeClause(clause);
}

/// So that the clause takes one block of memory.
size_t CMyKey::ClauseSize(const UtCString& table, eUtEncodingType encoding) const noexcept
{
    size_t size = 0;
    for (int first = 0; first < GetCount(); first += itemsPerCondition)
        size += sql::ComparisonSize({table, item(first), item(first + 1), item(first + 2)}, encoding);
    return size;
}

UtCString CMyKey::CreateOrderClause(const CMyRecordSet* recordSet) const
{
    const eUtEncodingType encoding = recordSet ? recordSet->GetEncodingType() : UT_ENCODING_DEFAULT;
    if (!recordSet || IsEmpty() || !HasWholeConditions() || recordSet->GetTableName().IsEmpty())
        return UtCString(encoding);
    const UtCString& table = recordSet->GetTableName();
    const CTableCache* const entry = recordSet->EntryForTexts();
    text::TextBuilder list(encoding);
    for (int first = 0; first < GetCount(); first += itemsPerCondition) {
        const sql::Condition condition = {table, item(first), item(first + 1), item(first + 2)};
        if (!entry || !entry->GetField(condition.field))
            return UtCString(encoding); // KEPT K-87: one unknown column, no order at all.
        if (first != 0)
            list.Append(", ", UT_ENCODING_DEFAULT);
        sql::AppendOrderEntry(list, condition);
    }
    return list.Take();
}
