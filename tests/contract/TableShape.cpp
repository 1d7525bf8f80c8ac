// As ApiShape.cpp, for the table handle and the descriptor of a column.
#include "MyDB.h"

#include "Shape.h"

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

EXPORTED(Has<Question<bool>>(&CMyTable::IsValid));
EXPORTED(Has<Question<const UtCString&>>(&CMyTable::GetTableName));
EXPORTED(Has<Question<eUtEncodingType>>(&CMyTable::GetEncodingType));
EXPORTED(Has<Question<long>>(&CMyTable::GetFieldCount));
EXPORTED(Has<Question<bool, const UtCString&, unsigned long&>>(&CMyTable::GetFieldNo));
EXPORTED(Has<Question<bool, const UtCString&>>(&CMyTable::ExistField));
EXPORTED(Has<Question<const CMyField*, const UtCString&>>(&CMyTable::GetField));
EXPORTED(Has<Question<const CMyField*, unsigned long>>(&CMyTable::GetField));
EXPORTED(Has<Question<UtCString, unsigned long>>(&CMyTable::GetFieldName));
EXPORTED(Has<Question<MYTYPES, const UtCString&>>(&CMyTable::GetFieldType));
EXPORTED(Has<Question<UtCString, const UtCString&>>(&CMyTable::GetFieldTypeString));
EXPORTED(Has<Question<long, const UtCString&>>(&CMyTable::GetFieldSize));
EXPORTED(Has<Question<bool, const UtCString&, unsigned int&>>(&CMyTable::GetFieldCharsetNr));
EXPORTED(Has<Question<UtCString, const UtCString&>>(&CMyTable::GetFields));
EXPORTED(Has<Question<UtCString, const UtCString&, const UtCString&>>(&CMyTable::RemoveFieldsFromFieldList));
EXPORTED(Has<Question<UtCString>>(&CMyTable::GetPrimaryKeyFieldName));
EXPORTED(Has<Question<eTableTypes>>(&CMyTable::GetTableType));
EXPORTED(Has<Question<bool>>(&CMyTable::SupportTransaction));
EXPORTED(Has<Question<long>>(&CMyTable::GetRecordCount));
EXPORTED(Has<Question<bool>>(&CMyTable::IsEmpty));
EXPORTED(Has<Question<__int64>>(&CMyTable::GetTableDataSize));
EXPORTED(Has<Question<__int64>>(&CMyTable::GetTableIndexSize));
EXPORTED(Has<eTABLE_CHECK (CMyTable::*)(UtCString*)>(&CMyTable::CheckTable));
EXPORTED(Has<bool (CMyTable::*)(bool)>(&CMyTable::RegisterTable));
EXPORTED(Has<bool (CMyTable::*)()>(&CMyTable::UnregisterTable));
EXPORTED(Has<void (CMyTable::*)()>(&CMyTable::ClearTableCache));

// A descriptor is copied by value.
static_assert(!std::is_polymorphic_v<CMyField>);
static_assert(std::is_default_constructible_v<CMyField> && std::is_copy_constructible_v<CMyField>);
