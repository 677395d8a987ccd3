// Drives and paths: the drive table from the mount table, and Windows-form
// paths resolved to POSIX ones case-insensitively, component by component.
#include "platform/localfs_internal.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace localfs::detail {

namespace {

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

// 0 for c:, 1 for d:, ...; -1 for anything else.
int DriveIndex(QChar letter) {
    const char c = letter.toLower().toLatin1();
    return c >= 'c' && c <= 'z' ? c - 'c' : -1;
}

struct Component {
    QByteArray raw;  // bytes to use when known
    QString name;    // as given, for the case-insensitive search
    bool known = false;
};

}  // namespace

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
std::vector<QByteArray> DriveRoots(bool fresh) {
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

// The entry of `folder` whose text equals `name` ignoring case; the first
// in byte order when several do. Empty when none.
QByteArray FindCaseless(const QByteArray& folder, const QString& name) {
    DIR* dir = opendir(folder.constData());
    if (!dir) return {};
    // A name typed with blanks at its ends means the entry that has them.
    const QString wanted = NameText(NameBytes(name));
    QByteArray best;
    while (dirent* e = readdir(dir)) {
        if (IsDots(e->d_name)) continue;
        const QByteArray entry(e->d_name);
        if ((best.isEmpty() || entry < best) && NameText(entry).compare(wanted, Qt::CaseInsensitive) == 0)
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
        if (part.contains(QChar(0))) return r;
        parts.push_back({NameBytes(part), part, false});
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

QByteArray PosixBytes(const QString& windowsPath) {
    const Resolved r = Resolve(windowsPath);
    return r.ok ? r.posix : QByteArray();
}

QString WindowsOf(const QByteArray& posixPath) {
    if (posixPath.isEmpty()) return {};
    QByteArray path = posixPath;
    const bool trailing = path.endsWith('/');
    if (!path.startsWith('/')) path = CurrentDirectory() + '/' + path;
    path = CleanAbsolute(path);
    const std::vector<QByteArray> roots = DriveRoots();
    QByteArray below;
    const size_t drive = DriveOfPath(roots, path, below);
    QString out = QLatin1Char(char('c' + drive)) + QStringLiteral(":\\");
    bool first = true;
    for (const QByteArray& part : below.split('/')) {
        if (part.isEmpty()) continue;
        if (!first) out += QLatin1Char('\\');
        out += NameText(part);
        first = false;
    }
    if (trailing && !below.isEmpty()) out += QLatin1Char('\\');
    return out;
}

}  // namespace localfs::detail

namespace localfs {

using namespace detail;

QString ToPosix(const QString& windowsPath) {
    return Guarded(QString(), [&] {
        const Resolved r = Resolve(windowsPath);
        return r.ok ? QFile::decodeName(r.posix) : QString();
    });
}

QString ToWindows(const QString& posixPath) {
    return Guarded(QString(), [&] { return WindowsOf(QFile::encodeName(posixPath)); });
}

QString ProgramFolder() {
    return Guarded(QString(), [] { return ToWindows(QDir::cleanPath(QCoreApplication::applicationDirPath())); });
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
        return cwd.isEmpty() ? QString() : WindowsOf(cwd);
    });
}

}  // namespace localfs
