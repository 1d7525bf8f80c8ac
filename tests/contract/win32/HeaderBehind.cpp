#include "WindowsHeader.h"

#include "MyDB.h"
#include "framework/CWnd.h"
#include "framework/Variant.h"

#include <windows.h>

#include "ChangedNames.h"

bool MembersAnswerWithHeaderBehind()
{
    return ChangedNamesAnswer();
}
