// Parsing of FTP directory listings (MLSD facts and LIST lines) into find
// records. Pure functions: no network, no clock but the one handed in.
#pragma once

#include "platform/wintypes.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <functional>
#include <vector>

namespace ftp {

enum class NameEncoding { Utf8, Latin1 };

// Turns the raw bytes of a server's name into the text the logic sees. Called
// once per entry that survives the unsafe-name check on its raw bytes.
using NameDecoder = std::function<QString(QByteArrayView raw)>;

// One MLSD reply body (several lines). "." / ".." type facts (cdir, pdir)
// are skipped; lines without a usable name are skipped.
std::vector<WIN32_FIND_DATA> ParseMlsd(const QByteArray& body, const NameDecoder& decode);
std::vector<WIN32_FIND_DATA> ParseMlsd(const QByteArray& body, NameEncoding enc);

// One LIST reply body: Unix ls -l (several languages and date styles),
// DOS/IIS, EPLF, VMS, NetWare, OS/2, AS/400 and VxWorks lines, mixed freely.
// Unreadable lines are skipped. `now` (UTC) decides the year of dates given
// without one.
std::vector<WIN32_FIND_DATA> ParseList(const QByteArray& body, const NameDecoder& decode, const QDateTime& now);
std::vector<WIN32_FIND_DATA> ParseList(const QByteArray& body, NameEncoding enc, const QDateTime& now);

// How much of a LIST body received so far can be parsed on its own: up to
// the last line end, less a last line that may be the first half of an
// entry wrapped over two lines (VMS puts long names on a line of their own).
qsizetype ListReadyLength(QByteArrayView received);

// True for names a server must not be able to hand us ("/", "\", NUL).
bool IsUnsafeName(const QString& name);
bool IsUnsafeRawName(QByteArrayView raw);

}  // namespace ftp
