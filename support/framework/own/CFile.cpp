#include "framework/CFile.h"

#include "files/NativePath.h"
#include "platform/OutputFile.h"

#include <utility>

IMPLEMENT_DYNAMIC(CFileException, CObject)
IMPLEMENT_DYNAMIC(CFile, CObject)

void CFileException::Delete()
{
    delete this;
}

CFile::CFile() noexcept : m_file(platform::noFile) {}

CFile::~CFile()
{
    Abort();
}

bool CFile::Open(const UtCString& path, unsigned int flags) noexcept
{
    constexpr unsigned int creating = modeCreate | modeReadWrite | shareExclusive;
    if (m_file != platform::noFile || flags != creating)
        return false;
    m_file = platform::CreateOutputFile(files::NativePath(path));
    return m_file != platform::noFile;
}

void CFile::Write(const void* bytes, unsigned int count)
{
    if (!platform::WriteOutputFile(m_file, bytes, count))
        throw new CFileException; // NOLINT(misc-throw-by-value-catch-by-reference): as the framework does
}

void CFile::Close()
{
    const intptr_t file = std::exchange(m_file, platform::noFile);
    if (file != platform::noFile && !platform::CloseOutputFile(file))
        throw new CFileException; // NOLINT(misc-throw-by-value-catch-by-reference): as the framework does
}

void CFile::Abort() noexcept
{
    const intptr_t file = std::exchange(m_file, platform::noFile);
    if (file != platform::noFile)
        platform::CloseOutputFile(file);
}
