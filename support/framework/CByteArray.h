#pragma once

#if defined(MYDB_WITH_MFC)
#include "framework/Mfc.h"
#else

#include "MyDbExport.h"
#include "framework/CObject.h"

#include <cstdint>
#include <vector>

/// The framework's array of bytes. Positions are zero-based. A new array is empty; copies are deep.
class MYDB_EXPORT CByteArray : public CObject
{
    DECLARE_DYNAMIC(CByteArray)
public:
    CByteArray() = default;
    /// Sets the number of bytes: new ones are 0, those behind the end are dropped. A size below 0 counts as 0.
    /// `growBy` is accepted for compatibility and ignored. Throws std::bad_alloc and leaves the array as it was.
    void SetSize(intptr_t size, intptr_t growBy = -1);
    intptr_t GetSize() const noexcept;
    /// The bytes in a row, valid until the size changes; may be null when the array is empty.
    unsigned char* GetData() noexcept;
    const unsigned char* GetData() const noexcept;
    /// The byte at a position; 0 outside the array.
    unsigned char GetAt(intptr_t index) const;
    /// Replaces the byte at a position; does nothing outside the array.
    void SetAt(intptr_t index, unsigned char value);
    /// Appends a byte and returns its position. Throws std::bad_alloc and leaves the array as it was.
    intptr_t Add(unsigned char value);
    void RemoveAll() noexcept;

private:
    bool Contains(intptr_t index) const noexcept;

    std::vector<unsigned char> m_bytes;
};

#endif
