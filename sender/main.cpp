#include "qv/segment/core/deferredSignals.h"
#include "sender/commandTable.h"
#include "sender/outcome.h"
#include "sender/outputText.h"
#include "sender/sendMessage.h"
#include "sender/usage.h"

#include <unistd.h>

namespace {

void send(ClientMessage const& message, OutputText& text)
{
    // Before the wait for the lock, and while signals take effect: a terminal may be stopped.
    if (isatty(STDOUT_FILENO) != 0)
        text.show();
    qvSegment::DeferredSignals const untilTold;
    if (sendMessage(message, untilTold, text) && untilTold.endsPending())
        text.show(); // the outcome is shown before the run ends
}

} // namespace

/// Hands the client on this machine one command. The status is 0 on every path, failures
/// included: callers learn the outcome from the printed text alone.
int main(int argc, char** argv)
{
    OutputText text;
    addBanner(text);
    if (argc < 2) {
        addUsage(text);
    } else {
        Request const request = readCommand(argc, argv);
        if (request.message)
            send(*request.message, text);
        else
            add(text, {Outcome::Kind::unknownCommand, request.text});
    }
    text.show();
    return 0;
}
