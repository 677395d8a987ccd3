// Finding files: a folder read in one pass into a snapshot that the find
// handles hand out, and the Dir lookups built on it.
#include "platform/localfs_internal.h"

#include <QFile>
#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <sys/stat.h>

namespace localfs::detail {

namespace {

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

QString BaseName(const QByteArray& posix) {
    return NameText(posix.mid(posix.lastIndexOf('/') + 1));
}

}  // namespace

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
        const QString name = NameText(raw);
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

namespace {

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

// An entry shows in Dir when the mask holds each of its folder, hidden and
// system bits; read-only and archive don't matter.
bool Admitted(uint32_t attributes, int mask) {
    constexpr uint32_t kGuarded = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    return (attributes & kGuarded & ~uint32_t(mask)) == 0;
}

QString DirWithMask(const QString& windowsPath, int mask) {
    qsizetype cut = -1;
    for (qsizetype i = windowsPath.size() - 1; i >= 0 && cut < 0; --i)
        if (IsSeparator(windowsPath[i])) cut = i;
    const bool bareDrive = cut < 0 && windowsPath.size() == 2 && windowsPath[1] == QLatin1Char(':');
    const QString last = bareDrive ? QString() : windowsPath.mid(cut + 1);
    const bool listing = last.isEmpty() || last == QLatin1String(".") || last == QLatin1String("..") ||
                         last.contains(QLatin1Char('*')) || last.contains(QLatin1Char('?'));
    if (listing) {
        // A folder path ("c:\dir\", "c:", "") lists the folder's entries.
        const QString pattern = windowsPath.isEmpty() ? QStringLiteral(".\\*")
                                : last.isEmpty()      ? windowsPath + QLatin1Char('*')
                                                      : windowsPath;
        std::vector<WIN32_FIND_DATA> found;
        if (!ReadListing(pattern, found)) return {};
        for (const WIN32_FIND_DATA& f : found)
            if (Admitted(f.dwFileAttributes, mask)) return f.cFileName;
        return {};
    }
    const Resolved r = Resolve(windowsPath);
    if (!r.ok || r.driveRoot) return {};
    const Kind kind = KindOf(r.posix);
    if (kind == Kind::Missing) return {};
    const QString name = BaseName(r.posix);
    uint32_t attributes = kind == Kind::Folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    if (name.startsWith(QLatin1Char('.'))) attributes |= FILE_ATTRIBUTE_HIDDEN;
    return Admitted(attributes, mask) ? name : QString();
}

}  // namespace

}  // namespace localfs::detail

using namespace localfs::detail;

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

namespace localfs {

QString DirFolder(const QString& windowsPath) {
    return Guarded(QString(), [&] { return DirLookup(windowsPath, Kind::Folder); });
}

QString DirFile(const QString& windowsPath) {
    return Guarded(QString(), [&] { return DirLookup(windowsPath, Kind::File); });
}

QString Dir(const QString& windowsPath, int attributes) {
    return Guarded(QString(), [&] { return DirWithMask(windowsPath, attributes); });
}

}  // namespace localfs
