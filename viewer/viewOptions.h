#pragma once

#include <cstdio>

/// The task of a run of `mailboxView`.
enum class ViewTask
{
    look,
    watch,
    waitEmpty,
    waitClient,
    check,
    metrics,
    freeLock,
    help,
    version,
};

enum class ViewForm
{
    text,
    json,
    brief,
};

struct ViewOptions
{
    ViewTask task = ViewTask::look;
    ViewForm form = ViewForm::text;
    bool lock = false;
    int watchMs = 1000;
    int timeoutSeconds = 0; ///< 0 for none.
    int warning = 15;       ///< Messages above which a check warns.
    int critical = 25;      ///< Messages above which it calls the queue critical.
};

/// Reads the command line: `--name`, `--name=value`, `--name value`, `-x`, `-xvalue`, `-x value`.
/// @param error Stays empty, or names the wrong argument.
/// @return The options up to the wrong argument: the task tells how to report the failure.
ViewOptions readOptions(int argc, char const* const* argv, char (&error)[200]);

/// Prints the synopsis and the options, from their table.
void printOptions(std::FILE* to);
