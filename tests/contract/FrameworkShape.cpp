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
static_assert(Has<MyDbUserInterface* (*)(MyDbUserInterface*)>(&MyDbSetUserInterface));
static_assert(std::has_virtual_destructor_v<MyDbUserInterface> && std::is_abstract_v<MyDbUserInterface>);
static_assert(std::has_virtual_destructor_v<UtAppLogSink> && std::is_abstract_v<UtAppLogSink>);

// Files and memory
static_assert(Has<int (*)(const UtCString&)>(&UtIsFile));
static_assert(Has<int (*)(const UtCString&)>(&UtIsDir));
static_assert(Has<UtCString (*)()>(&UtGetTempDir));
static_assert(Has<int (*)(const UtCString&, const UtCString&)>(&UtCopyDirectory));
static_assert(Has<int (*)(const UtCString&)>(&UtDeleteDirectory));
static_assert(Has<void* (*)(size_t)>(&UtAllocMemoryBlock));
static_assert(Has<void (*)(void*)>(&UtFreeMemory));

// The layout of the platform's GUID
static_assert(sizeof(_GUID) == 16 && alignof(_GUID) == 4);
static_assert(offsetof(_GUID, Data2) == 4 && offsetof(_GUID, Data3) == 6 && offsetof(_GUID, Data4) == 8);

// CObject
static_assert(Has<CRuntimeClass* (CObject::*)() const>(&CObject::GetRuntimeClass));
static_assert(Has<void (CObject::*)(CArchive&)>(&CObject::Serialize));
static_assert(Has<void (CObject::*)() const>(&CObject::AssertValid));
static_assert(Has<void (CObject::*)(CDumpContext&) const>(&CObject::Dump));
static_assert(Has<bool (CObject::*)(const CRuntimeClass*) const>(&CObject::IsKindOf));
static_assert(Has<CRuntimeClass* (*)()>(&CObject::GetThisClass));

// CByteArray
static_assert(std::is_constructible_v<CByteArray>);
static_assert(Has<void (CByteArray::*)(intptr_t, intptr_t)>(&CByteArray::SetSize));
static_assert(Has<intptr_t (CByteArray::*)() const>(&CByteArray::GetSize));
static_assert(Has<unsigned char* (CByteArray::*)()>(&CByteArray::GetData));
static_assert(Has<const unsigned char* (CByteArray::*)() const>(&CByteArray::GetData));
static_assert(Has<unsigned char (CByteArray::*)(intptr_t) const>(&CByteArray::GetAt));
static_assert(Has<void (CByteArray::*)(intptr_t, unsigned char)>(&CByteArray::SetAt));
static_assert(Has<intptr_t (CByteArray::*)(unsigned char)>(&CByteArray::Add));
static_assert(Has<void (CByteArray::*)()>(&CByteArray::RemoveAll));

// MyDbUserInterface
static_assert(Has<int (MyDbUserInterface::*)(const UtCString&, unsigned int)>(&MyDbUserInterface::ShowMessage));
static_assert(Has<void (MyDbUserInterface::*)()>(&MyDbUserInterface::BeginWait));
static_assert(Has<void (MyDbUserInterface::*)()>(&MyDbUserInterface::EndWait));
static_assert(Has<bool (MyDbUserInterface::*)(unsigned long)>(&MyDbUserInterface::ContinueCleanup));

// CFile
static_assert(std::is_base_of_v<CObject, CFile> && std::is_base_of_v<CObject, CFileException>);
static_assert(CFile::modeReadWrite == 0x0002 && CFile::shareExclusive == 0x0010 && CFile::modeCreate == 0x1000);
static_assert(Has<bool (CFile::*)(const UtCString&, unsigned int)>(&CFile::Open));
static_assert(Has<void (CFile::*)(const void*, unsigned int)>(&CFile::Write));
static_assert(Has<void (CFile::*)()>(&CFile::Close));
static_assert(noexcept(std::declval<CFile&>().Abort()));
static_assert(Has<void (CFileException::*)()>(&CFileException::Delete));

// CWnd and CProgressCtrl
static_assert(std::is_base_of_v<CObject, CWnd> && std::is_base_of_v<CWnd, CProgressCtrl>);
static_assert(PBM_DELTAPOS == 1027);
static_assert(Has<intptr_t (CWnd::*)(unsigned int, uintptr_t, intptr_t)>(&CWnd::SendMessage));
static_assert(Has<intptr_t (CProgressCtrl::*)(unsigned int, uintptr_t, intptr_t)>(&CProgressCtrl::SendMessage));
static_assert(Has<void (CProgressCtrl::*)(int&, int&) const>(&CProgressCtrl::GetRange));
static_assert(Has<void (CProgressCtrl::*)(int, int)>(&CProgressCtrl::SetRange32));
static_assert(Has<int (CProgressCtrl::*)() const>(&CProgressCtrl::GetPos));

// UtAppLogSink
static_assert(Has<void (UtAppLogSink::*)(const char*, long, const char*, const char*)>(&UtAppLogSink::Warning));

// UtAppLogging
static_assert(Has<void (*)(const char*, long, const char*, const char*)>(&UtAppLogging::LogWarning));
static_assert(Has<UtAppLogSink* (*)(UtAppLogSink*)>(&UtAppLogging::SetSink));
