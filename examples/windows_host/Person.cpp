#include "Person.h"

#include "resource.h"

#include <commctrl.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace person {

namespace {

struct Search
{
    HWND window;
    HWND found;
};

BOOL CALLBACK IsDialogOfThisProgram(HWND candidate, LPARAM search)
{
    auto& sought = *reinterpret_cast<Search*>(search);
    DWORD process = 0;
    wchar_t name[16];
    ::GetWindowThreadProcessId(candidate, &process);
    ::GetClassNameW(candidate, name, 16);
    if (process != ::GetCurrentProcessId() || candidate == sought.window || !::IsWindowVisible(candidate) ||
        std::wstring(name) != L"#32770")
        return TRUE;
    sought.found = candidate;
    return FALSE;
}

BOOL CALLBACK AppendLabel(HWND child, LPARAM text)
{
    wchar_t name[16];
    ::GetClassNameW(child, name, 16);
    if (std::wstring(name) == L"Static")
        *reinterpret_cast<std::wstring*>(text) += TextOf(child);
    return TRUE;
}

} // namespace

void WaitUntil(const char* what, const std::function<bool()>& isThere)
{
    using std::chrono::steady_clock;
    const auto end = steady_clock::now() + std::chrono::seconds(30);
    while (!isThere()) {
        if (steady_clock::now() > end)
            throw std::runtime_error(std::string("waited in vain: ") + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

HWND WaitForDialog(HWND window)
{
    Search search{window, nullptr};
    WaitUntil("a dialog", [&] {
        ::EnumWindows(IsDialogOfThisProgram, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
    });
    return search.found;
}

void WaitForItsEnd(HWND dialog)
{
    WaitUntil("the end of a dialog", [&] { return !::IsWindow(dialog); });
}

std::wstring TextOf(HWND window)
{
    std::wstring text(static_cast<size_t>(::SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1, L'\0');
    text.resize(
        static_cast<size_t>(::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

std::wstring TextOfBox(HWND box)
{
    std::wstring text;
    ::EnumChildWindows(box, AppendLabel, reinterpret_cast<LPARAM>(&text));
    return text;
}

std::wstring StatusOf(HWND window)
{
    wchar_t text[1024] = L"";
    ::SendDlgItemMessageW(window, IDC_STATUS, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));
    return text;
}

std::wstring CellOf(HWND window, int row, int column)
{
    wchar_t text[256] = L"";
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 256;
    ::SendDlgItemMessageW(window, IDC_TABLES, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                          reinterpret_cast<LPARAM>(&item));
    return text;
}

void Press(HWND dialog, int button)
{
    ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                   reinterpret_cast<LPARAM>(::GetDlgItem(dialog, button)));
}

} // namespace person
