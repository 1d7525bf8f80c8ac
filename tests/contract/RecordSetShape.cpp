#include "CMyRecordSet.h"

#include "Shape.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>

static_assert(std::is_base_of_v<CObject, CMyRecordSet>);
static_assert(!std::is_copy_constructible_v<CMyRecordSet> && !std::is_copy_assignable_v<CMyRecordSet>);

// A text in place of the flag would convert to true.
template <class T>
concept TakesAsFlag = requires(CMyRecordSet rows, T flag)
{
    rows.Select("", flag);
};
static_assert(TakesAsFlag<bool> && !TakesAsFlag<const char*>);

// CMyRecordSet
static_assert(std::is_constructible_v<CMyRecordSet>);
static_assert(std::is_constructible_v<CMyRecordSet, CMyDatabase&, const UtCString&>);
static_assert(std::is_constructible_v<CMyRecordSet, CMyDatabase*, const UtCString&>);
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::ModifyEnd));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::AppendEnd));
EXPORTED(Has<eModifyStates (CMyRecordSet::*)() const>(&CMyRecordSet::GetModifyState));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::AppendStart));
EXPORTED(Has<bool (CMyRecordSet::*)(const CMyKey&)>(&CMyRecordSet::ModifyStart));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::ModifyStart));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::ModifyStart));
EXPORTED(Has<bool (CMyRecordSet::*)(CMyKey&) const>(&CMyRecordSet::GetPrimaryKey));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::DeleteRec));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsAppendOrModifyStarted));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsDeleted));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsRecordModified));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsAutoUserAndTimeStampEnabled));
EXPORTED(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetModifyErrorCode));
EXPORTED(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetModifyErrorMessage));
EXPORTED(Has<void (CMyRecordSet::*)(bool)>(&CMyRecordSet::EnableAutoUserAndTimeStamp));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::RemoveFieldInSetList));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, const UtCString&)>(&CMyRecordSet::SetFieldValue));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, bool)>(&CMyRecordSet::SetFieldBool));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned char)>(&CMyRecordSet::SetFieldByte));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, short)>(&CMyRecordSet::SetFieldShort));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned short)>(&CMyRecordSet::SetFieldWord));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, long)>(&CMyRecordSet::SetFieldLong));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned long)>(&CMyRecordSet::SetFieldDWord));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, __int64)>(&CMyRecordSet::SetFieldInt64));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, float)>(&CMyRecordSet::SetFieldFloat));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, double)>(&CMyRecordSet::SetFieldDouble));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, const UtCString&)>(&CMyRecordSet::SetFieldText));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, const CByteArray&)>(&CMyRecordSet::SetFieldBlob));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, const CDateTime&)>(&CMyRecordSet::SetFieldDate));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, _GUID)>(&CMyRecordSet::SetFieldGUID));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, const UtCString&)>(&CMyRecordSet::SetFieldOperation));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::SetFieldNull));
EXPORTED(Has<bool (CMyRecordSet::*)(CMyDatabase*, const UtCString&)>(&CMyRecordSet::SetDatabase));
EXPORTED(Has<void (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::SetTableName));
EXPORTED(Has<CMyDatabase* (CMyRecordSet::*)() const>(&CMyRecordSet::GetDatabase));
EXPORTED(Has<UtCString (CMyRecordSet::*)() const>(&CMyRecordSet::GetDatabaseName));
EXPORTED(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetTableName));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsValid));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsValidTable));
EXPORTED(Has<void (CMyRecordSet::*)(bool)>(&CMyRecordSet::SetCloseConnectionOnExit));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::GetCloseConnectionOnExit));
EXPORTED(Has<long (CMyRecordSet::*)(const UtCString&, bool, bool)>(&CMyRecordSet::Select));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::SelectLargeResult));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::Close));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsOpen));
EXPORTED(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetLastSQLCommand));
EXPORTED(Has<unsigned long (CMyRecordSet::*)() const>(&CMyRecordSet::GetQueryTime));
EXPORTED(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetAffectedRows));
EXPORTED(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetQueryInfo));
EXPORTED(Has<UtCString (CMyRecordSet::*)() const>(&CMyRecordSet::GetErrorMessage));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::MoveFirst));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::MoveNext));
EXPORTED(Has<bool (CMyRecordSet::*)(long)>(&CMyRecordSet::MoveTo));
EXPORTED(Has<long (CMyRecordSet::*)()>(&CMyRecordSet::GetCurrentRow));
EXPORTED(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsEOF));
// Looking up
EXPORTED(Has<long (CMyRecordSet::*)(const CMyKey&, const UtCString&, const UtCString&)>(&CMyRecordSet::Select));
EXPORTED(Has<long (CMyRecordSet::*)(const CMyKey&) const>(&CMyRecordSet::CountSQL));
EXPORTED(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::CountSQL));
EXPORTED(Has<bool (CMyRecordSet::*)(const CMyKey&) const>(&CMyRecordSet::ExistRecord));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::ExistRecord));
EXPORTED(Has<long (CMyRecordSet::*)(const UtCString&, const UtCString&, long, bool, UtCString (*)(const UtCString&))>(
    &CMyRecordSet::FindRow));
