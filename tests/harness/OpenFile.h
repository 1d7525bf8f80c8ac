#pragma once

#include <filesystem>

namespace harness {

/// Closes the descriptor or handle under which this process has a file open, so that closing it once more fails. False
/// when the file is not open.
bool CloseDescriptorOf(const std::filesystem::path& file);

} // namespace harness
