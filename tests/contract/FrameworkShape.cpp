#include "MyDbUserInterface.h"
#include "files/UtFile.h"
#include "framework/CByteArray.h"
#include "framework/CFile.h"
#include "framework/CObject.h"
#include "framework/CWnd.h"
#include "framework/Guid.h"
#include "log/UtAppLogging.h"
#include "text/UtMemory.h"

#include "Shape.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>
#include <utility>

// What a host may replace
EXPORTED(Has<MyDbUserInterface* (*)(MyDbUserInterface*)>(&MyDbSetUserInterface));
static_assert(std::has_virtual_destructor_v<MyDbUserInterface> && std::is_abstract_v<MyDbUserInterface>);
static_assert(std::has_virtual_destructor_v<UtAppLogSink> && std::is_abstract_v<UtAppLogSink>);

// Files and memory
EXPORTED(Has<int (*)(const UtCString&)>(&UtIsFile));
EXPORTED(Has<int (*)(const UtCString&)>(&UtIsDir));
EXPORTED(Has<UtCString (*)()>(&UtGetTempDir));
EXPORTED(Has<int (*)(const UtCString&, const UtCString&)>(&UtCopyDirectory));
EXPORTED(Has<int (*)(const UtCString&)>(&UtDeleteDirectory));
EXPORTED(Has<void* (*)(size_t)>(&UtAllocMemoryBlock));
EXPORTED(Has<void (*)(void*)>(&UtFreeMemory));

// The layout of the platform's GUID
static_assert(sizeof(_GUID) == 16 && alignof(_GUID) == 4);
static_assert(offsetof(_GUID, Data2) == 4 && offsetof(_GUID, Data3) == 6 && offsetof(_GUID, Data4) == 8);

// CObject
EXPORTED(Has<CRuntimeClass* (CObject::*)() const>(&CObject::GetRuntimeClass));
EXPORTED(Has<void (CObject::*)(CArchive&)>(&CObject::Serialize));
EXPORTED(Has<void (CObject::*)() const>(&CObject::AssertValid));
EXPORTED(Has<void (CObject::*)(CDumpContext&) const>(&CObject::Dump));
EXPORTED(Has<bool (CObject::*)(const CRuntimeClass*) const>(&CObject::IsKindOf));
EXPORTED(Has<CRuntimeClass* (*)()>(&CObject::GetThisClass));

// CByteArray
static_assert(std::is_constructible_v<CByteArray>);
EXPORTED(Has<void (CByteArray::*)(intptr_t, intptr_t)>(&CByteArray::SetSize));
EXPORTED(Has<intptr_t (CByteArray::*)() const>(&CByteArray::GetSize));
EXPORTED(Has<unsigned char* (CByteArray::*)()>(&CByteArray::GetData));
EXPORTED(Has<const unsigned char* (CByteArray::*)() const>(&CByteArray::GetData));
EXPORTED(Has<unsigned char (CByteArray::*)(intptr_t) const>(&CByteArray::GetAt));
EXPORTED(Has<void (CByteArray::*)(intptr_t, unsigned char)>(&CByteArray::SetAt));
EXPORTED(Has<intptr_t (CByteArray::*)(unsigned char)>(&CByteArray::Add));
EXPORTED(Has<void (CByteArray::*)()>(&CByteArray::RemoveAll));

// MyDbUserInterface
EXPORTED(Has<int (MyDbUserInterface::*)(const UtCString&, unsigned int)>(&MyDbUserInterface::ShowMessage));
EXPORTED(Has<void (MyDbUserInterface::*)()>(&MyDbUserInterface::BeginWait));
EXPORTED(Has<void (MyDbUserInterface::*)()>(&MyDbUserInterface::EndWait));
EXPORTED(Has<bool (MyDbUserInterface::*)(unsigned long)>(&MyDbUserInterface::ContinueCleanup));

// CFile
static_assert(std::is_base_of_v<CObject, CFile> && std::is_base_of_v<CObject, CFileException>);
static_assert(CFile::modeReadWrite == 0x0002 && CFile::shareExclusive == 0x0010 && CFile::modeCreate == 0x1000);
EXPORTED(Has<bool (CFile::*)(const UtCString&, unsigned int)>(&CFile::Open));
EXPORTED(Has<void (CFile::*)(const void*, unsigned int)>(&CFile::Write));
EXPORTED(Has<void (CFile::*)()>(&CFile::Close));
static_assert(noexcept(std::declval<CFile&>().Abort()));
EXPORTED(Has<void (CFileException::*)()>(&CFileException::Delete));

// CWnd and CProgressCtrl
static_assert(std::is_base_of_v<CObject, CWnd> && std::is_base_of_v<CWnd, CProgressCtrl>);
static_assert(PBM_DELTAPOS == 1027);
EXPORTED(Has<intptr_t (CWnd::*)(unsigned int, uintptr_t, intptr_t)>(&CWnd::SendMessage));
EXPORTED(Has<intptr_t (CProgressCtrl::*)(unsigned int, uintptr_t, intptr_t)>(&CProgressCtrl::SendMessage));
EXPORTED(Has<void (CProgressCtrl::*)(int&, int&) const>(&CProgressCtrl::GetRange));
EXPORTED(Has<void (CProgressCtrl::*)(int, int)>(&CProgressCtrl::SetRange32));
EXPORTED(Has<int (CProgressCtrl::*)() const>(&CProgressCtrl::GetPos));

// UtAppLogSink
EXPORTED(Has<void (UtAppLogSink::*)(const char*, long, const char*, const char*)>(&UtAppLogSink::Warning));

// UtAppLogging
EXPORTED(Has<void (*)(const char*, long, const char*, const char*)>(&UtAppLogging::LogWarning));
EXPORTED(Has<UtAppLogSink* (*)(UtAppLogSink*)>(&UtAppLogging::SetSink));
