#pragma once

#include "CMyField.h"
#include "MyDbTypes.h"
#include "text/UtCString.h"

#include <mysql.h>

/// What the client says about a column, in the library's own terms. Pure functions over constant tables: they keep no
/// state, may be called from any thread, and none can fail.
namespace metadata {

/// The classification of a column, the only place where MYTYPES values come from. Reads the type code and the low byte
/// of the flags, nothing else, so it is cheap enough to be asked for every value read.
///
/// - The character set plays no part: BINARY and VARBINARY are MYTYPE_TEXT, and a blob is told from a memo by its
/// flags.
/// - Width plays no part: TINYINT(1) is a MYTYPE_SHORT like any other small integer; MEDIUMINT is MYTYPE_INT64.
/// - MYTYPE_UNKNOWN: decimals, YEAR, BIT, geometries, the codes of ENUM and SET (which servers use in no result: such
///   columns come as strings with a flag and are MYTYPE_TEXT) and every code that is not in the table.
/// - A TEXT column with a _bin collation has the flags of a blob and is a MYTYPE_BLOB; so is MariaDB's JSON.
inline MYTYPES ClassifyField(const MYSQL_FIELD& field) noexcept
{
    constexpr unsigned binaryBlob = BLOB_FLAG | BINARY_FLAG;
    switch (field.type) {
    case MYSQL_TYPE_TINY:
    case MYSQL_TYPE_SHORT:
        return MYTYPE_SHORT;
    case MYSQL_TYPE_LONG:
        return MYTYPE_LONG;
    case MYSQL_TYPE_FLOAT:
        return MYTYPE_FLOAT;
    case MYSQL_TYPE_DOUBLE:
        return MYTYPE_DOUBLE;
    case MYSQL_TYPE_TIMESTAMP:
    case MYSQL_TYPE_DATE:
    case MYSQL_TYPE_TIME:
    case MYSQL_TYPE_DATETIME:
        return MYTYPE_DATETIME;
    case MYSQL_TYPE_LONGLONG:
    case MYSQL_TYPE_INT24: // KEPT K-20: MEDIUMINT counts as a 64-bit integer although 32 bits would hold it.
        return MYTYPE_INT64;
    case MYSQL_TYPE_TINY_BLOB:
    case MYSQL_TYPE_MEDIUM_BLOB:
    case MYSQL_TYPE_LONG_BLOB:
    case MYSQL_TYPE_BLOB:
        return (field.flags & binaryBlob) == binaryBlob ? MYTYPE_BLOB : MYTYPE_MEMO;
    case MYSQL_TYPE_VAR_STRING:
    case MYSQL_TYPE_STRING:
        return MYTYPE_TEXT;
    default:
        return MYTYPE_UNKNOWN;
    }
}

/// A column's name in its table, or its name in the listing where the client gives no other. The client's bytes, tagged
/// with encoding 256 and not converted; empty when there is no name at all.
UtCString NameInTable(const MYSQL_FIELD& field);

/// The descriptor of a column of a table, from a field listing: named by NameInTable, classified by ClassifyField. The
/// default value is the client's bytes in encoding 256, empty where there is none; the length is the client's, in
/// bytes, at most 4294967295.
CMyField DescribeField(const MYSQL_FIELD& field);

/// The name of a column type for people, in encoding 256: "long", "datetime", "varchar[60]" and so on, "unbekannt" for
/// a code without a name.
///
/// `type` is the client's type code, `length` the client's width of the column in bytes (not characters); it appears in
/// the names of the two string types only. The flags are not consulted: the name follows the size class of a blob, so
/// a TEXT column is named "blob" and a TINYBLOB column "memo", whatever ClassifyField says of them.
UtCString FieldTypeName(unsigned type, unsigned long length);

/// The encoding of texts in a character set of the server, given by its number.
///
/// UTF-8 (65001) for the three- and four-byte UTF-8 sets, 1201 for UTF-16 and UCS-2, 1200 for little-endian UTF-16,
/// 65535 for UTF-32 (such texts are never converted), and 256 for everything else: the binary set (63), every
/// single-byte set, and numbers unknown to the table, which include the collations that MariaDB numbers from 576 on.
eUtEncodingType EncodingOfCharset(unsigned int nr) noexcept;

} // namespace metadata