EXPORTED(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetMaxValue));
EXPORTED(Has<long (CMyRecordSet::*)(const UtCString&, const UtCString&) const>(&CMyRecordSet::GetMaxFieldValue));
EXPORTED(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetLastInsertedRecID));
EXPORTED(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::SelectLastInsertedRecord));
EXPORTED(Has<bool (CMyRecordSet::*)(const CMyRecordSet&)>(&CMyRecordSet::CopyRecord));
EXPORTED(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetRecordCount));
// Columns and values
EXPORTED(Has<unsigned long (CMyRecordSet::*)() const>(&CMyRecordSet::GetFieldCount));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned long&) const>(&CMyRecordSet::GetFieldNo));
EXPORTED(Has<UtCString (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldName));
EXPORTED(Has<bool (CMyRecordSet::*)(unsigned long, unsigned int&) const>(&CMyRecordSet::GetFieldCharsetNr));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned int&) const>(&CMyRecordSet::GetFieldCharsetNr));
EXPORTED(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldSize));
EXPORTED(Has<MYTYPES (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldType));
EXPORTED(Has<MYTYPES (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldType));
EXPORTED(Has<UtCString (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldTypeString));
EXPORTED(Has<UtCString (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldTypeString));
EXPORTED(Has<CMyField (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetField));
EXPORTED(Has<char* (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldValue));
EXPORTED(Has<char* (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldValue));
EXPORTED(Has<bool (CMyRecordSet::*)(unsigned long, UtCString&) const>(&CMyRecordSet::GetFieldText));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, UtCString&) const>(&CMyRecordSet::GetFieldText));
EXPORTED(Has<long (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldLong));
EXPORTED(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldLong));
EXPORTED(Has<unsigned long (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDWord));
EXPORTED(Has<unsigned long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDWord));
EXPORTED(Has<short (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldShort));
EXPORTED(Has<short (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldShort));
EXPORTED(Has<unsigned short (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldWord));
EXPORTED(Has<unsigned short (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldWord));
EXPORTED(Has<unsigned char (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldByte));
EXPORTED(Has<unsigned char (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldByte));
EXPORTED(Has<bool (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldBool));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldBool));
EXPORTED(Has<__int64 (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldInt64));
EXPORTED(Has<__int64 (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldInt64));
EXPORTED(Has<double (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDouble));
EXPORTED(Has<double (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDouble));
EXPORTED(Has<float (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldFloat));
EXPORTED(Has<float (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldFloat));
EXPORTED(Has<CDateTime (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDate));
EXPORTED(Has<CDateTime (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDate));
EXPORTED(Has<_GUID (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldGUID));
EXPORTED(Has<_GUID (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldGUID));
EXPORTED(Has<bool (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::IsFieldNull));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::IsFieldNull));
EXPORTED(Has<bool (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::IsFieldEmpty));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::IsFieldEmpty));
EXPORTED(Has<bool (CMyRecordSet::*)(unsigned long, CByteArray&) const>(&CMyRecordSet::GetFieldBlob));
EXPORTED(Has<bool (CMyRecordSet::*)(const UtCString&, CByteArray&) const>(&CMyRecordSet::GetFieldBlob));
EXPORTED(Has<const void* (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDataPtr));
EXPORTED(Has<const void* (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDataPtr));
EXPORTED(Has<unsigned long (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDataLen));
EXPORTED(Has<unsigned long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDataLen));
