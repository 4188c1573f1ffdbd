// Keeps these tests away from a real client. The segment's key is fixed, so on a machine of the
// farm, or of a developer who runs a client, the tests would send commands to it. The test program
// therefore moves into a System V namespace of its own before its first test, and every process it
// starts lives in there too; what is left in it goes with the last of them.
#include "tests/endToEnd/clientSegment.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sched.h>
#include <string>
#include <unistd.h>

namespace {

void writeLine(char const* file, std::string const& line)
{
    std::ofstream(file) << line << std::flush;
}

// Without the right to a System V namespace a user gets one inside a user namespace, where the
// system hands those out. He stays who he was in there: owners of segments have to have names.
bool enterInsideUserNamespace()
{
    std::string const user = std::to_string(geteuid());
    std::string const group = std::to_string(getegid());
    if (unshare(CLONE_NEWUSER | CLONE_NEWIPC) != 0)
        return false;
    writeLine("/proc/self/uid_map", user + " " + user + " 1\n");
    writeLine("/proc/self/setgroups", "deny"); // the system's condition for the next line
    writeLine("/proc/self/gid_map", group + " " + group + " 1\n");
    return true;
}

class Isolation : public testing::Environment
{
public:
    // A failure reported here would only skip the tests, and skipped tests look like good ones.
    void SetUp() override
    {
        if (unshare(CLONE_NEWIPC) == 0 || enterInsideUserNamespace())
            return;
        if (endToEnd::clientSegmentExists()) {
            std::cerr << "A client's segment (key 0x4EFCFF) exists on this machine, and the system "
                         "refuses these tests a System V namespace of their own: they would send "
                         "commands to that client.\nStop the client, or remove a left-over segment "
                         "with 'ipcrm -M 0x4EFCFF', and start the tests again.\n";
            std::exit(EXIT_FAILURE);
        }
    }
};

[[maybe_unused]] testing::Environment* const isolation =
    testing::AddGlobalTestEnvironment(new Isolation);

} // namespace
