#pragma once

#include "framework/Variant.h"

#include <string_view>
#include <type_traits>
#include <vector>

/// A VARIANT that holds a text: UTF-16 with a zero behind it and its size in bytes in front of it, as the platform's
/// own functions make it.
class VariantText
{
public:
    explicit VariantText(std::u16string_view text)
    {
        const auto size = static_cast<unsigned int>(2 * text.size());
        m_units = {static_cast<Unit>(size & 0xFFFF), static_cast<Unit>(size >> 16)};
        for (const char16_t unit : text)
            m_units.push_back(static_cast<Unit>(unit));
        m_units.push_back(0);
        m_variant.vt = VT_BSTR;
        m_variant.bstrVal = m_units.data() + 2;
    }
    VariantText(const VariantText&) = delete;
    VariantText& operator=(const VariantText&) = delete;

    operator const VARIANT&() const noexcept { return m_variant; }

private:
    using Unit = std::remove_pointer_t<BSTR>;

    std::vector<Unit> m_units;
    VARIANT m_variant{};
};
