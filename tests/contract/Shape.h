#pragma once

/// True, and only compiles, when what is passed has exactly the type T: of several overloads the one of that type is
/// taken. static_assert(Has<bool (CMyDatabase::*)()>(&CMyDatabase::Ping));
template <class T> constexpr bool Has(T)
{
    return true;
}
