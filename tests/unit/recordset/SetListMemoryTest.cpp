#include "harness/AllocationFailure.h"
#include "sql/EditStatement.h"

#include <gtest/gtest.h>

namespace {

// An assignment without its table or column could change another one.
TEST(SetListMemory, MakesTheWholeListOrNone)
{
    const UtCString table("a_table_with_a_name_that_does_not_fit_into_the_text_itself");
    const UtCString first("COLUMN_ONE");
    const UtCString second("COLUMN`TWO_WITH_A_NAME_THAT_DOES_NOT_FIT_INTO_THE_TEXT_ITSELF");
    const long failures = harness::ForEachAllocation(false, [&] {
        text::TextBuilder statement(UT_ENCODING_UTF8, 400);
        sql::SetList list(statement, table);
        list.Add(first, "1");
        list.Add(second, "2");
        const UtCString text = statement.Take();
        harness::AllocationFailure::allocationsLeft = -1;
        if (!text.IsEmpty()) {
            EXPECT_STREQ(text.string(),
                         "`a_table_with_a_name_that_does_not_fit_into_the_text_itself`.`COLUMN_ONE` = 1, "
                         "`a_table_with_a_name_that_does_not_fit_into_the_text_itself`."
                         "`COLUMN``TWO_WITH_A_NAME_THAT_DOES_NOT_FIT_INTO_THE_TEXT_ITSELF` = 2");
        }
    });
    EXPECT_GT(failures, 3);
}

} // namespace
