// The input box the server commands ask a name with.
#pragma once

#include <QString>

// Asks at the server commands' place, a little left of and above the
// screen's middle, under the program's title. Empty text for Cancel and
// for an empty answer alike.
QString AskServerName(const QString& prompt, const QString& defaultText = QString());
