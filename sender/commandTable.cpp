#include "sender/commandTable.h"

namespace {

/// The uneven blanks of the labels are intended.
constexpr Command commands[] = {
    {"abort", "Abort       ", {ClientMessageType::command, 1}},
    {"enable", "Enable      ", {ClientMessageType::command, 2}},
    {"disable", "Disable     ", {ClientMessageType::command, 3}},
    {"restart", "Restart     ", {ClientMessageType::command, 8}},
    {"abortdisable", "Abortdisable", {ClientMessageType::command, 15}},
    {"shutdown", "Shutdown    ", {ClientMessageType::command, 28}},
    {"UseWorking", "UseWorking    ", {ClientMessageType::command, 6}},
    {"IgnoreWorking", "IgnoreWorking    ", {ClientMessageType::command, 7}},
    {"RestartClientExe", "RestartClientExe    ", {ClientMessageType::command, 8}},
    {"RestartMachine", "RestartMachine    ", {ClientMessageType::command, 10}},
    {"RestartMachineAfterRender",
     "RestartMachineAfterRender    ",
     {ClientMessageType::command, 58}},
    {"IgnoreCPU", "IgnoreCPU    ", {ClientMessageType::command, 16}},
    {"ReserveCPUInteractive", "ReserveCPUInteractive    ", {ClientMessageType::command, 17}},
    {"UseCPUInteractive", "UseCPUInteractive    ", {ClientMessageType::command, 18}},
    {"ReloadAllConfig", "ReloadAllConfig    ", {ClientMessageType::command, 23}},
    {"ConfigSearchForApplications",
     "ConfigSearchForApplications    ",
     {ClientMessageType::command, 24}},
    {"UpdateServiceCfg", "UpdateServiceCfg    ", {ClientMessageType::command, 25}},
    {"ShowProcessTree", "ShowProcessTree    ", {ClientMessageType::command, 32}},
    {"DevDebug", "DevDebug    ", {ClientMessageType::command, 37}},
    // Not a command code, so its meaning is given here and not in the vocabulary.
    {"checkjob",
     "Checkjob",
     {ClientMessageType::checkJob, 9},
     "Send 'Check Job' to qvServer for rendering job"},
    {"EventFrameDone", nullptr, {ClientMessageType::frameDone, 0}},
};

Command const* commandOf(WorkingText const& word)
{
    for (Command const& command : commands)
        if (word.isEqual(command.word.data(), static_cast<int>(command.word.size())))
            return &command;
    return nullptr;
}

} // namespace

std::span<Command const> allCommands()
{
    return commands;
}

Request readCommand(int argc, char const* const* argv)
{
    Request request{std::nullopt, argv[1]};
    if (request.text.startsWith("-"))
        request.text.remove(0, 1);
    Command const* const command = commandOf(request.text);
    if (command == nullptr)
        return request;
    ClientMessage message = command->message;
    if (message.type == ClientMessageType::frameDone) {
        // Without a second argument the word itself is the number's text, which gives 0 like any
        // other text without leading digits.
        if (argc >= 3)
            request.text = argv[2];
        message.value = static_cast<std::uint16_t>(request.text.toInt(nullptr));
        if (message.value == 0)
            return request;
    }
    request.message = message;
    return request;
}
