#include "files/PlainName.h"

#include "text/TextSearch.h"

namespace files {

bool IsPlainName(const UtCString& name) noexcept
{
    using namespace std::string_view_literals;
    const text::Tagged text{name.View(), name.GetEncodingType()};
    const bool isWithin = text::FindOneOf(text, 0, {"\\/:\0"sv, UT_ENCODING_DEFAULT}) == text::notFound;
    return isWithin && !name.IsEmpty() &&
           text::TrailingBegin(text, {". ", UT_ENCODING_DEFAULT}) == name.GetByteLength();
}

} // namespace files
