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
static_assert(Has<int (*)()>(&MyDbMaxTryConnectReached));
static_assert(Has<void (*)(unsigned long)>(&MyDbSetMaxTryConnect));
static_assert(Has<bool (*)(const UtCString&, int)>(&TestConnection));
static_assert(Has<bool (*)(const UtCString&)>(&MyDbStaticFieldCacheRemove));

// Settings are values; a connection has one owner.
static_assert(std::is_base_of_v<CObject, CMyServer>);
static_assert(std::is_base_of_v<CObject, CMyDatabase>);
static_assert(std::is_copy_constructible_v<CMyServer> && std::is_copy_assignable_v<CMyServer>);
static_assert(!std::is_copy_constructible_v<CMyDatabase> && !std::is_copy_assignable_v<CMyDatabase>);

// CMyServer
static_assert(std::is_constructible_v<CMyServer>);
static_assert(std::is_constructible_v<CMyServer, const UtCString&>);
static_assert(std::is_constructible_v<CMyServer, const CMyServer&>);
static_assert(Has<CMyServer& (CMyServer::*)(const CMyServer&)>(&CMyServer::operator=));
static_assert(Has<bool (CMyServer::*)(const CMyServer&) const>(&CMyServer::operator==));
static_assert(Has<bool (CMyServer::*)(const CMyServer&) const>(&CMyServer::operator!=));
static_assert(Has<bool (CMyServer::*)() const>(&CMyServer::IsConnectAllowed));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetHost));
static_assert(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetHost));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetAlias));
static_assert(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetAlias));
static_assert(Has<unsigned long (CMyServer::*)() const>(&CMyServer::GetPort));
static_assert(Has<void (CMyServer::*)(unsigned long)>(&CMyServer::SetPort));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetUser));
static_assert(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetUser));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetPassword));
static_assert(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetPassword));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetCharset));
static_assert(Has<void (CMyServer::*)(const UtCString&)>(&CMyServer::SetCharset));
static_assert(Has<eUtEncodingType (CMyServer::*)() const>(&CMyServer::GetEncodingType));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetMySQLProgramDir));
static_assert(Has<bool (CMyServer::*)(const UtCString&)>(&CMyServer::SetMySQLProgramDir));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetDataDir));
static_assert(Has<bool (CMyServer::*)(const UtCString&)>(&CMyServer::SetDataDir));
static_assert(Has<const UtCString& (CMyServer::*)() const>(&CMyServer::GetServerINIFileName));
static_assert(Has<UtCString (CMyServer::*)() const>(&CMyServer::GetServerINIDir));
static_assert(Has<bool (CMyServer::*)() const>(&CMyServer::IsValid));
static_assert(Has<bool (CMyServer::*)(const UtCString&)>(&CMyServer::LoadServerINI));
static_assert(Has<bool (CMyServer::*)(bool, unsigned long*, UtCString*)>(&CMyServer::TestConnect));
static_assert(Has<bool (CMyServer::*)(UtCString*) const>(&CMyServer::CheckDirectoryAccess));
static_assert(Has<bool (CMyServer::*)(const UtCString&, const UtCString&, const UtCString&, const UtCString&)>(
    &CMyServer::ConnectApplicationToServer));
static_assert(Has<bool (CMyServer::*)(const UtCString&) const>(&CMyServer::ExistDatabase));

