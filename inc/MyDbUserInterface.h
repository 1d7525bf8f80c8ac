#pragma once

#include "MyDbExport.h"
#include "text/UtCString.h"

/// Message box type bits, with the numbers of the Windows message box.
enum eMyDbMessageType : unsigned int
{
    MYDB_MESSAGE_ERROR = 16,         ///< error icon, OK button
    MYDB_MESSAGE_INFORMATION = 64,   ///< information icon, OK button
    MYDB_MESSAGE_QUESTION_YESNO = 36 ///< question icon, Yes and No buttons
};

/// Answers of a message box, with the numbers of the Windows message box.
enum eMyDbMessageAnswer : int
{
    MYDB_ANSWER_OK = 1,
    MYDB_ANSWER_YES = 6,
    MYDB_ANSWER_NO = 7
};

/// What the library shows to a person. A host may derive from it and put its own one in place of the default.
///
/// The default one shows message boxes and the wait cursor on Windows. Elsewhere it writes the text to standard error,
/// in the terminal's encoding, answers OK, and answers No to a question, so that nothing is done that nobody agreed to;
/// waiting shows nothing.
///
/// The members are called by the thread that called the library, in the middle of that call. An exception that leaves
/// one makes the library's call fail. A member may use other connections, but not the one at work.
class MYDB_EXPORT MyDbUserInterface
{
public:
    virtual ~MyDbUserInterface() = default;

    /// Shows a text, with line feeds between its lines, and gives the answer. The text carries its encoding: 256 for
    /// the library's own German texts, with a description of damage in them too, UTF-8 where a statement or an error
    /// message of the server is part of it. Where the host
    /// gives the words (CMyServer::ConnectApplicationToServer) it decides with their encoding.
    virtual int ShowMessage(const UtCString& text, unsigned int type) = 0;

    virtual void BeginWait() = 0; ///< Something long begins. Calls come in pairs and may be nested.
    virtual void EndWait() = 0;   ///< It has ended.

    /// A failed CMyDatabase::CopyDatabase has deleted a temporary file and asks whether to go on deleting; `filesLeft`
    /// of them have not been deleted yet. The copy does not stop by itself: with 0 left it goes on to delete the last
    /// one again and again. False ends it at once. This one answers true, so a host that copies databases overrides it,
    /// with `return filesLeft > 0` as a rule.
    virtual bool ContinueCleanup(unsigned long filesLeft);
};

/// Replaces the user interface (null: the platform's default) and returns the previous one (null: it was the default).
/// Not owned: it must stay alive until it is replaced.
MYDB_EXPORT MyDbUserInterface* MyDbSetUserInterface(MyDbUserInterface* userInterface) noexcept;
