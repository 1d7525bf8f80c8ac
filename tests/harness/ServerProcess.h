#pragma once

#include "harness/ChildProcess.h"
#include "harness/RawConnection.h"
#include "harness/TemporaryFolder.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace harness {

/// One MariaDB server of its own: own data folder, own free port on the loopback address, own accounts. Nothing else on
/// the machine is read or touched, and nothing of it is left at the end, also when the test program crashes.
///
/// Tests that stop or restart a server make one of these; all others share PrivateServer.
class ServerProcess
{
public:
    /// Creates the data folder and starts the server; returns when it answers. `options` come last, so they win:
    /// `ServerProcess server({"--local-infile=0"})`. Throws std::runtime_error with the end of the server's own log.
    explicit ServerProcess(const std::vector<std::string>& options = {});

    /// "vela_root": every privilege, with the right to grant.
    const ServerAccess& Administrator() const { return m_administrator; }
    /// "tester": every privilege on databases whose name starts with "mydb_", no others (no PROCESS).
    const ServerAccess& Tester() const { return m_tester; }

    void Stop();    ///< an orderly end; connections are cut
    void Kill();    ///< as a crash of the server
    void Start();   ///< again, with the same data on the same port; does nothing while it runs
    void Restart(); ///< Stop and Start

    std::filesystem::path GeneralLogFile() const { return m_folder.Path() / "general.log"; }
    std::filesystem::path DataFolder() const { return m_folder.Path() / "data"; }

private:
    void CreateDataFolder() const;
    void StartOnFreePort();
    bool StartOn(unsigned int port);
    std::vector<std::string> Arguments(unsigned int port) const;
    std::string EndOfServerLog() const;

    TemporaryFolder m_folder;
    std::vector<std::string> m_options;
    ServerAccess m_administrator;
    ServerAccess m_tester;
    std::unique_ptr<ChildProcess> m_process;
};

} // namespace harness
