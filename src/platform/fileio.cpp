#include "platform/fileio.h"

#include "platform/localfs_internal.h"

#include <QFile>
#include <QSaveFile>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int64_t kBuffer = 64 * 1024;

// A regular file opened for reading without blocking; -1 for anything else.
int OpenRegular(const QString& windowsPath, struct stat& st) {
    const QByteArray posix = localfs::detail::PosixBytes(windowsPath);
    if (posix.isEmpty()) return -1;
    const int fd = ::open(posix.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return -1;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return -1;
    }
    return fd;
}

ssize_t ReadSome(int fd, char* out, size_t count) {
    ssize_t n;
    do n = ::read(fd, out, count);
    while (n < 0 && errno == EINTR);
    return n;
}

}  // namespace

bool ReadWholeFile(const QString& windowsPath, QByteArray& content) {
    try {
        struct stat st;
        const int fd = OpenRegular(windowsPath, st);
        if (fd < 0) return false;
        QByteArray out;
        out.reserve(qsizetype(st.st_size));
        char buffer[16384];
        ssize_t n;
        while ((n = ReadSome(fd, buffer, sizeof buffer)) > 0) out.append(buffer, qsizetype(n));
        ::close(fd);
        if (n < 0) return false;
        content = out;
        return true;
    } catch (...) {
        return false;
    }
}

bool ReplaceWholeFile(const QString& windowsPath, const QByteArray& content) {
    try {
        const QString posix = localfs::ToPosix(windowsPath);
        if (posix.isEmpty()) return false;
        QSaveFile f(posix);
        // A folder that takes no new file still lets an existing file be
        // written in place.
        f.setDirectWriteFallback(true);
        if (!f.open(QIODevice::WriteOnly)) return false;
        if (f.write(content) != content.size()) {
            f.cancelWriting();
            return false;
        }
        return f.commit();
    } catch (...) {
        return false;
    }
}

BinaryFile::BinaryFile(const QString& windowsPath) {
    try {
        struct stat st;
        fd_ = OpenRegular(windowsPath, st);
        if (fd_ < 0) return;
        size_ = int64_t(st.st_size);
        buffer_ = std::make_unique<char[]>(size_t(kBuffer));
    } catch (...) {
        Close();
    }
}

BinaryFile::~BinaryFile() {
    Close();
}

void BinaryFile::Get(char* out, int count) {
    while (count > 0 && fd_ >= 0) {
        if (pos_ == len_ && !Fill()) return;
        const int n = int(std::min<int64_t>(count, len_ - pos_));
        std::memcpy(out, buffer_.get() + pos_, size_t(n));
        pos_ += n;
        out += n;
        count -= n;
    }
}

void BinaryFile::Close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
}

bool BinaryFile::Fill() {
    const ssize_t n = ReadSome(fd_, buffer_.get(), size_t(kBuffer));
    pos_ = 0;
    len_ = n > 0 ? int64_t(n) : 0;
    return len_ > 0;
}
