#pragma once

// The export macro: marks what a host application may link to. Everything else stays inside the library.
#if defined(_WIN32)
#if defined(MYDB_STATIC)
#define MYDB_EXPORT
#elif defined(MYDB_BUILDING)
#define MYDB_EXPORT __declspec(dllexport)
#else
#define MYDB_EXPORT __declspec(dllimport)
#endif
#else
#define MYDB_EXPORT __attribute__((visibility("default")))
#endif
