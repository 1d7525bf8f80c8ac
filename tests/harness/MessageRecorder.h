#pragma once

#include "MyDbUserInterface.h"

#include <deque>
#include <string>
#include <vector>

namespace harness {

/// Takes the place of the message boxes and the wait cursor while it lives, writes down what is shown and gives the
/// answers that the test has put ready. Recorders may be nested; the inner one must end first.
class MessageRecorder final : public MyDbUserInterface
{
public:
    struct Message
    {
        std::string text; ///< the bytes, in the encoding that the library shows (Windows-1252 for its own texts)
        unsigned int type;
    };

    MessageRecorder() : m_previous(MyDbSetUserInterface(this)) {}
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;
    ~MessageRecorder() override { MyDbSetUserInterface(m_previous); }

    /// Gives this answer to the next message that has none yet. Without one a question is answered with No, everything
    /// else with OK.
    void Answer(eMyDbMessageAnswer answer) { m_answers.push_back(answer); }

    const std::vector<Message>& Messages() const { return m_messages; }
    int WaitBegins() const { return m_waitBegins; }
    int WaitEnds() const { return m_waitEnds; }
    /// What a failed copy has asked: the number of its files that were left each time.
    const std::vector<unsigned long>& Cleanups() const { return m_cleanups; }

    int ShowMessage(const UtCString& text, unsigned int type) override
    {
        m_messages.push_back({std::string(text.View()), type});
        if (m_answers.empty()) {
            return type == MYDB_MESSAGE_QUESTION_YESNO ? MYDB_ANSWER_NO : MYDB_ANSWER_OK;
        }
        const int answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }
    void BeginWait() override { ++m_waitBegins; }
    void EndWait() override { ++m_waitEnds; }
    /// Yes until every file has been deleted once.
    bool ContinueCleanup(unsigned long filesLeft) override
    {
        m_cleanups.push_back(filesLeft);
        return filesLeft > 0;
    }

private:
    MyDbUserInterface* m_previous;
    std::vector<Message> m_messages;
    std::deque<int> m_answers;
    std::vector<unsigned long> m_cleanups;
    int m_waitBegins = 0;
    int m_waitEnds = 0;
};

} // namespace harness
