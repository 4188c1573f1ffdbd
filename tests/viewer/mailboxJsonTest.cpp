// What no look on a real machine brings: a system's text with characters that JSON escapes.
#include "viewer/mailboxReport.h"

#include <gtest/gtest.h>

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
