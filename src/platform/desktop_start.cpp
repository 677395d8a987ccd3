// Starting a program detached, with the bytes of the paths it is handed.
#include "platform/desktop_internal.h"
#include "platform/localfs_internal.h"

#include <csignal>
#include <vector>
#pragma push_macro("signals")
#undef signals
#include <gio/gio.h>
#pragma pop_macro("signals")

namespace desktop::detail {

namespace {

bool IsWindowsPath(const QString& s) {
    return s.size() >= 2 && s[1] == u':' && s[0].isLetter() && s[0].unicode() < 128 &&
           (s.size() == 2 || s[2] == u'\\' || s[2] == u'/');
}

QByteArray ProgramBytes(const QString& program) {
    if (IsWindowsPath(program) || program.contains(u'\\')) return localfs::detail::PosixBytes(program);
    return localfs::detail::NameBytes(program);
}

// The program runs with the signals at their defaults: ours ignores
// SIGPIPE, and an ignored signal would stay ignored across exec.
void ChildSetup(gpointer) {
    std::signal(SIGPIPE, SIG_DFL);
}

GAppInfo* ApplicationById(const QString& id) {
    const QByteArray wanted = id.toUtf8();
    GList* all = g_app_info_get_all();
    GAppInfo* found = nullptr;
    for (GList* l = all; l && !found; l = l->next) {
        const char* appId = g_app_info_get_id(G_APP_INFO(l->data));
        if (appId && wanted == appId) found = G_APP_INFO(g_object_ref(l->data));
    }
    g_list_free_full(all, g_object_unref);
    return found;
}

bool LaunchApplication(GAppInfo* app, const QStringList& pieces) {
    GList* files = nullptr;
    for (const QString& piece : pieces)
        files = g_list_append(files, g_file_new_for_path(ArgumentBytes(piece).constData()));
    GError* error = nullptr;
    const bool ok = g_app_info_launch(app, files, nullptr, &error);
    if (error) g_error_free(error);
    g_list_free_full(files, g_object_unref);
    return ok;
}

}  // namespace

QStringList SplitParameters(const QString& s) {
    QStringList out;
    QString cur;
    bool quoted = false, any = false;
    for (QChar c : s) {
        if (c == u'"') {
            quoted = !quoted;
            any = true;
        } else if (c == u' ' && !quoted) {
            if (any) out << cur;
            cur.clear();
            any = false;
        } else {
            cur += c;
            any = true;
        }
    }
    if (any) out << cur;
    return out;
}

QByteArray ArgumentBytes(const QString& piece) {
    if (IsWindowsPath(piece)) {
        const QByteArray posix = localfs::detail::PosixBytes(piece);
        if (!posix.isEmpty()) return posix;
    }
    return localfs::detail::NameBytes(piece);
}

bool StartDetached(const QString& program, const QString& parameters) {
    try {
        const QStringList pieces = SplitParameters(parameters);
        if (program.endsWith(QLatin1String(".desktop"))) {
            if (GAppInfo* app = ApplicationById(program)) {
                const bool ok = LaunchApplication(app, pieces);
                g_object_unref(app);
                return ok;
            }
        }
        const QByteArray exe = ProgramBytes(program);
        if (exe.isEmpty()) return false;
        std::vector<QByteArray> args{exe};
        for (const QString& piece : pieces) args.push_back(ArgumentBytes(piece));
        std::vector<char*> argv;
        for (QByteArray& a : args) argv.push_back(a.data());
        argv.push_back(nullptr);
        GError* error = nullptr;
        const auto flags = GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_STDIN_FROM_DEV_NULL);
        const bool ok = g_spawn_async(nullptr, argv.data(), nullptr, flags, ChildSetup, nullptr, nullptr, &error);
        if (error) g_error_free(error);
        return ok;
    } catch (...) {
        return false;
    }
}

}  // namespace desktop::detail
