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

/// What the library shows to a person. A host may derive from it and replace the default one.
class MYDB_EXPORT MyDbUserInterface
{
public:
    virtual ~MyDbUserInterface() = default;
    virtual int ShowMessage(const UtCString& text, unsigned int type) = 0;
    virtual void BeginWait() = 0;
    virtual void EndWait() = 0;
};

/// Replaces the user interface (null: the platform's default) and returns the previous one. Not owned.
MYDB_EXPORT MyDbUserInterface* MyDbSetUserInterface(MyDbUserInterface* userInterface) noexcept;
