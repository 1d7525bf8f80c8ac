#pragma once

// The framework's headers and the library's, in the order of an MFC application.
#include <afxwin.h>

#include <afxcmn.h>
#include <afxdisp.h>
#include <atltime.h>

#include "MyDB.h"

#include "host/HostServer.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

inline FrameworkNotes& Notes()
{
    return FrameworkNotes::Get();
}

/// Each test notes anew what the framework is asked for, and finds a framework that fails in nothing.
class WithFramework : public testing::Test
{
protected:
    WithFramework()
    {
        const int modules = Notes().extensionModules;
        Notes() = FrameworkNotes();
        Notes().extensionModules = modules;
    }
};

inline std::wstring Wide(const UtCString& text)
{
    const UtCString utf16(text, UT_ENCODING_UTF16_LE);
    std::wstring wide(utf16.View().size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), utf16.View().data(), wide.size() * sizeof(wchar_t));
    return wide;
}
