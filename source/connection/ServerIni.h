#pragma once

#include "text/UtCString.h"

#include <string>

namespace connection {

/// The settings file that a caller means with the path of a file or of its folder.
///
/// Backslashes and blanks at the end are dropped. What then ends in ".ini" (any letter case) is the file; everything
/// else is a folder with a file "Server.ini" in it. Empty when nothing is left. Nothing is looked up.
UtCString ServerIniPath(const UtCString& fileOrDirectory);

/// Everything up to and including the last backslash; a path without one comes back whole.
UtCString DirectoryOfServerIni(const UtCString& path);

/// Whether the value of "CanConnect" allows connecting: "true" in any letter case, or exactly "1".
bool AllowsConnecting(const UtCString& value);

/// The alias with the port behind it: an empty one becomes "host::port", and one that does not contain "::" and the
/// port gets them appended.
UtCString CompleteAlias(const UtCString& alias, const UtCString& host, unsigned long port);

/// A database name with the place of its settings file, as in "C:\cfg::kalk".
struct ConfiguredDatabase
{
    UtCString settingsPath; ///< never empty, ends in ".ini" (any letter case)
    UtCString database;     ///< empty when nothing stands behind the "::"
};

/// Cuts a database name, blanks around it dropped, at its first "::". The part before it is a settings file or its
/// folder; a folder gets "\Server.ini" appended, so that a plain name has the settings path "\Server.ini".
ConfiguredDatabase SplitDatabaseName(const UtCString& name);

/// The section "SQL-Server" of one settings file.
class ServerIniFile
{
public:
    explicit ServerIniFile(const UtCString& path);

    /// The value of one key as bytes with encoding 256, at most 255 of them, read as "platform/IniFile.h" says.
    UtCString Value(const char* key, const char* defaultValue = "") const;

private:
    std::string m_nativePath;
};

} // namespace connection
