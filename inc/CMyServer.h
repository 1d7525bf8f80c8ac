#pragma once

#include "MyDbExport.h"
#include "framework/CObject.h"
#include "text/UtCString.h"

class MYDB_EXPORT CMyServer : public CObject
{
    DECLARE_DYNAMIC(CMyServer)
public:
    CMyServer();
    explicit CMyServer(const UtCString& iniFile);
    CMyServer(const CMyServer& other);
    ~CMyServer() override;
    CMyServer& operator=(const CMyServer& other);
    bool operator==(const CMyServer& other) const;
    bool operator!=(const CMyServer& other) const;

    bool IsConnectAllowed() const;
    const UtCString& GetHost() const;
    void SetHost(const UtCString& host);
    const UtCString& GetAlias() const;
    void SetAlias(const UtCString& alias);
    unsigned long GetPort() const;
    void SetPort(unsigned long port);
    const UtCString& GetUser() const;
    void SetUser(const UtCString& user);
    const UtCString& GetPassword() const;
    void SetPassword(const UtCString& password);
    const UtCString& GetCharset() const;
    void SetCharset(const UtCString& charset);
    eUtEncodingType GetEncodingType() const;
    const UtCString& GetMySQLProgramDir() const;
    bool SetMySQLProgramDir(const UtCString& dir);
    const UtCString& GetDataDir() const;
    bool SetDataDir(const UtCString& dir);
    const UtCString& GetServerINIFileName() const;
    UtCString GetServerINIDir() const;

    bool IsValid() const;
    bool LoadServerINI(const UtCString& fileOrDir);
    bool TestConnect(bool interactive, unsigned long* errorCode, UtCString* errorMessage);
    bool ExistDatabase(const UtCString& name) const;

private:
    bool m_connectAllowed;
    UtCString m_host;
    UtCString m_alias;
    unsigned long m_port;
    UtCString m_user;
    UtCString m_password;
    UtCString m_charset;
    unsigned short m_encodingType;
    UtCString m_mySQLProgramDir;
    UtCString m_dataDir;
    UtCString m_serverINIFileName;
};
