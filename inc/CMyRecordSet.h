#pragma once

#include "CDateTime.h"
#include "CMyDatabase.h"
#include "CMyField.h"
#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "framework/CByteArray.h"
#include "framework/CObject.h"
#include "framework/Guid.h"
#include "text/UtCString.h"

#include <mysql.h>

#include <memory>

class MYDB_EXPORT CMyRecordSet : public CObject
{
    DECLARE_DYNAMIC(CMyRecordSet)
public:
    CMyRecordSet();
    CMyRecordSet(CMyDatabase& database, const UtCString& tableName);
    CMyRecordSet(CMyDatabase* database, const UtCString& tableName);
    CMyRecordSet(const CMyRecordSet&) = delete;
    CMyRecordSet& operator=(const CMyRecordSet&) = delete;
    ~CMyRecordSet() override;

    virtual bool ModifyEnd();
    virtual bool AppendEnd();

    bool SetDatabase(CMyDatabase* database, const UtCString& tableName);
    void SetTableName(const UtCString& tableName);

    long Select(const UtCString& sql, bool showError = false, bool asIs = false);
    bool SelectLargeResult(const UtCString& sql);
    bool Close();

    bool MoveFirst();
    bool MoveNext();
    bool MoveTo(long row);
    long GetCurrentRow();
    bool IsEOF() const;
    // ... completed by the record set's author
};
