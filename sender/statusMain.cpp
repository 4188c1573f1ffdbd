#include "qv/segment/core/deferredSignals.h"
#include "sender/advice.h"
#include "sender/clientOfSegment.h"
#include "sender/commandTable.h"
#include "sender/outcome.h"
#include "sender/outputText.h"
#include "sender/qvVersion.h"
#include "sender/report.h"
#include "sender/sendMessage.h"
#include "sender/usage.h"

#include <csignal>
#include <cstdio>
#include <optional>
#include <string_view>
#include <sys/shm.h>
#include <unistd.h>

namespace {

constexpr char help[] =
    "usage: qvNodeDispatchStatus [--json | --brief] [--require-client] [-]word [number]\n"
    "Sends as qvNodeDispatch does, and ends with a status that tells what came of the command.\n"
    "  --json            the answer as one JSON object\n"
    "  --brief           the answer as one line that is equal on equal nodes\n"
    "  --require-client  send nothing when the client is dead\n"
    "  --help            this text\n"
    "  --version         the version\n";

enum class Answer
{
    text,
    json,
    brief,
};

struct Options
{
    Answer answer = Answer::text;
    bool requiresClient = false;
    bool wantsHelp = false;
    bool wantsVersion = false;
};

bool takeOption(std::string_view argument, Options& options)
{
    if (argument == "--json")
        options.answer = Answer::json;
    else if (argument == "--brief")
        options.answer = Answer::brief;
    else if (argument == "--require-client")
        options.requiresClient = true;
    else if (argument == "--help")
        options.wantsHelp = true;
    else if (argument == "--version")
        options.wantsVersion = true;
    else
        return false;
    return true;
}

/// Takes the options out of the command line, wherever they are.
/// @return The number of arguments that are left.
int readOptions(int argc, char** argv, Options& options)
{
    int left = 0;
    for (int i = 0; i < argc; ++i)
        if (i == 0 || !takeOption(argv[i], options))
            argv[left++] = argv[i];
    return left;
}

/// False when it is not known: without a segment, without the right to read it, or with a client
/// that this process cannot see.
bool isClientDead()
{
    shmid_ds status;
    int const id = shmget(clientSegmentKey(), 0, 0);
    if (id == -1 || shmctl(id, IPC_STAT, &status) == -1)
        return false;
    return lookAtClient(status).state == ProcessState::dead;
}

void show(Options const& options, char const* word, Outcome const& outcome, OutputText& text)
{
    if (options.answer == Answer::json)
        showJson(word, outcome, text);
    else if (options.answer == Answer::brief)
        showBrief(outcome);
    else
        text.show();
}

/// @return The exit status.
int end(Options const& options, char const* word, Outcome const& outcome, OutputText& text)
{
    add(text, outcome);
    show(options, word, outcome, text);
    return rowOf(outcome.kind).status;
}

/// What came of the message. Where a signal is to end the run, the answer is shown before it does.
/// @return None when a signal ends the run ahead of the message.
std::optional<Outcome> sendAndShow(Options const& options, char const* word,
                                   ClientMessage const& message, OutputText& text)
{
    qvSegment::DeferredSignals const untilTold;
    auto const outcome = sendMessage(message, untilTold, text);
    if (outcome && untilTold.endsPending())
        show(options, word, *outcome, text);
    return outcome;
}

/// @return The exit status.
int send(Options const& options, char const* word, ClientMessage const& message, OutputText& text)
{
    if (options.answer == Answer::text && isatty(STDOUT_FILENO) != 0)
        text.show();
    auto const outcome = sendAndShow(options, word, message, text);
    if (!outcome)
        return 6; // not reached: a signal has ended the run
    show(options, word, *outcome, text);
    return rowOf(outcome->kind).status;
}

} // namespace

/// Hands the client on this machine one command, as the tool does. The status tells the outcome,
/// also when the answer cannot be written.
int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone changes nothing about the command
    Options options;
    argc = readOptions(argc, argv, options);
    if (options.wantsHelp || options.wantsVersion) {
        std::fputs(options.wantsHelp ? help : &qvVersion[1], stdout);
        std::fputs(options.wantsHelp ? "" : "\n", stdout);
        return 0;
    }

    OutputText text;
    addBanner(text);
    if (argc < 2)
        return end(options, nullptr, {Outcome::Kind::usage, {}}, text);
    char const* const word = argv[1];
    Request const request = readCommand(argc, argv);
    advise(argc, argv, request);
    if (!request.message)
        return end(options, word, {Outcome::Kind::unknownCommand, request.text}, text);
    if (options.requiresClient && isClientDead()) {
        std::fputs("qvNodeDispatchStatus: the client is dead; nothing is sent\n", stderr);
        return end(options, word, {Outcome::Kind::clientDead, {}}, text);
    }
    return send(options, word, *request.message, text);
}
