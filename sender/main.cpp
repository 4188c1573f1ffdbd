#include "sender/commandTable.h"
#include "sender/outcome.h"
#include "sender/qvVersion.h"
#include "sender/sendMessage.h"
#include "sender/usage.h"

#include <cstdio>

namespace {

constexpr char ruler[] = "----------------------------------------------------------------";
static_assert(sizeof ruler - 1 == 64);

void printBanner()
{
    std::puts(ruler);
    // Two blanks stand between name and number: one here and the one that the version begins with.
    std::printf("qvNodeDispatch %s      %s\n", qvVersion, "(c) qvNodeDispatch contributors");
}

} // namespace

/// Hands the client on this machine one command. The status is 0 on every path, failures
/// included: callers learn the outcome from the printed text alone.
int main(int argc, char** argv)
{
    printBanner();
    if (argc < 2) {
        printUsage();
        return 0;
    }

    Request const request = readCommand(argc, argv);
    if (request.message)
        sendMessage(*request.message);
    else
        print({Outcome::Kind::unknownCommand, request.text});
    return 0;
}
