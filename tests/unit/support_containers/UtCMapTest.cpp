#include "containers/UtCMap.h"

#include "harness/AllocationFailure.h"
#include "harness/FailingAllocations.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>

namespace {

using Names = UtCMap<UtCString, unsigned long>;

/// The number of a name; -1 when it is absent.
long Number(const Names& names, const UtCString& name)
{
    const unsigned long* const found = names.Find(name);
    return found == nullptr ? -1 : static_cast<long>(*found);
}

} // namespace

TEST(UtCMap, IsEmptyAtFirst)
{
    const Names names;
    EXPECT_EQ(names.GetCount(), 0U);
    EXPECT_EQ(names.Find("NAME"), nullptr);
    EXPECT_EQ(names.Find(""), nullptr);
    EXPECT_EQ(names.begin(), names.end());
}

TEST(UtCMap, FindsWhatWasInserted)
{
    Names names;
    EXPECT_TRUE(names.Insert("NAME", 7));
    EXPECT_TRUE(names.Insert("", 8));
    EXPECT_EQ(Number(names, "NAME"), 7);
    EXPECT_EQ(Number(names, ""), 8);
    EXPECT_EQ(Number(names, "NAM"), -1);
    EXPECT_EQ(Number(names, "NAMES"), -1);
}

TEST(UtCMap, TellsLetterCasesApart)
{
    Names names;
    names.Insert("NAME", 7);
    EXPECT_EQ(Number(names, "name"), -1);
    EXPECT_TRUE(names.Insert("name", 8));
    EXPECT_EQ(Number(names, "NAME"), 7);
}

TEST(UtCMap, KeepsTheFirstOfTwoEqualKeys)
{
    Names names;
    EXPECT_TRUE(names.Insert("NAME", 1));
    EXPECT_FALSE(names.Insert("NAME", 2));
    EXPECT_EQ(Number(names, "NAME"), 1);
    EXPECT_EQ(names.GetCount(), 1U);
}

TEST(UtCMap, ReplacesAValueBySet)
{
    Names names;
    EXPECT_TRUE(names.Set("NAME", 1));
    EXPECT_TRUE(names.Set("NAME", 2));
    EXPECT_EQ(Number(names, "NAME"), 2);
    EXPECT_EQ(names.GetCount(), 1U);
}

TEST(UtCMap, FindsAKeyInEveryEncoding)
{
    const UtCString name("STRA\xDF"
                         "EN_L\xC4NGE_IN_METERN_UND_MEHR");
    for (const eUtEncodingType stored :
         {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE}) {
        Names names;
        names.Insert(UtCString(name, stored), 5);
        for (const eUtEncodingType searched :
             {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE, UT_ENCODING_UTF16_BE}) {
            EXPECT_EQ(Number(names, UtCString(name, searched)), 5) << stored << ' ' << searched;
            EXPECT_FALSE(names.Insert(UtCString(name, searched), 6)) << stored << ' ' << searched;
            EXPECT_EQ(Number(names, UtCString(UtCString("STRASSE"), searched)), -1) << stored << ' ' << searched;
        }
    }
}

TEST(UtCMap, FindsAnAsciiKeyAcrossEncodings)
{
    Names names;
    names.Insert(UtCString("ERF_TIME", UT_ENCODING_UTF8), 1);
    EXPECT_EQ(Number(names, UtCString("ERF_TIME")), 1);
    EXPECT_EQ(Number(names, UtCString("ERF_TIME", UT_ENCODING_UTF16_LE)), 1);
    EXPECT_EQ(Number(names, UtCString("ERF_TIME", UT_ENCODING_UTF32)), 1);
}

TEST(UtCMap, TellsBytesApartThatAreDifferentTexts)
{
    Names names;
    names.Insert(UtCString("\xC3\xBC", UT_ENCODING_UTF8), 1);
    names.Insert(UtCString("\xC3\xBC", UT_ENCODING_DEFAULT), 2);
    names.Insert(UtCString("\xC3\xBC", UT_ENCODING_UTF32), 3);
    EXPECT_EQ(names.GetCount(), 3U);
    EXPECT_EQ(Number(names, UtCString("\xFC")), 1);
    EXPECT_EQ(Number(names, UtCString("\xC3\x83\xC2\xBC", UT_ENCODING_UTF8)), 2);
}

TEST(UtCMap, ChangesAValueThroughFindAndForEach)
{
    Names names;
    names.Insert("a", 1);
    names.Insert("b", 2);
    *names.Find("a") = 10;
    names.ForEach([](const UtCString& name, unsigned long& number) { number += name == "b" ? 100 : 0; });
    EXPECT_EQ(Number(names, "a"), 10);
    EXPECT_EQ(Number(names, "b"), 102);
}

