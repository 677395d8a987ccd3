#include "platform/localfs.h"

#include <QElapsedTimer>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

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

bool IsSeparator(QChar c) { return c == QLatin1Char('\\') || c == QLatin1Char('/'); }

bool IsDots(const char* name) {
    return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

QByteArray Join(const QByteArray& folder, const QByteArray& name) {
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

QByteArray ParentOf(const QByteArray& path) {
    const qsizetype cut = path.lastIndexOf('/');
    return cut <= 0 ? QByteArray("/") : path.left(cut);
}

// ---- Drives ---------------------------------------------------------------

// Mount tables write blanks, tabs, newlines and backslashes as \ooo.
QByteArray UnescapeMountField(const QByteArray& field) {
    QByteArray out;
    out.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size()) {
            const QByteArray octal = field.mid(i + 1, 3);
            bool ok = octal.size() == 3;
            for (char c : octal) ok = ok && c >= '0' && c <= '7';
            if (ok) {
                out += char(octal.toInt(nullptr, 8));
                i += 3;
                continue;
            }
        }
        out += field[i];
    }
    return out;
}

bool ReadSmallFile(const char* path, QByteArray& out) {
    const int fd = open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
    char buffer[8192];
    ssize_t n;
    while ((n = read(fd, buffer, sizeof buffer)) > 0) out.append(buffer, n);
    close(fd);
    return n == 0;
}

// A block device the kernel calls removable (a stick, a card), wherever the
// desktop chose to mount it.
bool IsRemovableDevice(const QByteArray& source) {
    if (!source.startsWith("/dev/")) return false;
    char real[PATH_MAX];
    if (!realpath(source.constData(), real)) return false;
    const QByteArray device = QByteArray(real).mid(QByteArray(real).lastIndexOf('/') + 1);
    if (device.isEmpty()) return false;
    char sys[PATH_MAX];
    if (!realpath(("/sys/class/block/" + device).constData(), sys)) return false;
    QByteArray node(sys);
    struct stat st;
    // A partition's flag lives on the disk above it.
    if (stat((node + "/partition").constData(), &st) == 0) node = ParentOf(node);
    QByteArray flag;
    return ReadSmallFile((node + "/removable").constData(), flag) && flag.startsWith('1');
}

bool UnderMediaFolder(const QByteArray& point) {
    for (const char* area : {"/media", "/mnt", "/run/media"}) {
        const QByteArray a(area);
        if (point == a || point.startsWith(a + '/')) return true;
    }
    return false;
}

std::vector<QByteArray> ExtraRootsFrom(const QByteArray& table) {
    std::vector<QByteArray> roots;
    for (const QByteArray& line : table.split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() < 2) continue;
        const QByteArray point = UnescapeMountField(fields[1]);
        if (point.isEmpty() || point == "/" || !point.startsWith('/')) continue;
        if (UnderMediaFolder(point) || IsRemovableDevice(UnescapeMountField(fields[0])))
            roots.push_back(point);
    }
    // Sorted by mount point, so a volume keeps its letter while the set of
    // volumes stays the same.
    std::sort(roots.begin(), roots.end());
    roots.erase(std::unique(roots.begin(), roots.end()), roots.end());
    if (roots.size() > size_t('z' - 'd' + 1)) roots.resize('z' - 'd' + 1);
    return roots;
}

// Index 0 is c: ("/"). Volumes come and go: the drive list reads the table
// afresh, path translation reuses a reading for up to a second, since a
// directory read translates thousands of paths.
std::vector<QByteArray> DriveRoots(bool fresh = false) {
    static std::vector<QByteArray> cached;
    static QElapsedTimer age;
    if (!fresh && age.isValid() && age.elapsed() < 1000) return cached;
    std::vector<QByteArray> roots{QByteArray("/")};
    QByteArray table;
    if (ReadSmallFile("/proc/self/mounts", table))
        for (QByteArray& r : ExtraRootsFrom(table)) roots.push_back(std::move(r));
    cached = roots;
    age.start();
    return roots;
}

