#include "platform/MessageBox.h"

#include "platform/win32/WinApi.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

constexpr int textOfABox = 0xFFFF; // the number of the text's control in every message box

/// The visible message box of a thread: other programs on the screen may show one too.
HWND BoxOf(DWORD thread)
{
    HWND box = nullptr;
    EnumThreadWindows(
        thread,
        [](HWND window, LPARAM found) -> BOOL {
            wchar_t name[10] = L"";
            GetClassNameW(window, name, 10);
            const bool isBox = std::wstring_view(name) == L"#32770" && IsWindowVisible(window);
            if (isBox)
                *reinterpret_cast<HWND*>(found) = window;
            return !isBox;
        },
        reinterpret_cast<LPARAM>(&box));
    return box;
}

/// Waits for the message box of the thread that made it, notes its text and presses a button.
class Person
{
public:
    explicit Person(int button) : m_button(button), m_thread([this] { Answer(); }) {}
    ~Person() { WaitForTheAnswer(); }
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    /// What the box said. Waits for the answer.
    std::wstring Text()
    {
        WaitForTheAnswer();
        return m_text;
    }
    /// The numbers of its buttons. Waits for the answer.
    std::vector<int> Buttons()
    {
        WaitForTheAnswer();
        return m_buttons;
    }
    /// The caption. Waits for the answer.
    std::wstring Caption()
    {
        WaitForTheAnswer();
        return m_caption;
    }

private:
    void WaitForTheAnswer()
    {
        m_isOver = true;
        if (m_thread.joinable())
            m_thread.join();
    }
    void Answer()
    {
        HWND box = nullptr;
        while (!box && !m_isOver) {
            Sleep(20);
            box = BoxOf(m_asked);
        }
        wchar_t text[200] = L"";
        GetDlgItemTextW(box, textOfABox, text, 200);
        m_text = text;
        GetWindowTextW(box, text, 200);
        m_caption = text;
        for (int button = IDOK; button <= IDNO; ++button)
            if (const HWND control = GetDlgItem(box, button); control && IsWindowVisible(control))
                m_buttons.push_back(button);
        PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(m_button), 0);
    }

    const int m_button;
    const DWORD m_asked = GetCurrentThreadId();
    std::atomic<bool> m_isOver = false; ///< there is nothing to answer any more
    std::wstring m_text;
    std::wstring m_caption;
    std::vector<int> m_buttons;
    std::thread m_thread;
};

TEST(ShowMessageBoxOfWindows, GivesTheAnswerOfThePerson)
{
    const struct
    {
        unsigned int type;
        int button;
    } rows[] = {{16, 1}, {64, 1}, {36, 6}, {36, 7}};
    for (const auto& row : rows) {
        const Person person(row.button);
        EXPECT_EQ(platform::ShowMessageBox("text", row.type), row.button) << row.type;
    }
}

TEST(ShowMessageBoxOfWindows, HasTheButtonsOfItsTypeAndTheNameOfTheProgram)
{
    const struct
    {
        unsigned int type;
        std::vector<int> buttons;
    } rows[] = {{16, {IDOK}}, {64, {IDOK}}, {36, {IDYES, IDNO}}};
    for (const auto& row : rows) {
        Person person(row.buttons.front());
        platform::ShowMessageBox("text", row.type);
        EXPECT_EQ(person.Buttons(), row.buttons) << row.type;
        EXPECT_TRUE(person.Caption().starts_with(L"unit_support_platform"));
    }
}

TEST(ShowMessageBoxOfWindows, ShowsEveryCharacter)
{
    Person person(IDOK);
    platform::ShowMessageBox("M\xC3\xBCller\n\xCE\xB1 \xE2\x82\xAC\n" + std::string("a\0b", 3), 16);
    EXPECT_EQ(person.Text(), L"M\u00FCller\n\u03B1 \u20AC\na b");
}

} // namespace
