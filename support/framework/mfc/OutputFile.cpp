#include "framework/OutputFile.h"

#include "files/NativePath.h"
#include "platform/mfc/FrameworkText.h"

bool framework::CreateFileToWrite(CFile& file, const UtCString& path) noexcept
try {
    const CString name = platform::FrameworkText(files::NativePath(path));
    return file.Open(name, CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive) != FALSE;
} catch (...) {
    return false;
}