// 0 for c:, 1 for d:, ...; -1 for anything else.
int DriveIndex(QChar letter) {
    const char c = letter.toLower().toLatin1();
    return c >= 'c' && c <= 'z' ? c - 'c' : -1;
}

// The letter index from "c:", "C:\", "d: [/media/usb]"; -1 when none.
int DriveIndexOf(const QString& drive) {
    if (drive.size() < 2 || drive[1] != QLatin1Char(':')) return -1;
    return DriveIndex(drive[0]);
}

// The drive an absolute, clean POSIX path lies on: the deepest root that
// holds it; `below` gets the part under that root without a leading "/".
size_t DriveOfPath(const std::vector<QByteArray>& roots, const QByteArray& path, QByteArray& below) {
    size_t best = 0;
    for (size_t i = 1; i < roots.size(); ++i)
        if ((path == roots[i] || path.startsWith(roots[i] + '/')) && roots[i].size() > roots[best].size())
            best = i;
    below = best == 0 ? path.mid(1) : path.mid(roots[best].size() + 1);
    return best;
}

QByteArray CurrentDirectory() {
    QByteArray buffer(PATH_MAX, 0);
    for (int i = 0; i < 8; ++i) {
        if (getcwd(buffer.data(), size_t(buffer.size()))) return QByteArray(buffer.constData());
        if (errno != ERANGE) return {};
        buffer.resize(buffer.size() * 2);
    }
    return {};
}

// Lexical clean-up of an absolute POSIX path: no empty, "." or ".." parts.
QByteArray CleanAbsolute(const QByteArray& path) {
    QList<QByteArray> parts;
    for (const QByteArray& p : path.split('/')) {
        if (p.isEmpty() || p == ".") continue;
        if (p == "..") {
            if (!parts.isEmpty()) parts.removeLast();
            continue;
        }
        parts.append(p);
    }
    return '/' + parts.join('/');
}

// ---- Resolution -------------------------------------------------------------

struct Resolved {
    bool ok = false;
    QByteArray posix;      // absolute, no trailing "/" except the root
    bool driveRoot = false;  // the path is the top of its drive
    QByteArray lastGiven;  // the last component as written, empty at a root
};

struct Component {
    QByteArray raw;  // bytes to use when known
    QString name;    // as given, for the case-insensitive search
    bool known = false;
};

// The entry of `folder` equal to `name` ignoring case; the first in byte
// order when several are. Empty when none.
QByteArray FindCaseless(const QByteArray& folder, const QString& name) {
    DIR* dir = opendir(folder.constData());
    if (!dir) return {};
    QByteArray best;
    while (dirent* e = readdir(dir)) {
        if (IsDots(e->d_name)) continue;
        const QByteArray entry(e->d_name);
        if ((best.isEmpty() || entry < best) &&
            QFile::decodeName(entry).compare(name, Qt::CaseInsensitive) == 0)
            best = entry;
    }
    closedir(dir);
    return best;
}

