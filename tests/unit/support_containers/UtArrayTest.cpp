#include "containers/UtArray.h"

#include "harness/AllocationFailure.h"
#include "harness/LogRecorder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class CMyField
{
};
class CTableCache
{
};

namespace {

/// Records the warnings of a test.
class UtArrayWarning : public testing::Test
{
protected:
    /// One warning came since the last check, from this function.
    void ExpectOne(const std::string& function)
    {
        ASSERT_EQ(m_log.Entries().size(), m_checked + 1);
        const harness::LogRecorder::Entry& warning = m_log.Entries()[m_checked++];
        EXPECT_TRUE(warning.file.ends_with("containers/UtArray.h")) << warning.file;
        EXPECT_GT(warning.line, 0);
        EXPECT_EQ(warning.key, "UtArray.operator[].invalid index");
        EXPECT_EQ(warning.function, function);
    }

    harness::LogRecorder m_log;
    size_t m_checked = 0;
};

} // namespace

TEST(UtArray, KeepsWhatIsAddedInOrder)
{
    UtArray<unsigned int> array;
    EXPECT_TRUE(array.IsEmpty());
    for (unsigned int value = 0; value < 1000; ++value)
        EXPECT_TRUE(array.Add(value * 2));
    EXPECT_EQ(array.GetCount(), 1000U);
    EXPECT_EQ(array[999], 1998U);
    EXPECT_EQ(array.GetData()[7], 14U);
    array[7] = 5;
    EXPECT_EQ(std::as_const(array)[7], 5U);
    EXPECT_EQ(std::as_const(array).GetData()[7], 5U);
}

TEST(UtArray, RemovesAnElement)
{
    UtArray<unsigned int> array;
    for (unsigned int value : {1U, 2U, 3U})
        array.Add(value);
    EXPECT_TRUE(array.RemoveAt(1));
    EXPECT_EQ(std::vector<unsigned int>(array.begin(), array.end()), (std::vector<unsigned int>{1, 3}));
    array.RemoveAll();
    EXPECT_TRUE(array.IsEmpty());
    EXPECT_EQ(array.begin(), array.end());
    array.Add(9);
    EXPECT_EQ(array[0], 9U);
}

TEST(UtArray, DoesNotMoveItsElementsUpToTheReservedCount)
{
    UtArray<unsigned int> array;
    EXPECT_TRUE(array.Reserve(100));
    array.Add(0);
    const unsigned int* const before = array.GetData();
    for (unsigned int value = 1; value < 100; ++value)
        array.Add(value);
    EXPECT_EQ(array.GetData(), before);
    EXPECT_EQ(array.GetCount(), 100U);
}

TEST(UtArray, RefusesToReserveMoreThanThereIs)
{
    UtArray<unsigned int> array;
    array.Add(1);
    EXPECT_FALSE(array.Reserve(SIZE_MAX));
    EXPECT_EQ(array.GetCount(), 1U);
}

TEST(UtArray, StaysUnchangedWhenMemoryRunsOut)
{
    bool isAsPromised = true;
    const long allocations = harness::ForEachAllocation(true, [&] {
        UtArray<unsigned int> array;
        const bool isAdded = array.Add(1);
        const bool isReserved = array.Reserve(1000);
        const bool canAllBeDone = !harness::AllocationFailure::hasHappened;
        isAsPromised = isAsPromised && isReserved == canAllBeDone && array.GetCount() == (isAdded ? 1U : 0U);
    });
    EXPECT_TRUE(isAsPromised);
    EXPECT_EQ(allocations, 2);
}

TEST(UtArray, Moves)
{
    UtArray<unsigned int> array;
    array.Add(7);
    UtArray<unsigned int> moved(std::move(array));
    EXPECT_EQ(moved[0], 7U);
    UtArray<unsigned int> assigned;
    assigned = std::move(moved);
    EXPECT_EQ(assigned[0], 7U);
}

TEST(UtArray, FreesWhatItOwns)
{
    const auto shared = std::make_shared<CTableCache>();
    UtArray<std::shared_ptr<CTableCache>> array;
    array.Add(shared);
    array.Add(shared);
    EXPECT_EQ(shared.use_count(), 3);
    array.RemoveAt(0);
    EXPECT_EQ(shared.use_count(), 2);
    array.RemoveAll();
    EXPECT_EQ(shared.use_count(), 1);
}

TEST_F(UtArrayWarning, NamesTheInstantiationOfABadAccess)
{
    UtArray<unsigned int>()[0];
    ExpectOne("UtArray<unsigned int>::operator []");
    UtArray<char**>()[0];
    ExpectOne("UtArray<char **>::operator []");
    UtArray<CMyField*>()[0];
    ExpectOne("UtArray<class CMyField *>::operator []");
    UtArray<CTableCache*>()[0];
    ExpectOne("UtArray<class CTableCache *>::operator []");
    UtArray<std::shared_ptr<CTableCache>>()[0];
    ExpectOne("UtArray<class CTableCache *>::operator []");
    UtArray<std::unique_ptr<CMyField>>()[0];
    ExpectOne("UtArray<class CMyField *>::operator []");
    UtArray<double>()[0];
    ExpectOne("UtArray<T>::operator []");
}

TEST_F(UtArrayWarning, ComesAtTheCountAndBeyond)
{
    UtArray<unsigned int> array;
    array.Add(1);
    array[0];
    EXPECT_TRUE(m_log.Entries().empty());
    array[1];
    ExpectOne("UtArray<unsigned int>::operator []");
    std::as_const(array)[SIZE_MAX];
    ExpectOne("UtArray<unsigned int>::operator []");
}

TEST_F(UtArrayWarning, Kept_K62_ReportsABadRemovalUnderTheKeyOfTheAccess)
{
    UtArray<CTableCache*> array;
    array.Add(nullptr);
    EXPECT_FALSE(array.RemoveAt(1));
    ExpectOne("UtArray<class CTableCache *>::RemoveAt");
    EXPECT_EQ(array.GetCount(), 1U);
}

TEST_F(UtArrayWarning, TellsTheLineOfTheMember)
{
    UtArray<unsigned int> array;
    array[0];
    std::as_const(array)[0];
    array.RemoveAt(0);
    array[0];
    ASSERT_EQ(m_log.Entries().size(), 4U);
    EXPECT_GT(m_log.Entries()[0].line, 1);
    EXPECT_LT(m_log.Entries()[0].line, m_log.Entries()[1].line);
    EXPECT_LT(m_log.Entries()[1].line, m_log.Entries()[2].line);
    EXPECT_EQ(m_log.Entries()[0].line, m_log.Entries()[3].line);
}

TEST_F(UtArrayWarning, LeavesAHarmlessValue)
{
    UtArray<CTableCache*> array;
    EXPECT_EQ(array[5], nullptr);
    EXPECT_EQ(std::as_const(array)[5], nullptr);
    EXPECT_EQ(UtArray<unsigned int>()[5], 0U);
}

TEST_F(UtArrayWarning, FindsTheSpareElementReset)
{
    UtArray<unsigned int> array;
    array[0] = 77;
    EXPECT_EQ(array[0], 0U);
    EXPECT_EQ(array.GetCount(), 0U);
}
