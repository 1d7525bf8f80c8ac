#include "platform/WaitCursor.h"

#include <afxwin.h>

void platform::BeginWaitCursor() noexcept
{
    if (CWinApp* const application = AfxGetApp())
        application->BeginWaitCursor();
}

void platform::EndWaitCursor() noexcept
{
    if (CWinApp* const application = AfxGetApp())
        application->EndWaitCursor();
}
