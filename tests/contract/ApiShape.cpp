// What a host application has compiled into itself. Numbers are here; signatures and layouts are in the other files of
// this folder, virtual slots in VirtualSlotsTest.cpp. A change that fails here breaks hosts that are already built; one
// that must be made needs a new SOVERSION.
#include "MyDB.h"

#include <type_traits>

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

// Server information
static_assert(std::is_same_v<std::underlying_type_t<DB_INFOS>, unsigned int>);
static_assert(DB_INFO_REPORT == 0 && DB_INFO_SERVER_VERSION == 1 && DB_INFO_CLIENT_VERSION == 2 && DB_INFO_HOST == 3 &&
              DB_INFO_VERSION == 4);

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
