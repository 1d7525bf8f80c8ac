// The main window: settings, the list of tables, and a button for each thing that can be done with them.
#pragma once

#include "Session.h"
#include "TableList.h"

#include <windows.h>

#include <string>

class MainWindow
{
public:
    /// Shows the window with these settings in its fields; connects to nothing.
    MainWindow(HINSTANCE instance, const CMyServer& settings);
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    HWND Handle() const { return m_window; }
    int Run(); ///< Until the window is closed; the program's exit code.

private:
    class Busy;

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void OnInit(HWND window);
    void OnCommand(int control);

    void Connect();
    void Check();
    void Repair();
    void AskAndDump();
    void Dump(const TableState& table, const std::wstring& fileName);

    CMyServer EnteredServer() const;
    UtCString Entered(int control) const;
    void Enter(int control, const UtCString& text) const;
    std::wstring AskForFile(const TableState& table) const;
    void EnableControls(bool areEnabled) const;
    void ShowTables(const wchar_t* how = L"Verbunden mit ");
    void Say(const std::wstring& text) const;

    HWND m_window = nullptr;
    CMyServer m_settings;
    Session m_session;
    TableList m_list;
    bool m_isBusy = false;
};
