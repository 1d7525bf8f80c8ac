#include "CMyKey.h"

#include "CMyRecordSet.h"
#include "Shape.h"

#include <type_traits>

static_assert(std::is_base_of_v<UtCStringList, CMyKey>);
static_assert(std::is_convertible_v<CMyKey*, UtCStringList*>);
static_assert(!std::is_polymorphic_v<CMyKey>);

// Any other pointer in place of the value would convert to true.
template <class T>
concept TakesAsValue = requires(CMyKey key, T value)
{
    key.Add("", value, "");
};
template <class T> constexpr bool makesAKey = std::is_constructible_v<CMyKey, const UtCString&, T, const UtCString&>;
static_assert(TakesAsValue<const char*> && TakesAsValue<char*> && TakesAsValue<bool> && TakesAsValue<float>);
static_assert(!TakesAsValue<const wchar_t*> && !TakesAsValue<void*> && !TakesAsValue<const UtCString*>);
static_assert(makesAKey<const char*> && makesAKey<char*> && !makesAKey<const wchar_t*> && !makesAKey<const void*>);

// CMyKey
static_assert(std::is_constructible_v<CMyKey>);
static_assert(std::is_copy_constructible_v<CMyKey> && std::is_copy_assignable_v<CMyKey>);
static_assert(makesAKey<const UtCString&> && makesAKey<int> && makesAKey<long> && makesAKey<unsigned long>);
static_assert(makesAKey<_GUID>);
template <class Value> bool HasAdd()
{
    return Has<CMyKey& (CMyKey::*)(const UtCString&, Value, const UtCString&)>(&CMyKey::Add);
}
EXPORTED(HasAdd<const UtCString&>() && HasAdd<const char*>() && HasAdd<const CDateTime&>() && HasAdd<short>());
EXPORTED(HasAdd<int>() && HasAdd<long>() && HasAdd<unsigned long>() && HasAdd<double>() && HasAdd<bool>());
EXPORTED(HasAdd<_GUID>());
EXPORTED(Has<void (CMyKey::*)()>(&CMyKey::Clear));
EXPORTED(Has<bool (CMyKey::*)() const>(&CMyKey::IsEmpty));
EXPORTED(Has<int (CMyKey::*)() const>(&CMyKey::GetFieldCount));
EXPORTED(Has<UtCString (CMyKey::*)(int) const>(&CMyKey::GetFieldName));
EXPORTED(Has<UtCString (CMyKey::*)(int) const>(&CMyKey::GetOperator));
EXPORTED(Has<UtCString (CMyKey::*)(int) const>(&CMyKey::GetFieldValue));
EXPORTED(Has<UtCString (CMyKey::*)() const>(&CMyKey::GetFirstFieldName));
EXPORTED(Has<UtCString (CMyKey::*)(const CMyRecordSet*) const>(&CMyKey::CreateClause));
EXPORTED(Has<UtCString (CMyKey::*)(const CMyRecordSet*) const>(&CMyKey::CreateOrderClause));
