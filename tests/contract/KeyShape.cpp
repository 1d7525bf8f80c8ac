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
template <class Value>
constexpr bool has = Has<CMyKey& (CMyKey::*)(const UtCString&, Value, const UtCString&)>(&CMyKey::Add);
static_assert(has<const UtCString&> && has<const char*> && has<const CDateTime&> && has<short> && has<int>);
static_assert(has<long> && has<unsigned long> && has<double> && has<_GUID> && has<bool>);
static_assert(Has<void (CMyKey::*)()>(&CMyKey::Clear));
static_assert(Has<bool (CMyKey::*)() const>(&CMyKey::IsEmpty));
static_assert(Has<int (CMyKey::*)() const>(&CMyKey::GetFieldCount));
static_assert(Has<UtCString (CMyKey::*)(int) const>(&CMyKey::GetFieldName));
static_assert(Has<UtCString (CMyKey::*)(int) const>(&CMyKey::GetOperator));
static_assert(Has<UtCString (CMyKey::*)(int) const>(&CMyKey::GetFieldValue));
static_assert(Has<UtCString (CMyKey::*)() const>(&CMyKey::GetFirstFieldName));
static_assert(Has<UtCString (CMyKey::*)(const CMyRecordSet*) const>(&CMyKey::CreateClause));
static_assert(Has<UtCString (CMyKey::*)(const CMyRecordSet*) const>(&CMyKey::CreateOrderClause));
