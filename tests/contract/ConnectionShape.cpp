#include "CMyDatabase.h"
#include "CMyServer.h"
#include "CMyTable.h"
#include "MyDbFunctions.h"

#include "Shape.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>

// Free functions
EXPORTED(Has<int (*)()>(&MyDbMaxTryConnectReached));
EXPORTED(Has<void (*)(unsigned long)>(&MyDbSetMaxTryConnect));
EXPORTED(Has<bool (*)(const UtCString&, int)>(&TestConnection));
EXPORTED(Has<bool (*)(const UtCString&)>(&MyDbStaticFieldCacheRemove));

// Settings are values; a connection has one owner.
static_assert(std::is_base_of_v<CObject, CMyServer>);
static_assert(std::is_base_of_v<CObject, CMyDatabase>);
static_assert(std::is_copy_constructible_v<CMyServer> && std::is_copy_assignable_v<CMyServer>);
static_assert(!std::is_copy_constructible_v<CMyDatabase> && !std::is_copy_assignable_v<CMyDatabase>);

// CMyServer
static_assert(std::is_constructible_v<CMyServer>);
static_assert(std::is_constructible_v<CMyServer, const UtCString&>);
static_assert(std::is_constructible_v<CMyServer, const CMyServer&>);
EXPORTED(Has<CMyServer& (CMyServer::*)(const CMyServer&)>(&CMyServer::operator=));
EXPORTED(Has<bool (CMyServer::*)(const CMyServer&) const>(&CMyServer::operator==));
EXPORTED(Has<bool (CMyServer::*)(const CMyServer&) const>(&CMyServer::operator!=));
EXPORTED(Has<bool (CMyServer::*)() const>(&CMyServer::IsConnectAllowed));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetHost));
EXPORTED(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetHost));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetAlias));
EXPORTED(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetAlias));
EXPORTED(Has<unsigned long (CMyServer::*)() const>(&CMyServer::GetPort));
EXPORTED(Has<void (CMyServer::*)(unsigned long)>(&CMyServer::SetPort));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetUser));
EXPORTED(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetUser));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetPassword));
EXPORTED(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetPassword));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetCharset));
EXPORTED(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetCharset));
EXPORTED(Has<eUtEncodingType (CMyServer::*)() const>(&CMyServer::GetEncodingType));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetMySQLProgramDir));
EXPORTED(Has<bool (CMyServer::*)(const UtCString&)>(&CMyServer::SetMySQLProgramDir));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetDataDir));
EXPORTED(Has<bool (CMyServer::*)(const UtCString&)>(&CMyServer::SetDataDir));
EXPORTED(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetServerINIFileName));
EXPORTED(Has<UtCString (CMyServer::*)() const>(&CMyServer::GetServerINIDir));
EXPORTED(Has<bool (CMyServer::*)() const>(&CMyServer::IsValid));
EXPORTED(Has<bool (CMyServer::*)(const UtCString&)>(&CMyServer::LoadServerINI));
EXPORTED(Has<bool (CMyServer::*)(bool, unsigned long*, UtCString*)>(&CMyServer::TestConnect));
EXPORTED(Has<bool (CMyServer::*)(UtCString*) const>(&CMyServer::CheckDirectoryAccess));
EXPORTED(Has<bool (CMyServer::*)(const UtCString&, const UtCString&, const UtCString&, const UtCString&)>(
    &CMyServer::ConnectApplicationToServer));
EXPORTED(Has<bool (CMyServer::*)(const UtCString&) const>(&CMyServer::ExistDatabase));

