#pragma once

#include <locale.h>

namespace platform {

/// The locale that the user's environment asks for, loaded for one task. The process's own locale is never touched.
class UserLocale
{
public:
    /// `mask`: the LC_*_MASK bits of the categories that are needed.
    explicit UserLocale(int mask) noexcept : m_user(newlocale(mask, "", nullptr)), m_handle(m_user)
    {
        if (!m_user)
            m_handle = newlocale(mask, "C", nullptr);
    }
    ~UserLocale() { freelocale(m_handle); }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    /// False when the environment names a locale that is not installed; then the handle is that of the locale "C".
    bool IsInstalled() const noexcept { return m_user != nullptr; }
    locale_t Handle() const noexcept { return m_handle; }

private:
    locale_t m_user;
    locale_t m_handle;
};

} // namespace platform
