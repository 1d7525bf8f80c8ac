#pragma once

#include "CMyField.h"
#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "text/UtCString.h"

#include <memory>

class CMyDatabase;
class CTableCache;

/// A light handle on one table of a connection: answers questions about its columns, its storage engine and its size.
///
/// What it says of the columns and the engine comes from the table's entry in the process-wide cache of table metadata.
/// Creating the handle loads the entry from the server when the cache does not have it; after that only the counts and
/// sizes, RegisterTable and ClearTableCache ask the server. A handle whose table could not be loaded is usable and
/// answers every question negatively.
///
/// The cache is keyed by the upper-cased table name alone, without the database: a handle may describe the table of the
/// same name in another database until that entry is removed. Opening a connection removes the entries of all tables of
/// the database opened. A server that tells upper from lower case in table names finds only tables named in upper case.
///
/// Copies share the entry. A handle keeps its entry when the cache drops it, and then goes on describing the table as
/// it was; RegisterTable(true) brings it up to date. Column names and default values carry encoding 256 whatever the
/// connection's encoding is: their bytes are the server's. One thread at a time uses handles and cache.
class MYDB_EXPORT CMyTable
{
public:
    /// Stores name and connection and takes the table's entry from the cache, or loads it: opens the connection when it
    /// is closed, then a field listing and a SHOW TABLE STATUS. Ask IsValid for success; after a failed load the
    /// connection's error code and message say why (CMyDatabase::GetErrorCode). The connection is borrowed and has to
    /// outlive the handle and its copies; it may be null, then only a table that the cache knows is found.
    ///
    /// `name` may stand in backticks. A name with blanks around it is loaded anew for each handle. Names that send more
    /// than 126 bytes are refused with error 1103. What is sent ends at the first zero byte, so settings that name a
    /// UTF-16 character set find no table of more than one letter.
    CMyTable(const CMyDatabase* database, const UtCString& name);
    CMyTable(const CMyTable& other);
    CMyTable& operator=(const CMyTable& other);
    ~CMyTable();

    bool IsValid() const;                    ///< the table's metadata is there
    const UtCString& GetTableName() const;   ///< exactly as passed to the constructor
    eUtEncodingType GetEncodingType() const; ///< the connection's encoding; 256 without a connection

    /// The number of columns; 0 for an invalid handle.
    long GetFieldCount() const;

    /// The zero-based position of a column, found by its name in any letter case; the name is not trimmed. False, with
    /// `no` untouched, for an empty or unknown name and for an invalid handle.
    bool GetFieldNo(const UtCString& name, unsigned long& no) const;
    bool ExistField(const UtCString& name) const; ///< as GetFieldNo, without the position

    /// The descriptor of a column, by name as GetFieldNo or by position; null for an unknown name, a position at or
    /// beyond the column count and an invalid handle. It belongs to the entry: valid as long as this handle or a copy
    /// holds the entry, that is until the handle is destroyed, assigned to, re-registered or unregistered.
    const CMyField* GetField(const UtCString& name) const;
    const CMyField* GetField(unsigned long no) const;

    UtCString GetFieldName(unsigned long no) const; ///< a column's name as the server spells it; empty when unavailable

    /// The classification of a column; MYTYPE_UNKNOWN (0) on failure, as for a decimal column.
    MYTYPES GetFieldType(const UtCString& name) const;

    /// The name of a column's type for people ("long", "varchar[60]" with the width in bytes); "fehler!" on failure.
    /// It does not always agree with GetFieldType: a TEXT column is named "blob", a tiny blob "memo".
    UtCString GetFieldTypeString(const UtCString& name) const;

    /// A column's width in bytes as a signed 32-bit number: -1 for LONGTEXT and LONGBLOB, whose width is 4294967295
    /// (CMyField::GetLength gives it unsigned). 0 on failure.
    long GetFieldSize(const UtCString& name) const;

    /// The number of a column's character set, as the server reports it to this connection. False, with `nr`
    /// untouched, on failure.
    bool GetFieldCharsetNr(const UtCString& name, unsigned int& nr) const;

    /// The column list of a statement: all names in upper case and in backticks, separated by a comma and a blank, in
    /// the server's order, without the columns named in `exclude` (see RemoveFieldsFromFieldList). Empty for an invalid
    /// handle.
    UtCString GetFields(const UtCString& exclude) const;

