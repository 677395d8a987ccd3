#include "platform/shell.h"

#include "platform/localfs_internal.h"
#include "platform/tempfolder_internal.h"

#include <QFile>
#include <QHash>
#include <QMimeDatabase>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <sys/stat.h>

namespace {

constexpr uint32_t kFolderAttribute = 16;
// szTypeName is a field of 80 characters with its NUL.
constexpr int kTypeNameChars = 79;

// The last component of a Windows-form path: the type goes by name only.
QString FileName(const QString& path) {
    const qsizetype cut = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    return path.mid(cut + 1);
}

// A shell icon has one size; the theme may give another, so fit it.
QPixmap Exactly(const QPixmap& pm, int size) {
    if (pm.isNull() || (pm.width() == size && pm.height() == size)) return pm;
    QPixmap out(size, size);
    out.fill(Qt::transparent);
    // Keep the proportions, centred.
    const qreal k = std::min(qreal(size) / pm.width(), qreal(size) / pm.height());
    const QSizeF fit(pm.width() * k, pm.height() * k);
    QPainter p(&out);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawPixmap(QRectF(QPointF((size - fit.width()) / 2, (size - fit.height()) / 2), fit), pm, QRectF(pm.rect()));
    return out;
}

QPixmap ThemePixmap(const QMimeType& type, int size) {
    QStringList names{type.iconName(), type.genericIconName()};
    names << (type.inherits(QStringLiteral("text/plain")) ? QStringLiteral("text-x-generic")
                                                          : QStringLiteral("application-x-generic"));
    for (const QString& name : names) {
        if (name.isEmpty() || !QIcon::hasThemeIcon(name)) continue;
        const QPixmap pm = QIcon::fromTheme(name).pixmap(QSize(size, size), 1.0);
        if (!pm.isNull()) return Exactly(pm, size);
    }
    return {};
}

// Theme lookups are cached by Qt itself, so nothing is kept here; that also
// lets a theme change show at the next list.
QIcon IconFor(const QMimeType& type, bool folder, int size) {
    QPixmap pm = ThemePixmap(type, size);
    if (pm.isNull()) {
        const QString own = folder ? QStringLiteral("folder")
                            : type.isDefault() ? QStringLiteral("unknown")
                                               : QStringLiteral("file");
        pm = shell::BundledIcon(own).pixmap(QSize(size, size), 1.0);
    }
    QIcon icon;
    if (!pm.isNull()) icon.addPixmap(Exactly(pm, size));
    return icon;
}

// The type of a name by its name alone. A listing asks for each new name
// twice (the folder combo reads it again) and a refresh asks again, while
// the glob match costs tens of microseconds for a name without a known
// extension; so the answers are kept, up to a bound.
QMimeType TypeByName(const QString& name) {
    static const QMimeDatabase db;
    static QHash<QString, QMimeType> known;
    if (const auto it = known.constFind(name); it != known.constEnd()) return *it;
    if (known.size() >= 8192) known.clear();
    const QMimeType type = db.mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    known.insert(name, type);
    return type;
}

bool IsFolder(const QByteArray& posix) {
    struct stat st;
    return !posix.isEmpty() && ::stat(posix.constData(), &st) == 0 && S_ISDIR(st.st_mode);
}

// The answer for a path whose POSIX form is known ("" when it names nothing
// on disk).
bool FileInfoAt(const QByteArray& posixPath, const QString& path, uint32_t fileAttributes, SHFILEINFO& info,
                uint32_t flags) {
    info = SHFILEINFO{};
    if (path.isEmpty()) return false;
    shell::EnsureIconTheme();
    static const QMimeDatabase db;
    const bool folder = (fileAttributes & kFolderAttribute) || IsFolder(posixPath);
    const QString name = FileName(path);
    const QMimeType type = folder ? db.mimeTypeForName(QStringLiteral("inode/directory")) : TypeByName(name);
    info.szDisplayName = name;
    if (flags & SHGFI_TYPENAME) info.szTypeName = type.isDefault() ? QString() : type.comment().left(kTypeNameChars);
    if (flags & SHGFI_ICON) info.hIcon = IconFor(type, folder, (flags & SHGFI_SMALLICON) ? 16 : 32);
    return true;
}

int gTypeLookups = 0;

}  // namespace

bool SHGetFileInfoA(const QString& path, uint32_t fileAttributes, SHFILEINFO& info, uint32_t flags) {
    info = SHFILEINFO{};
    if (path.isEmpty()) return false;
    // Resolving the Windows form is the dearest part of the call; a dummy of
    // the held temporary folder has its POSIX form at hand.
    QByteArray posix = tempfolder::detail::HeldPosix(path);
    if (posix.isEmpty()) posix = localfs::detail::PosixBytes(path);
    return FileInfoAt(posix, path, fileAttributes, info, flags);
}

QString GetShellTypeName(const QString& sPath) {
    ++gTypeLookups;
    SHFILEINFO info;
    SHGetFileInfoA(sPath, 0, info, SHGFI_TYPENAME);
    const qsizetype nul = info.szTypeName.indexOf(QChar(0));
    return nul < 0 ? info.szTypeName : info.szTypeName.left(nul);
}

QIcon GetShellIcon(uint32_t lFlags, const QString& sPath) {
    SHFILEINFO info;
    SHGetFileInfoA(sPath, 0, info, lFlags);
    return info.hIcon;
}

int ShellTypeLookups() {
    return gTypeLookups;
}

namespace shell {

void EnsureIconTheme() {
    static bool done = false;
    if (done) return;
    done = true;
    QStringList paths = QIcon::themeSearchPaths();
    for (const QString& p : {QStringLiteral("/usr/share/icons"), QStringLiteral("/usr/local/share/icons")})
        if (!paths.contains(p)) paths << p;
    QIcon::setThemeSearchPaths(paths);
    // A desktop's own theme stays; without one (offscreen, bare sessions)
    // Adwaita stands in, with hicolor behind any theme.
    if (QIcon::themeName().isEmpty() || QIcon::themeName() == QLatin1String("hicolor"))
        QIcon::setThemeName(QStringLiteral("Adwaita"));
    QIcon::setFallbackThemeName(QStringLiteral("hicolor"));
}

}  // namespace shell
