#pragma once

/// Compiles only when what is passed has exactly the type T: of several overloads the one of that type is taken. Links
/// only when the library offers it.
template <class T> bool Has(T member)
{
    [[maybe_unused]] volatile T taken = member;
    return true;
}

#define SHAPE_NAME(line) isExportedOfLine##line
#define SHAPE_PROMISE(line, ...) [[maybe_unused]] static const bool SHAPE_NAME(line) = __VA_ARGS__

/// EXPORTED(Has<bool (CMyDatabase::*)()>(&CMyDatabase::Ping));
#define EXPORTED(...) SHAPE_PROMISE(__LINE__, __VA_ARGS__)
