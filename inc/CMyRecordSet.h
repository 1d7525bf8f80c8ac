#pragma once

#include "CDateTime.h"
#include "CMyDatabase.h"
#include "CMyField.h"
#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "framework/CByteArray.h"
#include "framework/CObject.h"
#include "framework/Guid.h"
#include "text/UtCString.h"

#include <mysql.h>

#include <cstdint>
#include <memory>
#include <type_traits>

class CMyKey;
class CTableCache;
template <class T> class UtArray;
template <class K, class V> class UtCMap;

namespace text {
class TextBuilder;
}
namespace recordset {
class PendingChanges;
class ResultColumns;
} // namespace recordset

/// A cursor over the rows of one statement, with typed access to the columns of the row it stands on.
///
/// A record set is bound to a connection, which it borrows, and usually to a table, whose name completes condition
/// texts and whose declared columns say in which character set texts are. Unbound, bound, open (it holds a result),
/// and bound again after Close: nothing but a statement that delivers a result set opens it.
///
/// The result is either stored (all rows are in memory, every move is possible) or streamed (SelectLargeResult: rows
/// arrive one by one over a second connection that the record set opens and closes itself, and only MoveNext moves).
/// The effective connection, which errors and encodings come from, is that second one while it exists.
///
/// Nothing throws. A member that cannot do its work, also for lack of memory, gives its documented failure value; a
/// failed select leaves the record set closed, a failed move leaves it at end of file. One thread at a time uses a
/// record set and its connection. The connection must outlive the record set, or be unbound with SetDatabase(nullptr).
class MYDB_EXPORT CMyRecordSet : public CObject
{
    DECLARE_DYNAMIC(CMyRecordSet)
public:
    /// Unbound: no connection, no result.
    CMyRecordSet();
    /// Binds as SetDatabase does. Whether that succeeded is not reported: ask IsValid, or let Select fail.
    CMyRecordSet(CMyDatabase& database, const UtCString& tableName);
    CMyRecordSet(CMyDatabase* database, const UtCString& tableName);
    CMyRecordSet(const CMyRecordSet&) = delete;
    CMyRecordSet& operator=(const CMyRecordSet&) = delete;
    /// Frees the result as Close does, and closes the connection when SetCloseConnectionOnExit asks for it.
    ~CMyRecordSet() override;

    // ---- Editing ----------------------------------------------------------------------------------------------------

    // A bracket around one row or more: AppendStart or ModifyStart opens it, the setters collect values, AppendEnd or
    // ModifyEnd sends one INSERT, UPDATE or DELETE over the bound connection, also while this record set streams.
    //
    //     records.AppendStart();                                records.ModifyStart(CMyKey("ID", 7, "="));
    //     records.SetFieldText("NAME", "O'Neil");               records.SetFieldLong("AGE", 41);
    //     if (!records.AppendEnd()) ... GetModifyErrorMessage   if (!records.ModifyEnd()) ... GetModifyErrorMessage
    //
    // The rows selected are not read again; a caller that needs the new row selects it. Until they are discarded the
    // getters show the values set in place of those of the current row. Starting, moving, selecting and closing discard
    // them; the Ends do not.
    //
    // A statement is sent whole or not at all. A value that could not be kept (no memory, or nobody to escape it
    // because the connection is closed and cannot be opened) makes its setter false, and then no End sends a statement
    // until the values have been discarded. Not sent either: a statement that holds a zero byte, at which it would end,
    // and one of a table whose name could swallow what follows it.
    //
    // Audit columns: where the table has the columns ERFASST and ERF_TIME, an INSERT sets them to user and local time,
    // as an UPDATE sets MUTATOR and MUT_TIME. Kept: they replace values that the caller has set, and when the table has
    // only one of the two neither is set. The columns are those in the table cache; a table that is not there is loaded
    // (two round trips), one that cannot be loaded is written without them.

    // The first two are called through their slots, so that a derived class can replace them.

    /// Closes the bracket and deletes (after DeleteRec) or updates the rows that the condition names:
    /// "DELETE FROM table WHERE(condition)", "UPDATE table SET `table`.`COLUMN` = value, ... WHERE (condition)". One
    /// round trip; a lost connection is opened again as by CMyDatabase::ExecuteQuery, with the same promise.
    ///
    /// True: a row was deleted, or one was found by the update. Kept: an update that finds rows and changes nothing
    /// in them succeeds.
    ///
    /// False: no condition, no table, or nothing to write (nothing is sent, no message); no such row (the message is
    /// the query info); the statement failed or was not sent. The state is MODIFY_NONE in every case. Kept: changes
    /// and condition stay, so that a second call sends them again, after a delete as an update.
    virtual bool ModifyEnd();

    /// Closes the bracket and inserts one row: "INSERT INTO table SET `table`.`COLUMN` = value, ...". Round trips,
    /// results, state and what stays as with ModifyEnd; true when a row was inserted.
    ///
    /// Table names are not quoted in any of the three statements but in the assignments: one that is a reserved word
    /// or holds blanks is refused by the server (1064). Names with quotes, backticks or the beginning of a comment, and
    /// for a DELETE all that are not plain names, are refused here (1103). Backticks in column names are doubled.
    virtual bool AppendEnd();

