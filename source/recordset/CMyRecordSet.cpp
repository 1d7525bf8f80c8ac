#include "CMyRecordSet.h"

#include "client/ErrorText.h"
#include "connection/DatabaseAccess.h"
#include "connection/Guarded.h"
#include "containers/UtArray.h"
#include "containers/UtCMap.h"
#include "metadata/TableCache.h"
#include "recordset/PendingChanges.h"
#include "recordset/ResultColumns.h"

// Life, binding and state.

using connection::Guarded;

IMPLEMENT_DYNAMIC(CMyRecordSet, CObject)

CMyRecordSet::CMyRecordSet() = default;

CMyRecordSet::CMyRecordSet(CMyDatabase& database, const UtCString& tableName) : CMyRecordSet(&database, tableName) {}

CMyRecordSet::CMyRecordSet(CMyDatabase* database, const UtCString& tableName)
{
    SetDatabase(database, tableName);
}

CMyRecordSet::~CMyRecordSet()
{
    FreeRecordSet();
    if (m_closeConnectionOnExit && m_database)
        Guarded(false, [&] { return m_database->Close(); });
}

void CMyRecordSet::FreeResult::operator()(MYSQL_RES* result) const noexcept
{
    mysql_free_result(result);
}

void CMyRecordSet::InitMembers()
{
    FreeRecordSet();
    m_database = nullptr;
    m_closeConnectionOnExit = false;
    m_lastSQLCommand = UtCString();
    m_tableName = UtCString();
    m_modifyState = MODIFY_NONE;
    m_autoUserAndTimeStamp = true;
    m_where = UtCString();
    m_errorCode = 0;
    m_errorMessage = UtCString();
    m_tableEntry.reset();
}

bool CMyRecordSet::SetDatabase(CMyDatabase* database, const UtCString& tableName)
{
    FreeRecordSet();
    m_database = database;
    if (!database)
        return false;
    const bool isOpen = database->IsOpen() || Guarded(false, [&] { return database->Open(false, UtCString()); });
    if (!isOpen && !database->IsConnected())
        return false;
    if (!tableName.IsEmpty())
        SetTableName(tableName);
    return true;
}

void CMyRecordSet::SetTableName(const UtCString& tableName)
{
    m_tableName = tableName.trim("`");
    m_tableEntry.reset();
    m_isTableMissing = false;
    if (m_columns)
        m_columns->ForgetEncodings();
}

bool CMyRecordSet::Close()
{
    FreeRecordSet();
    return !m_result;
}

void CMyRecordSet::FreeRecordSet()
{
    if (m_result && IsStreamed()) {
        while (mysql_fetch_row(m_result.get()))
            continue;
    }
    m_result.reset();
    m_largeResultConnection.reset();
    m_fieldCount = 0;
    m_fieldNameIndex.reset();
    if (m_columns)
        m_columns->Assign(nullptr, 0);
    m_rowIndex.reset();
    m_rowLengths.reset();
    m_currentRowNumber = unknownRow;
    m_currentRow = nullptr;
    m_lengths = nullptr;
    m_rowCount = 0;
    m_queryTime = 0;
    m_queryInfo.SetEmpty();
    ClearFieldCache();
}

CMyDatabase* CMyRecordSet::GetDB() const noexcept
{
    return IsStreamed() ? m_largeResultConnection.get() : m_database;
}

eUtEncodingType CMyRecordSet::GetEncodingType() const noexcept
{
    const CMyDatabase* connection = GetDB();
    return connection ? connection->GetServer().GetEncodingType() : UT_ENCODING_DEFAULT;
}

UtCString CMyRecordSet::GetDatabaseName() const
{
    const CMyDatabase* connection = GetDB();
    return connection ? connection->GetDatabaseName() : UtCString();
}

bool CMyRecordSet::IsValidTable() const
{
    return m_database && m_database->ExistTable(m_tableName);
}

UtCString CMyRecordSet::GetErrorMessage() const
{
    CMyDatabase* connection = GetDB();
    if (!connection)
        return UtCString();
    if (connection->GetErrorCode() != 0)
        return connection->GetErrorMessage();
    return Guarded(UtCString(), [&] { return client::ErrorText(connection::DatabaseAccess::Handle(*connection)); });
}
