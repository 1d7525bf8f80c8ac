#include "framework/OutputFile.h"

#include "files/NativePath.h"
#include "platform/OutputFile.h"

// CFile::Open takes a name in the host's character set, in which another file may be the nearest one.
bool framework::CreateFileToWrite(CFile& file, const UtCString& path) noexcept
try {
    const intptr_t created = platform::CreateOutputFile(files::NativePath(path));
    if (created == platform::noFile)
        return false;
    file.m_hFile = reinterpret_cast<HANDLE>(created);
    return true;
} catch (...) {
    return false;
}