    /// Opens the bracket for a new row. Condition and values so far are discarded. False, with the state as before,
    /// when no table is bound.
    bool AppendStart();

    /// Opens the bracket for the rows that meet a condition, sent as it is; values so far are discarded. The state is
    /// MODIFY_EDIT afterwards in any case. False when the condition is empty: ModifyEnd then sends nothing.
    ///
    /// Kept: a key gives a text also when it does not fit the table (CMyKey::CreateClause), and the result is true;
    /// the server refuses the statement.
    bool ModifyStart(const CMyKey& key);
    bool ModifyStart(const UtCString& where);

    /// Opens the bracket with the conditions of GetPrimaryKey; false, and nothing changes, when that is false. Kept:
    /// they do not name the current row but the rows whose key is TRUE, which for numbers is 1. To change the current
    /// row build a CMyKey of its values.
    bool ModifyStart();

    /// Fills `key` with one condition for each column of the table's primary key, in the order of the table. Kept: the
    /// condition compares with TRUE when the current row has a value for the column (pending changes do not count) and
    /// with FALSE when it is NULL or there is no row: the presence of the value, not the value itself.
    ///
    /// False: the table is unknown or has no primary key, or there is no memory (the key is empty); a key column is not
    /// in the result (the conditions before it stay in `key`).
    bool GetPrimaryKey(CMyKey& key) const;

    /// Marks the rows of a bracket that ModifyStart has opened for deletion by ModifyEnd. False, and nothing changes,
    /// in any other state; false also, with the state MODIFY_DELETE, when there is no condition or no table.
    bool DeleteRec();

    eModifyStates GetModifyState() const noexcept { return m_modifyState; }
    bool IsAppendOrModifyStarted() const noexcept { return m_modifyState != MODIFY_NONE; }
    bool IsDeleted() const noexcept { return m_modifyState == MODIFY_DELETE; } ///< marked, not yet deleted

    /// Whether a value has been set since they were last discarded. KEPT K-97: true also when all have been removed.
    bool IsRecordModified() const noexcept { return m_pendingChanges != nullptr; }

    /// The rows that the last End inserted, deleted or (update) found, of which an update says at most 2147483647; 0
    /// when it failed. A delete of more rows comes out as CMyDatabase::GetAffectedRows does, negative and false.
    long GetModifyErrorCode() const noexcept { return m_errorCode; }

    /// What the last End has to say: CMyDatabase::GetQueryInfo after a success, otherwise the server's error, number in
    /// front ("1062: Duplicate entry ..."), "2008: Out of memory", or the reason why nothing was sent; "" when there
    /// was nothing to send. Valid until the next End.
    const UtCString& GetModifyErrorMessage() const noexcept { return m_errorMessage; }

    void EnableAutoUserAndTimeStamp(bool enable) noexcept { m_autoUserAndTimeStamp = enable; } ///< at first they are on
    bool IsAutoUserAndTimeStampEnabled() const noexcept { return m_autoUserAndTimeStamp; }

    /// Discards the value of one column, named in any letter case. False when none has been set.
    bool RemoveFieldInSetList(const UtCString& field);

    // The setters. A column is named in any letter case; setting it again replaces its value at its place. No setter
    // looks at what the column is (but SetFieldNull): its own kind decides how the value stands in the statement. Texts
    // and dates stand between apostrophes, escaped by the client where they hold a carriage return, line feed, tab,
    // apostrophe, backslash or zero byte; an empty one is ''. Numbers stand bare.
    //
    // What is set comes back byte for byte, with two limits. Texts are converted to the character set in which the
    // server sends the column, and to that of the connection's settings: what these lack becomes "?" (a text for a
    // BINARY column goes through Windows-1252; use SetFieldBlob). With sql_mode NO_BACKSLASH_ESCAPES a value with a
    // zero byte cannot be sent: its End is false.
    //
    // True: the value is set. False: the name is empty (nothing happens), or the value could not be kept, see above. A
    // value to be escaped opens a closed connection; the first text loads a table that is not in the cache.
    //
    // Kept: the value "null" in any letter case means SQL NULL, whatever the setter. The getters show it as the text.

    bool SetFieldValue(const UtCString& field, const UtCString& value); ///< the same as SetFieldText
    bool SetFieldText(const UtCString& field, const UtCString& value);

    bool SetFieldBool(const UtCString& field, bool value); ///< 0 or 1
    bool SetFieldByte(const UtCString& field, unsigned char value);
    bool SetFieldShort(const UtCString& field, short value);
    bool SetFieldWord(const UtCString& field, unsigned short value); ///< Kept: above 32767 negative; use SetFieldLong
    bool SetFieldLong(const UtCString& field, long value);           ///< the low 32 bits
    /// The low 32 bits. Kept: values above 2147483647 are sent negative, 3000000000 as -1294967296; use SetFieldInt64.
    bool SetFieldDWord(const UtCString& field, unsigned long value);
    bool SetFieldInt64(const UtCString& field, __int64 value);
    /// Eight decimals, so that magnitudes below 0.000000005 become 0. For what is no finite number see SetFieldDouble.
    bool SetFieldFloat(const UtCString& field, float value);
    /// The shortest text that reads back as the same number. Infinity and not-a-number can be set, but the server
    /// refuses the statement (1064): they never become 0 or NULL.
    bool SetFieldDouble(const UtCString& field, double value);

