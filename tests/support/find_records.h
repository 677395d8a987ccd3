// Reading find records the way the tests look at them: whole listings, by
// name, sizes and times.
#pragma once

#include "platform/wintypes.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <map>
#include <vector>

// Every record a local find hands out for the pattern, in order; none when
// the find fails.
std::vector<WIN32_FIND_DATA> ListLocal(const QString& pathAndPattern);
// Every record of the server's current folder, by name.
std::map<QString, WIN32_FIND_DATA> ListServer(HINTERNET hConnect);

QStringList Names(const std::vector<WIN32_FIND_DATA>& entries);
// The record of that name; a failure of the test and an empty record when
// there is none.
WIN32_FIND_DATA Entry(const std::vector<WIN32_FIND_DATA>& entries, const QString& name);

int64_t SizeOf(const WIN32_FIND_DATA& d);
// The write time as a date and time in UTC, to the second.
QDateTime TimeOf(const WIN32_FIND_DATA& d);
