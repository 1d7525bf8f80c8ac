#pragma once

#include <filesystem>
#include <string>
#include <vector>

// What scripts/wine.sh offers to the program that it runs.
namespace harness {

/// The folder that is removed when this program has ended, however it ended; empty without scripts/wine.sh.
std::filesystem::path RunFolder();
/// A name that is new in that folder, or among the temporary files.
std::filesystem::path NewName(const std::string& start);

/// Starts a command of scripts/wine-child.sh. Throws std::runtime_error when there is none.
void StartUnixCommand(const std::vector<std::string>& words);

/// The words as a command line, from which a program gets them back unchanged.
std::string CommandLine(const std::vector<std::string>& words);

} // namespace harness
