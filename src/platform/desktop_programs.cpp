// The programs of a file: the default application of its type and the
// applications registered for it, from the desktop's associations (GIO).
#include "platform/desktop_internal.h"
#include "platform/localfs_internal.h"
#include "platform/shell.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
// GIO uses "signals" as a name; Qt defines it as a keyword.
#pragma push_macro("signals")
#undef signals
#include <gio/gio.h>
#pragma pop_macro("signals")

namespace {

QString LastComponent(const QString& path) {
    const qsizetype cut = std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/'));
    return path.mid(cut + 1);
}

// The type by the name alone, as the shell goes by the extension.
gchar* TypeOfName(const QByteArray& name) {
    gboolean uncertain = FALSE;
    return g_content_type_guess(name.constData(), nullptr, 0, &uncertain);
}

// A program is started, not opened: an executable file that begins as a
// script or a binary does. Files of a volume that marks everything
// executable don't count unless they look the part.
bool IsProgramFile(const QByteArray& posix) {
    if (posix.isEmpty()) return false;
    const int fd = ::open(posix.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat st;
    char head[4] = {};
    const bool regular = ::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && (st.st_mode & 0111);
    const ssize_t n = regular ? ::read(fd, head, sizeof head) : 0;
    ::close(fd);
    return (n >= 2 && head[0] == '#' && head[1] == '!') ||
           (n == 4 && head[0] == 0x7F && head[1] == 'E' && head[2] == 'L' && head[3] == 'F');
}

QIcon IconOf(GAppInfo* app) {
    GIcon* icon = g_app_info_get_icon(app);
    if (!icon) return {};
    gchar* text = g_icon_to_string(icon);
    if (!text) return {};
    const QString name = QString::fromUtf8(text);
    g_free(text);
    return name.startsWith(u'/') ? QIcon(name) : QIcon::fromTheme(name);
}

}  // namespace

QString FindExecutableA(const QString& file) {
    try {
        const QString name = LastComponent(file);
        if (name.isEmpty()) return {};
        if (IsProgramFile(localfs::detail::PosixBytes(file))) return file;
        gchar* type = TypeOfName(localfs::detail::NameBytes(name));
        if (!type) return {};
        GAppInfo* app = g_app_info_get_default_for_type(type, FALSE);
        g_free(type);
        if (!app) return {};
        QString result;
        if (const char* exe = g_app_info_get_executable(app); exe && *exe) {
            gchar* full = g_find_program_in_path(exe);
            if (full) result = localfs::detail::WindowsOf(QByteArray(full));
            g_free(full);
        }
        g_object_unref(app);
        return result;
    } catch (...) {
        return {};
    }
}

namespace desktop::detail {

std::vector<Application> ApplicationsFor(const QByteArray& posixName) {
    std::vector<Application> out;
    gchar* type = TypeOfName(posixName.mid(posixName.lastIndexOf('/') + 1));
    if (!type) return out;
    GAppInfo* chosen = g_app_info_get_default_for_type(type, FALSE);
    GList* all = g_app_info_get_all_for_type(type);
    g_free(type);
    auto add = [&out](GAppInfo* app) {
        const char* id = g_app_info_get_id(app);
        if (!id || !g_app_info_should_show(app)) return;
        const QString key = QString::fromUtf8(id);
        for (const Application& a : out)
            if (a.id == key) return;
        out.push_back({key, QString::fromUtf8(g_app_info_get_display_name(app)), IconOf(app)});
    };
    if (chosen) add(chosen);
    for (GList* l = all; l; l = l->next) add(G_APP_INFO(l->data));
    g_list_free_full(all, g_object_unref);
    if (chosen) g_object_unref(chosen);
    return out;
}

}  // namespace desktop::detail
