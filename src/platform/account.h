// The account the program runs under.
#pragma once

#include <QString>

// GetUserNameA: the login name of the account; false, and the text left as
// it was, when the system doesn't know it.
bool GetUserNameA(QString& userName);
