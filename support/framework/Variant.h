#pragma once

#include "framework/VariantName.h"

#if defined(MYDB_WITH_MFC)
#include "framework/Mfc.h"
#elif defined(_WIN32)
#include <oaidl.h>
#else
#include <cstdint>

/// The type codes of a VARIANT, by the numbers that Windows gives them.
enum VARENUM : unsigned short
{
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23
};

using VARTYPE = unsigned short;
using VARIANT_BOOL = short; ///< -1 true, 0 false
using BSTR = char16_t*;     ///< UTF-16, ended by a zero; null counts as the empty text

/// A currency amount in ten-thousandths.
union CY {
    int64_t int64;
};

/// A value with its type code: `vt` tells which member of the union holds it. A plain value: it owns nothing, a text
/// belongs to whoever made it.
struct tagVARIANT
{
    VARTYPE vt;
    unsigned short wReserved1;
    unsigned short wReserved2;
    unsigned short wReserved3;
    union {
        int64_t llVal;        ///< VT_I8
        int32_t lVal;         ///< VT_I4
        unsigned char bVal;   ///< VT_UI1
        int16_t iVal;         ///< VT_I2
        float fltVal;         ///< VT_R4
        double dblVal;        ///< VT_R8
        VARIANT_BOOL boolVal; ///< VT_BOOL
        int32_t scode;        ///< VT_ERROR
        CY cyVal;             ///< VT_CY
        DATE date;            ///< VT_DATE
        BSTR bstrVal;         ///< VT_BSTR
        signed char cVal;     ///< VT_I1
        uint16_t uiVal;       ///< VT_UI2
        uint32_t ulVal;       ///< VT_UI4
        uint64_t ullVal;      ///< VT_UI8
        int32_t intVal;       ///< VT_INT
        uint32_t uintVal;     ///< VT_UINT
        void* byref;
    };
};
#endif
