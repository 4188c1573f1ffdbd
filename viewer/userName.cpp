#include "viewer/userName.h"

#include "sender/printable.h"

#include <cstdio>
#include <pwd.h>

UserName userName(uid_t uid)
{
    UserName name;
    std::FILE* const users = std::fopen("/etc/passwd", "re");
    if (users == nullptr)
        return name;
    while (passwd const* const user = fgetpwent(users))
        if (user->pw_uid == uid) {
            copyPrintable(name.text, user->pw_name);
            break;
        }
    std::fclose(users);
    return name;
}
