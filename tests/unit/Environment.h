#pragma once

#include "harness/System.h"

#include <cstdlib>
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
        harness::ChangeEnvironment(name, value);
    }
    ~Environment() { harness::ChangeEnvironment(m_name, m_hadOld ? m_old.c_str() : nullptr); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* m_name;
    std::string m_old;
    bool m_hadOld;
};
