#pragma once

#include "harness/ChildProcess.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace harness {

/// A program of the Unix system that Wine runs on.
std::unique_ptr<RunningProgram> StartUnixProgram(const std::string& program, const std::vector<std::string>& arguments,
                                                 const std::filesystem::path& outputFile);

} // namespace harness
