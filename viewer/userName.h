#pragma once

#include <sys/types.h>

/// A user's name, printable characters only.
struct UserName
{
    char text[33] = ""; ///< Empty for a user who is not in /etc/passwd.
};

/// The name of `uid` in /etc/passwd. Directories on the network are not asked: a viewer that is
/// linked statically cannot load the libraries for it.
UserName userName(uid_t uid);
