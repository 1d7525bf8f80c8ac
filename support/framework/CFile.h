#pragma once

#if defined(MYDB_WITH_MFC)
#include "framework/Mfc.h"
#else

#include "MyDbExport.h"
#include "framework/CObject.h"
#include "text/UtCString.h"

#include <cstdint>

/// What CFile throws, as a pointer; whoever catches it calls Delete.
class MYDB_EXPORT CFileException : public CObject
{
    DECLARE_DYNAMIC(CFileException)
public:
    void Delete(); ///< Destroys the object.
};

/// The framework's file, as far as it writes new files. Nothing is held back: what Write has taken is with the system.
class MYDB_EXPORT CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)
public:
    /// The numbers of the framework's flags.
    enum OpenFlags : unsigned int
    {
        modeReadWrite = 0x0002,
        shareExclusive = 0x0010,
        modeCreate = 0x1000
    };

    CFile() noexcept;
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    ~CFile() override; ///< As Abort.

    /// Creates the file, or empties the one that is there, and keeps others from opening it through this class. The
    /// only flags are modeCreate | modeReadWrite | shareExclusive. False, and nothing is changed: other flags, a file
    /// that is open already (this object or another one), a folder, a path that the system refuses.
    /// "files/NativePath.h" says how paths are read.
    bool Open(const UtCString& path, unsigned int flags) noexcept;

    /// Appends bytes. Throws CFileException* when not all of them could be written; a part may have been. So it does on
    /// a file that is not open.
    void Write(const void* bytes, unsigned int count);

    /// Closes the file; does nothing on one that is not open. Throws CFileException* when the system reports only now
    /// that something could not be written; the file is closed all the same.
    void Close();

    void Abort() noexcept; ///< Closes the file and ignores what the system reports. Never throws.

private:
    intptr_t m_file;
};

#endif
