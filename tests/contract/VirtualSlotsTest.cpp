#include "MyDB.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

namespace {

// In the Itanium C++ ABI a pointer to a virtual member holds one plus the byte offset of its slot.
template <typename Member> size_t SlotOf(Member member)
{
    size_t words[2] = {};
    static_assert(sizeof(member) == sizeof(words));
    std::memcpy(words, &member, sizeof(words));
    return (words[0] - 1) / sizeof(void*);
}

// GetRuntimeClass, the two destructors, Serialize, AssertValid, Dump
constexpr size_t frameworkSlots = 6;

TEST(VirtualSlots, TheFrameworkHasSix)
{
    EXPECT_EQ(0U, SlotOf(&CObject::GetRuntimeClass));
    EXPECT_EQ(3U, SlotOf(&CObject::Serialize));
    EXPECT_EQ(4U, SlotOf(&CObject::AssertValid));
    EXPECT_EQ(5U, SlotOf(&CObject::Dump));
}

TEST(VirtualSlots, DatabaseHasCloseThenOpenThenIntegrityCheck)
{
    EXPECT_EQ(frameworkSlots + 0, SlotOf(&CMyDatabase::Close));
    EXPECT_EQ(frameworkSlots + 1, SlotOf(&CMyDatabase::Open));
    EXPECT_EQ(frameworkSlots + 2, SlotOf(&CMyDatabase::CheckAndRepairDatabaseIntegrity));
}

TEST(VirtualSlots, RecordSetHasModifyEndThenAppendEnd)
{
    EXPECT_EQ(frameworkSlots + 0, SlotOf(&CMyRecordSet::ModifyEnd));
    EXPECT_EQ(frameworkSlots + 1, SlotOf(&CMyRecordSet::AppendEnd));
}

} // namespace
