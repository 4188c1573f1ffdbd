#include "sender/usage.h"

#include "qv/client/qvClientCommandName.h"
#include "sender/commandTable.h"

namespace {

void addRow(OutputText& text, char const* label, char const* meaning)
{
    text.addFormatted("  %s:  %s\n", label, meaning);
}

} // namespace

void addUsage(OutputText& text)
{
    text.add("qvNodeDispatch send the local client a command.\n");
    text.add("Usage: qvNodeDispatch -command\n");
    text.add("Available commands are:\n");
    for (Command const& command : allCommands()) {
        if (command.label == nullptr)
            continue;
        if (command.meaning != nullptr)
            addRow(text, command.label, command.meaning);
        else
            addRow(text, command.label,
                   qvC::qvClientCommandName(static_cast<unsigned char>(command.message.value))
                       .asChar());
    }
}
