#pragma once

#include "MyDbExport.h"
#include "framework/CObject.h"
#include "text/UtCString.h"

// <windows.h> has a macro that makes SetPortA or SetPortW of the name SetPort. It is put aside here, and the member
// answers to these names too, so that a host may include <windows.h> before or behind this header.
#pragma push_macro("SetPort")
#undef SetPort

/// The settings that say which server to talk to, as whom, in which encoding, and where the server keeps its files. A
/// value: copied and assigned freely, every CMyDatabase holds a copy of its own.
///
/// The setters take any text and talk to nobody; whether the settings serve to connect is first known by IsValid and
/// then by an Open or TestConnect. No exception leaves a member.
class MYDB_EXPORT CMyServer : public CObject
{
    DECLARE_DYNAMIC(CMyServer)
public:
    /// User "vela_root", encoding 256, connects allowed; everything else empty, the port 0. Not valid before host and
    /// port are set.
    CMyServer();

    /// As above, then LoadServerINI(iniFile). Whether that succeeded shows in IsValid.
    explicit CMyServer(const UtCString& iniFile);

    CMyServer(const CMyServer& other); ///< All members.
    ~CMyServer() override;
    CMyServer& operator=(const CMyServer& other); ///< All members.

    /// Whether both name the same server: equal hosts, whatever the letter case, and equal ports. Kept: user, password,
    /// alias, charset and directories play no part; compare those that matter by their getters.
    bool operator==(const CMyServer& other) const;
    bool operator!=(const CMyServer& other) const; ///< The negation of ==.

    /// What the settings file says about connecting; true without one. Advice to the host only: Open does not ask it.
    bool IsConnectAllowed() const;

    // The getters give references that are valid as long as this object; a later setter changes what they refer to.
    // Host, user and password go to the client byte for byte, so give them in ASCII or UTF-8.

    const UtCString& GetHost() const; ///< Name or address of the server's machine.
    void SetHost(const UtCString& host);
    const UtCString& GetAlias() const; ///< A name for people; not used to connect.
    void SetAlias(const UtCString& alias);
    unsigned long GetPort() const;    ///< The TCP port; 0: not set, which makes the settings invalid.
    void SetPort(unsigned long port); ///< A number beyond 32 bits counts as 0.
    void SetPortA(unsigned long port) { SetPort(port); }
    void SetPortW(unsigned long port) { SetPort(port); }
    const UtCString& GetUser() const; ///< The account, as set. CMyDatabase lower-cases it and replaces "root".
    void SetUser(const UtCString& user);
    const UtCString& GetPassword() const; ///< In plain text.
    void SetPassword(const UtCString& password);

    /// The name of the character set as given to SetCharset. Kept: it is not requested from the server; it only decides
    /// GetEncodingType.
    const UtCString& GetCharset() const;

    /// Stores the name and derives the encoding in which statements are sent and texts are tagged: "utf8mb4" and "utf8"
    /// give 65001, "utf16" and "ucs2" give 1201 (the byte order in which the server sends them), "utf16le" gives 1200,
    /// everything else 256. The names are compared exactly: "UTF8" gives 256.
    /// Statements cannot be sent in UTF-16; see CMyDatabase::ExecuteQuery.
    void SetCharset(const UtCString& charset);
    eUtEncodingType GetEncodingType() const; ///< 256, 1200, 1201 or 65001; see SetCharset.

    // The directories are paths on the server's machine, with "\" on every system. Stored ones are empty or end in
    // exactly one "\": the setters cut backslashes and blanks off the end and append one.

    const UtCString& GetMySQLProgramDir() const; ///< Where the server's programs are.
    /// False when nothing is left but the empty path, which is stored then. Kept: true for a path that equals the
    /// stored one exactly, so also for an empty path where none is stored; ask GetMySQLProgramDir().IsEmpty().
    bool SetMySQLProgramDir(const UtCString& dir);
    const UtCString& GetDataDir() const;   ///< Where the server keeps its databases.
    bool SetDataDir(const UtCString& dir); ///< As SetMySQLProgramDir.

    /// The path of the settings file that the last LoadServerINI found; empty when it found none. Written as it was
    /// given, with "\Server.ini" behind a folder.
    const UtCString& GetServerINIFileName() const;

    /// The folder of that file with the final backslash: everything up to and including the last backslash of the path.
    /// Kept: a path without a backslash, "/etc/mydb/Server.ini" included, comes back whole.
    UtCString GetServerINIDir() const;

    /// Whether there is enough to connect: a host, a user and a port. Password, charset and directories may be missing.
    bool IsValid() const;

