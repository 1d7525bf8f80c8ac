#pragma once

#include "text/UtCString.h"

#include <cstring>
#include <string_view>
#include <utility>

namespace text {

/// Builds a text out of pieces: all of them or, when memory runs out, the empty text.
class TextBuilder
{
public:
    /// `expectedSize` is the number of bytes that the text will have, if it is known roughly.
    explicit TextBuilder(eUtEncodingType encoding, size_t expectedSize = 0) noexcept
        : m_text(encoding), m_failed(!m_text.Reserve(expectedSize))
    {
    }

    /// Appends bytes that are in the encoding of the text.
    void Append(std::string_view bytes) noexcept { Append(bytes, m_text.GetEncodingType()); }
    /// Appends ASCII characters.
    void AppendAscii(std::string_view characters) noexcept
    {
        const eUtEncodingType encoding = m_text.GetEncodingType();
        Append(characters, text::IsUtf16(encoding) ? UT_ENCODING_DEFAULT : encoding);
    }
    /// Appends a text, converted.
    void AppendText(const UtCString& text) noexcept { Append(text.View(), text.GetEncodingType()); }
    void Append(std::string_view bytes, eUtEncodingType encoding) noexcept
    {
        if (m_failed || bytes.empty())
            return;
        if (encoding == m_text.m_encoding && bytes.size() <= m_text.m_capacity - m_text.m_size) {
            std::memcpy(m_text.m_data + m_text.m_size, bytes.data(), bytes.size());
            m_text.SetSize(m_text.m_size + bytes.size());
            return;
        }
        const size_t before = m_text.GetByteLength();
        m_text.AppendText(bytes, encoding);
        m_failed = m_text.GetByteLength() <= before;
    }
    void AppendRepeated(char character, size_t count) noexcept
    {
        for (; count > 0 && !m_failed; --count)
            Append({&character, 1});
    }

    /// Gives the text up, as if memory had run out.
    void Fail() noexcept { m_failed = true; }

    /// The text; the builder is used up.
    UtCString Take() noexcept
    {
        if (m_failed)
            m_text.SetEmpty();
        return std::move(m_text);
    }

    /// Whether memory ran out.
    bool HasFailed() const noexcept { return m_failed; }

    eUtEncodingType GetEncodingType() const noexcept { return m_text.GetEncodingType(); }

private:
    UtCString m_text;
    bool m_failed;
};

} // namespace text