// Windows form to a POSIX path, the way Wine looks names up: an exact match
// first, else a case-insensitive one; once a component is missing the rest
// keep the case given.
Resolved Resolve(const QString& windowsPath) {
    Resolved r;
    if (windowsPath.isEmpty()) return r;
    QString rest = windowsPath;
    // Only c: is known without reading the mount table.
    std::vector<QByteArray> roots{QByteArray("/")};
    bool allRoots = false;
    auto needRoots = [&] {
        if (!allRoots) roots = DriveRoots();
        allRoots = true;
    };
    QByteArray base;
    std::vector<Component> parts;
    auto startAtCurrent = [&](int driveWanted) {
        // The current directory, when it lies on the wanted drive (-1: any).
        const QByteArray cwd = CleanAbsolute(CurrentDirectory());
        QByteArray below;
        const size_t drive = DriveOfPath(roots, cwd, below);
        if (driveWanted >= 0 && size_t(driveWanted) != drive) return false;
        base = roots[drive];
        for (const QByteArray& p : below.split('/'))
            if (!p.isEmpty()) parts.push_back({p, QString(), true});
        return true;
    };

    const bool hasDrive = rest.size() >= 2 && rest[1] == QLatin1Char(':');
    if (hasDrive) {
        const int index = DriveIndex(rest[0]);
        if (index < 0) return r;
        if (index > 0) needRoots();
        if (size_t(index) >= roots.size()) return r;
        rest = rest.mid(2);
        // "c:name" is relative to the current directory when that is on c:.
        if (!rest.isEmpty() && !IsSeparator(rest[0])) {
            needRoots();
            if (!startAtCurrent(index)) base = roots[size_t(index)];
        } else {
            base = roots[size_t(index)];
        }
    } else {
        needRoots();
        startAtCurrent(-1);
        if (!rest.isEmpty() && IsSeparator(rest[0])) parts.clear();  // root of the current drive
    }

    qsizetype start = 0;
    for (qsizetype i = 0; i <= rest.size(); ++i) {
        if (i < rest.size() && !IsSeparator(rest[i])) continue;
        const QString part = rest.mid(start, i - start);
        start = i + 1;
        if (part.isEmpty() || part == QLatin1String(".")) continue;
        if (part == QLatin1String("..")) {
            if (!parts.empty()) parts.pop_back();
            continue;
        }
        parts.push_back({QFile::encodeName(part), part, false});
    }

    QByteArray path = base;
    bool missing = false;
    for (const Component& c : parts) {
        QByteArray name = c.raw;
        if (!c.known && !missing) {
            struct stat st;
            if (lstat(Join(path, name).constData(), &st) != 0) {
                const QByteArray found = FindCaseless(path, c.name);
                if (found.isEmpty())
                    missing = true;
                else
                    name = found;
            }
        }
        path = Join(path, name);
    }
    r.ok = true;
    r.posix = path;
    r.driveRoot = parts.empty();
    if (!parts.empty()) r.lastGiven = parts.back().raw;
    return r;
}

// ---- Listings ---------------------------------------------------------------

using Stamp = decltype(stat::st_mtim);

