#include "SelfTest.h"

#include "Person.h"
#include "resource.h"

#include <commctrl.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <stdexcept>

// What demo.sql makes, in the order of the list.
namespace {

constexpr const wchar_t* databaseName = L"vela_windows_host";
constexpr int dumpedTable = 1; // auftrag
constexpr int dumpedRows = 20000;
constexpr int damagedTable = 3; // lager
constexpr int tableCount = 4;

constexpr int rowsColumn = 2;
constexpr int checkColumn = 4;

constexpr int fileNameField = 0x47C; // cmb13 of <dlgs.h>

} // namespace

SelfTest::SelfTest(HWND window, const std::filesystem::path& folder)
    : m_window(window), m_folder(folder), m_log(folder / "log.txt")
{
    ::SetWindowSubclass(m_window, Watch, 1, reinterpret_cast<DWORD_PTR>(this));
    ::SetWindowSubclass(::GetDlgItem(m_window, IDC_PROGRESS), Watch, 1, reinterpret_cast<DWORD_PTR>(this));
    m_person = std::thread([this] { Run(); });
}

SelfTest::~SelfTest()
{
    m_person.join();
    ::RemoveWindowSubclass(::GetDlgItem(m_window, IDC_PROGRESS), Watch, 1);
    ::RemoveWindowSubclass(m_window, Watch, 1);
}

// ---- In the window's thread -----------------------------------------------------------------------------------------

LRESULT CALLBACK SelfTest::Watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR self)
{
    auto& test = *reinterpret_cast<SelfTest*>(self);
    const LRESULT result = ::DefSubclassProc(window, message, wParam, lParam);
    if (message == PBM_SETPOS)
        test.OnPosition(static_cast<int>(::SendMessageW(window, PBM_GETPOS, 0, 0)));
    if (message == WM_APP)
        ++test.m_messagesHeard;
    if (message == WM_COMMAND && window == test.m_window && HIWORD(wParam) == BN_CLICKED) {
        test.m_messagesHeardInDump = test.m_messagesHeard;
        ++test.m_buttonsDone;
    }
    return result;
}

