#include <afxcmn.h>
#include <afxdisp.h>
#include <afxdllx.h>
#include <afxwin.h>
#include <atltime.h>

#include <ctime>

const CRuntimeClass CObject::classCObject = {"CObject", sizeof(CObject), 0xFFFF, NULL, NULL, NULL, NULL};

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* baseClass) const
{
    const CRuntimeClass* current = this;
    while (current && current != baseClass)
        current = current->m_pfnGetBaseClass ? current->m_pfnGetBaseClass() : NULL;
    return current != NULL;
}

CObject::CObject() {}
CObject::~CObject() {}
CRuntimeClass* PASCAL CObject::GetThisClass()
{
    return const_cast<CRuntimeClass*>(&classCObject);
}
CRuntimeClass* CObject::GetRuntimeClass() const
{
    return GetThisClass();
}
BOOL CObject::IsKindOf(const CRuntimeClass* runtimeClass) const
{
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}
void CObject::Serialize(CArchive&) {}
void CObject::AssertValid() const {}
void CObject::Dump(CDumpContext&) const {}

static void Assign(std::wstring& to, const wchar_t* text, int length)
{
    to.assign(text, static_cast<size_t>(length));
}
static void Assign(std::string& to, const wchar_t* text, int length)
{
    to.resize(static_cast<size_t>(length) * 2);
    const int size = WideCharToMultiByte(CP_ACP, 0, text, length, to.data(), length * 2, NULL, NULL);
    to.resize(static_cast<size_t>(size));
}
CString::CString(const wchar_t* text, int length)
{
    Assign(m_text, text, length);
}
CString::operator LPCTSTR() const
{
    return m_text.c_str();
}

void CException::Delete()
{
    delete this;
}

IMPLEMENT_DYNAMIC(CFile, CObject)

CFile::CFile() : m_hFile(INVALID_HANDLE_VALUE), m_bCloseOnDelete(FALSE) {}
CFile::~CFile()
{
    if (m_hFile != INVALID_HANDLE_VALUE && m_bCloseOnDelete)
        CFile::Close();
}
void CFile::Write(const void* buffer, UINT count)
{
    DWORD written = 0;
    if (FrameworkNotes::Get().writesFail || !WriteFile(m_hFile, buffer, count, &written, NULL) || written != count)
        throw new CFileException;
}
void CFile::Abort()
{
    if (m_hFile != INVALID_HANDLE_VALUE)
        CloseHandle(m_hFile);
    m_hFile = INVALID_HANDLE_VALUE;
}
void CFile::Close()
{
    Abort();
    if (FrameworkNotes::Get().closesFail)
        throw new CFileException;
}

IMPLEMENT_DYNAMIC(CByteArray, CObject)

CByteArray::CByteArray() {}
INT_PTR CByteArray::GetSize() const
{
    return static_cast<INT_PTR>(m_data.size());
}
void CByteArray::SetSize(INT_PTR size, INT_PTR)
{
    m_data.resize(static_cast<size_t>(size));
}
BYTE* CByteArray::GetData()
{
    return m_data.data();
}
const BYTE* CByteArray::GetData() const
{
    return m_data.data();
}

FrameworkNotes& FrameworkNotes::Get()
{
    static FrameworkNotes notes;
    return notes;
}

void CCmdTarget::BeginWaitCursor()
{
    ++FrameworkNotes::Get().waitBegins;
}
void CCmdTarget::EndWaitCursor()
{
    ++FrameworkNotes::Get().waitEnds;
}

static CWinApp* application = NULL;

CWinApp::CWinApp()
{
    application = this;
}
CWinApp* AfxGetApp()
{
    return application;
}

static std::wstring Shown(const wchar_t* text)
{
    return text;
}
static std::wstring Shown(const char* text)
{
    wchar_t wide[1000];
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide, 1000);
    return wide;
}
int AfxMessageBox(LPCTSTR text, UINT type, UINT)
{
    FrameworkNotes& notes = FrameworkNotes::Get();
    notes.messageText = Shown(text);
    notes.messageType = type;
    return notes.answer;
}

IMPLEMENT_DYNAMIC(CWnd, CObject)

// A double needs no screen: what a window would do with a message, the object does.
CWnd::CWnd() {}
LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    return WindowProc(message, wParam, lParam);
}
LRESULT CWnd::WindowProc(UINT, WPARAM, LPARAM)
{
    return 0;
}

IMPLEMENT_DYNAMIC(CProgressCtrl, CWnd)

CProgressCtrl::CProgressCtrl() : m_lower(0), m_upper(100), m_position(0) {}
void CProgressCtrl::SetRange32(int lower, int upper)
{
    m_lower = lower;
    m_upper = upper;
}
void CProgressCtrl::GetRange(int& lower, int& upper) const
{
    lower = m_lower;
    upper = m_upper;
}
int CProgressCtrl::GetPos() const
{
    return m_position;
}
LRESULT CProgressCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM)
{
    if (message != PBM_DELTAPOS)
        return 0;
    const int before = m_position;
    m_position += static_cast<int>(wParam);
    return before;
}

CTime WINAPI CTime::GetCurrentTime() throw()
{
    return CTime(_time64(NULL));
}
CTime::CTime() throw() : m_time(0) {}
CTime::CTime(__time64_t time) throw() : m_time(time) {}
CTime::CTime(int year, int month, int day, int hour, int minute, int second, int daylightSaving)
{
    tm fields = {};
    fields.tm_year = year - 1900;
    fields.tm_mon = month - 1;
    fields.tm_mday = day;
    fields.tm_hour = hour;
    fields.tm_min = minute;
    fields.tm_sec = second;
    fields.tm_isdst = daylightSaving;
    m_time = _mktime64(&fields);
    if (m_time == -1 || FrameworkNotes::Get().timesFail)
        throw new COleException; // as the framework does for what the C run-time's zone rules refuse
}
__time64_t CTime::GetTime() const throw()
{
    return m_time;
}
static tm Local(__time64_t time)
{
    tm fields = {};
    _localtime64_s(&fields, &time);
    return fields;
}
int CTime::GetYear() const throw()
{
    return Local(m_time).tm_year + 1900;
}
int CTime::GetMonth() const throw()
{
    return Local(m_time).tm_mon + 1;
}
int CTime::GetDay() const throw()
{
    return Local(m_time).tm_mday;
}
int CTime::GetHour() const throw()
{
    return Local(m_time).tm_hour;
}
int CTime::GetMinute() const throw()
{
    return Local(m_time).tm_min;
}
int CTime::GetSecond() const throw()
{
    return Local(m_time).tm_sec;
}

COleDateTime::COleDateTime() throw() : m_dt(0), m_status(valid) {}
COleDateTime::COleDateTime(DATE value) throw() : m_dt(value), m_status(valid) {}
COleDateTime::DateTimeStatus COleDateTime::GetStatus() const throw()
{
    return m_status;
}
void COleDateTime::SetStatus(DateTimeStatus status) throw()
{
    m_status = status;
}
COleDateTime::operator DATE() const throw()
{
    return m_dt;
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE)
{
    state.bInitialized = TRUE;
    ++FrameworkNotes::Get().extensionModules;
    return TRUE;
}
void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL)
{
    state.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE&) {}
