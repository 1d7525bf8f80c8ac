#pragma once

// A double of the framework, for builds that have not got it: classes, members and macros with the framework's names
// and signatures, as far as the library meets them; fewer overloads than there. Texts are ANSI or wide as UNICODE
// decides.
#if defined(_WINDOWS_)
#error This header includes windows.h itself and refuses to stand behind it
#endif
#include <windows.h>

#include <commctrl.h> // PBM_DELTAPOS
#include <oaidl.h>

#include <string>
#include <vector>

#undef GetCurrentTime

#if defined(MFC_DOUBLE_BUILDING)
#define AFX_DOUBLE __declspec(dllexport)
#else
#define AFX_DOUBLE __declspec(dllimport)
#endif

class CObject;
class CArchive;
class CDumpContext;

struct AFX_DOUBLE CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject* (*m_pfnCreateObject)();
    CRuntimeClass* (*m_pfnGetBaseClass)();
    CRuntimeClass* m_pNextClass;
    const void* m_pClassInit;

    BOOL IsDerivedFrom(const CRuntimeClass* baseClass) const;
};

class AFX_DOUBLE CObject
{
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = 0;
    BOOL IsKindOf(const CRuntimeClass* runtimeClass) const;
    virtual void Serialize(CArchive& archive);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& context) const;

    static const CRuntimeClass classCObject;
    static CRuntimeClass* PASCAL GetThisClass();

protected:
    CObject();

private:
    CObject(const CObject&);            // not defined
    CObject& operator=(const CObject&); // not defined
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())
#define DECLARE_DYNAMIC(class_name)                                                                                    \
protected:                                                                                                             \
    static CRuntimeClass* PASCAL _GetBaseClass();                                                                      \
                                                                                                                       \
public:                                                                                                                \
    static const CRuntimeClass class##class_name;                                                                      \
    static CRuntimeClass* PASCAL GetThisClass();                                                                       \
    virtual CRuntimeClass* GetRuntimeClass() const;
#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                                 \
    CRuntimeClass* PASCAL class_name::_GetBaseClass()                                                                  \
    {                                                                                                                  \
        return RUNTIME_CLASS(base_class_name);                                                                         \
    }                                                                                                                  \
    const CRuntimeClass class_name::class##class_name = {                                                              \
        #class_name, sizeof(class class_name), 0xFFFF, NULL, &class_name::_GetBaseClass, NULL, NULL};                  \
    CRuntimeClass* PASCAL class_name::GetThisClass()                                                                   \
    {                                                                                                                  \
        return const_cast<CRuntimeClass*>(&class_name::class##class_name);                                             \
    }                                                                                                                  \
    CRuntimeClass* class_name::GetRuntimeClass() const                                                                 \
    {                                                                                                                  \
        return RUNTIME_CLASS(class_name);                                                                              \
    }

class AFX_DOUBLE CString
{
public:
    CString(const wchar_t* text, int length);
    operator LPCTSTR() const;

private:
    std::basic_string<TCHAR> m_text;
};

class AFX_DOUBLE CException : public CObject
{
public:
    void Delete();
};

class AFX_DOUBLE CFileException : public CException
{
};

class AFX_DOUBLE COleException : public CException
{
};

class AFX_DOUBLE CFile : public CObject
{
    DECLARE_DYNAMIC(CFile)
public:
    CFile();
    ~CFile() override;
    virtual void Write(const void* buffer, UINT count);
    virtual void Abort();
    virtual void Close();

    HANDLE m_hFile;

protected:
    BOOL m_bCloseOnDelete;
};

class AFX_DOUBLE CByteArray : public CObject
{
    DECLARE_DYNAMIC(CByteArray)
public:
    CByteArray();
    INT_PTR GetSize() const;
    void SetSize(INT_PTR size, INT_PTR growBy = -1);
    BYTE* GetData();
    const BYTE* GetData() const;

private:
    std::vector<BYTE> m_data;
};

class AFX_DOUBLE CCmdTarget : public CObject
{
public:
    void BeginWaitCursor();
    void EndWaitCursor();
};

class AFX_DOUBLE CWinApp : public CCmdTarget
{
public:
    CWinApp();
};

AFX_DOUBLE CWinApp* AfxGetApp();
AFX_DOUBLE int AfxMessageBox(LPCTSTR text, UINT type = MB_OK, UINT helpId = 0);

class AFX_DOUBLE CWnd : public CCmdTarget
{
    DECLARE_DYNAMIC(CWnd)
public:
    CWnd();
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
};

struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
};
AFX_DOUBLE BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE module);
AFX_DOUBLE void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL all = FALSE);

/// What the double notes for the tests.
struct AFX_DOUBLE FrameworkNotes
{
    static FrameworkNotes& Get();

    std::wstring messageText;
    UINT messageType = 0;
    int answer = IDOK;
    int waitBegins = 0;
    int waitEnds = 0;
    int extensionModules = 0;
    bool writesFail = false; ///< of a file
    bool closesFail = false;
    bool timesFail = false; ///< those made of fields
};
