// The temporary folder is held open while a directory read makes its dummy
// files: finding it afresh for each would cost more than the shell's answer,
// and every dummy goes into the folder that was checked, whatever becomes of
// its path meanwhile.
//
// Dummies are links to one empty spare file kept beside them while the
// folder is held: a new link costs a few microseconds, while a new file costs
// an inode, which some file systems hand out slowly after many deletions.
// The spare goes when the folder is let go and at exit; one that a process
// which died left behind goes at the next start.
#include "platform/tempfolder.h"

#include "platform/localfs_internal.h"
#include "platform/tempfolder_internal.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString kFolderName = QStringLiteral("tempqorvn");
const QByteArray kSparePrefix = QByteArrayLiteral(".ferrydock-spare-");

struct Held {
    QString windows;
    QString posix;
    int dir = -1;
    bool spare = false;
};
Held gHeld;

// One spare per process: two programs reading at once don't share one.
const QByteArray& SpareName() {
    static const QByteArray name = kSparePrefix + QByteArray::number(qint64(getpid()));
    return name;
}

bool IsFileName(const QString& name) {
    return !name.isEmpty() && name != u"." && name != u".." && !name.contains(u'/') && !name.contains(u'\\') &&
           !name.contains(QChar(0));
}

// The entry of the folder whose name matches ignoring case, the first in
// byte order; empty when none.
QByteArray FindCaseless(int dir, const QString& name) {
    const int copy = ::dup(dir);
    if (copy < 0) return {};
    DIR* d = ::fdopendir(copy);
    if (!d) {
        ::close(copy);
        return {};
    }
    ::rewinddir(d);
    const QString wanted = localfs::detail::NameText(localfs::detail::NameBytes(name));
    QByteArray best;
    while (const dirent* e = ::readdir(d)) {
        const QByteArray entry(e->d_name);
        if (entry == "." || entry == "..") continue;
        if ((best.isEmpty() || entry < best) &&
            localfs::detail::NameText(entry).compare(wanted, Qt::CaseInsensitive) == 0)
            best = entry;
    }
    ::closedir(d);
    return best;
}

