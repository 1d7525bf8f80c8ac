#include "CMyServer.h"

#include <cstdint>
#include <limits>

#undef SetPort // a macro of <windows.h>, which comes with the host framework

IMPLEMENT_DYNAMIC(CMyServer, CObject)

namespace {

eUtEncodingType EncodingOfCharsetName(const UtCString& charset)
{
    if (charset == "utf8mb4" || charset == "utf8")
        return UT_ENCODING_UTF8;
    if (charset == "utf16" || charset == "ucs2")
        return UT_ENCODING_UTF16_BE; // the byte order in which the server sends them
    if (charset == "utf16le")
        return UT_ENCODING_UTF16_LE;
    return UT_ENCODING_DEFAULT;
}

/// Stored directories end in exactly one backslash or are empty.
bool StoreDirectory(const UtCString& dir, UtCString& stored)
{
    // KEPT K-15: so an empty path is a success where none is stored, and a failure otherwise.
    if (dir == stored)
        return true;
    stored = dir.trimRight("\\ ");
    if (stored.IsEmpty())
        return false;
    stored += '\\';
    return true;
}

} // namespace

CMyServer::CMyServer()
    : m_connectAllowed(true), m_port(0), m_user("vela_root"), m_encodingType(uint16_t{UT_ENCODING_DEFAULT})
{
}

CMyServer::CMyServer(const UtCString& iniFile) : CMyServer()
{
    LoadServerINI(iniFile);
}

// Member by member: the framework's base class cannot be copied.
CMyServer::CMyServer(const CMyServer& other) : CMyServer()
{
    *this = other;
}

CMyServer::~CMyServer() = default;

CMyServer& CMyServer::operator=(const CMyServer& other)
{
    m_connectAllowed = other.m_connectAllowed;
    m_host = other.m_host;
    m_alias = other.m_alias;
    m_port = other.m_port;
    m_user = other.m_user;
    m_password = other.m_password;
    m_charset = other.m_charset;
    m_encodingType = other.m_encodingType;
    m_mySQLProgramDir = other.m_mySQLProgramDir;
    m_dataDir = other.m_dataDir;
    m_serverINIFileName = other.m_serverINIFileName;
    return *this;
}

bool CMyServer::operator==(const CMyServer& other) const
{
    // KEPT K-14: nothing but the end-point counts, neither the account nor the charset.
    return m_host.EqualNoCase(other.m_host) && m_port == other.m_port;
}

bool CMyServer::operator!=(const CMyServer& other) const
{
    return !(*this == other);
}

bool CMyServer::IsConnectAllowed() const
{
    return m_connectAllowed;
}

const UtCString& CMyServer::GetHost() const
{
    return m_host;
}

void CMyServer::SetHost(const UtCString& host)
{
    m_host = host;
}

const UtCString& CMyServer::GetAlias() const
{
    return m_alias;
}

void CMyServer::SetAlias(const UtCString& alias)
{
    m_alias = alias;
}

unsigned long CMyServer::GetPort() const
{
    return m_port;
}

void CMyServer::SetPort(unsigned long port)
{
    m_port = port <= std::numeric_limits<uint32_t>::max() ? port : 0;
}

const UtCString& CMyServer::GetUser() const
{
    return m_user;
}

void CMyServer::SetUser(const UtCString& user)
{
    m_user = user;
}

const UtCString& CMyServer::GetPassword() const
{
    return m_password;
}

void CMyServer::SetPassword(const UtCString& password)
{
    m_password = password;
}

const UtCString& CMyServer::GetCharset() const
{
    return m_charset;
}

void CMyServer::SetCharset(const UtCString& charset)
{
    m_charset = charset;
    m_encodingType = static_cast<uint16_t>(EncodingOfCharsetName(m_charset));
}

eUtEncodingType CMyServer::GetEncodingType() const
{
    return static_cast<eUtEncodingType>(m_encodingType);
}

const UtCString& CMyServer::GetMySQLProgramDir() const
{
    return m_mySQLProgramDir;
}

bool CMyServer::SetMySQLProgramDir(const UtCString& dir)
{
    return StoreDirectory(dir, m_mySQLProgramDir);
}

const UtCString& CMyServer::GetDataDir() const
{
    return m_dataDir;
}

bool CMyServer::SetDataDir(const UtCString& dir)
{
    return StoreDirectory(dir, m_dataDir);
}

const UtCString& CMyServer::GetServerINIFileName() const
{
    return m_serverINIFileName;
}

bool CMyServer::IsValid() const
{
    return !m_host.IsEmpty() && !m_user.IsEmpty() && m_port != 0;
}