    /// "2024-03-05" when the value has no time of day, else "2024-03-05 14:07:09"; a time alone has the date
    /// 1899-12-30. Kept: a value that is null or not valid is written as '', which a server in strict mode refuses for
    /// a date column (1292) and otherwise stores as the zero date. Use SetFieldNull for those.
    bool SetFieldDate(const UtCString& field, const CDateTime& value);

    /// "{6b29fc40-ca47-1067-b31d-00dd010662da}"; '' for the all-zero GUID.
    bool SetFieldGUID(const UtCString& field, _GUID value);

    /// The bytes as they are; '' for an empty array.
    bool SetFieldBlob(const UtCString& field, const CByteArray& value);

    /// SQL NULL. Kept: for a column that the table cache knows as NOT NULL it is '', which a server in strict mode
    /// refuses for date and number columns (1292, 1366).
    bool SetFieldNull(const UtCString& field);

    /// An SQL expression, sent as it is ("AGE + 1"). Kept: nothing in it is checked; never pass what a person typed. An
    /// empty one makes a statement that the server refuses. The getters show its text.
    bool SetFieldOperation(const UtCString& field, const UtCString& expression);

    // ---- Looking up -------------------------------------------------------------------------------------------------

    // Conditions, column lists and statements are sent as they are; values in a key are quoted by the key. Texts are
    // converted to the encoding of the effective connection. Table names stand in backticks except where noted.
    //
    // Counting, existence and maximum run on a record set of their own over the bound connection: result, current row
    // and pending changes of this one stay, also while it streams. What they leave behind is the last statement and
    // error of the connection. They take a ping and a statement; a closed connection is opened, in up to two attempts.
    // A statement that fails is also shown in a message box (MyDbSetUserInterface), here and in the selections. When
    // there is no memory for a statement nothing is sent and the result is the failure value. What is sent ends at the
    // first zero byte, which can cut a condition short: never pass one on that a text from outside may have brought.
    //
    // A key that does not fit the table, or for which there is no memory, gives a condition that the server refuses
    // (CMyKey::CreateClause): a failure.

    /// Selects the rows that meet the conditions of a key, all rows for an empty key, and moves to the first one:
    /// SELECT fields FROM the table WHERE (the condition) ORDER BY the order. Empty `fields` are all columns of the
    /// table; an empty `order` leaves the order to the server.
    ///
    /// Kept: "ORDER BY " goes in front of an order that does not begin so in upper case, "order by name" included,
    /// which makes a statement that the server refuses. Pass the column list alone.
    ///
    /// Results as Select of a statement as it is, with the message box on. -1 when unbound or when the connection
    /// cannot be opened; the result before then stays. After every other failure the record set is closed.
    long Select(const CMyKey& key, const UtCString& fields, const UtCString& order);

    /// The number of rows of the table that meet a condition; of all rows for the empty one. `condition` is one of
    /// - a text that begins with "SELECT ", in any letter case: the whole statement, whose first column is read;
    /// - any other text: "WHERE " goes in front unless it begins so, in any letter case.
    ///
    /// Kept: the condition is not put into parentheses, so that clauses may follow it ("id > 5 LIMIT 1"), as they may
    /// not in ExistRecord.
    ///
    /// 0 also where the first column is no whole number of 32 bits. -1: unbound, the connection cannot be opened, the
    /// statement fails. Kept: -1 unless exactly one row results, so for a GROUP BY too; for those call Select.
    long CountSQL(const CMyKey& key) const;
    long CountSQL(const UtCString& condition) const;

    /// Whether any row of the table meets a condition; at most one is asked for. Semicolons and blanks at the end of
    /// `condition` do not matter. It stands in parentheses unless it begins with "WHERE "; one that begins with
    /// "SELECT " is the whole statement, both in any letter case. False also for every failure: where the difference
    /// matters use CountSQL.
    ///
    /// Kept: " LIMIT 1" is appended to every statement, so that one with a LIMIT of its own is refused by the server.
    /// Leave the limit out.
    bool ExistRecord(const CMyKey& key) const;
    bool ExistRecord(const UtCString& condition) const;

    /// Walks from the zero-based row `startRow` through a stored result, downwards or (`forward` false) upwards, to the
    /// first row whose column `field` (found as by GetFieldNo) has an empty text or NULL. Where `convert` is given it
    /// gets the column's text, in lower case and in the connection's encoding, and its result is what must be empty: a
    /// function that gives the empty text for the texts wanted makes this a search, which stops at empty texts, too.
    ///
    /// Kept: `value` is not what is looked for. It only has to be something: an empty one gives -1. To find a value use
    /// Select with a key, or compare the column row by row.
    ///
    /// The number of the row found, which is then the current one. Kept: 0 for an unknown column and without a result,
    /// which is the number of the first row; ask GetFieldNo first. -1: not found, the record set then stands at end of
    /// file; a stream, which stays where it is; no memory; `convert` threw. No round trip, but for the table's columns
    /// when the cache does not have them. Moves discard pending changes.
    long FindRow(const UtCString& field, const UtCString& value, long startRow, bool forward,
                 UtCString (*convert)(const UtCString&));

