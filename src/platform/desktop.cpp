#include "platform/desktop.h"

#include "platform/desktop_internal.h"
#include "platform/localfs_internal.h"
#include "platform/seams.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

// ShellExecute's answers: above 32 it started.
constexpr intptr_t kStarted = 42;
constexpr intptr_t SE_ERR_FNF = 2;
constexpr intptr_t SE_ERR_NOASSOC = 31;
constexpr int kDeleteFailed = 0x78;  // access denied
constexpr int kNoSuchPath = 2;

const QString kOpenAs = QStringLiteral("rundll32.exe shell32.dll, OpenAs_RunDLL ");

desktop::DialogTexts gTexts{
    QStringLiteral("Properties of"), QStringLiteral("Name"),   QStringLiteral("Folder"),
    QStringLiteral("Type"),          QStringLiteral("Size"),   QStringLiteral("bytes"),
    QStringLiteral("Contents"),      QStringLiteral("items"),  QStringLiteral("Modified"),
    QStringLiteral("Accessed"),      QStringLiteral("Permissions"), QStringLiteral("Owner"),
    QStringLiteral("Close"),         QStringLiteral("Open with"),
    QStringLiteral("Choose the program to open the file with:"), QStringLiteral("Other program:"),
    QStringLiteral("Browse ..."),    QStringLiteral("OK"),     QStringLiteral("Cancel")};

bool IsOpenVerb(const QString& verb) {
    return verb.isEmpty() || verb.compare(QLatin1String("open"), Qt::CaseInsensitive) == 0;
}

// Everything inside the folder open at `dir`; links go, never what they
// point to. The entries are read first and removed after.
bool RemoveInside(int dir) {
    const int copy = ::dup(dir);
    DIR* d = copy >= 0 ? ::fdopendir(copy) : nullptr;
    if (!d) {
        if (copy >= 0) ::close(copy);
        return false;
    }
    std::vector<QByteArray> names;
    while (const dirent* e = ::readdir(d)) {
        const QByteArray name(e->d_name);
        if (name != "." && name != "..") names.push_back(name);
    }
    ::closedir(d);
    bool ok = true;
    for (const QByteArray& name : names) {
        struct stat st;
        if (::fstatat(dir, name.constData(), &st, AT_SYMLINK_NOFOLLOW) != 0) continue;  // gone meanwhile
        if (S_ISDIR(st.st_mode)) {
            const int sub = ::openat(dir, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            ok = sub >= 0 && RemoveInside(sub) && ok;
            if (sub >= 0) ::close(sub);
            ok = ::unlinkat(dir, name.constData(), AT_REMOVEDIR) == 0 && ok;
        } else {
            ok = ::unlinkat(dir, name.constData(), 0) == 0 && ok;
        }
    }
    return ok;
}

int DeleteTree(const QString& windowsPath) {
    const localfs::detail::Resolved r = localfs::detail::Resolve(windowsPath);
    // A whole drive is never taken.
    if (!r.ok || r.driveRoot) return kNoSuchPath;
    struct stat st;
    if (::lstat(r.posix.constData(), &st) != 0) return kNoSuchPath;
    if (!S_ISDIR(st.st_mode)) return ::unlink(r.posix.constData()) == 0 ? 0 : kDeleteFailed;
    const int dir = ::open(r.posix.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    bool ok = dir >= 0 && RemoveInside(dir);
    if (dir >= 0) ::close(dir);
    ok = ::rmdir(r.posix.constData()) == 0 && ok;
    return ok ? 0 : kDeleteFailed;
}

}  // namespace

intptr_t ShellExecuteA(QWidget*, const QString& verb, const QString& file, const QString& parameters,
                       const QString&, int) {
    if (!IsOpenVerb(verb)) return SE_ERR_NOASSOC;
    if (file.isEmpty()) return SE_ERR_FNF;
    return StartProgram(file, parameters) ? kStarted : SE_ERR_FNF;
}

bool ShellExecuteEx(SHELLEXECUTEINFO& info) {
    try {
        if (info.lpVerb.compare(QLatin1String("properties"), Qt::CaseInsensitive) != 0)
            return ShellExecuteA(info.hwnd, info.lpVerb, info.lpFile, info.lpParameters, info.lpDirectory,
                                 info.nShow) > 32;
        const QByteArray posix = localfs::detail::PosixBytes(info.lpFile);
        struct stat st;
        if (posix.isEmpty() || ::lstat(posix.constData(), &st) != 0) return false;
        const QPointer<QWidget> owner = info.hwnd;
        const QString path = info.lpFile;
        desktop::detail::ShowItemPropertiesOverBus(
            posix, [owner, path] { desktop::detail::ShowPropertiesDialog(owner.data(), path); });
        return true;
    } catch (...) {
        return false;
    }
}

double Shell(const QString& commandLine, int) {
    try {
        if (commandLine.startsWith(kOpenAs, Qt::CaseInsensitive)) {
            // Everything after the entry point is the file, blanks and all.
            desktop::detail::ShowOpenWithDialog(QApplication::activeWindow(), commandLine.mid(kOpenAs.size()));
            return 1;
        }
        const QString line = commandLine.trimmed();
        const qsizetype blank = line.indexOf(u' ');
        const QString program = blank < 0 ? line : line.left(blank);
        return StartProgram(program, blank < 0 ? QString() : line.mid(blank + 1)) ? 1 : 0;
    } catch (...) {
        return 0;
    }
}

int SHFileOperationA(SHFILEOPSTRUCT& op) {
    try {
        op.fAnyOperationsAborted = false;
        if (op.wFunc != FO_DELETE) return kDeleteFailed;
        int result = 0;
        // pFrom may list several paths, each ended by a NUL.
        for (const QString& path : op.pFrom.split(QChar(0), Qt::SkipEmptyParts))
            if (const int r = DeleteTree(path)) result = r;
        return result;
    } catch (...) {
        return kDeleteFailed;
    }
}

namespace desktop {

void SetDialogTexts(const DialogTexts& texts) {
    gTexts = texts;
}

namespace detail {

const DialogTexts& Texts() {
    return gTexts;
}

}  // namespace detail

}  // namespace desktop
