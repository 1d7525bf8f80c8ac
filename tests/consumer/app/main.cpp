// A host application in small: it includes the public header alone and calls into each exported class without a server.
#include <MyDB.h>

#include <cstdio>

namespace {

int failures = 0;

void Expect(bool condition, const char* what)
{
    if (!condition) {
        std::printf("failed: %s\n", what);
        ++failures;
    }
}

} // namespace

int main()
{
    CMyServer server;
    server.SetHost("127.0.0.1");
    server.SetPort(1);
    Expect(server.GetHost() == "127.0.0.1", "CMyServer keeps its host");
    Expect(server.IsKindOf(RUNTIME_CLASS(CMyServer)), "CMyServer has a run-time class record");

    CMyDatabase database(server, "nothing");
    Expect(!database.IsOpen(), "CMyDatabase starts closed");

    CMyRecordSet rows(&database, "nothing");
    Expect(!rows.MoveNext(), "a record set without rows does not move");

    const CDateTime leapDay(2024, 2, 29, 12, 30, 0);
    Expect(leapDay.IsValid() && leapDay.GetDay() == 29, "CDateTime takes a leap day");

    UtCString text("M\xFCller");
    Expect(text.ChangeEncodingType(UT_ENCODING_UTF8) && text.GetByteLength() == 7, "UtCString converts to UTF-8");

    if (failures == 0)
        std::puts("consumer: ok");
    return failures == 0 ? 0 : 1;
}
