// Parsing of FTP directory listings (MLSD facts and LIST lines) into find
// records. Pure functions: no network, no clock but the one handed in.
#pragma once

#include "platform/wintypes.h"

#include <QByteArray>
#include <QDateTime>
#include <vector>

namespace ftp {

enum class NameEncoding { Utf8, Latin1 };

// One MLSD reply body (several lines). "." / ".." type facts (cdir, pdir)
// are skipped; lines without a usable name are skipped.
std::vector<WIN32_FIND_DATA> ParseMlsd(const QByteArray& body, NameEncoding enc);

// One LIST reply body: Unix ls -l forms and DOS/IIS forms. Unreadable lines
// are skipped. `now` (UTC) decides the year of dates given without one.
std::vector<WIN32_FIND_DATA> ParseList(const QByteArray& body, NameEncoding enc, const QDateTime& now);

// True for names a server must not be able to hand us ("/", "\", NUL).
bool IsUnsafeName(const QString& name);

}  // namespace ftp
