// What no look, or hardly one, on a real machine brings: a system's text with characters that JSON
// escapes.
#include "viewer/mailboxReport.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

template <class Printer>
std::string printed(Printer printer, MailboxLook const& look, MailboxVerdict const& verdict)
{
    testing::internal::CaptureStdout();
    printer(stdout, look, verdict);
    return testing::internal::GetCapturedStdout();
}

} // namespace

// 2.4996 seconds are not yet 2.5.
TEST(MailboxJson, TimeOfTheLockIsRoundedDown)
{
    MailboxLook look;
    look.read = true;
    look.lockByte = 1;
    look.time = look.takenFrom + std::chrono::microseconds(2499600);
    MailboxVerdict const verdict{MailboxProblem::lockHeld, "lockHeld", "", ""};
    EXPECT_NE(printed(printMailboxJson, look, verdict).find("\"secondsTaken\":2.499}"),
              std::string::npos);
    EXPECT_NE(printed(printMailboxText, look, verdict).find("for at least 2.4 s\n"),
              std::string::npos);
}

TEST(MailboxJson, EscapesWhatWouldEndAString)
{
    MailboxLook look;
    std::strcpy(look.host, "render\"07");
    look.secondsSince1970 = 1795316645;
    look.errorText = "shmget: \"a\\b\"\n\x1F\xC3\xA4";
    MailboxVerdict const verdict{MailboxProblem::refused, "refused", "It was refused.", ""};
    EXPECT_EQ(printed(printMailboxJson, look, verdict),
              "{\"schema\":1,\"host\":\"render\\\"07\",\"time\":\"2026-11-22T03:04:05Z\","
              "\"key\":5176575,\"keyHex\":\"0x004efcff\",\"status\":4,\"problem\":\"refused\","
              "\"what\":\"It was refused.\","
              "\"system\":\"shmget: \\\"a\\\\b\\\"\\u000a\\u001f\xC3\xA4\",\"advice\":\"\"}\n");
}
