#pragma once

#include "CDateTime.h"
#include "MyDbExport.h"
#include "framework/Guid.h"
#include "text/UtCString.h"
#include "text/UtCStringList.h"

class CMyRecordSet;

/// Conditions (column, operator, value) that become the text of a WHERE or ORDER BY clause of a record set's table.
class MYDB_EXPORT CMyKey : public UtCStringList
{
public:
    CMyKey();
    CMyKey(const CMyKey& other);
    CMyKey& operator=(const CMyKey& other);
    CMyKey(const UtCString& field, const UtCString& value, const UtCString& op);
    CMyKey(const UtCString& field, const char* value, const UtCString& op);
    CMyKey(const UtCString& field, int value, const UtCString& op);
    CMyKey(const UtCString& field, long value, const UtCString& op);
    CMyKey(const UtCString& field, unsigned long value, const UtCString& op);
    CMyKey(const UtCString& field, _GUID value, const UtCString& op);
    ~CMyKey();

    CMyKey& Add(const UtCString& field, const UtCString& value, const UtCString& op);
    CMyKey& Add(const UtCString& field, const char* value, const UtCString& op);
    CMyKey& Add(const UtCString& field, const CDateTime& value, const UtCString& op);
    CMyKey& Add(const UtCString& field, short value, const UtCString& op);
    CMyKey& Add(const UtCString& field, int value, const UtCString& op);
    CMyKey& Add(const UtCString& field, long value, const UtCString& op);
    CMyKey& Add(const UtCString& field, unsigned long value, const UtCString& op);
    CMyKey& Add(const UtCString& field, double value, const UtCString& op);
    CMyKey& Add(const UtCString& field, _GUID value, const UtCString& op);
    CMyKey& Add(const UtCString& field, bool value, const UtCString& op);

    void Clear();
    bool IsEmpty() const;
    int GetFieldCount() const;
    UtCString GetFieldName(int n) const;
    UtCString GetOperator(int n) const;
    UtCString GetFieldValue(int n) const;
    UtCString GetFirstFieldName() const;

    UtCString CreateClause(const CMyRecordSet* recordSet) const;
    UtCString CreateOrderClause(const CMyRecordSet* recordSet) const;

protected:
    void Append(const UtCString& field, const UtCString& value, const UtCString& op);
};
