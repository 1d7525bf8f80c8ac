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
static_assert(Has<UtCString& (UtCString::*)(const UtCString&)>(&UtCString::operator=));
static_assert(Has<UtCString& (UtCString::*)(UtCString&&)>(&UtCString::operator=));
static_assert(Has<UtCString& (UtCString::*)(const char*)>(&UtCString::operator=));
static_assert(Has<const char* (UtCString::*)() const>(&UtCString::string));
static_assert(Has<std::string_view (UtCString::*)() const>(&UtCString::View));
static_assert(Has<eUtEncodingType (UtCString::*)() const>(&UtCString::GetEncodingType));
static_assert(Has<bool (UtCString::*)() const>(&UtCString::IsEmpty));
static_assert(Has<int (UtCString::*)() const>(&UtCString::GetLength));
static_assert(Has<size_t (UtCString::*)() const>(&UtCString::GetByteLength));
static_assert(Has<char* (UtCString::*)(int)>(&UtCString::GetBuffer));
static_assert(Has<void (UtCString::*)(eUtEncodingType)>(&UtCString::ReleaseBuffer));
static_assert(Has<bool (UtCString::*)(char**, eUtEncodingType) const>(&UtCString::GetAnsiString));
static_assert(Has<bool (UtCString::*)(unsigned char**, size_t&, int) const>(&UtCString::GetMemCopy));
static_assert(Has<void (UtCString::*)(const unsigned char*, size_t, eUtEncodingType)>(&UtCString::SetMemCopy));
static_assert(Has<bool (UtCString::*)(eUtEncodingType)>(&UtCString::ChangeEncodingType));
static_assert(Has<uint64_t (UtCString::*)() const>(&UtCString::Hash));
static_assert(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::operator==));
static_assert(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::operator!=));
static_assert(Has<bool (UtCString::*)(const char*) const>(&UtCString::operator==));
static_assert(Has<bool (UtCString::*)(const char*) const>(&UtCString::operator!=));
static_assert(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::operator<));
static_assert(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::EqualNoCase));
static_assert(Has<bool (UtCString::*)(const char*, eUtEncodingType) const>(&UtCString::EqualNoCase));
static_assert(Has<int (UtCString::*)(const UtCString&) const>(&UtCString::CompareToNoCase));
static_assert(Has<int (UtCString::*)(int, char, eUtEncodingType) const>(&UtCString::Search));
static_assert(Has<int (UtCString::*)(int, const UtCString&) const>(&UtCString::Search));
static_assert(Has<int (UtCString::*)(const UtCString&, int) const>(&UtCString::FindOneOf));
static_assert(Has<bool (UtCString::*)(const UtCString&) const>(&UtCString::Contains));
static_assert(Has<bool (UtCString::*)(const UtCString&, bool) const>(&UtCString::StartsWith));
static_assert(Has<bool (UtCString::*)(const UtCString&, bool) const>(&UtCString::EndsWith));
static_assert(Has<bool (UtCString::*)() const>(&UtCString::IsNumber));
static_assert(Has<bool (UtCString::*)(int) const>(&UtCString::IsDigit));
static_assert(Has<UtCString (UtCString::*)(int, int) const>(&UtCString::substr));
static_assert(Has<UtCString (UtCString::*)() const>(&UtCString::trim));
static_assert(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::trim));
static_assert(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::trimLeft));
static_assert(Has<UtCString (UtCString::*)() const>(&UtCString::trimRight));
static_assert(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::trimRight));
static_assert(Has<UtCString (UtCString::*)() const>(&UtCString::toUpper));
static_assert(Has<UtCString (UtCString::*)() const>(&UtCString::toLower));
static_assert(Has<UtCString (UtCString::*)(const UtCString&, const UtCString&, bool) const>(&UtCString::replace));
static_assert(Has<UtCString (UtCString::*)(const char*, const char*, eUtEncodingType) const>(&UtCString::replace));
static_assert(Has<UtCString (UtCString::*)(char, char) const>(&UtCString::replace));
static_assert(Has<UtCString (UtCString::*)(wchar_t, wchar_t) const>(&UtCString::replace));
static_assert(Has<void (UtCString::*)()>(&UtCString::SetToUpper));
static_assert(Has<void (UtCString::*)()>(&UtCString::SetToLower));
static_assert(Has<void (UtCString::*)()>(&UtCString::SetEmpty));
static_assert(Has<void (UtCString::*)(int, int)>(&UtCString::Delete));
static_assert(Has<void (UtCString::*)(const UtCString&)>(&UtCString::Remove));
static_assert(Has<void (UtCString::*)(const UtCString&)>(&UtCString::Prepend));
static_assert(Has<void (UtCString::*)(const UtCString&)>(&UtCString::Enclose));
static_assert(Has<void (UtCString::*)(const UtCString&, const UtCString&)>(&UtCString::Enclose));
static_assert(Has<UtCString& (UtCString::*)(const UtCString&)>(&UtCString::operator+=));
static_assert(Has<UtCString& (UtCString::*)(const char*)>(&UtCString::operator+=));
static_assert(Has<UtCString& (UtCString::*)(char)>(&UtCString::operator+=));
static_assert(Has<UtCString& (UtCString::*)(std::string_view)>(&UtCString::AppendBytes));
static_assert(Has<UtCString (UtCString::*)(const UtCString&) const>(&UtCString::operator+));
static_assert(Has<UtCString (UtCString::*)(const char*) const>(&UtCString::operator+));
static_assert(Has<UtCString (*)(const UtCString&, const UtCString&)>(&UtCString::JoinFilePath));
static_assert(Has<void (UtCString::*)(const char*, ...)>(&UtCString::Format));
static_assert(Has<void (UtCString::*)(const char*, ...)>(&UtCString::AppendFormat));
static_assert(
    Has<void (UtCString::*)(const char*, const UtCStringList&, eUtEncodingType)>(&UtCString::FormatStringList));
