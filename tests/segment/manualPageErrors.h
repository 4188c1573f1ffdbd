// The errors that the manual pages of the segment calls name, with the system's words for them.
// tests/proof/injectedFaults.py reads these tables too: one error a line.
#pragma once

#include <cerrno>

struct ManualPageError
{
    int number;
    char const* words;
};

inline constexpr ManualPageError shmgetErrors[] = {
    {EACCES, "Permission denied"},         {EEXIST, "File exists"},
    {EINVAL, "Invalid argument"},          {ENFILE, "Too many open files in system"},
    {ENOENT, "No such file or directory"}, {ENOMEM, "Cannot allocate memory"},
    {ENOSPC, "No space left on device"},   {EPERM, "Operation not permitted"},
};

inline constexpr ManualPageError shmatErrors[] = {
    {EACCES, "Permission denied"},
    {EIDRM, "Identifier removed"},
    {EINVAL, "Invalid argument"},
    {ENOMEM, "Cannot allocate memory"},
};

inline constexpr ManualPageError shmctlErrors[] = {
    {EACCES, "Permission denied"},      {EFAULT, "Bad address"},
    {EIDRM, "Identifier removed"},      {EINVAL, "Invalid argument"},
    {ENOMEM, "Cannot allocate memory"}, {EOVERFLOW, "Value too large for defined data type"},
    {EPERM, "Operation not permitted"},
};

inline constexpr ManualPageError shmdtErrors[] = {
    {EINVAL, "Invalid argument"},
};

inline constexpr ManualPageError usleepErrors[] = {
    {EINTR, "Interrupted system call"},
    {EINVAL, "Invalid argument"},
};