    /// The number in the first column of the only row of a statement, or of a clause that Select completes. 0 when it
    /// is NULL, as the maximum of no rows is, or no whole number of 32 bits. -1 for an empty `sql`, unless exactly one
    /// row results, and for every failure.
    long GetMaxValue(const UtCString& sql) const;

    /// The largest value of a column: GetMaxValue of SELECT MAX(table.field) FROM table, with neither name in
    /// backticks; put them around names that need them.
    ///
    /// Kept: an empty `table` gives -1, as an empty `field` does; the bound table does not stand in for it. Pass
    /// GetTableName().
    long GetMaxFieldValue(const UtCString& field, const UtCString& table) const;

    /// The AUTO_INCREMENT value that the last statement of the effective connection made, of whatever table: its low 32
    /// bits as a signed number, so values from 2147483648 on come out wrong; read those with SELECT LAST_INSERT_ID().
    /// 0 when that statement made none or failed, when unbound and when the connection is closed. No round trip.
    ///
    /// Ask directly after AppendEnd. Every statement that gives no rows ends the value, and so does a failure; whether
    /// one that gives rows does is up to the client library.
    long GetLastInsertedRecID() const;

    /// Selects the row that the last statement of the effective connection inserted, by the value of
    /// GetLastInsertedRecID, in all its 64 bits, in the first AUTO_INCREMENT column of the bound table. Call it
    /// directly after AppendEnd, which does not read the row back.
    ///
    /// True: the row is the only one selected and the current one. False: GetLastInsertedRecID is below 1, the table's
    /// columns cannot be read, or it has no such column; the result then stays as it was. False also when the selection
    /// does not give exactly one row; the result is then what Select left.
    bool SelectLastInsertedRecord();

    /// Enters the values of the current row of `source` into the pending changes, as the setters would, by column name
    /// in any letter case. Left out are the columns that are a primary key or AUTO_INCREMENT in the result of `source`,
    /// the audit columns ERFASST, ERF_TIME, MUTATOR and MUT_TIME, which the edit bracket fills, and those that the
    /// bound table does not have. `source` may be a stream, on another connection, in another encoding, or this record
    /// set itself.
    ///
    /// Values are read as GetFieldText reads them, pending changes of `source` included, and set by the type of the
    /// column of the bound table; the bytes of a blob arrive as they are. Those of a BINARY column go through
    /// Windows-1252: over a UTF-8 connection, from 0x80 on they arrive as letters. Take such a column out afterwards
    /// (RemoveFieldInSetList) and set it with SetFieldBlob. The setters' rule for the text "null" holds here as well.
    /// NULL stays NULL. Kept: in a NOT NULL column an empty text takes its place, which a server in strict mode refuses
    /// in date and number columns; set these yourself afterwards.
    ///
    /// Kept: into a column that is no text, blob, memo or date-time a value goes bare and unchecked, as with
    /// SetFieldOperation. What a text column of `source` holds becomes SQL there ("1, NAME = 'x'"), an empty text a
    /// statement that the server refuses, and a BIT value a wrong number or nothing that can be sent. Copy between
    /// columns of one kind only.
    ///
    /// True: everything that can be copied is entered, which may be nothing, also because the columns of the bound
    /// table cannot be read. False: `source` has no current row or no edit bracket is open here, and nothing is
    /// entered; or memory ran out, or a value has to be escaped and there is no connection to do it with: then values
    /// are missing, and the bracket writes nothing. One listing of the table's columns when the cache does not have
    /// them, otherwise no round trip.
    bool CopyRecord(const CMyRecordSet& source);

    /// The rows of the current result as the client counts them, as a signed 32-bit number: of a stream those read so
    /// far. 0 without a result.
    long GetRecordCount() const;

    // ---- Binding ----------------------------------------------------------------------------------------------------

    /// Frees the current result and binds to a connection and a table. An empty table name keeps the table bound so
    /// far. A connection that is closed or has no database name is opened first.
    ///
    /// False: `database` is null (the record set is then unbound), or the connection cannot be opened (it is bound all
    /// the same, the table name is the old one).
    bool SetDatabase(CMyDatabase* database, const UtCString& tableName);

    /// Backticks at both ends are removed, blanks are kept. The current result stays; its texts are read with the
    /// character sets of the new table from now on.
    void SetTableName(const UtCString& tableName);

    CMyDatabase* GetDatabase() const noexcept { return m_database; } ///< borrowed; null when unbound
    UtCString GetDatabaseName() const; ///< that of the effective connection; "" when unbound
    const UtCString& GetTableName() const noexcept { return m_tableName; }
    bool IsValid() const noexcept { return m_database != nullptr; } ///< a connection is bound, open or not

    /// CMyDatabase::ExistTable of the table name (one round trip). False when unbound.
    bool IsValidTable() const;

