// File operations: copy, move, make and remove folders, delete, length.
#include "platform/localfs_internal.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace localfs::detail {

// What the listing would call the entry: links count as their target,
// dangling ones as files.
Kind KindOf(const QByteArray& posix) {
    struct stat st;
    if (stat(posix.constData(), &st) == 0) return S_ISDIR(st.st_mode) ? Kind::Folder : Kind::File;
    if (lstat(posix.constData(), &st) == 0) return Kind::File;
    return Kind::Missing;
}

namespace {

using Stamp = decltype(stat::st_mtim);

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

}  // namespace localfs::detail

using namespace localfs::detail;

bool CopyFileA(const QString& existingFile, const QString& newFile, bool failIfExists) {
    return Guarded(false, [&] { return CopyFileImpl(existingFile, newFile, failIfExists); });
}

bool MoveFileA(const QString& existingFile, const QString& newFile) {
    return Guarded(false, [&] { return MoveFileImpl(existingFile, newFile); });
}

namespace localfs {

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
