#pragma once

/// The library's classification of columns. The values cross the interface; the gaps are deliberate.
enum MYTYPES : unsigned int
{
    MYTYPE_UNKNOWN = 0,
    MYTYPE_SHORT = 3,
    MYTYPE_LONG = 4,
    MYTYPE_DOUBLE = 7,
    MYTYPE_TEXT = 10,
    MYTYPE_BLOB = 11,
    MYTYPE_MEMO = 12,
    MYTYPE_INT64 = 16,
    MYTYPE_FLOAT = 21,
    MYTYPE_DATETIME = 23
};

/// State of a record set's edit bracket.
enum eModifyStates : unsigned int
{
    MODIFY_NONE = 0,
    MODIFY_EDIT = 1,
    MODIFY_APPEND = 2,
    MODIFY_DELETE = 3
};

/// Day of the week; -1 (`WEEKDAY_NONE`): no valid date.
enum WEEKDAY : int
{
    WEEKDAY_NONE = -1,
    SUNDAY = 1,
    MONDAY = 2,
    TUESDAY = 3,
    WEDNESDAY = 4,
    THURSDAY = 5,
    FRIDAY = 6,
    SATURDAY = 7
};
