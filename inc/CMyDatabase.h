#pragma once

#include "CMyServer.h"
#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "framework/CObject.h"
#include "text/UtCString.h"

#include <mysql.h>

class CMyTable;
class CProgressCtrl;
class CWnd;
class UtCStringList;

namespace connection {
struct DatabaseAccess;
}

/// One client connection to a server, bound to one database, with the outcome of its last statement.
///
/// **States.** *Closed*: no client handle. *Connected without database*: a handle, but an empty database name
/// (IsConnected true, IsOpen false). *Open*: a handle and a name. Construction leaves the object closed, Open moves it
/// on, a failed Open and Close bring it back to closed. Nothing connects by itself except ExecuteQuery, which opens on
/// demand.
///
/// **Outcome.** Operations report failure by their result (false, -1, an empty text) and leave the detail here, for
/// GetErrorCode and GetErrorMessage, until the next statement overwrites it. Texts for people are German.
///
/// **Threads.** One connection, together with the record sets and tables that work through it, is used by one thread at
/// a time. The limit on failed connects and the table cache are shared by all connections and not locked.
///
/// **Reconnecting.** A connection restores itself in two ways, and both give a *new session*: the client replaces a
/// lost connection silently when it is next used (also by Ping), and ExecuteQuery reopens and sends the statement
/// again. An open transaction, LOCK TABLES, named locks, temporary tables, user variables and `sql_mode` settings are
/// gone then.
///
/// No exception leaves a member. One that runs out of memory gives its failure result.
class MYDB_EXPORT CMyDatabase : public CObject
{
    DECLARE_DYNAMIC(CMyDatabase)
public:
    /// Stores a copy of the settings and the name of the database; connects to nothing. The name may be empty: then
    /// Open gives a connection without database.
    ///
    /// The user "root", spelt exactly so, is replaced by "vela_root": the library does not log in as the server's
    /// "root". Kept: the replacement happens here and nowhere else, so "Root", which Open lower-cases, and a user
    /// "root" set later through GetServer are sent as "root".
    CMyDatabase(const CMyServer& server, const UtCString& databaseName);
    CMyDatabase(const CMyDatabase&) = delete;
    CMyDatabase(CMyDatabase&&) = delete;
    CMyDatabase& operator=(const CMyDatabase&) = delete;
    CMyDatabase& operator=(CMyDatabase&&) = delete;

    /// Closes the handle, without going through the virtual Close. Results obtained from ExecuteQuery must have been
    /// freed before; a half-read streamed one cannot be read further.
    ~CMyDatabase() override;

    /// Closes the connection; on a closed object it does nothing. Always true. The database name, the settings and the
    /// outcome of the last statement stay, so Open brings the same connection back. Library code closes through this
    /// slot, except for the destructor.
    virtual bool Close();

    /// Connects, or makes sure that the existing connection is alive.
    ///
    /// An empty `databaseName` keeps the stored name. Another name than the stored one (compared exactly) closes the
    /// connection, is stored, and connects anew. A live connection to the stored database is only pinged (one round
    /// trip). Free streamed results before: while rows or the status of a procedure are unread the ping fails, so the
    /// connection is replaced and takes them along. Otherwise one connect is made, as the lower-cased user of the
    /// settings, without a Unix socket, and then the list of the database's tables is fetched ("SHOW TABLES") to drop
    /// what the table cache knew about tables of these names. Host, user, password and name go to the client byte for
    /// byte as they are stored.
    ///
    /// `interactive` shows a message box when the connect fails, and after a successful one runs
    /// CheckAndRepairDatabaseIntegrity(true).
    ///
    /// True: connected (open, or without database where the name is empty). False, by cause:
    /// - Host or user empty, or port 0: nothing is changed and no error recorded.
    /// - Host, user or name begins with a zero byte, as they do in UTF-16 with the high byte first: the client would
    ///   read them as empty, which means something else. Closed, no error recorded.
    /// - A live connection without database, asked again: it stays as it is, neither closed nor counted as open.
    /// - The client has no memory for a handle: closed, no error recorded.
    /// - The connect failed: closed; code and message are the client's. The failed-connect counter of the process goes
    ///   up by one.
    /// - The counter has reached the limit (MyDbSetMaxTryConnect): closed, without any network traffic; the code is 0
    ///   and the message "Kein Fehler!".
    /// - The integrity check said no: the connection *stays open*; code and message are the check's.
    ///
    /// After a success on a new connection the outcome of the last statement is that of "SHOW TABLES", with error code
    /// 0 unless that statement itself failed. Where the server closes the connection during it and cannot be reached
    /// again the result is false. Without a database name nothing is asked and the outcome stays, that of an earlier
    /// failed Open included.
    ///
    /// Kept: no character set is requested. The server gets and sends what its and the client's defaults say (utf8mb4);
    /// the charset of the settings only tags texts. Statements in encoding 256 with characters outside ASCII are
    /// refused or stored with "?" unless the host switches the connection ("SET NAMES latin1") itself, after each
    /// reconnect too.
    virtual bool Open(bool interactive, const UtCString& databaseName);

