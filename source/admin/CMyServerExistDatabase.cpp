#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "CMyServer.h"

#include "connection/ServerIni.h"

bool CMyServer::ExistDatabase(const UtCString& name) const
{
    if (name.IsEmpty())
        return false;
    const connection::ConfiguredDatabase wanted = connection::SplitDatabaseName(name);
    CMyServer configured;
    if (!configured.LoadServerINI(wanted.settingsPath))
        return false;
    CMyDatabase database(configured, UtCString());
    CMyRecordSet databases(database, UtCString());
    if (databases.Select("SHOW DATABASES", false, true) < 1)
        return false;
    UtCString found;
    do {
        if (databases.GetFieldText("Database", found) && found.EqualNoCase(wanted.database))
            return true;
    } while (databases.MoveNext());
    return false;
}
