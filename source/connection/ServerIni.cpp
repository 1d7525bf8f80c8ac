#include "connection/ServerIni.h"

#include "files/NativePath.h"
#include "platform/IniFile.h"

namespace {

constexpr char pathEnd[] = "\\ ";

bool NamesIniFile(const UtCString& path)
{
    return path.EndsWith(".ini", false);
}

} // namespace

namespace connection {

UtCString ServerIniPath(const UtCString& fileOrDirectory)
{
    const UtCString path = fileOrDirectory.trimRight(pathEnd);
    if (path.IsEmpty() || NamesIniFile(path))
        return path;
    return UtCString::JoinFilePath(path, "Server.ini");
}

UtCString DirectoryOfServerIni(const UtCString& path)
{
    int end = 0;
    for (int found = path.Search(0, '\\'); found >= 0; found = path.Search(end, '\\'))
        end = found + 1;
    // KEPT K-70: a file name without a backslash, "/etc/Server.ini" included, is its own directory.
    return end == 0 ? path : path.substr(0, end);
}

bool AllowsConnecting(const UtCString& value)
{
    return value.EqualNoCase("true") || value == "1";
}

UtCString CompleteAlias(const UtCString& alias, const UtCString& host, unsigned long port)
{
    const UtCString ending = UtCString("::") + UtCString(port);
    const UtCString named = alias.IsEmpty() ? host + ending : alias;
    // KEPT K-71: "::33060" counts as the port 3306, so such an alias is not completed.
    return named.Contains(ending) ? named : named + ending;
}

ConfiguredDatabase SplitDatabaseName(const UtCString& name)
{
    const UtCString trimmed = name.trim();
    const int separator = trimmed.Search(0, UtCString("::"));
    const bool hasSettings = separator >= 0;
    UtCString settings = (hasSettings ? trimmed.substr(0, separator) : UtCString()).trimRight(pathEnd);
    // KEPT K-72: a plain database name has the settings path "\Server.ini", in the root of the current drive.
    if (!NamesIniFile(settings))
        settings += "\\Server.ini";
    return {settings, hasSettings ? trimmed.substr(separator + 2) : trimmed};
}

ServerIniFile::ServerIniFile(const UtCString& path) : m_nativePath(files::NativePath(path)) {}

UtCString ServerIniFile::Value(const char* key, const char* defaultValue) const
{
    const platform::IniValue value = platform::ReadIniValue(m_nativePath, "SQL-Server", key, defaultValue);
    return UtCString(std::string_view(value.text, value.length), UT_ENCODING_DEFAULT);
}

} // namespace connection
