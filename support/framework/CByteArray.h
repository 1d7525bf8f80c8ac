#pragma once

#include "MyDbExport.h"
#include "framework/CObject.h"

#include <cstdint>
#include <vector>

/// The framework's array of bytes.
class MYDB_EXPORT CByteArray : public CObject
{
    DECLARE_DYNAMIC(CByteArray)
public:
    CByteArray() = default;
    void SetSize(intptr_t size, intptr_t growBy = -1);
    intptr_t GetSize() const noexcept;
    unsigned char* GetData() noexcept;
    const unsigned char* GetData() const noexcept;
    unsigned char GetAt(intptr_t index) const;
    void SetAt(intptr_t index, unsigned char value);
    intptr_t Add(unsigned char value);
    void RemoveAll() noexcept;

private:
    std::vector<unsigned char> m_bytes;
};