FILETIME FileTimeOf(const Stamp& t) {
    FILETIME ft = FileTimeFromUnix(int64_t(t.tv_sec));
    uint64_t ticks = (uint64_t(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
    if (ticks == 0) return ft;  // before 1601: left at the start of the epoch
    ticks += uint64_t(t.tv_nsec) / 100;
    return FILETIME{uint32_t(ticks & 0xFFFFFFFF), uint32_t(ticks >> 32)};
}

void FillRecord(WIN32_FIND_DATA& r, const QString& name, const struct stat& st, bool dangling, bool dots) {
    const bool folder = !dangling && S_ISDIR(st.st_mode);
    r.dwFileAttributes = folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    if (!dangling && !(st.st_mode & S_IWUSR)) r.dwFileAttributes |= FILE_ATTRIBUTE_READONLY;
    if (!dots && name.startsWith(QLatin1Char('.'))) r.dwFileAttributes |= FILE_ATTRIBUTE_HIDDEN;
    const uint64_t size = folder || dangling ? 0 : uint64_t(st.st_size);
    r.nFileSizeHigh = uint32_t(size >> 32);
    r.nFileSizeLow = uint32_t(size & 0xFFFFFFFF);
    r.ftLastWriteTime = FileTimeOf(st.st_mtim);
    r.ftLastAccessTime = FileTimeOf(st.st_atim);
    // POSIX keeps no birth time in stat; the write time is the closest.
    r.ftCreationTime = r.ftLastWriteTime;
    r.cFileName = name;
}

// * and ? on case-folded text.
bool WildcardMatch(const QString& name, const QString& foldedPattern) {
    const QString n = name.toCaseFolded();
    const QString& p = foldedPattern;
    qsizetype i = 0, j = 0, star = -1, mark = 0;
    while (i < n.size()) {
        if (j < p.size() && (p[j] == QLatin1Char('?') || p[j] == n[i])) {
            ++i;
            ++j;
        } else if (j < p.size() && p[j] == QLatin1Char('*')) {
            star = j++;
            mark = i;
        } else if (star >= 0) {
            j = star + 1;
            i = ++mark;
        } else {
            return false;
        }
    }
    while (j < p.size() && p[j] == QLatin1Char('*')) ++j;
    return j == p.size();
}

struct Listing {
    std::vector<WIN32_FIND_DATA> entries;
    size_t next = 0;
};

std::mutex gListingsMutex;
std::map<HANDLE, Listing>& Listings() {
    static std::map<HANDLE, Listing> listings;
    return listings;
}

// Reads the whole folder at once: one readdir and one stat per entry. Empty
// when the folder can't be read.
bool ReadListing(const QString& pathAndPattern, std::vector<WIN32_FIND_DATA>& out) {
    qsizetype cut = -1;
    for (qsizetype i = pathAndPattern.size() - 1; i >= 0; --i)
        if (IsSeparator(pathAndPattern[i])) {
            cut = i;
            break;
        }
    QString folder, pattern;
    if (cut >= 0) {
        folder = pathAndPattern.left(cut + 1);
        pattern = pathAndPattern.mid(cut + 1);
    } else if (pathAndPattern.size() >= 2 && pathAndPattern[1] == QLatin1Char(':')) {
        folder = pathAndPattern.left(2);
        pattern = pathAndPattern.mid(2);
    } else {
        folder = QStringLiteral(".");
        pattern = pathAndPattern;
    }
    if (pattern.isEmpty()) return false;
    const Resolved where = Resolve(folder);
    if (!where.ok) return false;

    const bool everything = pattern == QLatin1String("*") || pattern == QLatin1String("*.*");
    const QString folded = pattern.toCaseFolded();

    DIR* dir = opendir(where.posix.constData());
    if (!dir) return false;
    const int fd = dirfd(dir);

    struct Row {
        QString key;
        QByteArray raw;
        WIN32_FIND_DATA data;
    };
    std::vector<Row> rows;
    while (dirent* e = readdir(dir)) {
        if (IsDots(e->d_name)) continue;
        const QByteArray raw(e->d_name);
        const QString name = QFile::decodeName(raw);
        if (!everything && !WildcardMatch(name, folded)) continue;
        struct stat st;
        bool dangling = false;
        if (fstatat(fd, e->d_name, &st, 0) != 0) {
            // Gone since readdir, or a link that points nowhere: the latter
            // still shows, as a file.
            if (fstatat(fd, e->d_name, &st, AT_SYMLINK_NOFOLLOW) != 0 || !S_ISLNK(st.st_mode)) continue;
            dangling = true;
        }
        Row row;
        row.key = name.toCaseFolded();
        row.raw = raw;
        FillRecord(row.data, name, st, dangling, false);
        rows.push_back(std::move(row));
    }
    // The order a Windows volume gives: by name ignoring case.
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        const int c = a.key.compare(b.key);
        return c != 0 ? c < 0 : a.raw < b.raw;
    });

    out.clear();
    out.reserve(rows.size() + 2);
    if (!where.driveRoot) {
        for (const char* dots : {".", ".."}) {
            const QString name = QLatin1String(dots);
            if (!everything && !WildcardMatch(name, folded)) continue;
            struct stat st;
            if (fstatat(fd, dots, &st, 0) != 0) continue;
            WIN32_FIND_DATA data;
            FillRecord(data, name, st, false, true);
            out.push_back(std::move(data));
        }
    }
    closedir(dir);
    for (Row& row : rows) out.push_back(std::move(row.data));
    return !out.empty();
}

enum class Kind { Missing, File, Folder };