    void SetCloseConnectionOnExit(bool closeOnExit) noexcept { m_closeConnectionOnExit = closeOnExit; }
    bool GetCloseConnectionOnExit() const noexcept { return m_closeConnectionOnExit; }

    // ---- Selecting --------------------------------------------------------------------------------------------------

    /// Runs a statement, keeps its rows in memory and moves to the first one. `sql` is one of
    /// - "" (or blanks): SELECT * FROM the table;
    /// - a statement that delivers rows (CMyDatabase::IsSelectQuery), or anything when `asIs` is set: sent as it is;
    /// - any other text, which is a clause: SELECT table.* FROM table, then the text. "WHERE " is put in front of one
    ///   that does not begin with WHERE, ORDER BY, GROUP BY, HAVING or LIMIT, in any letter case and whatever follows.
    ///
    /// Names and values in `sql` are sent as they are, and so is the table name, without backticks.
    /// `showError`: a failed statement is also shown in a message box.
    ///
    /// Returns the number of rows; 0 for an empty result (the record set is open, at end of file) and when the first
    /// row cannot be fetched; -1 when the record set is unbound, the connection cannot be opened, the statement fails
    /// (see GetErrorMessage) or delivers no result set, as an UPDATE, which has run all the same; also when there is no
    /// memory for the statement, which is then not sent. The result before is freed as soon as there is a connection.
    /// Round trips: a ping and the statement.
    long Select(const UtCString& sql, bool showError = false, bool asIs = false);
    template <class T>
    requires std::is_pointer_v<T>
    long Select(const UtCString& sql, T showError, bool asIs = false) = delete; ///< a text is not a flag

    /// Runs a statement as it is and streams its rows: memory is needed for one row only, however many there are. The
    /// rows come over a second connection with the settings of the bound one, which stays free for other statements.
    ///
    /// True: the statement ran, also when it delivers no rows (IsEOF). False: unbound, the second connection cannot be
    /// opened, the statement fails or delivers no result set. After a failure the second connection, which knows the
    /// reason (GetErrorMessage), stays until the next select, Close or destruction.
    ///
    /// A stream that breaks off looks like its end: MoveNext is false. Only GetErrorMessage then tells "Kein Fehler!"
    /// from a lost connection. Closing a stream early reads and drops its remaining rows, which can take as long as
    /// reading them; freeing a result never fails.
    bool SelectLargeResult(const UtCString& sql);

    /// Frees the result, with it the second connection of a stream, and discards pending changes. Connection, table
    /// name and last statement stay. Always true.
    bool Close();

    bool IsOpen() const noexcept { return m_result != nullptr; } ///< there is a result, with or without rows

    /// The text of the last statement of a select, also when it failed; Close and the edit bracket keep it.
    const UtCString& GetLastSQLCommand() const noexcept { return m_lastSQLCommand; }
    unsigned long GetQueryTime() const noexcept { return m_queryTime; } ///< of the last select, in milliseconds

    /// The rows of a stored result; 1 for a stream with rows, whose number nobody knows; 0 without rows or result.
    long GetAffectedRows() const noexcept { return m_rowCount; }

    /// CMyDatabase::GetQueryInfo as it was after the last select; "" when that failed and after Close.
    const UtCString& GetQueryInfo() const noexcept { return m_queryInfo; }

    /// What the effective connection has to say: its last error, or, when its last statement succeeded, the client's
    /// current message ("Kein Fehler!" mostly, the reason of a broken stream, "Keine Verbindung zum Server!" when
    /// closed). "" when unbound.
    UtCString GetErrorMessage() const;

    // ---- Moving -----------------------------------------------------------------------------------------------------
    // Every move that is made discards pending changes. False always means that there is no such row; except where
    // noted the record set then stands at end of file.

    /// To the first row. On a stream, which cannot be rewound, this fetches the first row once; on a later row it stays
    /// where it is and is true.
    bool MoveFirst();

    /// To the next row. At end of file it stays there, with one exception: after a MoveTo to a row that does not exist
    /// it goes on where the client stopped fetching, which is the end unless a MoveNext came after the first MoveTo.
    bool MoveNext();

    /// To a zero-based position of a stored result. The first call after a select walks through the whole result to
    /// index it; later calls take constant time, but a MoveNext after MoveTo seeks from the first row on. A stream is
    /// left untouched: false, and the current row stays.
    bool MoveTo(long row);

    /// The zero-based position of the current row; -1 at end of file and on a stream. After MoveFirst or MoveNext the
    /// position has to be searched for, in time proportional to the size of the result, and the cursor is left ON THE
    /// FIRST ROW. After MoveTo the position is known and nothing moves.
    long GetCurrentRow();

    bool IsEOF() const noexcept { return m_currentRow == nullptr; } ///< there is no current row, or no result at all

    // ---- Columns ----------------------------------------------------------------------------------------------------

    unsigned long GetFieldCount() const noexcept { return m_fieldCount; } ///< columns of the result; 0 without one

    /// The zero-based position of a column by the name that the statement gives it (the alias). Letter case counts.
    /// Of several columns with one name the first is found. `no` is 0 when the result is false (unknown or empty name,
    /// no result).
    ///
    /// Result names are compared as bytes of encoding 256 whatever the connection's encoding: on a UTF-8 connection, a
    /// name with other than ASCII characters is found by its UTF-8 bytes in a text tagged 256.
    bool GetFieldNo(const UtCString& name, unsigned long& no) const;

