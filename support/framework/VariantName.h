#pragma once

// The names VARIANT and DATE, without the members: on Windows these are the platform's own, and a header that brought
// <windows.h> along for their sake would decide for every host how it is included. "framework/Variant.h" is complete.

struct tagVARIANT;
using VARIANT = tagVARIANT;
using DATE = double; ///< an OLE automation date