// What the listing would call the entry: links count as their target,
// dangling ones as files.
Kind KindOf(const QByteArray& posix) {
    struct stat st;
    if (stat(posix.constData(), &st) == 0) return S_ISDIR(st.st_mode) ? Kind::Folder : Kind::File;
    if (lstat(posix.constData(), &st) == 0) return Kind::File;
    return Kind::Missing;
}

QString BaseName(const QByteArray& posix) {
    return QFile::decodeName(posix.mid(posix.lastIndexOf('/') + 1));
}

// Dir(path[, 16]) for one kind of entry.
QString DirLookup(const QString& windowsPath, Kind wanted) {
    const Resolved r = Resolve(windowsPath);
    if (!r.ok) return {};
    if (r.driveRoot) return wanted == Kind::Folder ? QStringLiteral(".") : QString();
    const Kind kind = KindOf(r.posix);
    if (kind == wanted) return BaseName(r.posix);
    if (kind != Kind::Missing || (!r.lastGiven.contains('*') && !r.lastGiven.contains('?'))) return {};
    std::vector<WIN32_FIND_DATA> found;
    if (!ReadListing(windowsPath, found)) return {};
    for (const WIN32_FIND_DATA& f : found) {
        if (f.cFileName == QLatin1String(".") || f.cFileName == QLatin1String("..")) continue;
        const bool folder = f.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        if (folder == (wanted == Kind::Folder)) return f.cFileName;
    }
    return {};
}

bool WriteAll(int fd, const char* data, size_t size) {
    while (size > 0) {
        const ssize_t n = write(fd, data, size);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        data += n;
        size -= size_t(n);
    }
    return true;
}

bool CopyContents(int in, int out) {
    // In the kernel where the file systems allow it, by reading otherwise.
    bool first = true;
    for (;;) {
        const ssize_t n = copy_file_range(in, nullptr, out, nullptr, size_t(1) << 30, 0);
        if (n == 0) return true;
        if (n > 0) {
            first = false;
            continue;
        }
        if (errno == EINTR) continue;
        if (!first) return false;
        break;
    }
    std::vector<char> buffer(1 << 20);
    for (;;) {
        const ssize_t n = read(in, buffer.data(), buffer.size());
        if (n == 0) return true;
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (!WriteAll(out, buffer.data(), size_t(n))) return false;
    }
}

