#include "framework/CByteArray.h"

#include <cstddef>

IMPLEMENT_DYNAMIC(CByteArray, CObject)

void CByteArray::SetSize(intptr_t size, intptr_t)
{
    m_bytes.resize(size > 0 ? static_cast<size_t>(size) : 0);
}

intptr_t CByteArray::GetSize() const noexcept
{
    return static_cast<intptr_t>(m_bytes.size());
}

unsigned char* CByteArray::GetData() noexcept
{
    return m_bytes.data();
}

const unsigned char* CByteArray::GetData() const noexcept
{
    return m_bytes.data();
}

unsigned char CByteArray::GetAt(intptr_t index) const
{
    return Contains(index) ? m_bytes[static_cast<size_t>(index)] : static_cast<unsigned char>(0);
}

void CByteArray::SetAt(intptr_t index, unsigned char value)
{
    if (Contains(index))
        m_bytes[static_cast<size_t>(index)] = value;
}

intptr_t CByteArray::Add(unsigned char value)
{
    m_bytes.push_back(value);
    return GetSize() - 1;
}

void CByteArray::RemoveAll() noexcept
{
    m_bytes.clear();
}

bool CByteArray::Contains(intptr_t index) const noexcept
{
    return index >= 0 && index < GetSize();
}