    /// Looks for damage in the tables (CheckDatabaseIntegrity of the own database) and offers a repair. This is what
    /// Open(true, ...) asks before it calls a connection open; false makes that Open return false. A derived class may
    /// put its own check here; within an Open it can use the connection, which is open already.
    ///
    /// True: no damage, or the repair (RepairDatabase(false, true)) says so. Otherwise false, and GetErrorCode and
    /// GetErrorMessage hold one of the library's own errors, whose text, German and in encoding 256, names the database
    /// and describes the damage as CheckDatabaseIntegrity does:
    /// - 1016: damaged, and can probably be repaired. With `askUser` a message box asks whether to do so now, and any
    ///   answer but Yes ends here; without `askUser` nobody is asked. After a repair that says it succeeded the error
    ///   is that of its last statement.
    /// - 1017: damaged, and only a backup brings the tables back; also after a repair that did not help. With `askUser`
    ///   a message box says so.
    ///
    /// False also when memory runs out or the host's message box throws. A connection that cannot be had, or is lost,
    /// looks like a sound database; Ping tells.
    ///
    /// Kept: what the repair offered here repairs is nothing, and it succeeds (see RepairDatabase): a "Yes" makes the
    /// result true. Kept: on today's servers every database with tables is found damaged (see CheckDatabaseIntegrity),
    /// so each interactive Open asks. Open with false, and check as CheckDatabaseIntegrity advises.
    virtual bool CheckAndRepairDatabaseIntegrity(bool askUser);

    /// Asks the server for a sign of life (one round trip). True: the connection works. False: closed, or no answer; no
    /// error is recorded. Kept: a connection that the server has dropped is silently replaced by a new session and
    /// counts as alive; GetThreadID then still gives the number of the old one.
    bool Ping();

    bool IsConnected() const; ///< A handle exists. Says nothing about the server's being reachable; see Ping.
    bool IsOpen() const;      ///< A handle exists and the database name is not empty.

    /// The server's number of this connection as of the last successful Open; 0 when closed. Not updated by a silent
    /// reconnect.
    unsigned long GetThreadID() const;

    /// The settings, for reading and changing. A change takes effect at the next Open that connects; a change of the
    /// charset at the next statement. Valid as long as this object.
    CMyServer& GetServer();
    const CMyServer& GetServer() const;

    const UtCString& GetDatabaseName() const; ///< As given to the constructor or to Open. Valid as long as this object.

    /// Whether the server knows the database of this connection (CMyServer::ExistDatabase of the settings, which looks
    /// up the settings file that the name has in front, and connects by it). False unless IsOpen.
    bool ExistDatabase() const;

    // The lock of a database: a named lock of the server, called like the database with "_lock" behind. It binds only
    // those who ask for it, on one server, whichever program or machine they are on; two connections of one program
    // contend for it like two programs. It belongs to the connection, not to this object, which remembers nothing of
    // it, and ends with UnLockDatabase or with the connection, also when the program crashes.
    //
    // The three members open a closed connection (Open(false, "")) and run one statement each, after a ping; outcome
    // and last statement are those of that statement. A statement that fails is shown in a message box, and the result
    // is false, as it is when no connection can be had.
    //
    // Kept for all three:
    // - A connection that was lost is silently replaced, and the lock is gone with the old one; see "Reconnecting".
    // - The database name goes into the statement as it is: an apostrophe in it makes the statement fail (1064), and a
    //   name of more than 187 bytes is refused (1059). Letter case matters, also on a server where "Kalk" and "kalk"
    //   are one database: let all programs spell the name alike.
    // - Without a database name the lock is called "_lock": all connections without a database share it.
    // - In a cluster with several writing servers each of them grants the lock: let all programs use the same one.

    /// Takes the lock, waiting up to `seconds` for whoever holds it; 0 does not wait. True: this connection holds it. A
    /// second call on the same connection succeeds at once. False: it is held elsewhere, or see above.
    ///
    /// Kept: a negative number is sent as it is. Some servers then wait without limit; MariaDB refuses, and the result
    /// is false at once, also when the lock is free. The client waits as long as the server does.
    bool LockDatabase(int seconds);

