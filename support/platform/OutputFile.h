#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// Files that are written by one program at a time.
namespace platform {

inline constexpr intptr_t noFile = -1;

/// Creates a file for writing, or empties the one that is there. `nativePath` is the path in the system's own form.
///
/// `noFile` when the path is empty or names a folder, the system refuses, or somebody else has the file open through
/// this function: then it stays as it is. (Windows refuses every second opener; POSIX has only this agreement.)
intptr_t CreateOutputFile(const std::string& nativePath) noexcept;

/// Appends bytes. False when not all of them could be written, on a full disk for example.
bool WriteOutputFile(intptr_t file, const void* bytes, size_t size) noexcept;

/// Closes the file in any case. False when the system reports only now that something could not be written.
bool CloseOutputFile(intptr_t file) noexcept;

} // namespace platform
