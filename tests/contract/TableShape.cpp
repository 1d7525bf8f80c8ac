// As ApiShape.cpp, for the table handle and the descriptor of a column.
#include "MyDB.h"

#include <type_traits>

// Storage engines
static_assert(std::is_same_v<std::underlying_type_t<eTableTypes>, unsigned int>);
static_assert(TABLE_TYPE_UNKNOWN == 0 && TABLE_TYPE_MYISAM == 1 && TABLE_TYPE_INNODB == 2 && TABLE_TYPE_BDB == 3 &&
              TABLE_TYPE_MEMORY == 4 && TABLE_TYPE_MERGE == 5 && TABLE_TYPE_EXAMPLE == 6 && TABLE_TYPE_FEDERATED == 7 &&
              TABLE_TYPE_ARCHIVE == 8 && TABLE_TYPE_CSV == 9 && TABLE_TYPE_BLACKHOLE == 10);

// Results of checks
static_assert(std::is_same_v<std::underlying_type_t<eTABLE_CHECK>, unsigned int>);
static_assert(std::is_same_v<std::underlying_type_t<eDB_CHECK>, unsigned int>);
static_assert(TABLE_CHECK_OK == 0 && TABLE_CHECK_INVALID == 1 && TABLE_CHECK_REPAIRABLE == 2 &&
              TABLE_CHECK_DEFECT == 3);
static_assert(DB_CHECK_OK == 0 && DB_CHECK_REPAIRABLE == 1 && DB_CHECK_DEFECT == 2);

// A handle is a value without virtual members.
static_assert(!std::is_polymorphic_v<CMyTable>);
static_assert(std::is_constructible_v<CMyTable, const CMyDatabase*, const UtCString&>);
static_assert(std::is_copy_constructible_v<CMyTable> && std::is_copy_assignable_v<CMyTable>);
static_assert(!std::is_default_constructible_v<CMyTable>);

template <typename Result, typename... Arguments> using Question = Result (CMyTable::*)(Arguments...) const;

static_assert(std::is_same_v<decltype(&CMyTable::IsValid), Question<bool>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetTableName), Question<const UtCString&>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetEncodingType), Question<eUtEncodingType>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetFieldCount), Question<long>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetFieldNo), Question<bool, const UtCString&, unsigned long&>>);
static_assert(std::is_same_v<decltype(&CMyTable::ExistField), Question<bool, const UtCString&>>);
[[maybe_unused]] constexpr Question<const CMyField*, const UtCString&> fieldByName = &CMyTable::GetField;
[[maybe_unused]] constexpr Question<const CMyField*, unsigned long> fieldByPosition = &CMyTable::GetField;
static_assert(std::is_same_v<decltype(&CMyTable::GetFieldName), Question<UtCString, unsigned long>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetFieldType), Question<MYTYPES, const UtCString&>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetFieldTypeString), Question<UtCString, const UtCString&>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetFieldSize), Question<long, const UtCString&>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetFieldCharsetNr), Question<bool, const UtCString&, unsigned int&>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetFields), Question<UtCString, const UtCString&>>);
static_assert(std::is_same_v<decltype(&CMyTable::RemoveFieldsFromFieldList),
                             Question<UtCString, const UtCString&, const UtCString&>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetPrimaryKeyFieldName), Question<UtCString>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetTableType), Question<eTableTypes>>);
static_assert(std::is_same_v<decltype(&CMyTable::SupportTransaction), Question<bool>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetRecordCount), Question<long>>);
static_assert(std::is_same_v<decltype(&CMyTable::IsEmpty), Question<bool>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetTableDataSize), Question<__int64>>);
static_assert(std::is_same_v<decltype(&CMyTable::GetTableIndexSize), Question<__int64>>);
static_assert(std::is_same_v<decltype(&CMyTable::CheckTable), eTABLE_CHECK (CMyTable::*)(UtCString*)>);
static_assert(std::is_same_v<decltype(&CMyTable::RegisterTable), bool (CMyTable::*)(bool)>);
static_assert(std::is_same_v<decltype(&CMyTable::UnregisterTable), bool (CMyTable::*)()>);
static_assert(std::is_same_v<decltype(&CMyTable::ClearTableCache), void (CMyTable::*)()>);

// A descriptor is copied by value.
static_assert(!std::is_polymorphic_v<CMyField>);
static_assert(std::is_default_constructible_v<CMyField> && std::is_copy_constructible_v<CMyField>);
