#include "platform/shell.h"

#include "platform/localfs.h"

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
// GIO uses "signals" as a name; Qt defines it as a keyword.
#pragma push_macro("signals")
#undef signals
#include <gio/gio.h>
#pragma pop_macro("signals")
#include <sys/stat.h>
#include <unistd.h>

namespace {

QIcon ThemeIconFor(const QMimeType& type) {
    for (const QString& name : {type.iconName(), type.genericIconName()}) {
        if (name.isEmpty()) continue;
        const QIcon icon = QIcon::fromTheme(name);
        if (!icon.isNull()) return icon;
    }
    return {};
}

}  // namespace

bool SHGetFileInfoA(const QString& path, uint32_t, SHFILEINFO& info, uint32_t flags) {
    info = SHFILEINFO{};
    if (path.isEmpty()) return false;
    shell::EnsureIconTheme();
    static const QMimeDatabase db;
    const QString posix = localfs::ToPosix(path);
    const bool folder = QFileInfo(posix).isDir();
    const QMimeType type = folder ? db.mimeTypeForName(QStringLiteral("inode/directory"))
                                  : db.mimeTypeForFile(posix, QMimeDatabase::MatchExtension);
    info.szDisplayName = posix.section('/', -1);
    if (flags & SHGFI_TYPENAME) info.szTypeName = type.isDefault() ? QString() : type.comment();
    if (flags & SHGFI_ICON) {
        QIcon icon = ThemeIconFor(type);
        if (icon.isNull()) icon = shell::BundledIcon(folder ? QStringLiteral("folder") : QStringLiteral("file"));
        info.hIcon = icon;
    }
    return true;
}

QString FindExecutableA(const QString& file) {
    const QByteArray name = QFile::encodeName(localfs::ToPosix(file));
    gboolean uncertain = FALSE;
    gchar* type = g_content_type_guess(name.constData(), nullptr, 0, &uncertain);
    if (!type) return {};
    GAppInfo* app = g_app_info_get_default_for_type(type, FALSE);
    g_free(type);
    if (!app) return {};
    QString result;
    if (const char* exe = g_app_info_get_executable(app)) {
        gchar* full = g_find_program_in_path(exe);
        if (full) result = QString::fromLocal8Bit(full);
        g_free(full);
    }
    g_object_unref(app);
    return result;
}

namespace shell {

QStringList TempFolderCandidates() {
    QStringList out;
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    for (const QString& base : {cache, QStringLiteral("/tmp"), QStringLiteral("/var/tmp")}) {
        if (base.isEmpty()) continue;
        const QString folder = localfs::ToWindows(QDir::cleanPath(base + QStringLiteral("/tempqorvn")));
        if (!out.contains(folder)) out << folder;
    }
    return out;
}

bool TempFolderIsSafe(const QString& windowsFolder) {
    struct stat st;
    const QByteArray p = QFile::encodeName(localfs::ToPosix(windowsFolder));
    if (lstat(p.constData(), &st) != 0) return true;  // not there yet: ours to make
    return S_ISDIR(st.st_mode) && st.st_uid == geteuid();
}

bool MakeTempFolder(const QString& windowsFolder) {
    if (!TempFolderIsSafe(windowsFolder)) return false;
    const QByteArray p = QFile::encodeName(localfs::ToPosix(windowsFolder));
    if (mkdir(p.constData(), 0700) != 0 && errno != EEXIST) return false;
    return TempFolderIsSafe(windowsFolder);
}

void EnsureIconTheme() {
    static bool done = false;
    if (done) return;
    done = true;
    QStringList paths = QIcon::themeSearchPaths();
    for (const QString& p : {QStringLiteral("/usr/share/icons"), QStringLiteral("/usr/local/share/icons")})
        if (!paths.contains(p)) paths << p;
    QIcon::setThemeSearchPaths(paths);
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == QLatin1String("hicolor"))
        QIcon::setThemeName(QStringLiteral("Adwaita"));
    QIcon::setFallbackThemeName(QStringLiteral("hicolor"));
}

}  // namespace shell
