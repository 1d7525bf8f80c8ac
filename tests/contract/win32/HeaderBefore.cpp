#include "WindowsHeader.h"

#include <windows.h>

#include "MyDB.h"
#include "framework/CWnd.h"
#include "framework/Variant.h"

#include "ChangedNames.h"

bool MembersAnswerWithHeaderBefore()
{
    return ChangedNamesAnswer();
}
