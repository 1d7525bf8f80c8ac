// What a host application has compiled into itself: layouts, numbers, slots and signatures. A change that fails here
// breaks hosts that are already built; a change that must be made needs a new SOVERSION.
#include "MyDB.h"

#include <type_traits>

// CDateTime crosses the interface by value: eight bytes of OLE automation date, then the status.
static_assert(sizeof(CDateTime) == 16);
static_assert(alignof(CDateTime) == 8);
static_assert(std::is_standard_layout_v<CDateTime>);
static_assert(std::is_trivially_copyable_v<CDateTime>);
static_assert(CDateTime::valid == 0 && CDateTime::invalid == 1 && CDateTime::null == 2);

// Column classification
static_assert(std::is_same_v<std::underlying_type_t<MYTYPES>, unsigned int>);
static_assert(MYTYPE_UNKNOWN == 0);
static_assert(MYTYPE_SHORT == 3);
static_assert(MYTYPE_LONG == 4);
static_assert(MYTYPE_DOUBLE == 7);
static_assert(MYTYPE_TEXT == 10);
static_assert(MYTYPE_BLOB == 11);
static_assert(MYTYPE_MEMO == 12);
static_assert(MYTYPE_INT64 == 16);
static_assert(MYTYPE_FLOAT == 21);
static_assert(MYTYPE_DATETIME == 23);

// Edit bracket
static_assert(std::is_same_v<std::underlying_type_t<eModifyStates>, unsigned int>);
static_assert(MODIFY_NONE == 0 && MODIFY_EDIT == 1 && MODIFY_APPEND == 2 && MODIFY_DELETE == 3);

// Days of the week
static_assert(std::is_same_v<std::underlying_type_t<WEEKDAY>, int>);
static_assert(WEEKDAY_NONE == -1 && SUNDAY == 1 && MONDAY == 2 && TUESDAY == 3 && WEDNESDAY == 4 && THURSDAY == 5 &&
              FRIDAY == 6 && SATURDAY == 7);

// Encodings
static_assert(std::is_same_v<std::underlying_type_t<eUtEncodingType>, int>);
static_assert(UT_ENCODING_DEFAULT == 256);
static_assert(UT_ENCODING_UTF16_LE == 1200);
static_assert(UT_ENCODING_UTF16_BE == 1201);
static_assert(UT_ENCODING_UTF8 == 65001);
static_assert(UT_ENCODING_UTF32 == 65535);

// Message boxes: the numbers of the platform
static_assert(MYDB_MESSAGE_ERROR == 16 && MYDB_MESSAGE_INFORMATION == 64 && MYDB_MESSAGE_QUESTION_YESNO == 36);
static_assert(MYDB_ANSWER_OK == 1 && MYDB_ANSWER_YES == 6 && MYDB_ANSWER_NO == 7);

// Free functions
static_assert(std::is_same_v<decltype(&MyDbMaxTryConnectReached), int (*)()>);
static_assert(std::is_same_v<decltype(&MyDbSetMaxTryConnect), void (*)(unsigned long)>);
static_assert(std::is_same_v<decltype(&TestConnection), bool (*)(const UtCString&, int)>);
static_assert(std::is_same_v<decltype(&MyDbStaticFieldCacheRemove), bool (*)(const UtCString&)>);

// The database classes have run-time class records and are bound to one owner.
static_assert(std::is_base_of_v<CObject, CMyServer>);
static_assert(std::is_base_of_v<CObject, CMyDatabase>);
static_assert(std::is_base_of_v<CObject, CMyRecordSet>);
static_assert(std::is_copy_constructible_v<CMyServer> && std::is_copy_assignable_v<CMyServer>);
static_assert(!std::is_copy_constructible_v<CMyDatabase> && !std::is_copy_assignable_v<CMyDatabase>);
static_assert(!std::is_copy_constructible_v<CMyRecordSet> && !std::is_copy_assignable_v<CMyRecordSet>);

static_assert(std::is_same_v<decltype(&CMyDatabase::Close), bool (CMyDatabase::*)()>);
static_assert(std::is_same_v<decltype(&CMyDatabase::Open), bool (CMyDatabase::*)(bool, const UtCString&)>);
static_assert(std::is_same_v<decltype(&CMyDatabase::CheckAndRepairDatabaseIntegrity), bool (CMyDatabase::*)(bool)>);
static_assert(std::is_same_v<decltype(&CMyDatabase::ExecuteQuery),
                             long (CMyDatabase::*)(const UtCString&, bool, MYSQL_RES**, bool)>);
static_assert(std::is_same_v<decltype(&CMyDatabase::GetErrorCode), unsigned long (CMyDatabase::*)() const>);
static_assert(std::is_same_v<decltype(&CMyDatabase::GetErrorMessage), UtCString (CMyDatabase::*)()>);
static_assert(std::is_same_v<decltype(&CMyDatabase::GetAffectedRows), long (CMyDatabase::*)() const>);
static_assert(std::is_same_v<decltype(&CMyRecordSet::ModifyEnd), bool (CMyRecordSet::*)()>);
static_assert(std::is_same_v<decltype(&CMyRecordSet::AppendEnd), bool (CMyRecordSet::*)()>);
static_assert(std::is_same_v<decltype(&CMyRecordSet::Select), long (CMyRecordSet::*)(const UtCString&, bool, bool)>);
static_assert(std::is_same_v<decltype(&CMyRecordSet::MoveTo), bool (CMyRecordSet::*)(long)>);
