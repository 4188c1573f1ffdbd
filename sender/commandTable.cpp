#include "sender/commandTable.h"

#include <cstdlib>

namespace {

struct Command
{
    char const* word;
    ClientMessage message;
};

/// All words with a fixed message, in the order in which they are compared.
constexpr Command commands[] = {
    {"abort", {MessageType::command, 1}},
    {"enable", {MessageType::command, 2}},
    {"disable", {MessageType::command, 3}},
    {"restart", {MessageType::command, 8}},
    {"abortdisable", {MessageType::command, 15}},
    {"shutdown", {MessageType::command, 28}},
    {"UseWorking", {MessageType::command, 6}},
    {"IgnoreWorking", {MessageType::command, 7}},
    {"RestartClientExe", {MessageType::command, 8}},
    {"RestartMachine", {MessageType::command, 10}},
    {"RestartMachineAfterRender", {MessageType::command, 58}},
    {"IgnoreCPU", {MessageType::command, 16}},
    {"ReserveCPUInteractive", {MessageType::command, 17}},
    {"UseCPUInteractive", {MessageType::command, 18}},
    {"ReloadAllConfig", {MessageType::command, 23}},
    {"ConfigSearchForApplications", {MessageType::command, 24}},
    {"UpdateServiceCfg", {MessageType::command, 25}},
    {"ShowProcessTree", {MessageType::command, 32}},
    {"DevDebug", {MessageType::command, 37}},
    {"checkjob", {MessageType::checkJob, 9}},
};

/// The last word of the table, whose value is the second argument. The usage text keeps quiet
/// about it.
constexpr char frameDoneWord[] = "EventFrameDone";

/// The message of "EventFrameDone". Without a second argument the word itself is the number's
/// text, which gives 0 like any other text without leading digits.
std::optional<ClientMessage> readFrameDone(int argc, char const* const* argv, WorkingText& text)
{
    if (argc >= 3)
        text = argv[2];
    auto const value = static_cast<std::uint16_t>(std::atoi(text.asChar()));
    if (value == 0)
        return std::nullopt;
    return ClientMessage{MessageType::frameDone, value};
}

} // namespace

std::optional<ClientMessage> readCommand(int argc, char const* const* argv, WorkingText& word)
{
    word = argv[1];
    if (word.startsWith("-"))
        word.remove(0, 1);

    for (Command const& command : commands)
        if (word.isEqual(command.word))
            return command.message;
    if (word.isEqual(frameDoneWord))
        return readFrameDone(argc, argv, word);
    return std::nullopt;
}