// Halfway the dump is held until the picture of it is taken.
void SelfTest::OnPosition(int position)
{
    m_positions.push_back(position);
    ::PostMessageW(m_window, WM_APP, 0, 0);
    if (m_isHalfDone || position < dumpedRows / 2)
        return;
    m_isHalfDone = true;
    while (!m_mayGoOn) {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageW(&message);
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
}

// ---- In the person's thread -----------------------------------------------------------------------------------------

void SelfTest::Run()
{
    try {
        ConnectAndRefuse();
        Repair();
        ConnectAndAgree();
        Dump();
        m_log << "all of it happened" << std::endl;
        person::Press(m_window, IDCANCEL);
    } catch (const std::exception& error) {
        m_log << "failed: " << error.what() << std::endl;
        ::TerminateProcess(::GetCurrentProcess(), 1);
    }
}

void SelfTest::ConnectAndRefuse()
{
    ::SendDlgItemMessageW(m_window, IDC_DATABASE, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(databaseName));
    Press(IDC_CONNECT);
    const std::wstring text = AnswerBox("box", IDNO);
    ExpectText(text, L"Die Datenbank vela_windows_host ist defekt, kann aber wahrscheinlich repariert werden.");
    ExpectText(text, L"Reparatur durchf\u00FChren.");
    ExpectText(text, L"vela_windows_host.lager:");
    ExpectText(text, L"M\u00F6chten Sie die Datenbank jetzt reparieren?");
    WaitForTheButton();
    ExpectText(person::StatusOf(m_window), L"Ohne Reparatur verbunden mit ");
    ExpectText(person::StatusOf(m_window), L"1 von 4 Tabellen besch\u00E4digt.");
    ExpectText(person::CellOf(m_window, damagedTable, checkColumn), L"besch\u00E4digt, reparierbar");
}

void SelfTest::Repair()
{
    Press(IDC_REPAIR);
    WaitForTheButton();
    ExpectText(person::StatusOf(m_window), L"Alle 4 Tabellen sind in Ordnung.");
    ExpectText(person::CellOf(m_window, damagedTable, rowsColumn), L"1.200");
    for (int row = 0; row < tableCount; ++row)
        ExpectText(person::CellOf(m_window, row, checkColumn), L"in Ordnung");
}

// The library asks about sound tables as well: one of the kept behaviours.
void SelfTest::ConnectAndAgree()
{
    Press(IDC_CONNECT);
    const std::wstring text = AnswerBox(nullptr, IDYES);
    Expect(text.find(L"lager") == std::wstring::npos, "no damage of lager in the second box");
    WaitForTheButton();
    ExpectText(person::StatusOf(m_window), L"Verbunden mit 127.0.0.1:");
}

void SelfTest::Dump()
{
    LVITEMW selection{};
    selection.state = selection.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    ::SendDlgItemMessageW(m_window, IDC_TABLES, LVM_SETITEMSTATE, dumpedTable, reinterpret_cast<LPARAM>(&selection));
    Press(IDC_DUMP);
    AnswerFileQuestion();
    person::WaitUntil("half of the dump", [&] { return m_isHalfDone.load(); });
    Expect(!::IsWindowEnabled(::GetDlgItem(m_window, IDC_CONNECT)), "no other button can be pressed during a dump");
    Press(IDC_CONNECT); // which would end the connection of the dump
    TakePicture("dump");
    m_mayGoOn = true;
    WaitForTheButton();
    ExpectText(person::StatusOf(m_window), L"20.000 Zeilen der Tabelle auftrag in ");
    m_log << m_positions.size() << " positions of the progress bar, the last is " << m_positions.back() << std::endl;
    Expect(m_positions.size() > 100 && m_positions.front() == 0, "the bar begins at 0 and moves a hundred times");
    Expect(std::is_sorted(m_positions.begin(), m_positions.end()), "the bar moves forward only");
    Expect(m_positions.back() == dumpedRows, "the bar reaches its end");
    Expect(m_messagesHeardInDump + 2 >= static_cast<int>(m_positions.size()), "the window answers between two steps");
    CheckDumpFile();
}

void SelfTest::CheckDumpFile()
{
    std::ifstream file(m_folder / "auftrag.txt");
    std::string line;
    std::getline(file, line);
    Expect(line.rfind("\"ID\";\"KUNDE\";\"ORT\"", 0) == 0, "the first line of the file names the columns");
    int rows = 0;
    while (std::getline(file, line))
        ++rows;
    Expect(rows == dumpedRows, "the file has all rows");
}

// ---- The person's hands and eyes ------------------------------------------------------------------------------------

std::wstring SelfTest::AnswerBox(const char* picture, int answer)
{
    const HWND box = person::WaitForDialog(m_window);
    const std::wstring text = person::TextOfBox(box);
    m_log << "a box of " << text.size() << " letters" << std::endl;
    ExpectText(person::TextOf(box), L"windows_host");
    Expect(::GetDlgItem(box, IDYES) && ::GetDlgItem(box, IDNO), "the box asks Yes or No");
    if (picture)
        TakePicture(picture);
    person::Press(box, answer);
    person::WaitForItsEnd(box);
    return text;
}

void SelfTest::AnswerFileQuestion()
{
    const HWND question = person::WaitForDialog(m_window);
    const std::wstring fileName = (m_folder / "auftrag.txt").make_preferred().wstring();
    const HWND field = ::GetDlgItem(question, fileNameField);
    Expect(field != nullptr, "the question for a file has a field for its name");
    ::SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(fileName.c_str()));
    person::Press(question, IDOK);
    person::WaitForItsEnd(question);
}

void SelfTest::Press(int button)
{
    ++m_buttonsPressed;
    person::Press(m_window, button);
}

void SelfTest::WaitForTheButton()
{
    person::WaitUntil("the end of what a button does", [&] { return m_buttonsDone == m_buttonsPressed; });
}

void SelfTest::TakePicture(const std::string& name)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(300)); // until everything is drawn
    std::ofstream(m_folder / (name + ".ready")) << "\n";
    person::WaitUntil("a picture", [&] { return std::filesystem::exists(m_folder / (name + ".taken")); });
    m_log << "a picture of the " << name << std::endl;
}

void SelfTest::Expect(bool isTrue, const std::string& what)
{
    if (!isTrue)
        throw std::runtime_error(what);
    m_log << what << std::endl;
}

void SelfTest::ExpectText(const std::wstring& text, const wchar_t* part)
{
    const auto inAscii = [](const std::wstring& wide) {
        std::string ascii;
        for (const wchar_t letter : wide)
            ascii += letter < 128 ? static_cast<char>(letter) : '?';
        return ascii;
    };
    if (text.find(part) == std::wstring::npos)
        throw std::runtime_error('"' + inAscii(text) + "\" lacks \"" + inAscii(part) + '"');
    m_log << "read: " << inAscii(part) << std::endl;
}
