#pragma once

#include "text/TextBuilder.h"
#include "text/TextSearch.h"

#include <new>

namespace sql {

/// Strings a statement together out of keywords and texts, in one encoding.
class StatementBuilder
{
public:
    explicit StatementBuilder(eUtEncodingType encoding) noexcept : m_builder(encoding) {}

    /// A text of this program, in ASCII or Windows-1252.
    StatementBuilder& operator<<(const char* keywords) noexcept
    {
        m_builder.Append(keywords, UT_ENCODING_DEFAULT);
        return *this;
    }
    StatementBuilder& operator<<(const UtCString& text) noexcept
    {
        m_builder.AppendText(text);
        return *this;
    }
    StatementBuilder& operator<<(text::Tagged text) noexcept
    {
        m_builder.Append(text.bytes, text.encoding);
        return *this;
    }
    /// The statement; empty, never a part, when there was no memory.
    UtCString Take() noexcept { return m_builder.Take(); }

private:
    text::TextBuilder m_builder;
};

/// The statement, for those who send it: one for which there was no memory is empty, which a select would take for "all
/// rows". Throws std::bad_alloc then.
inline const UtCString& Whole(const UtCString& statement)
{
    if (statement.IsEmpty())
        throw std::bad_alloc();
    return statement;
}

} // namespace sql