bool CopyFileImpl(const QString& existingFile, const QString& newFile, bool failIfExists) {
    const Resolved from = Resolve(existingFile);
    const Resolved to = Resolve(newFile);
    if (!from.ok || !to.ok || to.driveRoot) return false;

    const int in = open(from.posix.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (in < 0) return false;
    struct stat source;
    if (fstat(in, &source) != 0 || !S_ISREG(source.st_mode)) {
        close(in);
        return false;
    }
    struct stat target;
    if (lstat(to.posix.constData(), &target) == 0) {
        bool refuse = failIfExists;
        if (!refuse && stat(to.posix.constData(), &target) == 0)
            refuse = S_ISDIR(target.st_mode) || !(target.st_mode & S_IWUSR) ||
                     (target.st_dev == source.st_dev && target.st_ino == source.st_ino);
        if (refuse) {
            close(in);
            return false;
        }
    }

    // A new file is made in place, exclusively; a replacement is written
    // beside the target and renamed over it, so the old file stays whole
    // until the new one is.
    QByteArray written = to.posix;
    int out;
    if (failIfExists) {
        out = open(written.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    } else {
        written = Join(ParentOf(to.posix), "." + to.posix.mid(to.posix.lastIndexOf('/') + 1) + ".XXXXXX");
        out = mkostemp(written.data(), O_CLOEXEC);
    }
    if (out < 0) {
        close(in);
        return false;
    }
    bool ok = CopyContents(in, out);
    ok = ok && fchmod(out, source.st_mode & 0777) == 0;
    const Stamp times[2] = {source.st_atim, source.st_mtim};
    ok = ok && futimens(out, times) == 0;
    ok = close(out) == 0 && ok;
    close(in);
    if (ok && !failIfExists) ok = rename(written.constData(), to.posix.constData()) == 0;
    if (!ok) unlink(written.constData());
    return ok;
}

bool MoveFileImpl(const QString& existingFile, const QString& newFile) {
    const Resolved from = Resolve(existingFile);
    const Resolved to = Resolve(newFile);
    if (!from.ok || !to.ok || from.driveRoot || to.driveRoot) return false;
    struct stat source, target;
    if (lstat(from.posix.constData(), &source) != 0) return false;
    QByteArray destination = to.posix;
    if (lstat(to.posix.constData(), &target) == 0) {
        // The target found is the source itself: a change of case only.
        if (target.st_dev != source.st_dev || target.st_ino != source.st_ino) return false;
        destination = Join(ParentOf(to.posix), to.lastGiven);
        if (destination == from.posix) return true;
    }
    if (renameat2(AT_FDCWD, from.posix.constData(), AT_FDCWD, destination.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
    // File systems without the flag: the check above has to do.
    if (lstat(destination.constData(), &target) == 0 && destination != from.posix &&
        (target.st_dev != source.st_dev || target.st_ino != source.st_ino))
        return false;
    return rename(from.posix.constData(), destination.constData()) == 0;
}

}  // namespace

// ---- Find -------------------------------------------------------------------

HANDLE FindFirstFileA(const QString& pathAndPattern, WIN32_FIND_DATA& findData) {
    return Guarded<HANDLE>(INVALID_HANDLE_VALUE, [&]() -> HANDLE {
        Listing listing;
        if (!ReadListing(pathAndPattern, listing.entries)) {
            // The caller may read the record anyway; it finds it empty.
            findData = WIN32_FIND_DATA{};
            return INVALID_HANDLE_VALUE;
        }
        findData = listing.entries.front();
        listing.next = 1;
        std::lock_guard<std::mutex> lock(gListingsMutex);
        auto& listings = Listings();
        // The smallest number not in use: handles stay small however long
        // the program runs.
        HANDLE handle = 1;
        for (const auto& [h, unused] : listings) {
            if (h != handle) break;
            ++handle;
        }
        listings.emplace(handle, std::move(listing));
        return handle;
    });
}

bool FindNextFileA(HANDLE hFind, WIN32_FIND_DATA& findData) {
    return Guarded(false, [&] {
        std::lock_guard<std::mutex> lock(gListingsMutex);
        auto it = Listings().find(hFind);
        if (it == Listings().end() || it->second.next >= it->second.entries.size()) return false;
        findData = it->second.entries[it->second.next++];
        return true;
    });
}

bool FindClose(HANDLE hFind) {
    return Guarded(false, [&] {
        std::lock_guard<std::mutex> lock(gListingsMutex);
        return Listings().erase(hFind) > 0;
    });
}

bool CopyFileA(const QString& existingFile, const QString& newFile, bool failIfExists) {
    return Guarded(false, [&] { return CopyFileImpl(existingFile, newFile, failIfExists); });
}

bool MoveFileA(const QString& existingFile, const QString& newFile) {
    return Guarded(false, [&] { return MoveFileImpl(existingFile, newFile); });
}

namespace localfs {

QString ToPosix(const QString& windowsPath) {
    return Guarded(QString(), [&] {
        const Resolved r = Resolve(windowsPath);
        return r.ok ? QFile::decodeName(r.posix) : QString();
    });
}

QString ToWindows(const QString& posixPath) {
    return Guarded(QString(), [&]() -> QString {
        if (posixPath.isEmpty()) return {};
        QByteArray path = QFile::encodeName(posixPath);
        const bool trailing = path.endsWith('/');
        if (!path.startsWith('/')) path = CurrentDirectory() + '/' + path;
        path = CleanAbsolute(path);
        const std::vector<QByteArray> roots = DriveRoots();
        QByteArray below;
        const size_t drive = DriveOfPath(roots, path, below);
        QString out = QLatin1Char(char('c' + drive)) + QStringLiteral(":\\") + QFile::decodeName(below);
        out.replace(QLatin1Char('/'), QLatin1Char('\\'));
        if (trailing && !below.isEmpty()) out += QLatin1Char('\\');
        return out;
    });
}

QStringList DriveList() {
    return Guarded(QStringList{QStringLiteral("c: [/]")}, [] {
        QStringList out;
        const std::vector<QByteArray> roots = DriveRoots(true);
        for (size_t i = 0; i < roots.size(); ++i)
            out << QLatin1Char(char('c' + i)) + QStringLiteral(": [") + QFile::decodeName(roots[i]) +
                       QLatin1Char(']');
        return out;
    });
}

bool DriveExists(const QString& drive) {
    return Guarded(false, [&] {
        const int index = DriveIndexOf(drive);
        return index == 0 || (index > 0 && size_t(index) < DriveRoots().size());
    });
}

QString DriveRoot(const QString& drive) {
    return Guarded(QString(), [&]() -> QString {
        const int index = DriveIndexOf(drive);
        if (index < 0) return {};
        const std::vector<QByteArray> roots = DriveRoots();
        return size_t(index) < roots.size() ? QFile::decodeName(roots[size_t(index)]) : QString();
    });
}

QStringList ExtraDriveRoots(const QByteArray& mountTable) {
    return Guarded(QStringList(), [&] {
        QStringList out;
        for (const QByteArray& r : ExtraRootsFrom(mountTable)) out << QFile::decodeName(r);
        return out;
    });
}

bool ChDir(const QString& windowsPath) {
    return Guarded(false, [&] {
        const Resolved r = Resolve(windowsPath);
        return r.ok && chdir(r.posix.constData()) == 0;
    });
}

QString CurDir() {
    return Guarded(QString(), []() -> QString {
        const QByteArray cwd = CurrentDirectory();
        return cwd.isEmpty() ? QString() : ToWindows(QFile::decodeName(cwd));
    });
}

QString DirFolder(const QString& windowsPath) {
    return Guarded(QString(), [&] { return DirLookup(windowsPath, Kind::Folder); });
}

QString DirFile(const QString& windowsPath) {
    return Guarded(QString(), [&] { return DirLookup(windowsPath, Kind::File); });
}

bool MkDir(const QString& windowsPath) {
    return Guarded(false, [&] {
        const Resolved r = Resolve(windowsPath);
        return r.ok && mkdir(r.posix.constData(), 0777) == 0;
    });
}

bool RmDir(const QString& windowsPath) {
    return Guarded(false, [&] {
        const Resolved r = Resolve(windowsPath);
        if (!r.ok || r.driveRoot) return false;
        struct stat st;
        if (lstat(r.posix.constData(), &st) != 0) return false;
        // A link to a folder is a folder to the logic; removing it leaves
        // the target alone.
        if (S_ISLNK(st.st_mode)) return KindOf(r.posix) == Kind::Folder && unlink(r.posix.constData()) == 0;
        return rmdir(r.posix.constData()) == 0;
    });
}

bool Kill(const QString& windowsPath) {
    return Guarded(false, [&] {
        const Resolved r = Resolve(windowsPath);
        if (!r.ok || r.driveRoot || KindOf(r.posix) != Kind::File) return false;
        return unlink(r.posix.constData()) == 0;
    });
}

int64_t FileLen(const QString& windowsPath) {
    return Guarded<int64_t>(-1, [&]() -> int64_t {
        const Resolved r = Resolve(windowsPath);
        if (!r.ok) return -1;
        // Non-blocking, so a named pipe can't hang the call.
        const int fd = open(r.posix.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) return -1;
        struct stat st;
        const bool ok = fstat(fd, &st) == 0 && !S_ISDIR(st.st_mode);
        close(fd);
        return ok ? int64_t(st.st_size) : -1;
    });
}

}  // namespace localfs
