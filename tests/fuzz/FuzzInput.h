#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

/// The bytes of a run, taken from the front. Behind their end everything is zero or empty.
class Input
{
public:
    Input(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    bool IsAtEnd() const { return m_size == 0; }
    size_t Byte()
    {
        if (IsAtEnd())
            return 0;
        --m_size;
        return *m_data++;
    }
    std::string_view Bytes(size_t size)
    {
        size = std::min(size, m_size);
        const std::string_view bytes(reinterpret_cast<const char*>(m_data), size);
        m_data += size;
        m_size -= size;
        return bytes;
    }

private:
    const uint8_t* m_data;
    size_t m_size;
};

} // namespace fuzz