    /// Gives the lock back. True: this connection held it. False: it did not, whoever else does; or see above. Kept: it
    /// undoes one LockDatabase. After two the connection still holds the lock (MariaDB; MySQL since 5.7).
    bool UnLockDatabase();

    /// Whether somebody holds the lock. Kept: this connection counts too, so right after LockDatabase it is true; and
    /// false does not say that the lock is free, the server may not have been asked.
    bool IsDatabaseLocked();

    /// Whether anybody else works on this database: CountUsersOnThisDatabase(true) gives more than 0.
    bool IsDatabaseInUse();

    /// How many of the server's threads have this database as their current one, names compared ignoring letter case;
    /// with `ignoreOwnUser` without those of this connection's user, this connection and other programs under the same
    /// name included. Threads are counted, not people: a program with two connections counts twice.
    ///
    /// Opens this connection when it is closed, and for the question a second one as "vela_root" with the password of
    /// this one, which is closed again. Changes nothing else of this object. A statement that fails there is shown in a
    /// message box.
    ///
    /// 0 also when one of the connections cannot be made or the statement fails, and too few when memory runs out.
    /// Kept: 0 when "vela_root" cannot log in, and without the PROCESS privilege its own threads are all that is
    /// counted; nothing tells. A failed login counts towards the limit of MyDbSetMaxTryConnect, so do not ask again and
    /// again. Kept: without a database name the threads without a database are counted, the one of the question
    /// included.
    long CountUsersOnThisDatabase(bool ignoreOwnUser);

    /// Whether this database has a table or view of this name (SHOW TABLES ... LIKE, one round trip). Blanks and
    /// backticks around the name are removed. False, and nothing is sent, for an empty name and unless IsOpen: a closed
    /// connection is not opened. False also when the statement fails (GetErrorCode).
    ///
    /// Kept: the name is a LIKE pattern in upper case, so "_" and "%" match other names as well, and a server that
    /// tells letter cases apart finds upper-case tables only. The database name is not quoted: with one that needs
    /// backticks the statement fails.
    bool ExistTable(const UtCString& tableName);

    // The catalogue, and maintenance. These members need an open connection (IsOpen) and give their failure result
    // without one, except for GetTable. Names go into the statements as they are. A failed statement leaves its error
    // for GetErrorCode; it is shown in a message box where the tables are listed, checked or repaired, and nowhere
    // else. Every statement is preceded by a ping, which may replace a lost connection; see "Reconnecting".

    /// The names of the tables and views, each in backticks, separated by a comma and a blank, in the server's order
    /// and the encoding of the settings: "`customers`, `orders`", as statements about several tables take them.
    /// `pattern` selects by LIKE, with the wildcards "_" and "%"; empty: all. SHOW TABLES, one statement.
    ///
    /// Empty: no table, or a failure (GetErrorCode). Kept: a name is not escaped, here or in the pattern. A table name
    /// with a backtick makes a list that statements fail with; an apostrophe ends the pattern.
    UtCString GetTables(const UtCString& pattern);

    /// Puts the names of all tables and views into `list`, in place of what it holds, and returns their number. 0, with
    /// an empty list, without tables and for a failure (GetErrorCode).
    ///
    /// Kept: the pattern is ignored; call the form above for a selection. Kept: the names come out of the text of that
    /// form, cut at the commas and without backticks and blanks at their ends, so a name with a comma becomes two.
    long GetTables(UtCStringList& list, const UtCString& pattern);

    /// How many tables and views there are. 0 also without an open connection, -1 when the statement fails.
    long GetTableCount();

    /// A handle on a table: CMyTable(this, tableName), which loads what the table cache does not know and opens a
    /// closed connection. This object has to outlive it.
    CMyTable GetTable(const UtCString& tableName);

    /// Drops a table and what the table cache knows of it. The name may stand in backticks, and must if it needs them.
    ///
    /// Kept: the result is whether the table is *still there* (ExistTable): false is the success, and a table that
    /// never was gives it too. True also for a view, which is not dropped, and, as ExistTable takes the name for a
    /// pattern, when another table matches it: after dropping a_b a table a1b answers. False also, with nothing done,
    /// for an empty name and without an open connection, and when the server cannot be reached: compare GetTables where
    /// it matters. The error of the DROP itself is overwritten by that of the test.
    ///
    /// Kept: neither name is quoted by the library. Without backticks a name with a blank or hyphen makes the drop
    /// fail, and "a#b" drops the table a; in a database with such a name, or a reserved word for a name, every drop
    /// fails.
    bool RemoveTable(const UtCString& tableName);

