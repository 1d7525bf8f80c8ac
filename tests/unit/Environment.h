#pragma once

#include <cstdlib>
#include <ctime>
#include <string>

/// Sets (or, with null, removes) an environment variable for the life of the object.
class Environment
{
public:
    Environment(const char* name, const char* value) : m_name(name)
    {
        const char* const old = std::getenv(name);
        m_hadOld = old != nullptr;
        m_old = old ? old : "";
        Set(value);
    }
    ~Environment() { Set(m_hadOld ? m_old.c_str() : nullptr); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    void Set(const char* value)
    {
        if (value)
            setenv(m_name, value, 1);
        else
            unsetenv(m_name);
        tzset();
    }

    const char* m_name;
    std::string m_old;
    bool m_hadOld;
};