    UtCString GetFieldName(unsigned long no) const; ///< the alias, encoding 256; "" beyond the last column

    /// The character set number of a column. With a table bound, the one that the table cache has for a column of that
    /// name, loading the table on the effective connection when it is not cached; otherwise the one of the result.
    /// The server tells in both cases in which character set it sends the column, which for texts is that of the
    /// connection; the cache has it as of the loading, so "SET NAMES" afterwards makes the two differ.
    /// False, with `nr` untouched: no such column, no result (by position; by name when no table is bound), or the
    /// table's columns cannot be read, among others while a stream occupies its connection.
    bool GetFieldCharsetNr(unsigned long no, unsigned int& nr) const;
    bool GetFieldCharsetNr(const UtCString& name, unsigned int& nr) const;

    /// The client's width of a column in bytes, as a signed 32-bit number: -1 for LONGTEXT and LONGBLOB, whose width is
    /// 4294967295. 0 without a result or for an unknown name.
    long GetFieldSize(const UtCString& name) const;

    MYTYPES GetFieldType(unsigned long no) const; ///< MYTYPE_UNKNOWN also without a result or beyond the last column
    MYTYPES GetFieldType(const UtCString& name) const;
    UtCString GetFieldTypeString(unsigned long no) const; ///< as "varchar[60]"; "fehler!" without such a column
    UtCString GetFieldTypeString(const UtCString& name) const;

    /// A description of a result column: alias, classification, width, flags, decimals and default. MySQL type and
    /// character set number are 0; ask CMyTable for them. For an unknown name all texts are empty, all numbers 0.
    CMyField GetField(const UtCString& name) const;

    // ---- Typed values of the current row ----------------------------------------------------------------------------
    // Each accessor exists by name (resolved by GetFieldNo) and by zero-based position. Without a current row, for an
    // unknown column and for NULL it gives the value stated; none sets an error. All but the raw accessors see a
    // pending change of the column, whatever the letter case of its name.

    /// The value as the client delivered it, zero-terminated; it may contain further zero bytes (GetFieldDataLen).
    /// Null for NULL. Borrowed: valid until the next move, change of the column, select or Close.
    char* GetFieldValue(unsigned long no) const;
    char* GetFieldValue(const UtCString& name) const;

    /// The value as text in the encoding of `text`, whose memory is reused. A text or memo column is converted from the
    /// character set that GetFieldCharsetNr gives it. Other columns, UTF-32 columns and columns whose character set is
    /// unknown are not converted: their bytes are taken as they are, and as Windows-1252 when `text` is UTF-16. The
    /// character sets are asked for once for all rows, and again when the table cache changes.
    ///
    /// While a stream is read its table cannot be loaded, and opening the stream's connection has removed it from the
    /// cache: with a table bound, texts of a stream are not converted unless the host asks for the table over another
    /// connection (CMyTable) after the stream has started.
    ///
    /// By position always true, with an empty text for NULL, no row, no such column, and no memory. By name false for
    /// an unknown name only, `text` is then untouched.
    bool GetFieldText(unsigned long no, UtCString& text) const;
    bool GetFieldText(const UtCString& name, UtCString& text) const;

    /// The text of the value as a number, whatever the type of the column; 0 when it is not one (UtCString::Convert
    /// says what is) or does not fit. Nothing is rounded: "1.5" is not a `long`.
    ///
    /// GetFieldLong holds 32 bits, -2147483648 to 2147483647. GetFieldDWord is the same number taken as unsigned: -1
    /// reads as 4294967295, and 3000000000 does not fit and reads as 0; for unsigned columns call GetFieldInt64. The
    /// narrower ones cut GetFieldLong to their width: 300 as a byte is 44. GetFieldBool is whether GetFieldLong is not
    /// 0, so "yes" and "true" are false.
    long GetFieldLong(unsigned long no) const;
    long GetFieldLong(const UtCString& name) const;
    unsigned long GetFieldDWord(unsigned long no) const;
    unsigned long GetFieldDWord(const UtCString& name) const;
    short GetFieldShort(unsigned long no) const;
    short GetFieldShort(const UtCString& name) const;
    unsigned short GetFieldWord(unsigned long no) const;
    unsigned short GetFieldWord(const UtCString& name) const;
    unsigned char GetFieldByte(unsigned long no) const;
    unsigned char GetFieldByte(const UtCString& name) const;
    bool GetFieldBool(unsigned long no) const;
    bool GetFieldBool(const UtCString& name) const;
    __int64 GetFieldInt64(unsigned long no) const;
    __int64 GetFieldInt64(const UtCString& name) const;
    double GetFieldDouble(unsigned long no) const;
    double GetFieldDouble(const UtCString& name) const;
    float GetFieldFloat(unsigned long no) const;
    float GetFieldFloat(const UtCString& name) const;

