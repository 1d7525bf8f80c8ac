#pragma once

#include "harness/ChildProcess.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// What the tests ask of the operating system; posix/ and win32/ hold the definitions.
//
// "Of the server": a server on this machine is a Unix program on both systems. Under Wine its files are on drive Z:.
namespace harness {

unsigned long ProcessId();

/// Sets, or with null removes, an environment variable, given in UTF-8, for this process and for programs that it
/// starts.
void ChangeEnvironment(const char* name, const char* value);
/// The environment variable that names the user's folder for temporary files.
extern const char* const temporaryFolderVariable;

/// A file that can be opened for writing and never takes a byte, as on a full disk. On Windows it exists under Wine.
extern const char* const fullFile;

/// The bytes that this process has allocated, and the most bytes of the machine's memory that it has ever taken.
size_t MemoryInUse();
size_t PeakMemory();

/// A TCP port of the loopback address that nobody uses at the moment. Throws std::runtime_error.
unsigned int FreePort();

/// A folder that nobody else uses, below the folder for temporary files.
std::filesystem::path MakeFolder();
/// Has a folder removed when the object is gone and when the program ends in any other way.
std::shared_ptr<void> RemoveAtEnd(const std::filesystem::path& folder);

/// Starts a program, see ChildProcess; `program` is a full path.
std::unique_ptr<RunningProgram> StartProgram(const std::string& program, const std::vector<std::string>& arguments,
                                             const std::filesystem::path& outputFile);
/// The folders that are searched for programs of the server, separated by ":".
std::string ProgramFolders();
/// Whether a path of the server names a program.
bool IsProgram(const std::string& serverPath);
/// Whether a server that this process starts runs as root, which it has to be told.
bool RunsServersAsRoot();

/// The path by which this process reaches what the server calls so, and the other way round.
std::filesystem::path OwnPath(const std::string& serverPath);
std::string ServerPath(const std::filesystem::path& ownPath);

/// Runs `work` with a folder as the working directory and as the root of the file system, where "\name" begins. Gives
/// the result of `work`; false, or an exception, when the root cannot be changed. On POSIX `work` runs in a copy of the
/// process; on Windows the folder becomes a drive, and "/name" is none of its files under Wine.
bool RunInRoot(const std::filesystem::path& folder, const std::function<bool()>& work);

} // namespace harness
