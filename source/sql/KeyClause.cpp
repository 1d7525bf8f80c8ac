#include "sql/KeyClause.h"

#include "sql/ValueText.h"
#include "text/CodePoints.h"
#include "text/TextBuilder.h"
#include "text/TextSearch.h"

namespace sql {
namespace {

bool CanTakeIn(eUtEncodingType encoding, const UtCString& piece) noexcept
{
    const eUtEncodingType from = piece.GetEncodingType();
    if (piece.IsEmpty())
        return true;
    if (!text::IsUtf16(encoding))
        return text::IsConvertible(encoding) || !text::IsUtf16(from);
    return text::IsConvertible(from) && (from != encoding || piece.GetByteLength() % 2 == 0);
}

void AppendPiece(text::TextBuilder& text, const UtCString& piece) noexcept
{
    if (!CanTakeIn(text.GetEncodingType(), piece))
        return text.Fail();
    text.AppendText(piece);
}

void AppendKeyword(text::TextBuilder& text, std::string_view keyword) noexcept
{
    text.AppendAscii(keyword);
}

bool HasBacktick(const UtCString& name) noexcept
{
    const text::Tagged backtick{"`", UT_ENCODING_DEFAULT};
    return text::Find({name.View(), name.GetEncodingType()}, 0, backtick, text::LetterCase::Exact).IsFound();
}

size_t SizeIn(eUtEncodingType encoding, std::string_view bytes, eUtEncodingType from) noexcept
{
    return text::KeepsBytes(bytes, from, encoding) ? bytes.size() : text::ConvertedSize(bytes, from, encoding);
}

void AppendNullTest(text::TextBuilder& clause, const UtCString& op) noexcept
{
    AppendKeyword(clause, op == "=" ? "IS NULL)" : "IS NOT NULL)"); // KEPT K-83: whatever else the operator says.
}

void AppendValue(text::TextBuilder& clause, const UtCString& value, MYTYPES columnType) noexcept
{
    const bool isQuoted = IsQuotedType(columnType); // KEPT K-85: any value goes to any other column as it is.
    AppendKeyword(clause, isQuoted ? " '" : " ");
    AppendPiece(clause, value);
    AppendKeyword(clause, isQuoted ? "')" : ")");
}

} // namespace

size_t ComparisonSize(const Condition& condition, eUtEncodingType encoding) noexcept
{
    constexpr std::string_view frame = " AND (``.``  '')IS NOT NULL";
    size_t size = SizeIn(encoding, frame, UT_ENCODING_DEFAULT);
    for (const UtCString* piece : {&condition.table, &condition.field, &condition.op, &condition.value})
        size += SizeIn(encoding, piece->View(), piece->GetEncodingType());
    return size;
}

void AppendComparison(text::TextBuilder& clause, const Condition& condition, MYTYPES columnType) noexcept
{
    AppendKeyword(clause, "(`");
    AppendPiece(clause, condition.table);
    AppendKeyword(clause, "`.`");
    AppendPiece(clause, condition.field);
    AppendKeyword(clause, "` ");
    if (IsNullWord(condition.value)) // KEPT K-82: also where it is somebody's name.
        return AppendNullTest(clause, condition.op);
    AppendPiece(clause, condition.op);
    AppendValue(clause, condition.value, columnType);
}

void AppendOrderEntry(text::TextBuilder& list, const Condition& condition) noexcept
{
    AppendPiece(list, condition.table); // KEPT K-87: without backticks.
    AppendKeyword(list, ".");
    AppendPiece(list, condition.field);
    if (condition.op.StartsWith("<", true))
        AppendKeyword(list, " DESC");
}

bool CanBeNamed(const Condition& condition) noexcept
{
    return !HasBacktick(condition.table) && !HasBacktick(condition.field);
}

// KEPT K-84: a failure is a text in place of the clause, and nothing else reports it.
UtCString NoTableName(eUtEncodingType encoding) noexcept
{
    text::TextBuilder text(encoding);
    AppendKeyword(text, "CMyKey_CreateClause_No_Tablename");
    return TakeClause(text);
}

UtCString FieldNotExist(const Condition& condition, eUtEncodingType encoding) noexcept
{
    text::TextBuilder text(encoding);
    AppendKeyword(text, "CMyKey_CreateClause_Field_Not_Exist_");
    AppendPiece(text, condition.table);
    AppendKeyword(text, "_");
    AppendPiece(text, condition.field);
    return TakeClause(text);
}

UtCString ClauseFailure() noexcept
{
    return UtCString("CMyKey_CreateClause_Fail"); // fits into a text without memory, as it is given for lack of it
}

UtCString TakeClause(text::TextBuilder& clause) noexcept
{
    return clause.HasFailed() ? ClauseFailure() : clause.Take();
}

} // namespace sql