    /// Drops the database and deletes its directory (GetDBPath) with everything in it, links not followed. Nobody is
    /// asked. Afterwards this object is closed.
    ///
    /// Order: this connection is made anew, to be sure that it works. If the server knows the database, its tables are
    /// closed (FLUSH TABLES) and it is dropped over a second connection, as "vela_root" where the user is "root".
    /// Whether it knows it or not, the directory is deleted.
    ///
    /// True: the directory is gone, or never was. False: it is not; or one of the connections could not be made, and
    /// nothing is deleted. False, and nothing at all done, for an empty name and for one that is no plain name: one
    /// with "\", "/", ":" or a zero byte in it or a dot or blank at its end, and on Windows one that no file can have
    /// ("nul"). Nothing outside of the database's directory is ever deleted.
    ///
    /// Kept, and each of them loses data or leaves it behind without a word:
    /// - A database that the server does not have cannot be opened, so its directory stays.
    /// - Whether the server knows the database is asked as CMyServer::ExistDatabase asks for a plain name: by the
    ///   settings file in the root of the drive. Without that file the database is *never dropped, and its directory
    ///   always deleted*; with one that names another server, that server is asked. A server that does not answer
    ///   counts as one without the database.
    /// - The directory is deleted whatever became of the drop, and the result does not tell. The database name is not
    ///   quoted: one that needs backticks is not dropped, and for "shop#1" the *other* database shop is.
    /// - Without a data directory in the settings the path is relative to the working directory.
    /// - The directory is found ignoring letter case: where "kalk" has none, that of "KALK" is deleted. Use such names
    ///   on no server that tells them apart.
    bool RemoveDatabase();

    /// Gives the space of deleted rows back. With `optimize` by OPTIMIZE TABLE for all tables: true unless a table has
    /// an error; otherwise by RepairDatabase(false, false), whose result it has. False also without tables, without an
    /// open connection and when memory runs out.
    ///
    /// Kept: an OPTIMIZE statement that fails counts as success; GetErrorCode tells. Kept: without `optimize` the
    /// result is false on today's servers, whatever became of the tables (see CheckDatabaseIntegrity).
    bool CompressDatabase(bool optimize);

    /// The bytes that rows and indexes of all tables take up, as the storage engines report them (SHOW TABLE STATUS);
    /// an estimate for InnoDB. A view, or a table that is too damaged to report, adds nothing. -1 for a failure. Kept:
    /// -1 also for a database without tables; ask GetTableCount.
    __int64 GetDBSize();

    /// Where the files of the database are: the data directory of the settings, "DBS\", the name, "\". In the encoding
    /// of the two, or UTF-8 where they differ. Nobody looks whether it is there. Empty when memory runs out.
    ///
    /// Kept: no separator is put behind the data directory (SetDataDir does), and without one the path is relative.
    /// Without an open connection it is the name alone.
    UtCString GetDBPath();

    // Checking and repairing. The server does it, table by table: MyISAM and Aria tables can be repaired, InnoDB tables
    // can be checked only. What a check finds and a repair loses is shown in docs/kept-behaviours.md.
    //
    // A closed connection is opened by the checks. None of these members locks anything: nobody else may use the tables
    // during a repair (LockDatabase, IsDatabaseInUse).

    /// Checks all tables of this connection's database: SHOW TABLES, then one CHECK TABLE ... FAST QUICK, which looks
    /// at tables that were not closed properly, and at their indexes only. `databaseName` is the name that the
    /// statement puts in front of the tables; empty: the own one. Kept: the tables are those of the own database all
    /// the same.
    ///
    /// `errorText` (may be null) is emptied and gets a line per error, in its own encoding, "\n" between them:
    /// "      shop.orders:32 \tmessage". Kept: the number between table and message, a 32 with as many decimals as the
    /// longest table name has more characters than the shortest, was meant as a column of blanks.
    ///
    /// DB_CHECK_DEFECT: an error that speaks of a definition file (".frm") or of a data file (".MYD") that is not
    /// found. DB_CHECK_REPAIRABLE: errors, but none of these, also where no repair helps: a missing data file of Aria
    /// or InnoDB. DB_CHECK_OK: none. A table whose definition file is missing is not listed, and so not checked.
    ///
    /// Kept: a check that cannot run finds nothing: DB_CHECK_OK also without a connection or a name, when a statement
    /// fails, because of a backtick in a name for example, and when memory runs out. GetErrorCode tells. Views are
    /// checked, too. Kept: damage within a data file is not seen by a FAST QUICK check; run CHECK TABLE without them.
    ///
    /// Kept: the list of tables ends with a comma, so servers look for a table "FAST" and report that it does not
    /// exist: *every sound database with tables comes out as repairable*, with that one line. Look for lines about
    /// other tables, or call CMyTable::CheckTable for each. If there is a table called "fast" the statement fails
    /// (1066), and everything is sound.
    eDB_CHECK CheckDatabaseIntegrity(const UtCString& databaseName, UtCString* errorText);