    /// `list`, a column list as GetFields gives it, without the columns named in `exclude`, a list of names separated
    /// by commas, with or without backticks and blanks. Whole names are compared, in any letter case, and the rest of
    /// `list` keeps its order and its own letter case. Each name is removed once, with its comma; names that are not in
    /// the list, or stand there without backticks, are ignored. Then every run of blanks becomes one blank, and blanks
    /// and commas at both ends go. Does not look at the table: it works for an invalid handle too. Empty also when
    /// memory runs out.
    UtCString RemoveFieldsFromFieldList(const UtCString& list, const UtCString& exclude) const;

    /// The name of the column that is the primary key; for a key of several columns their names in reverse column
    /// order, joined by a comma without blanks. Empty for a table without a primary key, for a view and for an invalid
    /// handle.
    UtCString GetPrimaryKeyFieldName() const;

    /// The storage engine; TABLE_TYPE_UNKNOWN (0) for any engine that eTableTypes does not name (Aria, for example),
    /// for a view and for an invalid handle. See SupportTransaction for a table name with "_" or "%".
    eTableTypes GetTableType() const;

    /// Whether the storage engine is InnoDB; false for an invalid handle. The engine is read with a statement that
    /// takes the table name as a LIKE pattern and the database name unquoted: with "_" or "%" in the name it can be
    /// that of another table, and it is unknown (false) where the database name would need backticks.
    bool SupportTransaction() const;

    // Counts and sizes ask the server each time, with a ping and a statement on the connection, which they open when it
    // is closed and whose last statement and error are then theirs. The table name goes into the statement as it was
    // passed to the constructor: one in backticks, or with one in it, is refused by the server.

    /// The number of rows (SELECT COUNT(*)), counted by the server at that moment. -1 for an invalid handle and when
    /// the statement fails, which a message box shows as well (CMyRecordSet::CountSQL). A table of more than
    /// 2147483647 rows counts 0: ask with CMyRecordSet::Select and GetFieldInt64 where tables can be that large.
    long GetRecordCount() const;

    /// Whether GetRecordCount is below 1. Kept: true also for a table that does not exist or cannot be counted; ask
    /// IsValid first, or compare GetRecordCount with 0.
    bool IsEmpty() const;

    /// The bytes that the table's rows and its indexes take up, as the storage engine reports them (SHOW TABLE STATUS);
    /// an estimate for InnoDB. 0 for an invalid handle, a view, and when the statement fails, without a message box:
    /// CMyDatabase::GetErrorCode tells.
    ///
    /// Kept: the table name is a LIKE pattern, so with "_" or "%" in it the sizes can be those of another table, the
    /// first in the alphabet that matches. For such names ask information_schema.TABLES.
    __int64 GetTableDataSize() const;
    __int64 GetTableIndexSize() const; ///< see GetTableDataSize

    /// Checks the table: CHECK TABLE ... FAST QUICK, which looks at a table that was not closed properly, and at its
    /// indexes only. Opens a closed connection, with a ping and a statement; a failed one is shown in a message box.
    /// The handle need not be valid. `errorText` (may be null) is not emptied: each error is appended as a line "shop.
    /// orders: message", "\n" between the lines, in its own encoding; when memory runs out it loses what it has.
    ///
    /// TABLE_CHECK_INVALID: the handle has no table name or no connection; nothing is sent. TABLE_CHECK_DEFECT: an
    /// error that speaks of a definition file (".frm") or of a data file (".MYD") that is not found, which no repair
    /// mends. TABLE_CHECK_REPAIRABLE: errors, but none of these, also where no repair helps: a table that does not
    /// exist, or a missing data file of Aria or InnoDB. TABLE_CHECK_OK: none.
    ///
    /// Kept: a check that cannot run finds nothing: TABLE_CHECK_OK also when the connection is lost, when memory runs
    /// out and when the statement fails, as for a name in backticks or with one in it. GetErrorCode of the connection
    /// tells. Kept: damage within a data file is not seen; run CHECK TABLE without FAST QUICK to find it.
    eTABLE_CHECK CheckTable(UtCString* errorText);

    /// Takes the table's entry from the cache, loading it as the constructor does. With `reload` the entry is removed
    /// first, so that a changed table is seen; without it a handle that has an entry returns true at once. False when
    /// the table cannot be loaded; the handle is then invalid.
    bool RegisterTable(bool reload);

    /// Removes the table's entry from the cache; the next request for the table asks the server. Makes this handle
    /// invalid; others keep the entry. False, and nothing changed, for an empty name and when the cache has no entry.
    bool UnregisterTable();

    /// Empties the whole cache (every table of every database) and loads this table again. The entry is asked for
    /// twice: a name with blanks around it, which the cache does not find again, is loaded twice.
    void ClearTableCache();

private:
    UtCString m_tableName;
    CMyDatabase* m_database;
    std::shared_ptr<CTableCache> m_entry;
};
