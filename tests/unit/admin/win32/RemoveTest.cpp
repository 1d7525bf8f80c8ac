#include "unit/admin/RemoveFixture.h"

namespace {

class RemoveDatabaseOfWindows : public RemoveFixture
{
};

TEST_F(RemoveDatabaseOfWindows, DoesNothingForANameThatNoFolderCanHave)
{
    for (const char* name : {"nul", "CON", "com1.x", "sho?", "*"})
        ExpectRefusal(name);
}

} // namespace
