#include "CMyServer.h"

#include "connection/ServerIni.h"
#include "connection/ServerIniPassword.h"
#include "files/UtFile.h"

bool CMyServer::LoadServerINI(const UtCString& fileOrDir)
{
    if (fileOrDir.IsEmpty())
        return false;
    const UtCString path = connection::ServerIniPath(fileOrDir); // before the reset: the argument can be a member
    *this = CMyServer();
    m_user = UtCString(); // KEPT K-74: after a load that found no file the user is empty, not the default one.
    if (UtIsFile(path) == 0)
        return false;

    m_serverINIFileName = path;
    const connection::ServerIniFile file(path);
    SetDataDir(file.Value("DataDir"));
    // KEPT K-75: stored as read, without the backslash that its setter adds.
    m_mySQLProgramDir = file.Value("ServerDir");
    m_connectAllowed = connection::AllowsConnecting(file.Value("CanConnect", "True"));
    m_host = file.Value("Server", "localhost");
    m_alias = file.Value("Alias");
    file.Value("Port").Convert(m_port);
    m_user = file.Value("User", "vela_root");
    m_password = connection::DecipherPassword(file.Value("Password").View());
    SetCharset(file.Value("Charset"));
    m_alias = connection::CompleteAlias(m_alias, m_host, m_port);
    return IsValid();
}

UtCString CMyServer::GetServerINIDir() const
{
    return connection::DirectoryOfServerIni(m_serverINIFileName);
}