// Opens the folder itself (no link) when it is ours.
bool Open(Held& folder) {
    folder.dir = ::open(QFile::encodeName(folder.posix).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat st;
    if (folder.dir >= 0 && ::fstat(folder.dir, &st) == 0 && st.st_uid == ::geteuid()) return true;
    if (folder.dir >= 0) ::close(folder.dir);
    folder.dir = -1;
    return false;
}

void LetGo(Held& folder) {
    if (folder.dir >= 0) {
        if (folder.spare) ::unlinkat(folder.dir, SpareName().constData(), 0);
        ::close(folder.dir);
    }
    folder = Held{};
}

void LetGoAtExit() {
    LetGo(gHeld);
}

// An empty regular file of ours, or none.
void MakeSpare(Held& folder) {
    const int fd = ::openat(folder.dir, SpareName().constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) return;
    struct stat st;
    folder.spare = ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && st.st_size == 0 && st.st_uid == ::geteuid();
    ::close(fd);
    static const bool cleanup = std::atexit(LetGoAtExit) == 0;
    (void)cleanup;
}

// Still a folder of ours that hasn't been removed.
bool StillSafe(const Held& folder) {
    struct stat st;
    return folder.dir >= 0 && ::fstat(folder.dir, &st) == 0 && S_ISDIR(st.st_mode) && st.st_nlink > 0 &&
           st.st_uid == ::geteuid();
}

// Makes the file, or keeps one there under that name in any case. A name
// taken already (the spare's own too) makes the link fail and falls to the
// plain open, which keeps the file.
bool TryCreate(const Held& folder, const QString& fileName) {
    const QByteArray name = localfs::detail::NameBytes(fileName);
    struct stat st;
    QByteArray existing;
    if (::fstatat(folder.dir, name.constData(), &st, AT_SYMLINK_NOFOLLOW) != 0)
        existing = FindCaseless(folder.dir, fileName);
    if (!existing.isEmpty()) {
        const int fd = ::openat(folder.dir, existing.constData(), O_RDWR | O_CLOEXEC);
        if (fd < 0) return false;
        ::close(fd);
        return true;
    }
    if (folder.spare && ::linkat(folder.dir, SpareName().constData(), folder.dir, name.constData(), 0) == 0)
        return true;
    const int fd = ::openat(folder.dir, name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    ::close(fd);
    return true;
}

// The name of a file in the held folder; "" for any other path.
QString HeldName(const QString& windowsPath) {
    if (gHeld.windows.isEmpty()) return {};
    const qsizetype prefix = gHeld.windows.size() + 1;
    if (windowsPath.size() <= prefix || windowsPath[prefix - 1] != u'\\' || !windowsPath.startsWith(gHeld.windows))
        return {};
    const QString name = windowsPath.mid(prefix);
    return name.contains(u'\\') ? QString() : name;
}

bool Gone(const QByteArray& spare) {
    bool number = false;
    const qint64 pid = spare.mid(kSparePrefix.size()).toLongLong(&number);
    if (!number || pid <= 0 || pid == qint64(getpid())) return false;
    return ::kill(pid_t(pid), 0) != 0 && errno == ESRCH;
}

void RemoveStaleOnce() {
    static const bool done = (tempfolder::RemoveStale(), true);
    (void)done;
}

}  // namespace

namespace tempfolder {

QStringList Candidates() {
    try {
        QStringList out;
        const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
        for (const QString& base : {cache, QStringLiteral("/tmp"), QStringLiteral("/var/tmp")}) {
            if (base.isEmpty()) continue;
            const QString folder = localfs::ToWindows(QDir::cleanPath(base + u'/' + kFolderName));
            if (!folder.isEmpty() && !out.contains(folder)) out << folder;
        }
        return out;
    } catch (...) {
        return {};
    }
}

bool IsSafe(const QString& windowsFolder) {
    const QString posix = localfs::ToPosix(windowsFolder);
    if (posix.isEmpty()) return false;
    struct stat st;
    if (::lstat(QFile::encodeName(posix).constData(), &st) != 0) return errno == ENOENT;  // ours to make
    return S_ISDIR(st.st_mode) && st.st_uid == ::geteuid();
}

bool Make(const QString& windowsFolder) {
    if (!IsSafe(windowsFolder)) return false;
    const QByteArray p = QFile::encodeName(localfs::ToPosix(windowsFolder));
    if (::mkdir(p.constData(), 0700) != 0 && errno != EEXIST) return false;
    // The umask may have taken bits off, or a folder of ours was there with a
    // looser mode; set it through a handle that refuses links, so a link put
    // in its place meanwhile is never followed.
    const int fd = ::open(p.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat st;
    bool ok = ::fstat(fd, &st) == 0 && S_ISDIR(st.st_mode) && st.st_uid == ::geteuid();
    if (ok && (st.st_mode & 07777) != 0700) ok = ::fchmod(fd, 0700) == 0;
    ::close(fd);
    return ok;
}

QString MakeDummy(const QString& name) {
    try {
        if (!IsFileName(name)) return {};
        RemoveStaleOnce();
        if (StillSafe(gHeld) && TryCreate(gHeld, name)) return gHeld.windows + u'\\' + name;
        // Each place in turn, as drive letters would be tried.
        for (const QString& folder : Candidates()) {
            if (!Make(folder)) continue;
            Held candidate{folder, localfs::ToPosix(folder)};
            if (!Open(candidate)) continue;
            if (!TryCreate(candidate, name)) {
                LetGo(candidate);
                localfs::RmDir(folder);  // only an empty folder goes
                continue;
            }
            LetGo(gHeld);
            MakeSpare(candidate);
            gHeld = candidate;
            return folder + u'\\' + name;
        }
        LetGo(gHeld);
        return {};
    } catch (...) {
        return {};
    }
}

void RemoveDummy(const QString& windowsPath) {
    try {
        const QString name = HeldName(windowsPath);
        if (name.isEmpty()) {
            localfs::Kill(windowsPath);
            return;
        }
        if (::unlinkat(gHeld.dir, localfs::detail::NameBytes(name).constData(), 0) == 0 || errno != ENOENT) return;
        const QByteArray other = FindCaseless(gHeld.dir, name);
        if (!other.isEmpty()) ::unlinkat(gHeld.dir, other.constData(), 0);
    } catch (...) {
    }
}

void Release() {
    LetGo(gHeld);
}

void RemoveStale() {
    try {
        for (const QString& folder : Candidates()) {
            if (!IsSafe(folder)) continue;
            Held h{folder, localfs::ToPosix(folder)};
            if (!Open(h)) continue;
            const int copy = ::dup(h.dir);
            DIR* d = copy >= 0 ? ::fdopendir(copy) : nullptr;
            if (!d && copy >= 0) ::close(copy);
            QList<QByteArray> stale;
            while (d) {
                const dirent* e = ::readdir(d);
                if (!e) break;
                const QByteArray entry(e->d_name);
                if (entry.startsWith(kSparePrefix) && Gone(entry)) stale << entry;
            }
            if (d) ::closedir(d);
            for (const QByteArray& entry : stale) ::unlinkat(h.dir, entry.constData(), 0);
            ::close(h.dir);
        }
    } catch (...) {
    }
}

}  // namespace tempfolder

namespace tempfolder::detail {

QByteArray HeldPosix(const QString& windowsPath) {
    const QString name = HeldName(windowsPath);
    return name.isEmpty() ? QByteArray() : QFile::encodeName(gHeld.posix) + '/' + localfs::detail::NameBytes(name);
}

}  // namespace tempfolder::detail
