#include "sender/usage.h"

#include "qv/client/qvClientCommandName.h"
#include "sender/commandTable.h"

#include <cstdio>

namespace {

void printRow(char const* label, char const* meaning)
{
    std::printf("  %s:  %s\n", label, meaning);
}

} // namespace

void printUsage()
{
    std::puts("qvNodeDispatch send the local client a command.");
    std::puts("Usage: qvNodeDispatch -command");
    std::puts("Available commands are:");
    for (Command const& command : allCommands()) {
        if (command.label == nullptr)
            continue;
        if (command.meaning != nullptr)
            printRow(command.label, command.meaning);
        else
            printRow(command.label,
                     qvC::qvClientCommandName(static_cast<unsigned char>(command.message.value))
                         .asChar());
    }
}
