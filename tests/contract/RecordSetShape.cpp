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
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::ModifyEnd));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::AppendEnd));
static_assert(Has<eModifyStates (CMyRecordSet::*)() const>(&CMyRecordSet::GetModifyState));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::AppendStart));
static_assert(Has<bool (CMyRecordSet::*)(const CMyKey&)>(&CMyRecordSet::ModifyStart));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::ModifyStart));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::ModifyStart));
static_assert(Has<bool (CMyRecordSet::*)(CMyKey&) const>(&CMyRecordSet::GetPrimaryKey));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::DeleteRec));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsAppendOrModifyStarted));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsDeleted));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsRecordModified));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsAutoUserAndTimeStampEnabled));
static_assert(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetModifyErrorCode));
static_assert(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetModifyErrorMessage));
static_assert(Has<void (CMyRecordSet::*)(bool)>(&CMyRecordSet::EnableAutoUserAndTimeStamp));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::RemoveFieldInSetList));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, const UtCString&)>(&CMyRecordSet::SetFieldValue));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, bool)>(&CMyRecordSet::SetFieldBool));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned char)>(&CMyRecordSet::SetFieldByte));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, short)>(&CMyRecordSet::SetFieldShort));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned short)>(&CMyRecordSet::SetFieldWord));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, long)>(&CMyRecordSet::SetFieldLong));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned long)>(&CMyRecordSet::SetFieldDWord));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, __int64)>(&CMyRecordSet::SetFieldInt64));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, float)>(&CMyRecordSet::SetFieldFloat));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, double)>(&CMyRecordSet::SetFieldDouble));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, const UtCString&)>(&CMyRecordSet::SetFieldText));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, const CByteArray&)>(&CMyRecordSet::SetFieldBlob));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, const CDateTime&)>(&CMyRecordSet::SetFieldDate));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, _GUID)>(&CMyRecordSet::SetFieldGUID));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, const UtCString&)>(&CMyRecordSet::SetFieldOperation));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::SetFieldNull));
static_assert(Has<bool (CMyRecordSet::*)(CMyDatabase*, const UtCString&)>(&CMyRecordSet::SetDatabase));
static_assert(Has<void (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::SetTableName));
static_assert(Has<CMyDatabase* (CMyRecordSet::*)() const>(&CMyRecordSet::GetDatabase));
static_assert(Has<UtCString (CMyRecordSet::*)() const>(&CMyRecordSet::GetDatabaseName));
static_assert(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetTableName));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsValid));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsValidTable));
static_assert(Has<void (CMyRecordSet::*)(bool)>(&CMyRecordSet::SetCloseConnectionOnExit));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::GetCloseConnectionOnExit));
static_assert(Has<long (CMyRecordSet::*)(const UtCString&, bool, bool)>(&CMyRecordSet::Select));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&)>(&CMyRecordSet::SelectLargeResult));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::Close));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsOpen));
static_assert(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetLastSQLCommand));
static_assert(Has<unsigned long (CMyRecordSet::*)() const>(&CMyRecordSet::GetQueryTime));
static_assert(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetAffectedRows));
static_assert(Has<const UtCString& (CMyRecordSet::*)() const>(&CMyRecordSet::GetQueryInfo));
static_assert(Has<UtCString (CMyRecordSet::*)() const>(&CMyRecordSet::GetErrorMessage));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::MoveFirst));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::MoveNext));
static_assert(Has<bool (CMyRecordSet::*)(long)>(&CMyRecordSet::MoveTo));
static_assert(Has<long (CMyRecordSet::*)()>(&CMyRecordSet::GetCurrentRow));
static_assert(Has<bool (CMyRecordSet::*)() const>(&CMyRecordSet::IsEOF));
// Looking up
static_assert(Has<long (CMyRecordSet::*)(const CMyKey&, const UtCString&, const UtCString&)>(&CMyRecordSet::Select));
static_assert(Has<long (CMyRecordSet::*)(const CMyKey&) const>(&CMyRecordSet::CountSQL));
static_assert(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::CountSQL));
static_assert(Has<bool (CMyRecordSet::*)(const CMyKey&) const>(&CMyRecordSet::ExistRecord));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::ExistRecord));
static_assert(Has<long (CMyRecordSet::*)(const UtCString&, const UtCString&, long, bool,
                                         UtCString (*)(const UtCString&))>(&CMyRecordSet::FindRow));
