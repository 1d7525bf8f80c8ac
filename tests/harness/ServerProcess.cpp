#include "harness/ServerProcess.h"

#include "harness/System.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <thread>

namespace harness {
namespace {

constexpr const char* HOST = "127.0.0.1";
constexpr int START_TIMEOUT_SECONDS = 120;

// One statement per line, run by the server itself at every start, before it listens.
constexpr const char* ACCOUNTS = "CREATE USER IF NOT EXISTS 'vela_root'@'%' IDENTIFIED BY 'vela';\n"
                                 "GRANT ALL PRIVILEGES ON *.* TO 'vela_root'@'%' WITH GRANT OPTION;\n"
                                 "CREATE USER IF NOT EXISTS 'tester'@'%' IDENTIFIED BY 'tester';\n"
                                 "GRANT ALL PRIVILEGES ON `mydb\\_%`.* TO 'tester'@'%';\n";

bool Answers(const ServerAccess& access)
{
    try {
        RawConnection connection(access);
        return true;
    } catch (const SqlError&) {
        return false;
    }
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

ServerProcess::ServerProcess(const std::vector<std::string>& options) : m_options(options)
{
    m_administrator = {HOST, 0, "vela_root", "vela"};
    m_tester = {HOST, 0, "tester", "tester"};
    CreateDataFolder();
    StartOnFreePort();
}

void ServerProcess::Stop()
{
    m_process->Stop();
}

void ServerProcess::Kill()
{
    m_process->Kill();
}

void ServerProcess::Start()
{
    if (!m_process->IsRunning() && !StartOn(m_administrator.port)) {
        throw std::runtime_error("the server did not start again:\n" + EndOfServerLog());
    }
}

void ServerProcess::Restart()
{
    Stop();
    Start();
}

void ServerProcess::CreateDataFolder() const
{
    std::ofstream(m_folder.Path() / "accounts.sql", std::ios::binary) << ACCOUNTS;
    std::vector<std::string> arguments = {"--no-defaults", "--force", "--auth-root-authentication-method=normal",
                                          "--skip-test-db", "--datadir=" + ServerPath(DataFolder()),
                                          // A server that starts empties its folder for temporary files.
                                          "--tmpdir=" + ServerPath(m_folder.Path())};
    if (RunsServersAsRoot()) {
        arguments.push_back("--user=root");
    }
    ChildProcess install("mariadb-install-db", arguments, m_folder.Path() / "install.log");
    if (install.WaitForEnd() != 0) {
        throw std::runtime_error("mariadb-install-db failed:\n" + ReadFile(m_folder.Path() / "install.log"));
    }
}

void ServerProcess::StartOnFreePort()
{
    // The port is free when it is chosen; another program may be faster than the server.
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (StartOn(FreePort())) {
            return;
        }
    }
    throw std::runtime_error("the server did not start:\n" + EndOfServerLog());
}

bool ServerProcess::StartOn(unsigned int port)
{
    m_administrator.port = port;
    m_tester.port = port;
    m_process = std::make_unique<ChildProcess>("mariadbd", Arguments(port), m_folder.Path() / "server.log");
    for (int waited = 0; waited < START_TIMEOUT_SECONDS * 50 && m_process->IsRunning(); ++waited) {
        if (Answers(m_tester) && m_process->IsRunning()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    m_process->Kill();
    return false;
}

std::vector<std::string> ServerProcess::Arguments(unsigned int port) const
{
    const std::string folder = ServerPath(m_folder.Path());
    std::vector<std::string> arguments = {
        "--no-defaults",
        "--datadir=" + ServerPath(DataFolder()),
        "--tmpdir=" + folder,
        "--bind-address=" + std::string(HOST),
        "--port=" + std::to_string(port),
        "--socket=" + folder + "/s.sock",
        "--pid-file=" + folder + "/server.pid",
        "--init-file=" + folder + "/accounts.sql",
        "--general-log=1",
        "--log-output=FILE",
        "--general-log-file=" + ServerPath(GeneralLogFile()),
        "--lower-case-table-names=1",
        "--local-infile=1",
        "--skip-name-resolve",
        "--skip-log-bin",
        "--performance-schema=OFF",
        "--max-allowed-packet=64M",
        "--key-buffer-size=8M",
        "--aria-pagecache-buffer-size=8M",
        "--innodb-buffer-pool-size=32M",
        "--innodb-log-file-size=16M",
        "--innodb-flush-log-at-trx-commit=2",
        "--innodb-doublewrite=0",
    };
    if (RunsServersAsRoot()) {
        arguments.push_back("--user=root");
    }
    arguments.insert(arguments.end(), m_options.begin(), m_options.end());
    return arguments;
}

std::string ServerProcess::EndOfServerLog() const
{
    const std::string log = ReadFile(m_folder.Path() / "server.log");
    constexpr size_t LONGEST = 4000;
    return log.size() > LONGEST ? log.substr(log.size() - LONGEST) : log;
}

} // namespace harness