TEST(UtCMap, GivesItsEntriesInTheOrderOfInsertion)
{
    Names names;
    for (const char* name : {"z", "a", "m"})
        names.Insert(name, 0);
    std::string order;
    for (const Names::Entry& entry : names)
        order += entry.key.string();
    EXPECT_EQ(order, "zam");
}

TEST(UtCMap, RemovesAKey)
{
    Names names;
    for (unsigned long number = 0; number < 4; ++number)
        names.Insert(UtCString(number), number);
    EXPECT_TRUE(names.Remove("1"));
    EXPECT_FALSE(names.Remove("1"));
    EXPECT_FALSE(names.Remove("x"));
    EXPECT_EQ(names.GetCount(), 3U);
    EXPECT_EQ(Number(names, "0"), 0);
    EXPECT_EQ(Number(names, "1"), -1);
    EXPECT_EQ(Number(names, "2"), 2);
    EXPECT_EQ(Number(names, "3"), 3);
}

TEST(UtCMap, CanBeUsedAgainAfterClear)
{
    Names names;
    names.Insert("a", 1);
    names.Clear();
    EXPECT_EQ(names.GetCount(), 0U);
    EXPECT_EQ(Number(names, "a"), -1);
    EXPECT_FALSE(names.Remove("a"));
    EXPECT_TRUE(names.Insert("a", 2));
    EXPECT_EQ(Number(names, "a"), 2);
}

TEST(UtCMap, Moves)
{
    Names names;
    names.Insert("a", 1);
    Names moved(std::move(names));
    EXPECT_EQ(Number(moved, "a"), 1);
    EXPECT_EQ(names.GetCount(), 0U); // NOLINT: the state after a move is promised
    EXPECT_TRUE(names.Insert("b", 2));
    moved = std::move(names);
    EXPECT_EQ(Number(moved, "a"), -1);
    EXPECT_EQ(Number(moved, "b"), 2);
}

TEST(UtCMap, BehavesLikeAnOrderedMapUnderManyChanges)
{
    Names names;
    std::map<std::string, unsigned long> model;
    uint32_t random = 1;
    for (int step = 0; step < 60000; ++step) {
        random = random * 1664525 + 1013904223;
        const std::string key = std::to_string((random >> 8) % 700);
        const unsigned long value = random;
        switch (random >> 30) {
        case 0:
            ASSERT_EQ(names.Insert(UtCString(key.c_str()), value), model.emplace(key, value).second);
            break;
        case 1:
            ASSERT_TRUE(names.Set(UtCString(key.c_str()), value));
            model[key] = value;
            break;
        default:
            ASSERT_EQ(names.Remove(UtCString(key.c_str())), model.erase(key) == 1);
        }
        ASSERT_EQ(names.GetCount(), model.size());
    }
    for (int number = 0; number < 700; ++number) {
        const auto found = model.find(std::to_string(number));
        const unsigned long* const value = names.Find(UtCString(number));
        ASSERT_EQ(value != nullptr, found != model.end()) << number;
        if (value != nullptr) {
            ASSERT_EQ(*value, found->second);
        }
    }
}

TEST(UtCMap, TakesOtherKeys)
{
    UtCMap<int, std::string> names;
    for (int key = -1000; key < 1000; ++key)
        ASSERT_TRUE(names.Insert(key, std::to_string(key)));
    ASSERT_NE(names.Find(-1000), nullptr);
    EXPECT_EQ(*names.Find(-1000), "-1000");
    EXPECT_EQ(names.Find(1000), nullptr);
}

TEST(UtCMap, StaysUnchangedWhenMemoryRunsOut)
{
    const UtCString key("a name that does not fit into the inline storage");
    const UtCString others[] = {UtCString("a"), UtCString("b"), UtCString("c"), UtCString("d"),
                                UtCString("e"), UtCString("f"), UtCString("g"), UtCString("h")};
    bool isAsPromised = true;
    const long allocations = harness::ForEachAllocation(false, [&] {
        Names names;
        size_t count = 0;
        for (const UtCString& other : others)
            count += names.Insert(other, 1) ? 1 : 0;
        const bool isInserted = names.Insert(key, 9);
        const bool isComplete = isInserted && count == 8;
        isAsPromised = isAsPromised && isComplete == !harness::AllocationFailure::hasHappened &&
                       names.GetCount() == count + (isInserted ? 1 : 0) && Number(names, key) == (isInserted ? 9 : -1);
    });
    EXPECT_TRUE(isAsPromised);
    EXPECT_GE(allocations, 5);
}