    /// Repairs all tables with REPAIR TABLE: with `useFrm` by USE_FRM, which makes the index files anew out of the
    /// definitions; otherwise by EXTENDED and, if the server reports that any table is not sound then, once more all
    /// tables by USE_FRM. What was repaired is nowhere kept. *Back the database up first.*
    ///
    /// True: CheckDatabaseIntegrity(empty, null) finds nothing afterwards, which alone decides. Kept: on today's
    /// servers that is never so (see there); call CMyTable::CheckTable for each table instead. False also, with nothing
    /// done, without tables, without an open connection and when memory runs out.
    ///
    /// Kept: with `checkFirst` the tables are checked, none is found fit for repair, and the result is true: nothing is
    /// ever repaired. Pass false.
    ///
    /// Kept: one table that EXTENDED cannot repair sends all tables through USE_FRM, which forgets AUTO_INCREMENT
    /// positions: numbers of deleted rows are given out again. An InnoDB table that is sound is none: the server only
    /// notes that it does not repair those. Kept: rows that the server cannot read are dropped, and it calls the table
    /// sound; compare the row counts with the backup.
    ///
    /// Kept: rows of the server's report count as failures for the type "error" and for "status" with anything but
    /// "OK", in these letter cases: "Error" does not.
    bool RepairDatabase(bool useFrm, bool checkFirst);

    /// Runs one statement. All statements of the library go through here.
    ///
    /// Trailing blanks, carriage returns and line feeds are cut off, the text is converted to the encoding of the
    /// settings and kept as GetLastSQLCommand. A UTF-8 byte-order mark in front is not sent. The statement ends at a
    /// zero byte. `sql` may be the reference that GetLastSQLCommand gives. A closed connection is opened first
    /// (Open(false, "")).
    ///
    /// What becomes of the rows:
    ///
    /// | `result` | `useResult` | the rows | returned |
    /// |---|---|---|---|
    /// | given | false | all fetched into `*result`; null when the statement has none | affected rows |
    /// | given | true | `*result` streams them; nothing else may run here until it is freed | 1 |
    /// | null | false | fetched at once and dropped | affected rows |
    /// | null | true | read one by one and dropped | 1 |
    ///
    /// The caller owns `*result` and frees it with mysql_free_result, before this object closes. Freeing a half-read
    /// streamed result waits until the server has sent the rest. A streamed result that ends may have been cut: the
    /// client's error number tells.
    ///
    /// Affected rows: changed rows, or the number of rows fetched. The count is kept in 32 bits and signed: from
    /// 2147483648 on it comes out negative, and 4294967295 comes out as 0, so that -1 is always a failure.
    ///
    /// -1, with `*result` untouched:
    /// - The connection could not be opened: the last statement is cleared, the error is the one that Open left, query
    ///   time and affected rows stay.
    /// - The statement is empty (a closed connection is opened all the same): the error state stays as it was; last
    ///   statement, query time and affected rows are cleared.
    /// - The server or the client refused it, or lost the connection while sending the rows: GetErrorCode and
    ///   GetErrorMessage tell; query time and affected rows are 0. With `showError` a message box shows the error and
    ///   the statement (its first 32000 characters).
    /// - Out of memory: nothing is sent; the code is 2008 where no other is recorded.
    ///
    /// **Lost connection.** When sending fails with 2001, 2006 or 2013 the connection is closed, opened again (virtual
    /// Close and Open) and the statement sent once more; one round trip for the connect, one for "SHOW TABLES", one for
    /// the statement. There is no second attempt. When the connection cannot be opened again the error is that of Open,
    /// or, where Open recorded 0 because of the connect limit, that of the first attempt. Three things are kept as they
    /// are:
    /// - A write is repeated although the first attempt may have taken effect in whole or in part, and within a
    ///   transaction the first half is lost while the rest is committed. Where this matters use a transaction and check
    ///   in its last statement that the connection is still the same (SELECT CONNECTION_ID()).
    /// - The query time of a statement that succeeds only then is the system's tick count, not a duration.
    /// - The code of a statement that fails again is the return value of the client's call (not 0, but no error number
    ///   of the client); the message has the right number.
    ///
    /// Kept: with settings in UTF-16 nothing ("utf16") or the first letter ("utf16le") of a statement is sent, because
    /// a statement ends at its first zero byte.
    ///
    /// A procedure that returns rows (CALL) leaves its closing status unread: until that has arrived, statements fail
    /// with 2014. Open, or Close, before the next statement avoids it.
    long ExecuteQuery(const UtCString& sql, bool showError, MYSQL_RES** result, bool useResult);

