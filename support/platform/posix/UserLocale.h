#pragma once

#include <locale.h>

namespace platform {

/// The locale that the user's environment asks for, loaded for one task. The process's own locale is never touched.
class UserLocale
{
public:
    /// `mask`: the LC_*_MASK bits of the categories that are needed.
    explicit UserLocale(int mask) noexcept : m_handle(newlocale(mask, "", nullptr)) {}
    ~UserLocale()
    {
        if (m_handle)
            freelocale(m_handle);
    }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    /// Null when the environment names a locale that is not installed.
    locale_t Handle() const noexcept { return m_handle; }

private:
    locale_t m_handle;
};

} // namespace platform