    /// Replaces all settings by those of a settings file; docs/server-ini.md describes its keys and how it is read.
    ///
    /// A path that ends in ".ini" (any letter case) is the file, any other one the folder of a "Server.ini";
    /// backslashes and blanks at its end are dropped. The argument may be a member of this object.
    ///
    /// The result is that of IsValid afterwards. False also:
    /// - for an empty path: nothing changes;
    /// - when no file is there, or the path has only backslashes and blanks: every setting is empty or 0, connecting is
    ///   allowed, the encoding is 256. Kept: the user is empty as well, not "vela_root";
    /// - when the file cannot be read or names no port: every key that was not found has its default, and the file name
    ///   is stored.
    ///
    /// The password is deciphered; one that is malformed becomes empty, without an error. Kept: lower-case digits in it
    /// count as 0; the program directory is stored as read, without the backslash that SetMySQLProgramDir appends; an
    /// alias that contains "::" and the port's digits is taken as it is, "Main::33060" for the port 3306 too; a UTF-8
    /// byte-order mark hides the first line of the file.
    bool LoadServerINI(const UtCString& fileOrDir);

    /// Whether a connection can be made with these settings: opens one without database and closes it again. `root` is
    /// replaced as in CMyDatabase, and a failed attempt counts towards the limit of MyDbSetMaxTryConnect.
    ///
    /// `interactive` shows a message box on failure. `errorCode` and `errorMessage` (each may be null) receive what
    /// CMyDatabase::GetErrorCode and GetErrorMessage say after the attempt: 0 and "Kein Fehler!" on success. Invalid
    /// settings give false at once and leave both untouched.
    bool TestConnect(bool interactive, unsigned long* errorCode, UtCString* errorMessage);

    /// Whether the folders that an application needs are there: the data directory and, in it, "dbs\", "mdbs\" and
    /// "temp\", looked for in this order. False: `missingDir` (may be null) receives the path of the first that is
    /// missing, as composed, with the final "\"; it is empty when there is no data directory in the settings, and when
    /// memory runs out. True: `missingDir` stays as it is. Links to folders count; nothing is opened or created.
    ///
    /// Kept: the folders are looked for on the machine of the application, although the data directory is a path on the
    /// server's. Off Windows "\" and "/" separate, and letter case does not matter.
    bool CheckDirectoryAccess(UtCString* missingDir) const;

    /// What an application does first: loads the settings file (LoadServerINI), tries to connect (TestConnect) and
    /// looks for the folders (CheckDirectoryAccess). True: all three succeeded, nothing was shown. False: the first
    /// that did not was shown in one message box with the error icon, in the caller's words. The settings stay loaded
    /// whatever the outcome, so they can be used all the same; no connection stays open.
    ///
    /// The formats are filled as UtCString::FormatStringList does, each "%s" with the next text:
    ///
    /// | format | shown when | 1st | 2nd | 3rd | 4th |
    /// |---|---|---|---|---|---|
    /// | `connectErrorFormat` | loading or connecting failed | error code | error text | alias | |
    /// | `directoryErrorFormat` | a folder is missing | folder | data directory | data directory | folder |
    ///
    /// Code and text are those of TestConnect. Kept: settings that could not be loaded are reported with the same
    /// format, the code 0 and an empty text; without a file the alias is empty as well. A reached limit of failed
    /// connects gives the code 0 and "Kein Fehler!".
    ///
    /// The box is in the encoding of its format where that is 256, otherwise in UTF-8. In 256 a character of the
    /// server's words that Windows-1252 does not have reads "?". Formats end at a zero byte. The password is never
    /// shown.
    ///
    /// `ignoredText` plays no part. `iniFile` may be a member of this object. One connect; its failure counts towards
    /// the limit of MyDbSetMaxTryConnect.
    bool ConnectApplicationToServer(const UtCString& iniFile, const UtCString& ignoredText,
                                    const UtCString& connectErrorFormat, const UtCString& directoryErrorFormat);

    /// Whether a server has a database of this name, whatever the letter case. The server is not this one, but that of
    /// a settings file which the name carries in front: "C:\cfg::kalk" asks the server of "C:\cfg\Server.ini". Kept: a
    /// plain name asks that of "\Server.ini" in the root of the current drive, so it is false where no such file is.
    ///
    /// False also for an empty name and when the settings cannot be loaded, the connection cannot be made or the
    /// statement fails; no message box is shown. One connection of its own, tried twice where the first attempt fails
    /// (each failure counts towards the limit of MyDbSetMaxTryConnect), and one statement; this object does not change.
    bool ExistDatabase(const UtCString& name) const;

private:
    bool m_connectAllowed;
    UtCString m_host;
    UtCString m_alias;
    unsigned long m_port;
    UtCString m_user;
    UtCString m_password;
    UtCString m_charset;
    unsigned short m_encodingType;
    UtCString m_mySQLProgramDir;
    UtCString m_dataDir;
    UtCString m_serverINIFileName;
};

#pragma pop_macro("SetPort")