    /// Whether a statement gives rows, judged by its first word; letter case does not matter, and a line break counts
    /// as a blank. No server is asked and the connection may be closed.
    ///
    /// True for SELECT (unless it writes INTO OUTFILE or INTO DUMPFILE), SHOW, CHECK, REPAIR, OPTIMIZE, EXPLAIN, for
    /// HANDLER with READ, and for every text that contains UNION as a word between blanks. Kept: false for texts of
    /// fewer than ten characters ("SHOW KEYS"), for a blank in front of the first word, and for DESCRIBE, ANALYZE,
    /// BACKUP and RESTORE, although they give rows. CALL, WITH and TABLE are not known.
    bool IsSelectQuery(const UtCString& sql) const;

    /// Escapes a text for use between quotes in a statement, after converting it to the encoding of the settings. The
    /// quotes themselves are the caller's. `in` and `out` may be the same object.
    ///
    /// `out` carries the encoding of the settings and no terminating zero. It is empty when `in` is empty, on a closed
    /// connection, and when memory runs out. The rules are the client's for this connection: its character set, and
    /// doubled quotes instead of backslashes where the server says NO_BACKSLASH_ESCAPES. No round trip.
    void MakeEscapeString(const UtCString& in, UtCString& out);

    /// Escapes `size` raw bytes in the same way, without any conversion; zero bytes are data.
    ///
    /// Kept: unlike the overload for texts this one leaves `out` as it was when there is nothing to do: `size` 0,
    /// `data` null, or a closed connection. Empty it first where that matters. Out of memory, also for sizes beyond
    /// what the client can count, gives an empty `out`.
    void MakeEscapeString(const void* data, unsigned __int64 size, UtCString& out);

    /// The error number of the last statement or of an Open since that failed to connect: 0 after a success, otherwise
    /// the client's (1000 to 1999 from the server, from 2000 from the client itself), with the one exception under
    /// ExecuteQuery, "Lost connection".
    unsigned long GetErrorCode() const;

    /// The error of the last statement or Open as a text, "1146: Table 'a.b' doesn't exist", tagged with its encoding
    /// (UTF-8 where it comes from the client). Without a recorded error it describes the handle: "Kein Fehler!" on a
    /// connection that works, "Keine Verbindung zum Server!" on a closed one. A statement that succeeded only after a
    /// lost connection records "Kein Fehler!", which stays when the connection closes. Empty only when memory runs out.
    UtCString GetErrorMessage();

    /// The last statement as it was sent, in the encoding of the settings; "SHOW TABLES" after an Open that connected.
    /// Valid as long as this object; its content changes with the next statement.
    const UtCString& GetLastSQLCommand() const;

    /// Milliseconds from sending the last statement to having its result; 0 when it failed. For the exception after a
    /// lost connection see ExecuteQuery. While a message box of a failed statement is open the number means nothing.
    unsigned long GetQueryTime() const;

    long GetAffectedRows() const; ///< What the last statement returned; 0 when it failed.

    /// The last statement in one line: the server's own account of it, "Records: 2  Duplicates: 0  Warnings: 0", or
    /// "Query OK. 3 Records", followed by its time, " in 0.015 Sec". Empty when it failed and on a closed connection.
    /// The decimal separator is a point in every locale.
    UtCString GetQueryInfo();

    /// A status variable of the server as a text, in the encoding of the settings: the column "Value" of the first row
    /// of SHOW STATUS LIKE 'name'. Opens a closed connection. Round trips: a ping and the statement. The outcome of the
    /// last statement is that of this one.
    ///
    /// Errors come as texts in place of the value, and nothing but the text tells them apart: "Keine Variable
    /// angegeben!" for an empty name (nothing is sent), and "Variable 'name' unbekannt!", in the encoding of `name`,
    /// when the server knows none, when the statement fails (GetErrorCode), and without a connection. The value itself
    /// may be the empty text. Empty also when memory runs out.
    ///
    /// Kept: the name goes into a LIKE pattern as it is. "_" and "%" are wildcards, of which the first match counts,
    /// and an apostrophe ends the pattern: never pass on what a stranger has typed. The statement ends at a zero byte.
    UtCString GetStatusValue(const UtCString& name);

    /// A system variable of the server, the session's where there is one, as GetStatusValue reads a status variable: by
    /// SHOW VARIABLES LIKE 'name', with the same text for an empty name.
    ///
    /// Kept: what the server does not know, a failed statement and a missing connection give the *empty text* and not
    /// the one of GetStatusValue, so that a conversion to a number fails.
    UtCString GetVariableValue(const UtCString& name);

