#pragma once

#include "CMyKey.h"
#include "RecordSetFixture.h"

#include <string>
#include <vector>

namespace recordset_test {

/// The items of a key, three per condition.
inline std::vector<std::string> Items(const CMyKey& key)
{
    std::vector<std::string> items;
    for (int condition = 0; 3 * condition < key.GetFieldCount(); ++condition) {
        items.push_back(Bytes(key.GetFieldName(condition)));
        items.push_back(Bytes(key.GetOperator(condition)));
        items.push_back(Bytes(key.GetFieldValue(condition)));
    }
    return items;
}

using Texts = std::vector<std::string>;

/// A key that takes values in their final form, as a derived class of a host would.
class OpenKey : public CMyKey
{
public:
    using CMyKey::Append;
    using CMyKey::CMyKey;
};

/// Record sets of a table CUSTOMER with a column of every class, on the scripted client.
class KeyFixture : public RecordSetFixture
{
protected:
    KeyFixture()
    {
        m_client.OnListFields(
            "CUSTOMER",
            {NumberField("id"),
             TextField("Name"),
             NumberField("age", MYSQL_TYPE_SHORT),
             {.name = "memo", .type = MYSQL_TYPE_BLOB, .flags = BLOB_FLAG, .charsetnr = 45},
             {.name = "picture", .type = MYSQL_TYPE_BLOB, .flags = BLOB_FLAG | BINARY_FLAG, .charsetnr = 63},
             {.name = "deleted_at", .type = MYSQL_TYPE_DATETIME, .charsetnr = 63},
             {.name = "born", .type = MYSQL_TYPE_DATE, .charsetnr = 63},
             {.name = "wakes", .type = MYSQL_TYPE_TIME, .charsetnr = 63},
             NumberField("turnover", MYSQL_TYPE_DOUBLE),
             NumberField("share", MYSQL_TYPE_FLOAT),
             NumberField("big", MYSQL_TYPE_LONGLONG),
             NumberField("price", MYSQL_TYPE_NEWDECIMAL),
             TextField("o`clock")});
    }

    std::string Clause(const CMyKey& key) { return Bytes(key.CreateClause(&m_customers)); }
    std::string Order(const CMyKey& key) { return Bytes(key.CreateOrderClause(&m_customers)); }

    OpenRecordSet m_customers{m_database, "customer"};
};

} // namespace recordset_test
