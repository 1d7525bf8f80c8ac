#include "TextSupport.h"

#include "harness/AllocationFailure.h"
#include "harness/FailingAllocations.h"
#include "text/UtMemory.h"

#include <functional>

using harness::AllocationFailure;

namespace {

constexpr const char* longBytes = "a text that does not fit into the inline storage";

/// The two texts that a scenario may give: all of it, or nothing.
struct Outcome
{
    const char* name;
    std::function<UtCString()> make;
};

UtCString Long()
{
    return UtCString(longBytes);
}

const Outcome outcomes[] = {
    {"Construction", [] { return UtCString(longBytes); }},
    {"ConvertingConstruction", [] { return UtCString(longBytes, utf16le); }},
    {"WideConstruction", [] { return UtCString(L"a text that does not fit into the inline storage"); }},
    {"View", [] { return UtCString(std::string_view(longBytes), utf8); }},
    {"Number", [] { return UtCString(-1234567890123456789LL, utf16le); }},
    {"Decimals", [] { return UtCString(1.0, 50, ansi); }},
    {"SetMemCopy",
     [] {
         UtCString text("short");
         text.SetMemCopy(reinterpret_cast<const unsigned char*>(longBytes), 48, ansi);
         return text;
     }},
    {"GetBuffer",
     [] {
         UtCString text("short");
         if (char* const buffer = text.GetBuffer(100))
             std::memset(buffer, 'x', 100);
         text.ReleaseBuffer();
         return text;
     }},
    {"ChangeEncodingType",
     [] {
         UtCString text("\xFC not so long in 1252");
         text.ChangeEncodingType(utf16le);
         return text;
     }},
    {"Append",
     [] {
         UtCString text("short");
         text += longBytes;
         return text;
     }},
    {"AppendItself",
     [] {
         UtCString text("twenty bytes of text");
         text += text;
         return text;
     }},
    {"AppendConverted",
     [] {
         UtCString text("short", utf16le);
         text += longBytes;
         return text;
     }},
    {"Plus", [] { return UtCString("short") + longBytes; }},
    {"Prepend",
     [] {
         UtCString text("twenty bytes of text");
         text.Prepend("twenty bytes of text");
         return text;
     }},
    {"Enclose",
     [] {
         UtCString text("twenty bytes of text");
         text.Enclose("(((", ")))");
         return text;
     }},
    {"Replace", [] { return UtCString("a.b.c").replace(".", "twenty bytes of text"); }},
    {"ReplaceConverted",
     [] { return UtCString("a.b.c", utf16le).replace("a.b.c", "twenty bytes of text and more", utf8); }},
    {"ReplaceWide", [] { return UtCString("............", utf8).replace(L'.', L'\u20AC'); }},
    {"Upper",
     [] {
         return UtCString("\xC8\xBF\xC8\xBF\xC8\xBF\xC8\xBF\xC8\xBF\xC8\xBF\xC8\xBF\xC8\xBF\xC8\xBF", utf8).toUpper();
     }},
    {"JoinFilePath", [] { return UtCString::JoinFilePath("C:\\a folder\\", "\\a name that is long"); }},
    {"Format",
     [] {
         UtCString text("short", utf16le);
         text.Format("%s %050d", "twenty bytes of text", 1);
         return text;
     }},
    {"FormatWide",
     [] {
         UtCString text("short");
         text.Format("<%ls>", L"a text that does not fit into the inline storage");
         return text;
     }},
    {"AppendFormat",
     [] {
         UtCString text("short", utf16le);
         text.AppendFormat("%s %s", "twenty bytes of text", "twenty bytes of text");
         return text;
     }},
};

class RunningOutOfMemory : public testing::TestWithParam<Outcome>
{
};

} // namespace

