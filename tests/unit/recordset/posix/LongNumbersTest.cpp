#include "unit/recordset/RecordSetFixture.h"

namespace {

// On Windows "long" has 32 bits, and there are no such numbers.
using WhereLongHas64Bits = recordset_test::RecordSetFixture;

TEST_F(WhereLongHas64Bits, MoveToIsFalseForARowBeyond32Bits)
{
    m_client.OnPrefix("SELECT", recordset_test::CountedRows(3, 1));
    recordset_test::OpenRecordSet records(m_database, "orders");
    ASSERT_EQ(records.Select(""), 3);
    ASSERT_TRUE(records.MoveTo(1));
    EXPECT_FALSE(records.MoveTo(0x100000001L));
    EXPECT_TRUE(records.IsEOF());
    EXPECT_EQ(records.GetCurrentRow(), -1);
}

} // namespace