// CMyDatabase
static_assert(std::is_constructible_v<CMyDatabase, const CMyServer&, const UtCString&>);
EXPORTED(Has<bool (CMyDatabase::*)()>(&CMyDatabase::Close));
EXPORTED(Has<bool (CMyDatabase::*)(bool, const UtCString&)>(&CMyDatabase::Open));
EXPORTED(Has<bool (CMyDatabase::*)(bool)>(&CMyDatabase::CheckAndRepairDatabaseIntegrity));
EXPORTED(Has<bool (CMyDatabase::*)()>(&CMyDatabase::Ping));
EXPORTED(Has<bool (CMyDatabase::*)() const>(&CMyDatabase::IsConnected));
EXPORTED(Has<bool (CMyDatabase::*)() const>(&CMyDatabase::IsOpen));
EXPORTED(Has<unsigned long (CMyDatabase::*)() const>(&CMyDatabase::GetThreadID));
EXPORTED(Has<CMyServer& (CMyDatabase::*)()>(&CMyDatabase::GetServer));
EXPORTED(Has<const CMyServer& (CMyDatabase::*)() const>(&CMyDatabase::GetServer));
EXPORTED(Has<const UtCString& (CMyDatabase::*)() const>(&CMyDatabase::GetDatabaseName));
EXPORTED(Has<bool (CMyDatabase::*)() const>(&CMyDatabase::ExistDatabase));
EXPORTED(Has<bool (CMyDatabase::*)(int)>(&CMyDatabase::LockDatabase));
EXPORTED(Has<bool (CMyDatabase::*)()>(&CMyDatabase::UnLockDatabase));
EXPORTED(Has<bool (CMyDatabase::*)()>(&CMyDatabase::IsDatabaseLocked));
EXPORTED(Has<bool (CMyDatabase::*)()>(&CMyDatabase::IsDatabaseInUse));
EXPORTED(Has<long (CMyDatabase::*)(bool)>(&CMyDatabase::CountUsersOnThisDatabase));
EXPORTED(Has<bool (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::ExistTable));
EXPORTED(Has<UtCString (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetTables));
EXPORTED(Has<long (CMyDatabase::*)(UtCStringList&, const UtCString&)>(&CMyDatabase::GetTables));
EXPORTED(Has<long (CMyDatabase::*)()>(&CMyDatabase::GetTableCount));
EXPORTED(Has<CMyTable (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetTable));
EXPORTED(Has<bool (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::RemoveTable));
EXPORTED(Has<bool (CMyDatabase::*)()>(&CMyDatabase::RemoveDatabase));
EXPORTED(Has<bool (CMyDatabase::*)(bool)>(&CMyDatabase::CompressDatabase));
EXPORTED(Has<__int64 (CMyDatabase::*)()>(&CMyDatabase::GetDBSize));
EXPORTED(Has<UtCString (CMyDatabase::*)()>(&CMyDatabase::GetDBPath));
EXPORTED(Has<eDB_CHECK (CMyDatabase::*)(const UtCString&, UtCString*)>(&CMyDatabase::CheckDatabaseIntegrity));
EXPORTED(Has<bool (CMyDatabase::*)(bool, bool)>(&CMyDatabase::RepairDatabase));
EXPORTED(Has<long (CMyDatabase::*)(const UtCString&, bool, MYSQL_RES**, bool)>(&CMyDatabase::ExecuteQuery));
EXPORTED(Has<bool (CMyDatabase::*)(const UtCString&) const>(&CMyDatabase::IsSelectQuery));
EXPORTED(Has<void (CMyDatabase::*)(const UtCString&, UtCString&)>(&CMyDatabase::MakeEscapeString));
EXPORTED(Has<void (CMyDatabase::*)(const void*, unsigned __int64, UtCString&)>(&CMyDatabase::MakeEscapeString));
EXPORTED(Has<unsigned long (CMyDatabase::*)() const>(&CMyDatabase::GetErrorCode));
EXPORTED(Has<UtCString (CMyDatabase::*)()>(&CMyDatabase::GetErrorMessage));
EXPORTED(Has<const UtCString& (CMyDatabase::*)() const>(&CMyDatabase::GetLastSQLCommand));
EXPORTED(Has<unsigned long (CMyDatabase::*)() const>(&CMyDatabase::GetQueryTime));
EXPORTED(Has<long (CMyDatabase::*)() const>(&CMyDatabase::GetAffectedRows));
EXPORTED(Has<UtCString (CMyDatabase::*)()>(&CMyDatabase::GetQueryInfo));
EXPORTED(Has<UtCString (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetStatusValue));
EXPORTED(Has<UtCString (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetVariableValue));
EXPORTED(Has<__int64 (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetVariableValueInt64));
EXPORTED(Has<UtCString (CMyDatabase::*)(DB_INFOS)>(&CMyDatabase::GetInfo));
EXPORTED(Has<long (CMyDatabase::*)(const UtCString&, const UtCString&, bool, const UtCString&, const UtCString&,
                                   const UtCString&, const UtCString&, CProgressCtrl*)>(&CMyDatabase::DumpTable));
EXPORTED(Has<bool (CMyDatabase::*)(CMyDatabase&, CWnd*)>(&CMyDatabase::CopyDatabase));
