// Keys of arbitrary values against a table with text and number columns: the clause has exactly the comparisons that
// were added, and for a text column the server reads exactly the value that was meant.
//
// Input, per condition: a byte that picks the column, one for the operator, one for the encoding of the value, one for
// the size of the value, the value.
#include "CMyDatabase.h"
#include "CMyKey.h"
#include "CMyRecordSet.h"
#include "FuzzInput.h"
#include "FuzzServer.h"
#include "fake_client/FakeClient.h"
#include "harness/SqlTokens.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using harness::SqlToken;

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

struct Column
{
    const char* name;
    bool isText;
};

constexpr std::array<Column, 4> columns = {{{"NAME", true}, {"MEMO", true}, {"BORN", true}, {"AGE", false}}};
constexpr std::array<const char*, 8> operators = {"=", "<>", "<", ">=", "LIKE", "like", "NOT LIKE", ""};
constexpr std::array<eUtEncodingType, 5> encodings = {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE,
                                                      UT_ENCODING_UTF16_BE, UT_ENCODING_UTF32};

/// A record set of the table T on a connection in an encoding.
class Table
{
public:
    explicit Table(const char* charset) : m_database(fuzz::Server(charset), "shop")
    {
        fake::Client& client = fake::Client::Get();
        client.OnListFields("T", {{.name = "NAME", .type = MYSQL_TYPE_VAR_STRING, .charsetnr = 45},
                                  {.name = "MEMO", .type = MYSQL_TYPE_BLOB, .flags = BLOB_FLAG, .charsetnr = 45},
                                  {.name = "BORN", .type = MYSQL_TYPE_DATE, .charsetnr = 63},
                                  {.name = "AGE", .type = MYSQL_TYPE_LONG, .flags = NUM_FLAG, .charsetnr = 63}});
        Require(m_records.SetDatabase(&m_database, "T"));
    }

    const CMyRecordSet& Records() const { return m_records; }

private:
    CMyDatabase m_database;
    CMyRecordSet m_records;
};

struct Wanted
{
    Column column;
    std::string op;
    UtCString value;
};

Wanted NextCondition(fuzz::Input& input)
{
    const Column column = columns[input.Byte() % columns.size()];
    const std::string op = operators[input.Byte() % operators.size()];
    const eUtEncodingType encoding = encodings[input.Byte() % encodings.size()];
    return {column, op, UtCString(input.Bytes(input.Byte()), encoding)};
}

/// Values for the number column are numbers: a text for it is the caller's to check.
long Number(const UtCString& value)
{
    return static_cast<int32_t>(value.Hash());
}

CMyKey KeyOf(const std::vector<Wanted>& wanted)
{
    CMyKey key;
    for (const Wanted& condition : wanted)
        if (condition.column.isText)
            key.Add(condition.column.name, condition.value, condition.op.c_str());
        else
            key.Add(condition.column.name, Number(condition.value), condition.op.c_str());
    return key;
}

/// Reads tokens one by one; one that is not there, or another, ends the program.
class Reader
{
public:
    explicit Reader(std::string_view clause) : m_tokens(harness::SqlTokens(clause)) {}

    void Take(SqlToken::Kind kind, const std::string& text) { Require(Next() == SqlToken{kind, text}); }
    const SqlToken& Next()
    {
        Require(m_at < m_tokens.size());
        return m_tokens[m_at++];
    }
    bool IsAtEnd() const { return m_at == m_tokens.size(); }

private:
    std::vector<SqlToken> m_tokens;
    size_t m_at = 0;
};

void TakeWords(Reader& reader, const char* words)
{
    for (const SqlToken& word : harness::SqlTokens(words))
        reader.Take(word.kind, word.text);
}

/// LIKE reads its own escapes, so the value read there is compared only where it holds none.
bool IsComparable(const Wanted& wanted)
{
    const bool isLike = wanted.op == "LIKE" || wanted.op == "like";
    return !isLike || wanted.value.FindOneOf("\\_") < 0;
}

void TakeComparison(Reader& reader, const Wanted& wanted, eUtEncodingType encoding)
{
    TakeWords(reader, "(`T`.");
    reader.Take(SqlToken::QuotedName, wanted.column.name);
    const bool isEqual = wanted.op == "=" || wanted.op.empty();
    if (wanted.column.isText && wanted.value.EqualNoCase("null"))
        return TakeWords(reader, isEqual ? "IS NULL)" : "IS NOT NULL)");
    TakeWords(reader, wanted.op.empty() ? "=" : wanted.op.c_str());
    if (wanted.column.isText) {
        const SqlToken& literal = reader.Next();
        Require(literal.kind == SqlToken::Text);
        const UtCString expected(UtCString(wanted.value, encoding), UT_ENCODING_UTF8);
        Require(!IsComparable(wanted) || literal.text == expected.View());
    } else {
        TakeWords(reader, std::to_string(Number(wanted.value)).c_str());
    }
    reader.Take(SqlToken::Operator, ")");
}

void Check(const Table& table, const std::vector<Wanted>& wanted)
{
    const UtCString clause = KeyOf(wanted).CreateClause(&table.Records());
    if (clause == "CMyKey_CreateClause_Fail") // UTF-16 that would have to be mixed with something else
        return Require(table.Records().GetDatabase()->GetServer().GetEncodingType() == UT_ENCODING_UTF16_LE);
    Reader reader(UtCString(clause, UT_ENCODING_UTF8).View());
    for (size_t index = 0; index < wanted.size(); ++index) {
        if (index != 0)
            reader.Take(SqlToken::Word, "AND");
        TakeComparison(reader, wanted[index], clause.GetEncodingType());
    }
    Require(reader.IsAtEnd());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const Table tables[] = {Table(""), Table("utf8mb4"), Table("utf16le")};
    static const bool isLoaded = tables[0].Records().GetTableName() == "T" &&
                                 CMyKey("NAME", "x", "=").CreateClause(&tables[0].Records()) == "(`T`.`NAME` = 'x')";
    Require(isLoaded);
    fuzz::Input input(data, size);
    std::vector<Wanted> wanted;
    while (!input.IsAtEnd() && wanted.size() < 4)
        wanted.push_back(NextCondition(input));
    for (const Table& table : tables)
        Check(table, wanted);
    return 0;
}