TEST_P(RunningOutOfMemory, GivesTheWholeTextOrTheEmptyOne)
{
    const UtCString expected = GetParam().make();
    ASSERT_FALSE(expected.IsEmpty());
    for (const bool failsForGood : {false, true}) {
        bool isAsPromised = true;
        const long allocations = harness::ForEachAllocation(failsForGood, [&] {
            const UtCString text = GetParam().make();
            const std::string_view promised = AllocationFailure::hasHappened ? std::string_view() : expected.View();
            isAsPromised =
                isAsPromised && text.View() == promised && text.GetEncodingType() == expected.GetEncodingType();
        });
        EXPECT_TRUE(isAsPromised);
        EXPECT_GE(allocations, 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, RunningOutOfMemory, testing::ValuesIn(outcomes),
                         [](const auto& row) { return std::string(row.param.name); });

namespace {

/// Runs the work with each allocation failing. It returns whether it succeeded, which it must unless one has failed,
/// and gives false to `isConsistent` when its other results do not agree with that.
void ExpectEachFailure(const std::function<bool(bool& isConsistent)>& work)
{
    bool isConsistent = true;
    bool isReported = true;
    const long allocations = harness::ForEachAllocation(false, [&] {
        const bool hasSucceeded = work(isConsistent);
        isReported = isReported && hasSucceeded == !AllocationFailure::hasHappened;
    });
    EXPECT_TRUE(isConsistent);
    EXPECT_TRUE(isReported);
    EXPECT_GE(allocations, 1);
}

} // namespace

TEST(OutOfMemory, MakesUtAllocMemoryBlockGiveNull)
{
    ExpectEachFailure([](bool&) {
        void* const block = UtAllocMemoryBlock(100);
        UtFreeMemory(block);
        return block != nullptr;
    });
}

TEST(OutOfMemory, MakesGetAnsiStringFail)
{
    const UtCString text = Long();
    ExpectEachFailure([&](bool& isConsistent) {
        char* bytes = nullptr;
        const bool succeeded = text.GetAnsiString(&bytes);
        isConsistent = isConsistent && !(succeeded != (bytes != nullptr));
        UtFreeMemory(bytes);
        return succeeded;
    });
}

TEST(OutOfMemory, MakesGetMemCopyFail)
{
    const UtCString text = Long();
    ExpectEachFailure([&](bool& isConsistent) {
        unsigned char* bytes = nullptr;
        size_t size = 99;
        const bool succeeded = text.GetMemCopy(&bytes, size);
        isConsistent = isConsistent && !(size != (succeeded ? text.GetByteLength() : 0));
        UtFreeMemory(bytes);
        return succeeded;
    });
}

TEST(OutOfMemory, MakesChangeEncodingTypeFailWithTheNewTag)
{
    ExpectEachFailure([](bool&) {
        UtCString text("\xFC not so long in 1252");
        const bool succeeded = text.ChangeEncodingType(utf16be);
        return text.GetEncodingType() == utf16be && succeeded;
    });
}

TEST(OutOfMemory, LeavesAListThatIsAddedToUnchanged)
{
    const UtCString text = Long();
    const UtCStringList both{text, text};
    ExpectEachFailure([&](bool& isConsistent) {
        UtCStringList list;
        const bool succeeded = list.AddList(both);
        isConsistent = isConsistent && !(list.GetCount() != (succeeded ? 2 : 0));
        return succeeded;
    });
    ExpectEachFailure([&](bool& isConsistent) {
        UtCStringList list;
        const bool succeeded = list.Add(text);
        isConsistent = isConsistent && !(list.GetCount() != (succeeded ? 1 : 0));
        return succeeded;
    });
}

TEST(OutOfMemory, LeavesANewListEmpty)
{
    const UtCString text = Long();
    const UtCStringList both{text, text};
    ExpectEachFailure([&](bool&) { return UtCStringList(both).GetCount() == 2; });
    ExpectEachFailure([&](bool&) { return UtCStringList(text).GetCount() == 1; });
}

TEST(OutOfMemory, LeavesFormatStringListEmpty)
{
    const UtCStringList items{"twenty bytes of text", "twenty bytes of text"};
    ExpectEachFailure([&](bool&) {
        UtCString text;
        text.FormatStringList("%s, %s", items, utf16le);
        return text.GetByteLength() == 84;
    });
    ExpectEachFailure([&](bool&) {
        UtCString text("before");
        text.AppendFormatStringList("%s, %s", items);
        return text.GetByteLength() == 48;
    });
}

TEST(OutOfMemory, LeavesNoPieces)
{
    const UtCString text("twenty bytes of text that is long, twenty bytes of text that is long");
    ExpectEachFailure([&](bool& isConsistent) {
        UtCStringList list;
        const int count = text.Tokenize(", ", list);
        isConsistent = isConsistent && !(count != list.GetCount() || (count != 0 && count != 2));
        return count == 2;
    });
    const UtCString digits("1234567890123456789012345678901234567890,1");
    ExpectEachFailure([&](bool&) {
        UtCStringList list;
        return digits.TokenizeNumeric(list) == 2;
    });
}

TEST(OutOfMemory, LeavesNothingConcatenated)
{
    const UtCStringList items{"twenty bytes of text", "twenty bytes of text"};
    ExpectEachFailure([&](bool& isConsistent) {
        UtCString out("before");
        items.Concatenate(", ", out);
        isConsistent = isConsistent && !(out.IsEmpty() == (out.GetByteLength() == 42));
        return !out.IsEmpty();
    });
}

TEST(OutOfMemory, LetsTheCopyOfALongTextBeEmpty)
{
    const UtCString text = Long();
    ExpectEachFailure([&](bool&) { return UtCString(text).GetByteLength() == 48; });
    ExpectEachFailure([&](bool&) {
        UtCString target("before", utf8);
        target = text;
        return target.GetByteLength() == 48;
    });
}

TEST(UtCString, NeedsNoMemoryUpToTwentyFourBytes)
{
    bool isAsPromised = true;
    const long allocations = harness::ForEachAllocation(false, [&] {
        const UtCString text("twenty-four bytes of it.");
        UtCString copy(text);
        copy = text;
        UtCString moved(std::move(copy));
        moved.SetToUpper();
        moved.SetMemCopy(reinterpret_cast<const unsigned char*>("twenty-four bytes of it."), 24, utf8);
        isAsPromised = isAsPromised && moved == text && moved.GetByteLength() == 24;
    });
    EXPECT_TRUE(isAsPromised);
    EXPECT_EQ(allocations, 0);
}
