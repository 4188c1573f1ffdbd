#include "viewer/viewOptions.h"

#include "sender/printable.h"

#include <charconv>
#include <cstring>
#include <string>
#include <string_view>

namespace {

constexpr unsigned bit(ViewTask task)
{
    return 1u << static_cast<unsigned>(task);
}

constexpr unsigned waiting = bit(ViewTask::waitEmpty) | bit(ViewTask::waitClient);
constexpr unsigned showing = bit(ViewTask::look) | bit(ViewTask::watch) | waiting;
constexpr unsigned checking = bit(ViewTask::check);

enum class Value
{
    none,
    optional,
    needed,
};

struct Option
{
    char const* name; ///< With its dashes, as the user types it.
    char const* help;
    char const* shortName = "";     ///< A second name.
    char const* argument = "";      ///< The word for the value in the help.
    unsigned tasks = 0;             ///< Tasks that accept it; 0 for an option that is a task.
    ViewTask task = ViewTask::look; ///< If it is one.
    Value value = Value::none;
    int least = 1; ///< Of the value.
    void (*set)(ViewOptions& options, int value) = nullptr;
};

constexpr Option optionTable[] = {
    {.name = "--json",
     .help = "one JSON object per look, on one line",
     .tasks = showing,
     .set = [](ViewOptions& options, int) { options.form = ViewForm::json; }},
    {.name = "--brief",
     .help = "the verdict in one line, equal on equal nodes",
     .tasks = showing,
     .set = [](ViewOptions& options, int) { options.form = ViewForm::brief; }},
    {.name = "--lock",
     .help = "look under the mailbox's lock",
     .tasks = showing,
     .set = [](ViewOptions& options, int) { options.lock = true; }},
    {.name = "--watch",
     .help = "look every MS milliseconds (1000) until SIGINT or SIGTERM",
     .argument = "MS",
     .task = ViewTask::watch,
     .value = Value::optional,
     .set = [](ViewOptions& options, int value) { options.watchMs = value; }},
    {.name = "--wait-empty",
     .help = "look until a living client has taken all its messages",
     .task = ViewTask::waitEmpty},
    {.name = "--wait-client",
     .help = "look until a client is there that has started",
     .task = ViewTask::waitClient},
    {.name = "--timeout",
     .help = "how many seconds to wait, which both need",
     .argument = "S",
     .tasks = waiting,
     .value = Value::needed,
     .set = [](ViewOptions& options, int value) { options.timeoutSeconds = value; }},
    {.name = "--check",
     .help = "one line and a status for a monitoring system",
     .task = ViewTask::check},
    {.name = "--warning",
     .help = "warn of more than N messages (15)",
     .shortName = "-w",
     .argument = "N",
     .tasks = checking,
     .value = Value::needed,
     .least = 0,
     .set = [](ViewOptions& options, int value) { options.warning = value; }},
    {.name = "--critical",
     .help = "call more than N messages critical (25)",
     .shortName = "-c",
     .argument = "N",
     .tasks = checking,
     .value = Value::needed,
     .least = 0,
     .set = [](ViewOptions& options, int value) { options.critical = value; }},
    {.name = "--metrics", .help = "metrics for Prometheus", .task = ViewTask::metrics},
    {.name = "--free-lock",
     .help = "free a stale lock, where nobody but the client can hold it",
     .task = ViewTask::freeLock},
    {.name = "--help", .help = "this text", .shortName = "-h", .task = ViewTask::help},
    {.name = "--version", .help = "the version", .task = ViewTask::version},
};

/// An option as it was given, with the value joined to it.
struct Given
{
    Option const* option = nullptr;
    std::string_view value;
    bool isJoined = false;
};

Given matchLong(Option const& option, std::string_view argument)
{
    std::string_view const name = option.name;
    if (!argument.starts_with(name))
        return {};
    argument.remove_prefix(name.size());
    if (argument.empty())
        return {&option, {}, false};
    return argument[0] == '=' ? Given{&option, argument.substr(1), true} : Given{};
}

Given matchShort(Option const& option, std::string_view argument)
{
    std::string_view const name = option.shortName;
    if (name.empty() || !argument.starts_with(name))
        return {};
    argument.remove_prefix(name.size());
    if (!argument.empty() && option.value == Value::none)
        return {};
    return {&option, argument, !argument.empty()};
}

Given findOption(std::string_view argument)
{
    for (Option const& option : optionTable)
        for (Given const& given : {matchLong(option, argument), matchShort(option, argument)})
            if (given.option != nullptr)
                return given;
    return {};
}

bool readNumber(std::string_view text, int least, int& number)
{
    char const* const end = text.data() + text.size();
    auto const result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && number >= least;
}

/// Reads the command line once.
class Reader
{
public:
    Reader(int argc, char const* const* argv, char (&error)[200])
        : argc_(argc),
          argv_(argv),
          error_(error)
    {
        error_[0] = '\0';
    }