    /// The value as date and time. Only positions count, "YYYY-MM-DD HH:MM:SS" or "YYYY-MM-DD"; the separators may be
    /// anything. A text of 18 characters, whose seconds have one digit, is read in full.
    ///
    /// Status null: NULL, no row, no such position, a zero date, a text that is too short (a time of day among them).
    /// Status invalid: the digits name no day. An unknown name gives value 0 with status valid, which differs from all
    /// of these; ask IsNull, which is true in every case.
    CDateTime GetFieldDate(unsigned long no) const;
    CDateTime GetFieldDate(const UtCString& name) const;

    /// The value as a GUID: 8-4-4-4-12 hexadecimal digits in either case, with or without braces and a leading "guid"
    /// or "uuid"; blanks do not matter. All zero for anything else.
    _GUID GetFieldGUID(unsigned long no) const;
    _GUID GetFieldGUID(const UtCString& name) const;

    bool IsFieldNull(unsigned long no) const; ///< GetFieldValue is null: also without a row or such a column
    bool IsFieldNull(const UtCString& name) const;
    bool IsFieldEmpty(unsigned long no) const; ///< IsFieldNull, or the value has no bytes; one zero byte is not empty
    bool IsFieldEmpty(const UtCString& name) const;

    // The raw accessors read the server's row and do not see pending changes.

    /// Copies the bytes of the value; an empty array for NULL. False, with `bytes` untouched: no current row, no such
    /// column, or no memory.
    bool GetFieldBlob(unsigned long no, CByteArray& bytes) const;
    bool GetFieldBlob(const UtCString& name, CByteArray& bytes) const;

    /// The bytes of the value and their number; null and 0 for NULL, no row and no such column. Borrowed: valid until
    /// the next move, select or Close.
    const void* GetFieldDataPtr(unsigned long no) const;
    const void* GetFieldDataPtr(const UtCString& name) const;
    unsigned long GetFieldDataLen(unsigned long no) const;
    unsigned long GetFieldDataLen(const UtCString& name) const;

protected:
    /// Unbinds: every member is as after the default constructor. What the record set holds is freed with it.
    void InitMembers();

    /// Select without its completion of clauses: runs `sql` as it is, stored or (`large`) streamed. Results as Select,
    /// where a stream with rows counts 1. A closed connection is opened by the statement itself, without a ping.
    long SetSQLCommand(const UtCString& sql, bool showError, bool large);

    void FreeRecordSet();                             ///< Close
    CMyDatabase* GetDB() const noexcept;              ///< the effective connection; null when unbound
    eUtEncodingType GetEncodingType() const noexcept; ///< that of the effective connection's server; 256 when unbound

    bool LoadFieldHash() const; ///< builds the field name index; false when there are no columns
    bool IsFieldHashLoaded() const noexcept { return m_fieldNameIndex != nullptr; }
    void ClearFieldCache() noexcept; ///< discards the pending changes

    /// The declared column of the bound table, from the table cache, by name in any letter case or by its zero-based
    /// position in the table. Null when the table or the column is unknown. Valid until the next call of
    /// either, a text read or another table name.
    const CMyField* GetTableFieldPtr(const UtCString& name) const;
    const CMyField* GetTableFieldPtr(long no) const;
    MYTYPES GetTableFieldType(const UtCString& name) const; ///< MYTYPE_UNKNOWN when the column is unknown

    UtCString GetFieldTextInternal(unsigned long no) const; ///< GetFieldText in the record set's encoding

    /// Reads a date as GetFieldDate does; the text's characters are those of encoding 256.
    void String2CDateTime(const UtCString& text, CDateTime& dateTime) const;

    /// Enters a change of a column into the pending changes, or replaces the one of the same `column` (compared
    /// exactly; the setters pass upper case) at its place. `sqlValue` is the text for the statement; when it replaces
    /// another one it is converted to the character set of the column, if the current result has it as a text and it
    /// survives that.
    /// The `length` bytes at `data` are copied; they are what the getters return. Null `data` reads as NULL. Without
    /// memory the change is missing, and no End sends a statement.
    void SaveFieldValue(const UtCString& column, const UtCString& sqlValue, const void* data, unsigned long length);

    /// What the typed setters have in common: `type` decides whether the value stands between apostrophes (text, blob,
    /// memo, date-time) or bare. Texts and memos are converted to the character set of the column. Results as above.
    bool SetFieldValue(const UtCString& field, const UtCString& value, MYTYPES type);

    /// Sets `length` bytes as they are, escaped and between apostrophes, up to 2147483647 of them; '' for none, NULL
    /// for a null `data`. Results as above.
    bool SetFieldBuffer(const UtCString& field, const void* data, unsigned long length);

    /// The assignments of the pending changes, "`table`.`COLUMN` = value, ...", in the encoding that `setClause` has
    /// and in place of what it holds; "" without changes and without memory.
    void CreateSetClause(UtCString& setClause);

    /// Sets the two audit columns of an INSERT (`appending`) or UPDATE: the time, and the user of the connection's
    /// settings up to the first "_", where there is none up to the first ":". False, with neither set: switched off, no
    /// connection, or the table does not have both.
    bool SetUserAndTimeStamp(bool appending);

private:
    friend class CMyKey;

    struct FreeResult
    {
        void operator()(MYSQL_RES* result) const noexcept;
    };

