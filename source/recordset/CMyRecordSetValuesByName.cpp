#include "CMyRecordSet.h"

// Values by name: the position, then the value.

char* CMyRecordSet::GetFieldValue(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldValue(no) : nullptr;
}

long CMyRecordSet::GetFieldLong(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldLong(no) : 0;
}

unsigned long CMyRecordSet::GetFieldDWord(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldDWord(no) : 0;
}

short CMyRecordSet::GetFieldShort(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldShort(no) : short{0};
}

unsigned short CMyRecordSet::GetFieldWord(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldWord(no) : static_cast<unsigned short>(0);
}

unsigned char CMyRecordSet::GetFieldByte(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldByte(no) : static_cast<unsigned char>(0);
}

bool CMyRecordSet::GetFieldBool(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldBool(no) : false;
}

__int64 CMyRecordSet::GetFieldInt64(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldInt64(no) : 0;
}

double CMyRecordSet::GetFieldDouble(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldDouble(no) : 0.0;
}

float CMyRecordSet::GetFieldFloat(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldFloat(no) : 0.0F;
}

CDateTime CMyRecordSet::GetFieldDate(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldDate(no) : CDateTime(); // KEPT K-38: status valid, unlike a NULL.
}

_GUID CMyRecordSet::GetFieldGUID(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldGUID(no) : _GUID{};
}

bool CMyRecordSet::IsFieldNull(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? IsFieldNull(no) : true;
}

bool CMyRecordSet::IsFieldEmpty(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? IsFieldEmpty(no) : true;
}

const void* CMyRecordSet::GetFieldDataPtr(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldDataPtr(no) : nullptr;
}

unsigned long CMyRecordSet::GetFieldDataLen(const UtCString& name) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) ? GetFieldDataLen(no) : 0;
}

bool CMyRecordSet::GetFieldText(const UtCString& name, UtCString& text) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) && GetFieldText(no, text);
}

bool CMyRecordSet::GetFieldBlob(const UtCString& name, CByteArray& bytes) const
{
    unsigned long no = 0;
    return GetFieldNo(name, no) && GetFieldBlob(no, bytes);
}
