// The program uses itself: it presses its own buttons, answers the library's message boxes and watches its progress
// bar.
#pragma once

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

class SelfTest
{
public:
    /// Starts to use the window, which belongs to the calling thread, and closes it at the end. In `folder` it writes
    /// what it saw, "log.txt", and the dump; where a picture is wanted it writes "NAME.ready" and waits for
    /// "NAME.taken". A failure ends the program with the exit code 1.
    SelfTest(HWND window, const std::filesystem::path& folder);
    ~SelfTest();
    SelfTest(const SelfTest&) = delete;
    SelfTest& operator=(const SelfTest&) = delete;

private:
    static LRESULT CALLBACK Watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR self);
    void OnPosition(int position);

    void Run();
    void ConnectAndRefuse();
    void Repair();
    void ConnectAndAgree();
    void Dump();
    void CheckDumpFile();

    std::wstring AnswerBox(const char* picture, int answer); ///< its text
    void AnswerFileQuestion();
    void Press(int button);
    void WaitForTheButton();
    void TakePicture(const std::string& name);
    void Expect(bool isTrue, const std::string& what);
    void ExpectText(const std::wstring& text, const wchar_t* part);

    HWND m_window;
    std::filesystem::path m_folder;
    std::ofstream m_log;
    std::vector<int> m_positions; ///< of the progress bar
    int m_messagesHeard = 0;      ///< of those posted at each position; these three are written by the window's thread
    int m_messagesHeardInDump = 0;
    std::atomic<int> m_buttonsDone = 0;
    std::atomic<bool> m_isHalfDone = false;
    std::atomic<bool> m_mayGoOn = false;
    int m_buttonsPressed = 0;
    std::thread m_person;
};
