#include "text/UtCString.h"
#include "text/UtCStringList.h"
#include "text/UtCUtf8.h"

#include "Shape.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>

// A zero-terminated text becomes a UtCString by itself; a number or an encoding never does.
static_assert(std::is_convertible_v<const char*, UtCString>);
static_assert(!std::is_convertible_v<int, UtCString>);
static_assert(!std::is_convertible_v<long, UtCString>);
static_assert(!std::is_convertible_v<double, UtCString>);
static_assert(!std::is_convertible_v<eUtEncodingType, UtCString>);

// UtCString
static_assert(std::is_constructible_v<UtCString>);
static_assert(std::is_constructible_v<UtCString, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, const char*, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, const char*, eUtEncodingType, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, std::string_view, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, const wchar_t*, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, const UtCString&>);
static_assert(std::is_constructible_v<UtCString, UtCString&&>);
static_assert(std::is_constructible_v<UtCString, const UtCString&, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, short, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, int, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, unsigned int, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, long, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, unsigned long, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, __int64, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, unsigned __int64, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, double, eUtEncodingType>);
static_assert(std::is_constructible_v<UtCString, double, int, eUtEncodingType>);
EXPORTED(Has<UtCString& (UtCString::*)(const UtCString&)>(&UtCString::operator=));
EXPORTED(Has<UtCString& (UtCString::*)(UtCString&&)>(&UtCString::operator=));
EXPORTED(Has<UtCString& (UtCString::*)(const char*)>(&UtCString::operator=));
EXPORTED(Has<const char* (UtCString::*)() const>(&UtCString::string));
EXPORTED(Has<std::string_view (UtCString::*)() const>(&UtCString::View));
EXPORTED(Has<eUtEncodingType (UtCString::*)() const>(&UtCString::GetEncodingType));
EXPORTED(Has<bool (UtCString::*)() const>(&UtCString::IsEmpty));
EXPORTED(Has<int (UtCString::*)() const>(&UtCString::GetLength));
EXPORTED(Has<size_t (UtCString::*)() const>(&UtCString::GetByteLength));
EXPORTED(Has<char* (UtCString::*)(int)>(&UtCString::GetBuffer));
EXPORTED(Has<void (UtCString::*)(eUtEncodingType)>(&UtCString::ReleaseBuffer));
EXPORTED(Has<bool (UtCString::*)(char**, eUtEncodingType) const>(&UtCString::GetAnsiString));
EXPORTED(Has<bool (UtCString::*)(unsigned char**, size_t&, int) const>(&UtCString::GetMemCopy));
EXPORTED(Has<void (UtCString::*)(const unsigned char*, size_t, eUtEncodingType)>(&UtCString::SetMemCopy));
EXPORTED(Has<bool (UtCString::*)(eUtEncodingType)>(&UtCString::ChangeEncodingType));
EXPORTED(Has<uint64_t (UtCString::*)() const>(&UtCString::Hash));
EXPORTED(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::operator==));
EXPORTED(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::operator!=));
EXPORTED(Has<bool (UtCString::*)(const char*) const>(&UtCString::operator==));
EXPORTED(Has<bool (UtCString::*)(const char*) const>(&UtCString::operator!=));
EXPORTED(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::operator<));
EXPORTED(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::EqualNoCase));
EXPORTED(Has<bool (UtCString::*)(const char*, eUtEncodingType) const>(&UtCString::EqualNoCase));
EXPORTED(Has<int (UtCString::*)(const UtCString&) const>(&UtCString::CompareToNoCase));
EXPORTED(Has<int (UtCString::*)(int, char, eUtEncodingType) const>(&UtCString::Search));
EXPORTED(Has<int (UtCString::*)(int, const UtCString&) const>(&UtCString::Search));
EXPORTED(Has<int (UtCString::*)(const UtCString&, int) const>(&UtCString::FindOneOf));
EXPORTED(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::Contains));
EXPORTED(Has<bool (UtCString::*)(const UtCString&, bool) const>(&UtCString::StartsWith));
EXPORTED(Has<bool (UtCString::*)(const UtCString&, bool) const>(&UtCString::EndsWith));
EXPORTED(Has<bool (UtCString::*)() const>(&UtCString::IsNumber));
EXPORTED(Has<bool (UtCString::*)(int) const>(&UtCString::IsDigit));
EXPORTED(Has<UtCString (UtCString::*)(int, int) const>(&UtCString::substr));
EXPORTED(Has<UtCString (UtCString::*)() const>(&UtCString::trim));
EXPORTED(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::trim));
EXPORTED(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::trimLeft));
EXPORTED(Has<UtCString (UtCString::*)() const>(&UtCString::trimRight));
EXPORTED(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::trimRight));
EXPORTED(Has<UtCString (UtCString::*)() const>(&UtCString::toUpper));
EXPORTED(Has<UtCString (UtCString::*)() const>(&UtCString::toLower));
EXPORTED(Has<UtCString (UtCString::*)(const UtCString&, const UtCString&, bool) const>(&UtCString::replace));
EXPORTED(Has<UtCString (UtCString::*)(const char*, const char*, eUtEncodingType) const>(&UtCString::replace));
EXPORTED(Has<UtCString (UtCString::*)(char, char) const>(&UtCString::replace));
EXPORTED(Has<UtCString (UtCString::*)(wchar_t, wchar_t) const>(&UtCString::replace));
EXPORTED(Has<void (UtCString::*)()>(&UtCString::SetToUpper));
EXPORTED(Has<void (UtCString::*)()>(&UtCString::SetToLower));
EXPORTED(Has<void (UtCString::*)()>(&UtCString::SetEmpty));
EXPORTED(Has<void (UtCString::*)(int, int)>(&UtCString::Delete));
EXPORTED(Has<void (UtCString::*)(const UtCString&)>(&UtCString::Remove));
EXPORTED(Has<void (UtCString::*)(const UtCString&)>(&UtCString::Prepend));
EXPORTED(Has<void (UtCString::*)(const UtCString&)>(&UtCString::Enclose));
EXPORTED(Has<void (UtCString::*)(const UtCString&, const UtCString&)>(&UtCString::Enclose));
EXPORTED(Has<UtCString& (UtCString::*)(const UtCString&)>(&UtCString::operator+=));
EXPORTED(Has<UtCString& (UtCString::*)(const char*)>(&UtCString::operator+=));
EXPORTED(Has<UtCString& (UtCString::*)(char)>(&UtCString::operator+=));
EXPORTED(Has<UtCString& (UtCString::*)(std::string_view)>(&UtCString::AppendBytes));
EXPORTED(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::operator+));
EXPORTED(Has<UtCString (UtCString::*)(const char*) const>(&UtCString::operator+));
EXPORTED(Has<UtCString (*)(const UtCString&, const UtCString&)>(&UtCString::JoinFilePath));
EXPORTED(Has<void (UtCString::*)(const char*, ...)>(&UtCString::Format));
EXPORTED(Has<void (UtCString::*)(const char*, ...)>(&UtCString::AppendFormat));
EXPORTED(Has<void (UtCString::*)(const char*, const UtCStringList&, eUtEncodingType)>(&UtCString::FormatStringList));
EXPORTED(
    Has<void (UtCString::*)(const char*, const UtCStringList&, eUtEncodingType)>(&UtCString::AppendFormatStringList));
