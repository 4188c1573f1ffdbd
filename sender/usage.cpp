#include "sender/usage.h"

#include "qv/client/qvClientCommandName.h"
#include "sender/commandTable.h"
#include "sender/qvVersion.h"

namespace {

constexpr char ruler[] = "----------------------------------------------------------------\n";
static_assert(sizeof ruler - 2 == 64);

void addRow(OutputText& text, char const* label, char const* meaning)
{
    text.addFormatted("  %s:  %s\n", label, meaning);
}

} // namespace

void addBanner(OutputText& text)
{
    text.add(ruler);
    // Two blanks separate name and number: one here and the one that the version begins with.
    text.addFormatted("qvNodeDispatch %s      %s\n", qvVersion, "(c) qvNodeDispatch contributors");
}

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
