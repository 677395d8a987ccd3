// What the local-file modules share: the guard that keeps exceptions inside
// the platform, path resolution and the drive table. Not for the logic.
#pragma once

#include "platform/localfs.h"

#include <QByteArray>
#include <QString>
#include <vector>

namespace localfs::detail {

// Nothing may leave the platform as an exception; a failed allocation ends
// the call with its failure value.
template <typename T, typename F>
T Guarded(T failure, F&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

inline bool IsSeparator(QChar c) { return c == QLatin1Char('\\') || c == QLatin1Char('/'); }

inline bool IsDots(const char* name) {
    return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

inline QByteArray Join(const QByteArray& folder, const QByteArray& name) {
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

inline QByteArray ParentOf(const QByteArray& path) {
    const qsizetype cut = path.lastIndexOf('/');
    return cut <= 0 ? QByteArray("/") : path.left(cut);
}

// Index 0 is c: ("/"); the volumes d:, e:, ... follow. `fresh` reads the
// mount table again, otherwise a reading up to a second old serves.
std::vector<QByteArray> DriveRoots(bool fresh = false);
// The letter index from "c:", "C:\", "d: [/media/usb]"; -1 when none.
int DriveIndexOf(const QString& drive);
// The drive an absolute, clean POSIX path lies on: the deepest root that
// holds it; `below` gets the part under that root without a leading "/".
size_t DriveOfPath(const std::vector<QByteArray>& roots, const QByteArray& path, QByteArray& below);
QByteArray CurrentDirectory();
// Lexical clean-up of an absolute POSIX path: no empty, "." or ".." parts.
QByteArray CleanAbsolute(const QByteArray& path);
// The folders of d:, e:, ... from a mount table.
std::vector<QByteArray> ExtraRootsFrom(const QByteArray& table);

// The text of a name on disk and back: NameBytes(NameText(b)) == b for any
// name, so no two names share a text (see localfs_names.cpp).
QString NameText(const QByteArray& name);
QByteArray NameBytes(const QString& text);

struct Resolved {
    bool ok = false;
    QByteArray posix;      // absolute, no trailing "/" except the root
    bool driveRoot = false;  // the path is the top of its drive
    QByteArray lastGiven;  // the last component as written, empty at a root
};

// Windows form to a POSIX path, the way Wine looks names up: an exact match
// first, else a case-insensitive one; once a component is missing the rest
// keep the case given. Fails for a component holding NUL.
Resolved Resolve(const QString& windowsPath);
// The POSIX bytes of a Windows-form path; empty when it can't be resolved.
QByteArray PosixBytes(const QString& windowsPath);
// The Windows form of a POSIX path given as bytes.
QString WindowsOf(const QByteArray& posixPath);
// The entry of `folder` whose text equals `name` ignoring case; the first in
// byte order when several do. Empty when none.
QByteArray FindCaseless(const QByteArray& folder, const QString& name);

enum class Kind { Missing, File, Folder };
// What a listing would call the entry: links count as their target,
// dangling ones as files.
Kind KindOf(const QByteArray& posix);

// The entries a find would hand out, read in one pass; false when the
// folder can't be read or nothing matches.
bool ReadListing(const QString& pathAndPattern, std::vector<WIN32_FIND_DATA>& out);

}  // namespace localfs::detail