    ViewOptions read()
    {
        for (next_ = 1; next_ < argc_ && !hasFailed();)
            readOne();
        if (!hasFailed())
            findConflict();
        if (hasFailed())
            findCheck();
        return options_;
    }

private:
    bool hasFailed() const { return error_[0] != '\0'; }

    /// The argument may hold any bytes.
    void fail(char const* argument, char const* what, char const* other = "")
    {
        char shown[60];
        copyPrintable(shown, argument);
        std::snprintf(error_, sizeof error_, "'%s' %s%s", shown, what, other);
    }

    void readOne()
    {
        char const* const argument = argv_[next_++];
        Given given = findOption(argument);
        if (given.option == nullptr)
            return fail(argument, "is no option");
        Option const& option = *given.option;
        if (option.value == Value::none && given.isJoined)
            return fail(argument, "has a value, which does not go with ", option.name);
        takeValue(given);

        int value = 0;
        if (given.isJoined && !readNumber(given.value, option.least, value))
            return fail(argv_[next_ - 1], "is no number that goes with ", option.name);
        if (option.value == Value::needed && !given.isJoined)
            return fail(argument, "needs a number");
        take(option, given.isJoined, value);
    }

    /// Takes a value that is an argument of its own.
    void takeValue(Given& given)
    {
        if (given.option->value == Value::none || given.isJoined || next_ == argc_)
            return;
        if (given.option->value == Value::optional && argv_[next_][0] == '-')
            return;
        given.value = argv_[next_++];
        given.isJoined = true;
    }

    void take(Option const& option, bool hasValue, int value)
    {
        if (option.tasks == 0 && task_ != nullptr && task_ != &option)
            return fail(option.name, "does not go with ", task_->name);
        if (option.tasks == 0) {
            task_ = &option;
            options_.task = option.task;
        } else
            given_[&option - optionTable] = true;
        if (option.set != nullptr && (hasValue || option.value == Value::none))
            option.set(options_, value);
    }

    void findConflict()
    {
        for (Option const& option : optionTable)
            if (given_[&option - optionTable] && (option.tasks & bit(options_.task)) == 0)
                return task_ != nullptr ? fail(option.name, "does not go with ", task_->name)
                                        : fail(option.name, "goes with other options only");
        if ((waiting & bit(options_.task)) != 0 && options_.timeoutSeconds == 0)
            fail(task_->name, "needs --timeout S");
    }

    /// Looks behind the wrong argument too: a failed check has its own form for monitoring systems.
    void findCheck()
    {
        for (int i = 1; i < argc_; ++i)
            if (findOption(argv_[i]).option != nullptr &&
                findOption(argv_[i]).option->task == ViewTask::check)
                options_.task = ViewTask::check;
    }

    int argc_;
    char const* const* argv_;
    char (&error_)[200];
    int next_ = 1;
    ViewOptions options_;
    Option const* task_ = nullptr;
    bool given_[std::size(optionTable)]{};
};

} // namespace

ViewOptions readOptions(int argc, char const* const* argv, char (&error)[200])
{
    return Reader(argc, argv, error).read();
}

void printOptions(std::FILE* to)
{
    std::fputs("usage: mailboxView [OPTION]...\n\n", to);
    for (Option const& option : optionTable) {
        std::string shown = option.shortName;
        shown += shown.empty() ? "" : ", ";
        shown += option.name;
        std::string const argument = option.argument;
        if (option.value == Value::optional)
            shown += " [" + argument + "]";
        else if (option.value == Value::needed)
            shown += " " + argument;
        std::fprintf(to, "  %-16s  %s\n", shown.c_str(), option.help);
    }
}
