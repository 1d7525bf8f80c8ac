#include "mfc/Framework.h"

#include "platform/MessageBox.h"

namespace {

// The framework takes the text to end at a zero byte.
TEST_F(WithFramework, AZeroByteInAMessageIsABlank)
{
    EXPECT_EQ(platform::ShowMessageBox(std::string_view("one\0two\0", 8), 64), IDOK);
    EXPECT_EQ(Notes().messageText, L"one two ");
    EXPECT_EQ(Notes().messageType, 64U);
}

TEST_F(WithFramework, AMessageHasTheFrameworksAnswer)
{
    Notes().answer = IDYES;
    EXPECT_EQ(platform::ShowMessageBox("Reparieren?", 36), IDYES);
    EXPECT_EQ(Notes().messageType, 36U);
}

TEST_F(WithFramework, ABoxThatCannotBeShownAgreesToNothing)
{
    Notes().answer = 0;
    EXPECT_EQ(platform::ShowMessageBox("Reparieren?", 36), IDNO);
    EXPECT_EQ(platform::ShowMessageBox("Fehler", 16), IDOK);
}

} // namespace
