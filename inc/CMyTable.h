#pragma once

#include "CMyField.h"
#include "MyDbExport.h"
#include "MyDbTypes.h"
#include "text/UtCString.h"

#include <memory>

class CMyDatabase;
class CTableCache;

class MYDB_EXPORT CMyTable
{
public:
    CMyTable(const CMyDatabase* database, const UtCString& name);
    CMyTable(const CMyTable& other);
    CMyTable& operator=(const CMyTable& other);
    ~CMyTable();

    bool IsValid() const;
    const UtCString& GetTableName() const;
    eUtEncodingType GetEncodingType() const;
    long GetFieldCount() const;
    bool GetFieldNo(const UtCString& name, unsigned long& no) const;
    bool ExistField(const UtCString& name) const;
    const CMyField* GetField(const UtCString& name) const;
    const CMyField* GetField(unsigned long no) const;
    UtCString GetFieldName(unsigned long no) const;
    MYTYPES GetFieldType(const UtCString& name) const;
    UtCString GetFieldTypeString(const UtCString& name) const;
    long GetFieldSize(const UtCString& name) const;
    bool GetFieldCharsetNr(const UtCString& name, unsigned int& nr) const;
    bool SupportTransaction() const;

    bool RegisterTable(bool reload);
    bool UnregisterTable();
    void ClearTableCache();

private:
    UtCString m_tableName;
    CMyDatabase* m_database;
    std::shared_ptr<CTableCache> m_entry;
};
