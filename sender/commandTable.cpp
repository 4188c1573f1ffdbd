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
    {"abort", {ClientMessageType::command, 1}},
    {"enable", {ClientMessageType::command, 2}},
    {"disable", {ClientMessageType::command, 3}},
    {"restart", {ClientMessageType::command, 8}},
    {"abortdisable", {ClientMessageType::command, 15}},
    {"shutdown", {ClientMessageType::command, 28}},
    {"UseWorking", {ClientMessageType::command, 6}},
    {"IgnoreWorking", {ClientMessageType::command, 7}},
    {"RestartClientExe", {ClientMessageType::command, 8}},
    {"RestartMachine", {ClientMessageType::command, 10}},
    {"RestartMachineAfterRender", {ClientMessageType::command, 58}},
    {"IgnoreCPU", {ClientMessageType::command, 16}},
    {"ReserveCPUInteractive", {ClientMessageType::command, 17}},
    {"UseCPUInteractive", {ClientMessageType::command, 18}},
    {"ReloadAllConfig", {ClientMessageType::command, 23}},
    {"ConfigSearchForApplications", {ClientMessageType::command, 24}},
    {"UpdateServiceCfg", {ClientMessageType::command, 25}},
    {"ShowProcessTree", {ClientMessageType::command, 32}},
    {"DevDebug", {ClientMessageType::command, 37}},
    {"checkjob", {ClientMessageType::checkJob, 9}},
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
    return ClientMessage{ClientMessageType::frameDone, value};
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
