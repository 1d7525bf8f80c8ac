#include "differential/Sections.h"

namespace differential {

std::string RandomText(Random& random, size_t longest, std::string_view set)
{
    std::string text(Below(random, longest + 1), '\0');
    for (char& byte : text)
        byte = set[Below(random, set.size())];
    return text;
}

} // namespace differential
