// What no look, or hardly one, on a real machine brings: a system's text with characters that JSON
// escapes.
#include "viewer/mailboxReport.h"

#include <gtest/gtest.h>

#include <string>

// 2.4996 seconds are not yet 2.5.
TEST(MailboxJson, TimeOfTheLockIsRoundedDown)
{
    MailboxLook look;
    look.read = true;
    look.lockByte = 1;
    look.time = look.takenFrom + std::chrono::microseconds(2499600);
    MailboxVerdict const verdict{MailboxProblem::lockHeld, "lockHeld", "", ""};
    testing::internal::CaptureStdout();
    printMailboxJson(look, verdict);
    EXPECT_NE(testing::internal::GetCapturedStdout().find("\"secondsTaken\":2.499}"),
              std::string::npos);
    testing::internal::CaptureStdout();
    printMailboxText(look, verdict);
    EXPECT_NE(testing::internal::GetCapturedStdout().find("for at least 2.4 s\n"),
              std::string::npos);
}

TEST(MailboxJson, EscapesWhatWouldEndAString)
{
    MailboxLook look;
    look.errorText = "shmget: \"a\\b\"\n\x1F\xC3\xA4";
    MailboxVerdict const verdict{MailboxProblem::refused, "refused", "It was refused.", ""};
    testing::internal::CaptureStdout();
    printMailboxJson(look, verdict);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "{\"key\":5176575,\"status\":4,\"problem\":\"refused\",\"what\":\"It was refused.\","
              "\"system\":\"shmget: \\\"a\\\\b\\\"\\u000a\\u001f\xC3\xA4\",\"advice\":\"\"}\n");
}
