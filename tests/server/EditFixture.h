#pragma once

#include "RecordSetFixture.h"

#include <string>
#include <vector>

namespace server_test {

class EditedRecordSet : public OpenRecordSet
{
public:
    using CMyRecordSet::SetFieldBuffer;
    using CMyRecordSet::SetFieldValue;
    using OpenRecordSet::OpenRecordSet;
};

/// A database of its own, an open connection whose texts are UTF-8, and a record set on the table "t".
class EditFixture : public RecordSetFixture
{
protected:
    EditFixture()
    {
        m_edited.Open(false, "");
        m_log.Mark();
    }

    /// The mode of the session that edits. It is lost with the connection.
    void SetMode(const char* mode)
    {
        EXPECT_NE(m_edited.ExecuteQuery((std::string("SET SESSION sql_mode = '") + mode + "'").c_str(), false, nullptr,
                                        false),
                  -1);
        m_log.Mark();
    }

    /// What the library sent over the edited connection since the mark.
    std::vector<std::string> Sent() const { return m_log.Statements(m_edited.GetThreadID()); }

    harness::RawConnection::Value Text(const std::string& sql) { return m_temporary.Sql().Text(sql); }
    std::string Message() const { return Bytes(records.GetModifyErrorMessage()); }

    CMyDatabase m_edited{Server("utf8mb4"), m_temporary.Name().c_str()};
    EditedRecordSet records{m_edited, "t"};
    harness::GeneralLog m_log;
};

} // namespace server_test