static_assert(
    Has<void (UtCString::*)(const char*, const UtCStringList&, eUtEncodingType)>(&UtCString::AppendFormatStringList));
static_assert(Has<int (UtCString::*)(const UtCString&, UtCStringList&) const>(&UtCString::Tokenize));
static_assert(Has<int (UtCString::*)(UtCStringList&, long) const>(&UtCString::TokenizeNumeric));
static_assert(Has<bool (UtCString::*)(int&) const>(&UtCString::Convert));
static_assert(Has<bool (UtCString::*)(long&) const>(&UtCString::Convert));
static_assert(Has<bool (UtCString::*)(unsigned long&) const>(&UtCString::Convert));
static_assert(Has<bool (UtCString::*)(__int64&) const>(&UtCString::Convert));
static_assert(Has<bool (UtCString::*)(float&) const>(&UtCString::Convert));
static_assert(Has<bool (UtCString::*)(double&) const>(&UtCString::Convert));

// UtCStringList
static_assert(std::is_constructible_v<UtCStringList>);
static_assert(std::is_constructible_v<UtCStringList, const UtCString&>);
static_assert(std::is_constructible_v<UtCStringList, std::initializer_list<UtCString>>);
static_assert(std::is_constructible_v<UtCStringList, const UtCStringList&>);
static_assert(std::is_constructible_v<UtCStringList, UtCStringList&&>);
static_assert(Has<UtCStringList& (UtCStringList::*)(const UtCStringList&)>(&UtCStringList::operator=));
static_assert(Has<UtCStringList& (UtCStringList::*)(UtCStringList&&)>(&UtCStringList::operator=));
static_assert(Has<bool (UtCStringList::*)(const UtCString&)>(&UtCStringList::Add));
static_assert(Has<bool (UtCStringList::*)(const UtCStringList&)>(&UtCStringList::AddList));
static_assert(Has<void (UtCStringList::*)(int)>(&UtCStringList::Remove));
static_assert(Has<void (UtCStringList::*)()>(&UtCStringList::Clear));
static_assert(Has<UtCString& (UtCStringList::*)(int)>(&UtCStringList::item));
static_assert(Has<const UtCString& (UtCStringList::*)(int) const>(&UtCStringList::item));
static_assert(Has<int (UtCStringList::*)() const>(&UtCStringList::GetCount));
static_assert(Has<void (UtCStringList::*)(const UtCString&, UtCString&) const>(&UtCStringList::Concatenate));

// UtCUtf8
static_assert(Has<const char* (*)(const char*)>(&UtCUtf8::SkipBOM));
