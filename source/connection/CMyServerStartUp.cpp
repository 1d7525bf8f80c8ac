#include "CMyServer.h"

#include "MyDbUserInterface.h"
#include "connection/Guarded.h"
#include "connection/UserInterface.h"
#include "files/UtFile.h"
#include "text/UtCStringList.h"

namespace {

/// What FormatStringList can fill; it takes no format in UTF-16.
eUtEncodingType EncodingOfBox(const UtCString& format)
{
    return format.GetEncodingType() == UT_ENCODING_DEFAULT ? UT_ENCODING_DEFAULT : UT_ENCODING_UTF8;
}

void ShowError(const UtCString& format, const UtCStringList& arguments)
{
    const eUtEncodingType encoding = EncodingOfBox(format);
    UtCString text;
    text.FormatStringList(UtCString(format, encoding).string(), arguments, encoding);
    connection::UserInterface().ShowMessage(text, MYDB_MESSAGE_ERROR);
}

} // namespace

bool CMyServer::CheckDirectoryAccess(UtCString* missingDir) const
{
    return connection::Guarded(false, [&] {
        for (const char* const subdirectory : {"", "dbs\\", "mdbs\\", "temp\\"}) {
            // KEPT K-115: on this machine, wherever the server runs; a missing data directory is the empty path.
            const UtCString directory = m_dataDir + subdirectory;
            if (UtIsDir(directory) != 0)
                continue;
            if (missingDir)
                *missingDir = directory;
            return false;
        }
        return true;
    });
}

bool CMyServer::ConnectApplicationToServer(const UtCString& iniFile, const UtCString&,
                                           const UtCString& connectErrorFormat, const UtCString& directoryErrorFormat)
{
    return connection::Guarded(false, [&] {
        unsigned long errorCode = 0;
        UtCString errorText; // KEPT K-119: code 0 and no text when the settings could not be loaded.
        if (!LoadServerINI(iniFile) || !TestConnect(false, &errorCode, &errorText)) {
            ShowError(connectErrorFormat, {UtCString(errorCode), errorText, m_alias});
            return false;
        }
        UtCString missing;
        if (CheckDirectoryAccess(&missing))
            return true;
        ShowError(directoryErrorFormat, {missing, m_dataDir, m_dataDir, missing});
        return false;
    });
}