    /// GetVariableValue as a number: ASCII digits, a sign allowed. 0 for every other text, that of an unknown variable
    /// and of an error included. Kept: 0 also for a number from 2^63 on, which some variables have as their maximum.
    __int64 GetVariableValueInt64(const UtCString& name);

    /// A text about the server and the connection; "Not connected" on a closed one, which is not opened, whatever is
    /// asked for. Empty for any other number than these:
    ///
    /// | `what` | the text |
    /// |---|---|
    /// | DB_INFO_REPORT (0) | the server report, see below |
    /// | DB_INFO_SERVER_VERSION (1) | the server's version, "10.11.19-MariaDB" |
    /// | DB_INFO_CLIENT_VERSION (2) | the client library's version |
    /// | DB_INFO_HOST (3) | "127.0.0.1 via TCP/IP, NOT compressed", or ", compressed" |
    /// | DB_INFO_VERSION (4) | the same as 1 |
    ///
    /// All but the report are what the client knows already: no round trip, and the server may be gone. Empty also when
    /// memory runs out.
    ///
    /// The report has lines for host and data directory of the settings and for the server's version, an estimate of
    /// the memory that the server uses at most, and the server's own status line with the uptime in words and its
    /// numbers grouped by "'" (encoding 256, lines end in "\n", except for the last one; the data directory with "\" as
    /// the settings have it, here with "/"):
    ///
    ///     Server: localhost
    ///     Version: 5.7.44
    ///     DataDir: C:/data/
    ///     Max. Memory: 308 MB = 8 MB + (100 * 3 MB)
    ///     Uptime: 1 day 01 hrs 01 min 01 sec
    ///     Threads: 2  Questions: 1'234'567  Slow queries: 0  Opens: 27  Open tables: 17  Queries per second avg: 0.934
    ///
    /// It takes a round trip for the status and two for each of the seven or eight variables of the estimate, whose
    /// last statement it leaves as the outcome. An error of the client comes in place of the report ("MySQL server has
    /// gone away", UTF-8), as does every status without the word "Uptime"; GetErrorCode knows nothing of it.
    ///
    /// The estimate is global buffers + (connections * buffers of a connection); a variable that the server does not
    /// have or that cannot be read, for want of memory too, counts as 0. Kept: the total and its parts are cut to whole
    /// megabytes each for itself. Kept: whether a server is older than 4.0, which decides about the variables, is asked
    /// of the version's text: 10 and later count as older, and most of their buffers are missing from the estimate.
    UtCString GetInfo(DB_INFOS what);

    /// Writes the rows of a table, or of any statement that gives rows, into a text file that LOAD DATA can read back
    /// with ESCAPED BY '\\'. The rows stream over this connection: memory is needed for the largest value only,
    /// whatever the size of the table.
    ///
    /// The file: one line per row, with `separator` (empty: ",") between the fields and `lineEnd` (empty: CR LF) behind
    /// the last one. A value stands between two `enclosure` texts (empty: none), with what mysql_real_escape_string
    /// changes for this connection, otherwise byte for byte as the server sent it; it puts a backslash before zero
    /// bytes, line feeds, carriage returns, backslashes, quotes and Ctrl-Z, and in NO_BACKSLASH_ESCAPES mode doubles
    /// the apostrophe instead. NULL is \N without enclosure, an empty value the two enclosures. With `header` the first
    /// line names the columns, enclosed and not escaped. The three texts are written in the encoding of the settings
    /// (where that is UTF-16: in UTF-8).
    ///
    /// `fileName` is a path as "files/UtFile.h" describes them. The file is created, or emptied when it is there, also
    /// when the dump fails later; a file that another dump is writing is refused. Lines go to the file in blocks, so
    /// while the dump runs the file ends anywhere.
    ///
    /// `statement`, if not empty, is what is sent; otherwise it is "SELECT * FROM " and `tableName`, which is used for
    /// nothing else. It goes to the server byte for byte in its own encoding, without a UTF-8 byte-order mark in front
    /// and up to its first zero byte, and is not kept as GetLastSQLCommand. Kept: the table name is not quoted. A CALL
    /// leaves its closing status unread, as with ExecuteQuery.
    ///
    /// `progress` may be null. It gets PBM_DELTAPOS with a step after every so many rows, and at the end with the rows
    /// that are left, 0 included. A step is a hundredth of the bar's upper bound, at least 100 rows. The bar must not
    /// use this connection meanwhile, except for the accessors; GetQueryTime is the tick count of the start until then.
    ///
    /// The number of rows written, at most 2147483647; GetQueryTime is the time of the whole dump then, and the error
    /// code 0. A closed connection is opened first (Open(false, "")). One round trip.
    ///
    /// -1:
    /// - The file could not be created: nothing is sent and no error recorded.
    /// - The connection could not be opened: as ExecuteQuery.
    /// - The server or the client refused the statement, or the connection was lost before the last row: GetErrorCode
    ///   and GetErrorMessage tell. A statement is not sent again. What has been written stays and is not complete.
    /// - The statement gave no rows to write (an UPDATE, which has taken effect): the error code is 0.
    /// - The file could not be written or closed, because the disk is full for example: a message box says so. The
    ///   error code is 0. What has been written stays; its last line may be a part.
    /// - Out of memory: the code is 2008 where no other is recorded.
    ///
    /// In all these cases the rest of the rows is read and dropped, which may take as long as the dump itself.
    long DumpTable(const UtCString& fileName, const UtCString& tableName, bool header, const UtCString& statement,
                   const UtCString& separator, const UtCString& enclosure, const UtCString& lineEnd,
                   CProgressCtrl* progress);

