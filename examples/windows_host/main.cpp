// A host application on Windows: it connects to a database, lets the library ask about damage, repairs the tables and
// dumps one of them into a text file, with a progress bar.
//
//     windows_host [Server.ini]
//     windows_host --selftest FOLDER
//
// Without a settings file the server is the one of MYDB_SERVER=host:port, MYDB_USER and MYDB_PASSWORD. In the self test
// the program plays the person itself; run.sh starts it on a screen of its own.

#include "MainWindow.h"
#include "SelfTest.h"

#include "ExampleServer.h"
#include "Text.h"

#include <commctrl.h>
#include <shellapi.h>

#include <optional>

namespace {

std::vector<std::wstring> Arguments()
{
    int count = 0;
    wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::wstring> arguments(words + 1, words + count);
    ::LocalFree(words);
    return arguments;
}

CMyServer Settings(const std::vector<std::wstring>& arguments)
{
    if (arguments.size() == 1)
        return CMyServer(::Utf8(arguments[0]));
    try {
        return ServerFromEnvironment();
    } catch (const std::exception&) {
        return CMyServer(); // the person will enter them
    }
}

} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int)
{
    ::SetProcessDPIAware();
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_PROGRESS_CLASS | ICC_BAR_CLASSES};
    ::InitCommonControlsEx(&classes);
    const std::vector<std::wstring> arguments = Arguments();
    MainWindow window(instance, Settings(arguments));
    std::optional<SelfTest> test;
    if (arguments.size() == 2 && arguments[0] == L"--selftest")
        test.emplace(window.Handle(), arguments[1]);
    return window.Run();
}