    struct Value
    {
        char* data; ///< null for NULL and where there is no value
        size_t size;
    };

    bool IsStreamed() const noexcept { return m_largeResultConnection != nullptr; }
    template <class Body> long Selecting(Body&& body) noexcept;
    UtCString CompleteStatement(const UtCString& sql, bool asIs) const;
    long Run(const UtCString& statement, bool showError, bool useResult);
    long AdoptResult(CMyDatabase& connection);
    void ClearPosition() noexcept;
    bool FetchRow() noexcept;
    void BuildRowIndex();
    bool HasCell(unsigned long no) const noexcept { return m_currentRow && no < m_fieldCount; }
    Value ReadValue(unsigned long no) const;
    template <class Number> Number ReadNumber(unsigned long no) const;
    eUtEncodingType SourceEncoding(unsigned long no) const;
    void LearnEncodings() const;
    eUtEncodingType EncodingFor(unsigned long no, const CTableCache* entry) const;
    const CTableCache* EntryForTexts() const;
    bool IsSearchedPlainly() const noexcept;
    const MYSQL_FIELD* ResultField(unsigned long no) const noexcept;
    const MYSQL_FIELD* ResultField(const UtCString& name) const;
    bool LoadTableEntry() const;
    bool LoadTableEntry(CMyDatabase* connection) const;
    const CTableCache* EntryForEditing() const;
    const CMyField* DeclaredField(const UtCString& name) const;
    eUtEncodingType EncodingForWriting(const UtCString& field) const;
    bool SetFieldRendered(const UtCString& field, const UtCString& text, MYTYPES type);
    bool EnterValue(const UtCString& field, const UtCString& value, MYTYPES type);
    bool EscapeText(const UtCString& value, UtCString& escaped);
    bool KeepBytes(const UtCString& field, const void* data, size_t length);
    bool EscapeBytes(const void* data, size_t length, UtCString& escaped);
    bool OpenForEscaping();
    bool SqlValueOf(const UtCString& value, MYTYPES type, UtCString& sqlValue);
    bool KeepChange(const UtCString& field, UtCString&& sqlValue, const void* data, size_t length) noexcept;
    bool EnterChange(UtCString&& column, UtCString&& sqlValue, const void* data, size_t length) noexcept;
    bool LoseChange() noexcept;
    void StartEditing(eModifyStates state) noexcept;
    void AppendSetList(text::TextBuilder& statement) const;
    UtCString InsertStatement() const;
    UtCString UpdateStatement() const;
    UtCString DeleteStatement() const;
    eUtEncodingType EditEncoding() const noexcept;
    size_t ExpectedSize() const noexcept;
    bool HasPendingChanges() const noexcept;
    bool Delete();
    bool Update();
    void ResetOutcome() noexcept;
    bool Refuse(unsigned long code, const UtCString& message);
    bool RefuseTableName();
    bool RefuseLostChange();
    bool Send(const UtCString& statement);
    bool TakeAffectedRows();
    bool TakeMatchedRows();
    UtCString InColumnEncoding(const UtCString& column, const UtCString& sqlValue) const;
    bool CopyColumn(const CMyRecordSet& source, unsigned long no, const CMyField& target);

    CMyDatabase* m_database = nullptr; ///< borrowed
    std::unique_ptr<CMyDatabase> m_largeResultConnection;
    bool m_closeConnectionOnExit = false;
    UtCString m_lastSQLCommand;
    uint32_t m_queryTime = 0;
    int32_t m_rowCount = 0;
    UtCString m_queryInfo;
    mutable std::unique_ptr<UtCMap<UtCString, unsigned long>> m_fieldNameIndex;
    uint32_t m_fieldCount = 0;
    std::unique_ptr<MYSQL_RES, FreeResult> m_result;
    MYSQL_ROW m_currentRow = nullptr; ///< borrowed from the result
    std::unique_ptr<UtArray<char**>> m_rowIndex;
    uint32_t m_currentRowNumber = unknownRow;
    UtCString m_tableName;
    std::unique_ptr<recordset::PendingChanges> m_pendingChanges;
    eModifyStates m_modifyState = MODIFY_NONE;
    bool m_autoUserAndTimeStamp = true;
    bool m_hasLostChange = false; ///< a value could not be kept, so that no statement may be made of the others
    UtCString m_where;            ///< the condition of the rows to be changed
    int32_t m_errorCode = 0;
    UtCString m_errorMessage;

    // Derived from the result, so that nothing is looked up once per row that holds for all of them.
    mutable std::unique_ptr<recordset::ResultColumns> m_columns;
    const unsigned long* m_lengths = nullptr;          ///< of the current row's values; borrowed
    std::unique_ptr<unsigned long[]> m_rowLengths;     ///< of all rows of the row index
    mutable std::shared_ptr<CTableCache> m_tableEntry; ///< of the table; keeps what GetTableFieldPtr returned
    mutable uint64_t m_tableEntryGeneration = 0;       ///< the state of the table cache that it was taken from
    mutable bool m_isTableMissing = false;             ///< the edit bracket has asked for the table in vain

    static constexpr uint32_t unknownRow = UINT32_MAX;
};
