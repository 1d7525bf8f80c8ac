#pragma once

#include "../../examples/EncipherPassword.h"
#include "harness/PrivateServer.h"
#include "harness/TemporaryFolder.h"

#include <fstream>
#include <string>

namespace server_test {

/// A folder with a settings file for the real server, and with the folders that an application looks for.
class ServerIniFile
{
public:
    explicit ServerIniFile(const harness::ServerAccess& access) : m_access(access)
    {
        for (const char* const name : {"data", "data/dbs", "data/mdbs", "data/temp"})
            std::filesystem::create_directory(m_folder.Path() / name);
        Write(m_access.port, m_access.password);
    }

    void Write(unsigned int port, const std::string& password) const
    {
        std::ofstream file(Path(), std::ios::binary);
        file << "[SQL-Server]\r\nDataDir=" << DataPath() << "\r\nServer=" << m_access.host
             << "\r\nAlias=Zentrale\r\nPort=" << port << "\r\nUser=" << m_access.user
             << "\r\nPassword=" << EncipherPassword(password).value_or("") << "\r\nCharset=utf8mb4\r\n";
    }

    std::string Path() const { return (m_folder.Path() / "Server.ini").string(); }
    std::string DataPath() const { return (m_folder.Path() / "data").string(); }
    std::filesystem::path OutputPath() const { return m_folder.Path() / "output"; }

private:
    harness::ServerAccess m_access;
    harness::TemporaryFolder m_folder;
};

} // namespace server_test