EXPORTED(Has<int (UtCString::*)(const UtCString&, UtCStringList&) const>(&UtCString::Tokenize));
EXPORTED(Has<int (UtCString::*)(UtCStringList&, long) const>(&UtCString::TokenizeNumeric));
EXPORTED(Has<bool (UtCString::*)(int&) const>(&UtCString::Convert));
EXPORTED(Has<bool (UtCString::*)(long&) const>(&UtCString::Convert));
EXPORTED(Has<bool (UtCString::*)(unsigned long&) const>(&UtCString::Convert));
EXPORTED(Has<bool (UtCString::*)(__int64&) const>(&UtCString::Convert));
EXPORTED(Has<bool (UtCString::*)(float&) const>(&UtCString::Convert));
EXPORTED(Has<bool (UtCString::*)(double&) const>(&UtCString::Convert));

// UtCStringList
static_assert(std::is_constructible_v<UtCStringList>);
static_assert(std::is_constructible_v<UtCStringList, const UtCString&>);
static_assert(std::is_constructible_v<UtCStringList, std::initializer_list<UtCString>>);
static_assert(std::is_constructible_v<UtCStringList, const UtCStringList&>);
static_assert(std::is_constructible_v<UtCStringList, UtCStringList&&>);
EXPORTED(Has<UtCStringList& (UtCStringList::*)(const UtCStringList&)>(&UtCStringList::operator=));
EXPORTED(Has<UtCStringList& (UtCStringList::*)(UtCStringList&&)>(&UtCStringList::operator=));
EXPORTED(Has<bool (UtCStringList::*)(const UtCString&)>(&UtCStringList::Add));
EXPORTED(Has<bool (UtCStringList::*)(const UtCStringList&)>(&UtCStringList::AddList));
EXPORTED(Has<void (UtCStringList::*)(int)>(&UtCStringList::Remove));
EXPORTED(Has<void (UtCStringList::*)()>(&UtCStringList::Clear));
EXPORTED(Has<UtCString& (UtCStringList::*)(int)>(&UtCStringList::item));
EXPORTED(Has<const UtCString& (UtCStringList::*)(int) const>(&UtCStringList::item));
EXPORTED(Has<int (UtCStringList::*)() const>(&UtCStringList::GetCount));
EXPORTED(Has<void (UtCStringList::*)(const UtCString&, UtCString&) const>(&UtCStringList::Concatenate));

// UtCUtf8
EXPORTED(Has<const char* (*)(const char*)>(&UtCUtf8::SkipBOM));
