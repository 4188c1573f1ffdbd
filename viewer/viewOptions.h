#pragma once

#include <cstdio>

/// What a run of `mailboxView` is for.
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
    int timeoutSeconds = 0; ///< 0 is none given.
    int warning = 15;       ///< Messages above which a check warns.
    int critical = 25;      ///< Messages above which it calls the queue critical.
};

/// Reads the command line: `--name`, `--name=value`, `--name value`, `-x`, `-xvalue`, `-x value`.
/// @param error Stays empty, or tells the argument that is wrong.
/// @return What was read up to there: the task tells how the failure is to be reported.
ViewOptions readOptions(int argc, char const* const* argv, char (&error)[200]);

/// The synopsis and the options, as the table of them has it.
void printOptions(std::FILE* to);