static_assert(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetMaxValue));
static_assert(Has<long (CMyRecordSet::*)(const UtCString&, const UtCString&) const>(&CMyRecordSet::GetMaxFieldValue));
static_assert(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetLastInsertedRecID));
static_assert(Has<bool (CMyRecordSet::*)()>(&CMyRecordSet::SelectLastInsertedRecord));
static_assert(Has<bool (CMyRecordSet::*)(const CMyRecordSet&)>(&CMyRecordSet::CopyRecord));
static_assert(Has<long (CMyRecordSet::*)() const>(&CMyRecordSet::GetRecordCount));
// Columns and values
static_assert(Has<unsigned long (CMyRecordSet::*)() const>(&CMyRecordSet::GetFieldCount));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned long&) const>(&CMyRecordSet::GetFieldNo));
static_assert(Has<UtCString (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldName));
static_assert(Has<bool (CMyRecordSet::*)(unsigned long, unsigned int&) const>(&CMyRecordSet::GetFieldCharsetNr));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, unsigned int&) const>(&CMyRecordSet::GetFieldCharsetNr));
static_assert(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldSize));
static_assert(Has<MYTYPES (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldType));
static_assert(Has<MYTYPES (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldType));
static_assert(Has<UtCString (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldTypeString));
static_assert(Has<UtCString (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldTypeString));
static_assert(Has<CMyField (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetField));
static_assert(Has<char* (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldValue));
static_assert(Has<char* (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldValue));
static_assert(Has<bool (CMyRecordSet::*)(unsigned long, UtCString&) const>(&CMyRecordSet::GetFieldText));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, UtCString&) const>(&CMyRecordSet::GetFieldText));
static_assert(Has<long (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldLong));
static_assert(Has<long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldLong));
static_assert(Has<unsigned long (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDWord));
static_assert(Has<unsigned long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDWord));
static_assert(Has<short (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldShort));
static_assert(Has<short (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldShort));
static_assert(Has<unsigned short (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldWord));
static_assert(Has<unsigned short (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldWord));
static_assert(Has<unsigned char (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldByte));
static_assert(Has<unsigned char (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldByte));
static_assert(Has<bool (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldBool));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldBool));
static_assert(Has<__int64 (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldInt64));
static_assert(Has<__int64 (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldInt64));
static_assert(Has<double (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDouble));
static_assert(Has<double (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDouble));
static_assert(Has<float (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldFloat));
static_assert(Has<float (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldFloat));
static_assert(Has<CDateTime (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDate));
static_assert(Has<CDateTime (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDate));
static_assert(Has<_GUID (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldGUID));
static_assert(Has<_GUID (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldGUID));
static_assert(Has<bool (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::IsFieldNull));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::IsFieldNull));
static_assert(Has<bool (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::IsFieldEmpty));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::IsFieldEmpty));
static_assert(Has<bool (CMyRecordSet::*)(unsigned long, CByteArray&) const>(&CMyRecordSet::GetFieldBlob));
static_assert(Has<bool (CMyRecordSet::*)(const UtCString&, CByteArray&) const>(&CMyRecordSet::GetFieldBlob));
static_assert(Has<const void* (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDataPtr));
static_assert(Has<const void* (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDataPtr));
static_assert(Has<unsigned long (CMyRecordSet::*)(unsigned long) const>(&CMyRecordSet::GetFieldDataLen));
static_assert(Has<unsigned long (CMyRecordSet::*)(const UtCString&) const>(&CMyRecordSet::GetFieldDataLen));
