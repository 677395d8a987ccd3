#include "platform/account.h"

#include <pwd.h>
#include <unistd.h>

bool GetUserNameA(QString& userName) {
    const passwd* pw = getpwuid(geteuid());
    if (!pw || !pw->pw_name) return false;
    userName = QString::fromLocal8Bit(pw->pw_name);
    return true;
}
