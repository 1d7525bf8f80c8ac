#include "MainWindow.h"

#include "DumpProgress.h"
#include "Text.h"
#include "resource.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>

namespace {

constexpr int settingsFields[] = {IDC_HOST, IDC_PORT, IDC_USER, IDC_PASSWORD, IDC_DATABASE, IDC_CONNECT};
constexpr int databaseButtons[] = {IDC_CHECK, IDC_REPAIR, IDC_DUMP};

} // namespace

/// While the library works nobody may start something else on the same connection: not during a message box of the
/// library either, nor between two steps of a dump.
class MainWindow::Busy
{
public:
    explicit Busy(MainWindow& window) : m_window(window), m_focus(::GetFocus())
    {
        m_window.m_isBusy = true;
        m_window.EnableControls(false);
        m_cursor = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    }
    ~Busy()
    {
        m_window.m_isBusy = false;
        m_window.EnableControls(true);
        ::SetCursor(m_cursor);
        ::SetFocus(m_focus);
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    MainWindow& m_window;
    HWND m_focus;
    HCURSOR m_cursor;
};

// ---- The window -----------------------------------------------------------------------------------------------------

MainWindow::MainWindow(HINSTANCE instance, const CMyServer& settings) : m_settings(settings)
{
    ::CreateDialogParamW(instance, MAKEINTRESOURCEW(IDR_MAIN_WINDOW), nullptr, Procedure,
                         reinterpret_cast<LPARAM>(this));
    ::ShowWindow(m_window, SW_SHOW);
}

MainWindow::~MainWindow()
{
    if (m_window)
        ::DestroyWindow(m_window);
}

int MainWindow::Run()
{
    MSG message{};
    while (m_window && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!::IsDialogMessageW(m_window, &message)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
    return m_window ? static_cast<int>(message.wParam) : 1;
}

INT_PTR CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<MainWindow*>(lParam)->OnInit(window);
        return TRUE;
    }
    auto* self = reinterpret_cast<MainWindow*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (!self || message != WM_COMMAND)
        return FALSE;
    if (HIWORD(wParam) == BN_CLICKED && !self->m_isBusy)
        self->OnCommand(LOWORD(wParam));
    return TRUE;
}

void MainWindow::OnInit(HWND window)
{
    m_window = window;
    m_list.Attach(::GetDlgItem(window, IDC_TABLES));
    Enter(IDC_HOST, m_settings.GetHost());
    Enter(IDC_PORT, UtCString(m_settings.GetPort() != 0 ? m_settings.GetPort() : 3306));
    Enter(IDC_USER, m_settings.GetUser());
    Enter(IDC_PASSWORD, m_settings.GetPassword());
}

// Closing the window arrives as IDCANCEL, too.
void MainWindow::OnCommand(int control)
{
    switch (control) {
    case IDC_CONNECT:
        return Connect();
    case IDC_CHECK:
        return Check();
    case IDC_REPAIR:
        return Repair();
    case IDC_DUMP:
        return AskAndDump();
    case IDCANCEL:
        return ::PostQuitMessage(0);
    }
}

// ---- What the buttons do --------------------------------------------------------------------------------------------

void MainWindow::Connect()
{
    const Busy busy(*this);
    Say(L"Die Verbindung wird hergestellt \u2026");
    m_list.Show({});
    if (m_session.Connect(EnteredServer(), Entered(IDC_DATABASE)))
        ShowTables();
    else if (m_session.IsOpen())
        ShowTables(L"Ohne Reparatur verbunden mit ");
    else
        Say(Wide(m_session.Error()));
}

void MainWindow::Check()
{
    const Busy busy(*this);
    Say(L"Die Tabellen werden gepr\u00FCft \u2026");
    ShowTables();
}

void MainWindow::Repair()
{
    const Busy busy(*this);
    Say(L"Die Tabellen werden repariert \u2026");
    m_session.Repair();
    ShowTables();
}

