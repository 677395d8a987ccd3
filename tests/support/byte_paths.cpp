#include "support/byte_paths.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <ftw.h>
#include <unistd.h>

namespace bytepaths {

bool Write(const QByteArray& folder, const QByteArray& name, const QByteArray& content) {
    const int fd = ::open((folder + '/' + name).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) return false;
    const bool ok = ::write(fd, content.constData(), size_t(content.size())) == content.size();
    return ::close(fd) == 0 && ok;
}

QByteArray Read(const QByteArray& path) {
    const int fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return "<missing>";
    QByteArray out;
    char buffer[4096];
    ssize_t n;
    while ((n = ::read(fd, buffer, sizeof buffer)) > 0) out.append(buffer, n);
    ::close(fd);
    return out;
}

QList<QByteArray> Names(const QByteArray& folder) {
    QList<QByteArray> out;
    DIR* d = ::opendir(folder.constData());
    if (!d) return out;
    while (const dirent* e = ::readdir(d)) {
        const QByteArray name(e->d_name);
        if (name != "." && name != "..") out << name;
    }
    ::closedir(d);
    std::sort(out.begin(), out.end());
    return out;
}

void EmptyFolder(const QByteArray& folder) {
    ::nftw(
        folder.constData(),
        [](const char* path, const struct stat*, int, FTW* at) {
            if (at->level > 0) ::remove(path);
            return 0;
        },
        16, FTW_DEPTH | FTW_PHYS);
}

}  // namespace bytepaths
