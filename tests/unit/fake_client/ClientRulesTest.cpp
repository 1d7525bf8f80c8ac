#include "fake_client/ClientRules.h"

#include "fake_client/FakeClient.h"

// The fake client, scripted to answer as a server does.
namespace client_rules {
namespace {

using fake::Client;
using fake::Field;
using fake::Reply;

void ChangeMode(const std::string& statement)
{
    if (statement == NO_BACKSLASH_ESCAPES) {
        Client::Get().SetNoBackslashEscapes(true);
    }
}

std::vector<Field> Expressions(const std::vector<std::string>& names)
{
    std::vector<Field> fields = fake::TextFields(names);
    for (Field& field : fields) {
        field.orgName = "";
    }
    return fields;
}

void WriteScript()
{
    Client& client = Client::Get();
    client.Reset();
    client.SetStatementObserver(ChangeMode);
    client.On(FAILING, Reply::Error(1064, "You have an error in your SQL syntax"));
    client.On(TWO_ROWS, Reply::Rows(Expressions({"a", "b", "c"}), {{"1", std::nullopt, "x"}, {"22", "yy", ""}}));
    client.On(MANY_ROWS, Reply::Rows({"a"}, std::vector<fake::Row>(9, {std::string(10000, 'x')})));
    client.On(NO_ROW, Reply::Rows({"a"}, {}));
    client.On(INSERT_TWO, Reply::Ok(2, 1, "Records: 2  Duplicates: 0  Warnings: 0"));
    client.OnListFields("t", {Field{.name = "id",
                                    .type = MYSQL_TYPE_LONG,
                                    .flags = PRI_KEY_FLAG | NOT_NULL_FLAG,
                                    .length = 11,
                                    .charsetnr = 63,
                                    .def = "0",
                                    .table = "t"},
                              Field{.name = "b", .length = 20, .def = "zz", .table = "t"},
                              Field{.name = "c", .type = MYSQL_TYPE_LONG, .charsetnr = 63, .table = "t"}});
}

MYSQL* Connect(MYSQL* handle, const char* database)
{
    return mysql_real_connect(handle, "127.0.0.1", "user", "password", database, 3306, nullptr, 0);
}

class Script : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { WriteScript(); }
};

// Before each test, the construction of its fixture included.
[[maybe_unused]] const bool g_listening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Script);
    return true;
}();

} // namespace

MYSQL* ConnectTo(MYSQL* handle)
{
    return Connect(handle, "d");
}

MYSQL* ConnectWithoutDatabase(MYSQL* handle)
{
    return Connect(handle, nullptr);
}

MYSQL* ConnectWithWrongPassword(MYSQL* handle)
{
    Client::Get().FailNext(fake::Call::Connect, 1045, "Access denied");
    return ConnectTo(handle);
}

void CutConnection(MYSQL*)
{
    Client::Get().LoseConnection();
}

} // namespace client_rules