void MainWindow::AskAndDump()
{
    const TableState* table = m_list.Selected();
    if (!table)
        return Say(L"W\u00E4hlen Sie zuerst eine Tabelle aus.");
    const std::wstring fileName = AskForFile(*table);
    if (!fileName.empty())
        Dump(*table, fileName);
}

void MainWindow::Dump(const TableState& table, const std::wstring& fileName)
{
    const Busy busy(*this);
    Say(L"Die Tabelle " + Wide(table.name) + L" wird gesichert \u2026");
    DumpProgress progress(m_window, ::GetDlgItem(m_window, IDC_PROGRESS), std::max(table.rows, 1L));
    const long rows = m_session.Dump(table.name, Utf8(fileName), progress);
    if (rows < 0)
        return Say(L"Die Sicherung ist fehlgeschlagen. " + Wide(m_session.Error()));
    Say(Grouped(rows) + L" Zeilen der Tabelle " + Wide(table.name) + L" in " +
        Grouped(static_cast<long long>(m_session.Milliseconds())) + L" ms gesichert.");
}

// ---- What it reads and shows ----------------------------------------------------------------------------------------

CMyServer MainWindow::EnteredServer() const
{
    CMyServer server = m_settings; // with what has no field
    server.SetHost(Entered(IDC_HOST));
    server.SetPort(::GetDlgItemInt(m_window, IDC_PORT, nullptr, FALSE));
    server.SetUser(Entered(IDC_USER));
    server.SetPassword(Entered(IDC_PASSWORD));
    return server;
}

UtCString MainWindow::Entered(int control) const
{
    wchar_t text[256];
    ::GetDlgItemTextW(m_window, control, text, 256);
    return Utf8(text);
}

void MainWindow::Enter(int control, const UtCString& text) const
{
    ::SetDlgItemTextW(m_window, control, Wide(text).c_str());
}

std::wstring MainWindow::AskForFile(const TableState& table) const
{
    wchar_t fileName[MAX_PATH] = L"";
    const std::wstring proposal = Wide(table.name) + L".txt";
    proposal.copy(fileName, MAX_PATH - 1);
    OPENFILENAMEW question{};
    question.lStructSize = sizeof(question);
    question.hwndOwner = m_window;
    question.lpstrFilter = L"Textdateien (*.txt)\0*.txt\0Alle Dateien\0*.*\0";
    question.lpstrFile = fileName;
    question.nMaxFile = MAX_PATH;
    question.lpstrTitle = L"Tabelle sichern";
    question.lpstrDefExt = L"txt";
    question.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    return ::GetSaveFileNameW(&question) ? fileName : L"";
}

void MainWindow::EnableControls(bool areEnabled) const
{
    for (const int control : settingsFields)
        ::EnableWindow(::GetDlgItem(m_window, control), areEnabled);
    for (const int control : databaseButtons)
        ::EnableWindow(::GetDlgItem(m_window, control), areEnabled && m_session.IsOpen());
    ::EnableWindow(::GetDlgItem(m_window, IDCANCEL), areEnabled);
}

void MainWindow::ShowTables(const wchar_t* how)
{
    m_list.Show(m_session.Tables());
    const auto& tables = m_list.Tables();
    const auto damaged = std::count_if(tables.begin(), tables.end(),
                                       [](const TableState& table) { return table.check != TABLE_CHECK_OK; });
    const std::wstring where = how + Wide(m_session.ServerName()) + L". ";
    if (damaged == 0)
        Say(where + L"Alle " + std::to_wstring(tables.size()) + L" Tabellen sind in Ordnung.");
    else
        Say(where + std::to_wstring(damaged) + L" von " + std::to_wstring(tables.size()) +
            L" Tabellen besch\u00E4digt.");
}

void MainWindow::Say(const std::wstring& text) const
{
    ::SendDlgItemMessageW(m_window, IDC_STATUS, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text.c_str()));
    ::UpdateWindow(m_window);
}
