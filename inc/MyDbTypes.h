#pragma once

/// The library's classification of columns. The values cross the interface; the gaps are deliberate.
enum MYTYPES : unsigned int
{
    /// decimal, YEAR, BIT, geometry, anything else; also "no such column". (ENUM and SET come from the server as
    /// strings.)
    MYTYPE_UNKNOWN = 0,
    MYTYPE_SHORT = 3,    ///< TINYINT (also TINYINT(1): there is no boolean class) and SMALLINT
    MYTYPE_LONG = 4,     ///< INT
    MYTYPE_DOUBLE = 7,   ///< DOUBLE
    MYTYPE_TEXT = 10,    ///< CHAR, VARCHAR, BINARY, VARBINARY
    MYTYPE_BLOB = 11,    ///< the BLOB types, and TEXT types with a _bin collation: only the flags tell
    MYTYPE_MEMO = 12,    ///< the other TEXT types
    MYTYPE_INT64 = 16,   ///< BIGINT, and MEDIUMINT on purpose
    MYTYPE_FLOAT = 21,   ///< FLOAT
    MYTYPE_DATETIME = 23 ///< TIMESTAMP, DATE, TIME, DATETIME
};

/// The storage engine of a table (CMyTable::GetTableType). The values cross the interface.
enum eTableTypes : unsigned int
{
    TABLE_TYPE_UNKNOWN = 0, ///< any other engine, a view, or no metadata
    TABLE_TYPE_MYISAM = 1,
    TABLE_TYPE_INNODB = 2,
    TABLE_TYPE_BDB = 3,
    TABLE_TYPE_MEMORY = 4, ///< also under its older name HEAP
    TABLE_TYPE_MERGE = 5,
    TABLE_TYPE_EXAMPLE = 6,
    TABLE_TYPE_FEDERATED = 7,
    TABLE_TYPE_ARCHIVE = 8,
    TABLE_TYPE_CSV = 9,
    TABLE_TYPE_BLACKHOLE = 10
};

/// What CMyDatabase::GetInfo tells. The values cross the interface.
enum DB_INFOS : unsigned int
{
    DB_INFO_REPORT = 0,         ///< the server report
    DB_INFO_SERVER_VERSION = 1, ///< the version of the server
    DB_INFO_CLIENT_VERSION = 2, ///< the version of the client library
    DB_INFO_HOST = 3,           ///< how the server is reached, and whether the traffic is compressed
    DB_INFO_VERSION = 4         ///< the same as 1
};

/// What CMyTable::CheckTable found. The values cross the interface; programs store them.
enum eTABLE_CHECK : unsigned int
{
    TABLE_CHECK_OK = 0,         ///< no error; also when the check itself failed
    TABLE_CHECK_INVALID = 1,    ///< the handle has no table name or no connection
    TABLE_CHECK_REPAIRABLE = 2, ///< errors, none of them fatal
    TABLE_CHECK_DEFECT = 3 ///< an error that only a backup mends: a definition or data file is missing or unreadable
};

/// What CMyDatabase::CheckDatabaseIntegrity found. The values cross the interface; programs store them.
enum eDB_CHECK : unsigned int
{
    DB_CHECK_OK = 0,         ///< no error; also without tables, without a name, and when the check itself failed
    DB_CHECK_REPAIRABLE = 1, ///< errors, none of them fatal
    DB_CHECK_DEFECT = 2      ///< an error that only a backup mends
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
