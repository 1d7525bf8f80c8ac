#include "framework/OutputFile.h"

bool framework::CreateFileToWrite(CFile& file, const UtCString& path) noexcept
{
    return file.Open(path, CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive);
}
