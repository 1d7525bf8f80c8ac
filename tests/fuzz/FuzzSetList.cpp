// Brackets of arbitrary columns and values: the INSERT has exactly one assignment for each column that was set, and the
// server reads exactly the value that was meant; with a zero byte that cannot be escaped nothing is sent.
//
// Input: a byte for the mode, then for each value a byte that picks the setter, one for the column, one for the
// encoding, one for the size of the value, the value. The column is one of the table or the value itself.
#include "CMyDatabase.h"
#include "CMyRecordSet.h"
#include "FuzzInput.h"
#include "FuzzServer.h"
#include "fake_client/FakeClient.h"
#include "harness/SqlTokens.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

namespace {

using harness::BackslashMode;
using harness::SqlToken;

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

constexpr std::array<eUtEncodingType, 5> encodings = {UT_ENCODING_DEFAULT, UT_ENCODING_UTF8, UT_ENCODING_UTF16_LE,
                                                      UT_ENCODING_UTF16_BE, UT_ENCODING_UTF32};

class RecordSet : public CMyRecordSet
{
public:
    using CMyRecordSet::SetFieldBuffer;
};

/// A record set of the table T on a connection in an encoding.
struct Table
{
    explicit Table(const char* charset) : database(fuzz::Server(charset), "shop")
    {
        fake::Client& client = fake::Client::Get();
        client.OnListFields("T", {{.name = "UTF", .type = MYSQL_TYPE_VAR_STRING, .charsetnr = 45},
                                  {.name = "LATIN", .type = MYSQL_TYPE_VAR_STRING, .charsetnr = 8},
                                  {.name = "MUST", .type = MYSQL_TYPE_LONG, .flags = NOT_NULL_FLAG, .charsetnr = 63}});
        client.OnPrefix("INSERT", fake::Reply::Ok(1));
        Require(records.SetDatabase(&database, "T"));
    }

    CMyDatabase database;
    RecordSet records;
};

/// One assignment as it was meant: a literal, or words.
struct Wanted
{
    UtCString column;
    bool isLiteral;
    std::string value;
};

bool HasZero(const std::string& text)
{
    return text.find('\0') != std::string::npos;
}

/// What the model of the bracket expects, set along with the bracket.
class Bracket
{
public:
    Bracket(Table& table, BackslashMode mode) : m_table(table), m_mode(mode) { Require(table.records.AppendStart()); }

    void Set(fuzz::Input& input)
    {
        const size_t setter = input.Byte() % 7;
        const size_t column = input.Byte() % 4;
        const eUtEncodingType encoding = encodings[input.Byte() % encodings.size()];
        const std::string_view bytes = input.Bytes(input.Byte());
        const UtCString text(bytes, encoding);
        constexpr const char* names[] = {"utf", "Latin", "MUST"};
        SetColumn(setter, column < 3 ? UtCString(names[column]) : text, text, bytes);
    }

    void End()
    {
        fake::Client::Get().ForgetCalls();
        const bool isAppended = m_table.records.AppendEnd();
        std::vector<std::string> statements = fake::Client::Get().Statements();
        std::erase_if(statements, [](const std::string& statement) { return !statement.starts_with("INSERT"); });
        const bool isSendable = std::none_of(m_wanted.begin(), m_wanted.end(), [&](const Wanted& wanted) {
            return HasZero(InStatement(wanted.column)) || (m_mode == BackslashMode::IsPlain && HasZero(wanted.value));
        });
        Require(isAppended == (!m_wanted.empty() && isSendable));
        Require(statements.size() == (isAppended ? 1 : 0));
        if (isAppended)
            Check(statements.front());
    }

private:
    std::string InStatement(const UtCString& text) const
    {
        return std::string(UtCString(text, m_table.database.GetServer().GetEncodingType()).View());
    }

    void Want(bool isSet, const UtCString& column, bool isLiteral, const std::string& value)
    {
        Require(isSet == !column.IsEmpty());
        if (!isSet)
            return;
        const UtCString upper = column.toUpper();
        for (Wanted& wanted : m_wanted)
            if (wanted.column == upper) {
                wanted.isLiteral = isLiteral;
                wanted.value = value;
                return;
            }
        m_wanted.push_back({upper, isLiteral, value});
    }

    void WantText(bool isSet, const UtCString& column, UtCString text)
    {
        if (column.EqualNoCase("utf"))
            text.ChangeEncodingType(UT_ENCODING_UTF8);
        else if (column.EqualNoCase("latin") || column.EqualNoCase("must"))
            text.ChangeEncodingType(UT_ENCODING_DEFAULT);
        if (text.EqualNoCase("null"))
            Want(isSet, column, false, "null");
        else
            Want(isSet, column, true, InStatement(text));
    }

    void SetColumn(size_t setter, const UtCString& column, const UtCString& text, std::string_view bytes)
    {
        RecordSet& records = m_table.records;
        const int32_t number = static_cast<int32_t>(text.Hash());
        switch (setter) {
        case 0:
        case 1:
            return WantText(records.SetFieldText(column, text), column, text);
        case 2:
            return Want(records.SetFieldBuffer(column, bytes.data() ? bytes.data() : "", bytes.size()), column, true,
                        std::string(bytes));
        case 3:
            return Want(records.SetFieldLong(column, number), column, false, std::to_string(number));
        case 4:
            return Want(records.SetFieldDouble(column, std::numeric_limits<double>::infinity()), column, false,
                        "inf out of range");
        case 5:
            return Want(records.SetFieldNull(column), column, column.EqualNoCase("must"),
                        column.EqualNoCase("must") ? "" : "null");
        default:
            const auto found = std::find_if(m_wanted.begin(), m_wanted.end(),
                                            [&](const Wanted& wanted) { return wanted.column == column.toUpper(); });
            Require(records.RemoveFieldInSetList(column) == (found != m_wanted.end()));
            if (found != m_wanted.end())
                m_wanted.erase(found);
        }
    }

    void Check(const std::string& statement) const
    {
        std::vector<SqlToken> expected = harness::SqlTokens("INSERT INTO T SET");
        for (const Wanted& wanted : m_wanted) {
            if (&wanted != &m_wanted.front())
                expected.push_back({SqlToken::Operator, ","});
            expected.push_back({SqlToken::QuotedName, "T"});
            expected.push_back({SqlToken::Operator, "."});
            expected.push_back({SqlToken::QuotedName, InStatement(wanted.column)});
            expected.push_back({SqlToken::Operator, "="});
            if (wanted.isLiteral)
                expected.push_back({SqlToken::Text, wanted.value});
            else
                for (const SqlToken& word : harness::SqlTokens(wanted.value))
                    expected.push_back(word);
        }
        Require(harness::SqlTokens(statement, m_mode) == expected);
    }

    Table& m_table;
    BackslashMode m_mode;
    std::vector<Wanted> m_wanted;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static Table tables[] = {Table(""), Table("utf8mb4")};
    for (Table& table : tables) {
        fuzz::Input input(data, size);
        const BackslashMode mode = input.Byte() % 2 == 0 ? BackslashMode::Escapes : BackslashMode::IsPlain;
        fake::Client::Get().SetNoBackslashEscapes(mode == BackslashMode::IsPlain);
        Bracket bracket(table, mode);
        for (int count = 0; count < 6 && !input.IsAtEnd(); ++count)
            bracket.Set(input);
        bracket.End();
    }
    return 0;
}
