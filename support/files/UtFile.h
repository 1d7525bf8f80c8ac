#pragma once

#include "MyDbExport.h"
#include "text/UtCString.h"

// Services for files and folders. Paths are written as on Windows; "files/NativePath.h" says how they are read on other
// systems. None of the functions throws. An empty path, one with a zero byte and one that the system cannot take name
// nothing.

/// Non-zero when there is a regular file at the path (or a link to one), 0 otherwise.
MYDB_EXPORT int UtIsFile(const UtCString& path) noexcept;

/// Non-zero when there is a folder at the path (or a link to one), 0 otherwise. A trailing separator does not matter.
MYDB_EXPORT int UtIsDir(const UtCString& path) noexcept;

/// The user's folder for temporary files, written with "\" and ending with it. Encoding 256, or UTF-8 where the name
/// cannot be written in it. Empty only without memory, and on Windows where the system names no such folder.
MYDB_EXPORT UtCString UtGetTempDir() noexcept;

/// Copies the content of the folder `from` with everything below it into the folder `to`, which is created, with its
/// parents, where it does not exist.
///
/// A file that the target already has, with exactly the same name, is left as it is; on Windows names that differ only
/// in letter case are the same. Links are followed: what they name
/// is copied. Pipes, sockets and devices are left out. The permissions of files travel, owners do not.
/// 0: everything is in the target. 1: `from` is no folder, or the target is the source or lies inside it (then nothing
/// is created), or links lead in a circle, or something could not be read or written; copying ended there, what had
/// been copied stays, and no file is left half written.
MYDB_EXPORT int UtCopyDirectory(const UtCString& from, const UtCString& to) noexcept;

/// Deletes a folder with everything below it, write-protected files and folders included. A link is removed and never
/// followed, also when the path itself is a link.
///
/// 0: nothing is at the path any more (also when nothing was there). Any other value: something is left, or the path
/// was refused untouched: an empty path, the root of a file system, drive or share, a path whose last component is "."
/// or ".." (on Windows also one of dots and blanks alone), and anything that is not a folder.
MYDB_EXPORT int UtDeleteDirectory(const UtCString& path) noexcept;