    /// Copies this database, tables and rows and the files beside them, into a new one on the same or another server:
    /// the one that the settings and the database name of `target` say. `parent` is not used.
    ///
    /// The order: FLUSH TABLES and LOCK TABLES ... READ for all tables here; each table is dumped into a file of the
    /// folder for temporary files ("kunden.143005_tmp", 14:30:05 being the start); UNLOCK TABLES; the database is
    /// created there with that server's default character set; for each table the statement of SHOW CREATE TABLE and a
    /// LOAD DATA LOCAL INFILE, then its file is deleted; last, what lies in the directory of this database (GetDBPath)
    /// and not in that of the target is copied there. Others can read and not write here until the UNLOCK. The wait
    /// cursor is shown (MyDbUserInterface). Six statements per table, and five, besides those of Open and
    /// ExistDatabase.
    ///
    /// True: everything is there, and `target` is open. Kept: that does not mean that it is equal. The server warns and
    /// nobody hears when it stores other values than the file has. Compare with CHECKSUM TABLE, see to it that the
    /// target's server has utf8mb4 as its default, give both connections settings with "utf8mb4", and read the list of
    /// what a copy cannot carry in docs/kept-behaviours.md.
    ///
    /// False at once, nothing changed: this database cannot be opened or has no tables; `target` is not open; both name
    /// the same database; the target exists (ExistDatabase); the name of a database or table is "." or "..", holds "\",
    /// "/" or ":", or is no file name (Windows: "nul", "a?b"), or that of a database ends in a dot or blank; no memory.
    /// Kept: `target` must be open, in a database that must not exist: create, open, drop it over another connection.
    ///
    /// False after a failure of any step: the locks are ended, the target is removed (RemoveDatabase, which closes it),
    /// and the temporary files are deleted. GetErrorCode of the two connections is that of their last statement, which
    /// need not be the one that failed. Kept: a target that exists and is not found by ExistDatabase (docs say when)
    /// loses its directory this way. Kept: *the deletion does not stop by itself*; MyDbUserInterface::ContinueCleanup
    /// is asked after each file, and a host that copies must answer it.
    bool CopyDatabase(CMyDatabase& target, CWnd* parent);

private:
    friend class CFieldCache;
    friend class CMyRecordSet;
    friend struct connection::DatabaseAccess;

    bool EnsureOpen(bool interactive, const UtCString& databaseName);
    bool OpenAnew(bool interactive);
    bool Connect();
    bool FinishOpen(bool interactive);
    void FailOpen(bool interactive);
    void DropHandle() noexcept;

    long RunStatement(const UtCString& sql, bool showError, MYSQL_RES** result, bool useResult);
    bool KeepStatement(const UtCString& sql);
    int SendStatement();
    void ResendStatement();
    bool TakeResult(MYSQL_RES** result, bool useResult);
    void RecordClientError();
    void RecordOutOfMemory();
    long FailStatement(bool showError);

    bool Remove(const UtCString& name);
    void CloseTableFiles();
    bool AgreesToRepair(const UtCString& description, bool isAsked);
    bool ReportDefect(const UtCString& description, bool isShown);

    struct DumpJob;
    long DumpStatement(UtCString statement, DumpJob& job);
    long DumpRows(DumpJob& job);
    long FailDump();

    MYSQL* m_handle;
    unsigned long m_threadId;
    CMyServer m_server;
    UtCString m_databaseName;
    UtCString m_errorMessage;
    unsigned long m_errorCode;
    UtCString m_lastSQLCommand;
    unsigned long m_queryTime;
    long m_affectedRows;
    bool m_isReopening; ///< within the Open of a resend, whose own statements are not resent
};
