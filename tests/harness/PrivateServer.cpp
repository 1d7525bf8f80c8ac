#include "harness/PrivateServer.h"

#include "harness/ServerProcess.h"
#include "harness/System.h"

#include <atomic>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <thread>

namespace harness {
namespace {

std::string Environment(const char* name)
{
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

ServerAccess GivenServer(const std::string& place)
{
    const size_t colon = place.rfind(':');
    ServerAccess access{place.substr(0, colon), 0, Environment("MYDB_TEST_USER"), Environment("MYDB_TEST_PASSWORD")};
    const std::string_view port = std::string_view(place).substr(colon == std::string::npos ? place.size() : colon + 1);
    std::from_chars(port.data(), port.data() + port.size(), access.port);
    if (access.host.empty() || access.port == 0) {
        throw std::runtime_error("MYDB_TEST_SERVER is not host:port: " + place);
    }
    return access;
}

std::string NewDatabase(const ServerAccess& administrator)
{
    static std::atomic<int> number = 0;
    const std::string name = "mydb_" + std::to_string(ProcessId()) + "_" + std::to_string(++number);
    RawConnection connection(administrator);
    connection.Run("DROP DATABASE IF EXISTS " + name); // of an earlier program with the same process number
    connection.Run("CREATE DATABASE " + name + " CHARACTER SET utf8mb4");
    return name;
}

} // namespace

PrivateServer& PrivateServer::Get()
{
    static PrivateServer server;
    return server;
}

PrivateServer::PrivateServer()
{
    if (const std::string place = Environment("MYDB_TEST_SERVER"); !place.empty()) {
        m_administrator = GivenServer(place);
        m_tester = m_administrator;
        return;
    }
    static ServerProcess process;
    m_administrator = process.Administrator();
    m_tester = process.Tester();
}

std::filesystem::path PrivateServer::GeneralLogFile() const
{
    const std::filesystem::path file =
        OwnPath(RawConnection(m_administrator).Text("SELECT @@global.general_log_file").value());
    return file.is_absolute() ? file : DataFolder() / file;
}

std::filesystem::path PrivateServer::DataFolder() const
{
    return OwnPath(RawConnection(m_administrator).Text("SELECT @@global.datadir").value());
}

void KillConnection(unsigned long threadId)
{
    KillConnection(PrivateServer::Get().Administrator(), threadId);
}

void KillConnection(const ServerAccess& administrator, unsigned long threadId)
{
    const std::string id = std::to_string(threadId);
    RawConnection connection(administrator);
    connection.Run("KILL " + id);
    while (connection.Text("SELECT COUNT(*) FROM information_schema.PROCESSLIST WHERE ID = " + id) != "0") {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

TemporaryDatabase::TemporaryDatabase()
    : TemporaryDatabase(PrivateServer::Get().Administrator(), PrivateServer::Get().Tester())
{
}

TemporaryDatabase::TemporaryDatabase(const ServerAccess& administrator, const ServerAccess& tester)
    : m_administrator(administrator), m_name(NewDatabase(administrator)), m_connection(tester, m_name)
{
}

TemporaryDatabase::~TemporaryDatabase()
{
    try {
        RawConnection(m_administrator).Run("DROP DATABASE IF EXISTS " + m_name);
    } catch (const SqlError& error) {
        std::fprintf(stderr, "%s was not dropped: %s\n", m_name.c_str(), error.what()); // a test may stop its server
    }
}

} // namespace harness