// CMyDatabase
static_assert(std::is_constructible_v<CMyDatabase, const CMyServer&, const UtCString&>);
static_assert(Has<bool (CMyDatabase::*)()>(&CMyDatabase::Close));
static_assert(Has<bool (CMyDatabase::*)(bool, const UtCString&)>(&CMyDatabase::Open));
static_assert(Has<bool (CMyDatabase::*)(bool)>(&CMyDatabase::CheckAndRepairDatabaseIntegrity));
static_assert(Has<bool (CMyDatabase::*)()>(&CMyDatabase::Ping));
static_assert(Has<bool (CMyDatabase::*)() const>(&CMyDatabase::IsConnected));
static_assert(Has<bool (CMyDatabase::*)() const>(&CMyDatabase::IsOpen));
static_assert(Has<unsigned long (CMyDatabase::*)() const>(&CMyDatabase::GetThreadID));
static_assert(Has<CMyServer& (CMyDatabase::*)()>(&CMyDatabase::GetServer));
static_assert(Has<const CMyServer& (CMyDatabase::*)() const>(&CMyDatabase::GetServer));
static_assert(Has<const UtCString& (CMyDatabase::*)() const>(&CMyDatabase::GetDatabaseName));
static_assert(Has<bool (CMyDatabase::*)() const>(&CMyDatabase::ExistDatabase));
static_assert(Has<bool (CMyDatabase::*)(int)>(&CMyDatabase::LockDatabase));
static_assert(Has<bool (CMyDatabase::*)()>(&CMyDatabase::UnLockDatabase));
static_assert(Has<bool (CMyDatabase::*)()>(&CMyDatabase::IsDatabaseLocked));
static_assert(Has<bool (CMyDatabase::*)()>(&CMyDatabase::IsDatabaseInUse));
static_assert(Has<long (CMyDatabase::*)(bool)>(&CMyDatabase::CountUsersOnThisDatabase));
static_assert(Has<bool (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::ExistTable));
static_assert(Has<UtCString (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetTables));
static_assert(Has<long (CMyDatabase::*)(UtCStringList&, const UtCString&)>(&CMyDatabase::GetTables));
static_assert(Has<long (CMyDatabase::*)()>(&CMyDatabase::GetTableCount));
static_assert(Has<CMyTable (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetTable));
static_assert(Has<bool (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::RemoveTable));
static_assert(Has<bool (CMyDatabase::*)()>(&CMyDatabase::RemoveDatabase));
static_assert(Has<bool (CMyDatabase::*)(bool)>(&CMyDatabase::CompressDatabase));
static_assert(Has<__int64 (CMyDatabase::*)()>(&CMyDatabase::GetDBSize));
static_assert(Has<UtCString (CMyDatabase::*)()>(&CMyDatabase::GetDBPath));
static_assert(Has<eDB_CHECK (CMyDatabase::*)(const UtCString&, UtCString*)>(&CMyDatabase::CheckDatabaseIntegrity));
static_assert(Has<bool (CMyDatabase::*)(bool, bool)>(&CMyDatabase::RepairDatabase));
static_assert(Has<long (CMyDatabase::*)(const UtCString&, bool, MYSQL_RES**, bool)>(&CMyDatabase::ExecuteQuery));
static_assert(Has<bool (CMyDatabase::*)(const UtCString&) const>(&CMyDatabase::IsSelectQuery));
static_assert(Has<void (CMyDatabase::*)(const UtCString&, UtCString&)>(&CMyDatabase::MakeEscapeString));
static_assert(Has<void (CMyDatabase::*)(const void*, unsigned __int64, UtCString&)>(&CMyDatabase::MakeEscapeString));
static_assert(Has<unsigned long (CMyDatabase::*)() const>(&CMyDatabase::GetErrorCode));
static_assert(Has<UtCString (CMyDatabase::*)()>(&CMyDatabase::GetErrorMessage));
static_assert(Has<const UtCString& (CMyDatabase::*)() const>(&CMyDatabase::GetLastSQLCommand));
static_assert(Has<unsigned long (CMyDatabase::*)() const>(&CMyDatabase::GetQueryTime));
static_assert(Has<long (CMyDatabase::*)() const>(&CMyDatabase::GetAffectedRows));
static_assert(Has<UtCString (CMyDatabase::*)()>(&CMyDatabase::GetQueryInfo));
static_assert(Has<UtCString (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetStatusValue));
static_assert(Has<UtCString (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetVariableValue));
static_assert(Has<__int64 (CMyDatabase::*)(const UtCString&)>(&CMyDatabase::GetVariableValueInt64));
static_assert(Has<UtCString (CMyDatabase::*)(DB_INFOS)>(&CMyDatabase::GetInfo));
static_assert(Has<long (CMyDatabase::*)(const UtCString&, const UtCString&, bool, const UtCString&, const UtCString&,
                                        const UtCString&, const UtCString&, CProgressCtrl*)>(&CMyDatabase::DumpTable));
static_assert(Has<bool (CMyDatabase::*)(CMyDatabase&, CWnd*)>(&CMyDatabase::CopyDatabase));
