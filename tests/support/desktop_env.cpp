#include "support/desktop_env.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <sys/prctl.h>

namespace testdesktop {

namespace {

QTemporaryDir& Tree() {
    static QTemporaryDir tree;
    return tree;
}

bool Write(const QString& path, const QByteArray& content, bool executable = false) {
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(content) != content.size()) return false;
    if (executable) f.setPermissions(f.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeGroup);
    return true;
}

}  // namespace

QString ViewerId() {
    return QStringLiteral("ferrydock-test-viewer.desktop");
}

QString ViewerExecutable() {
    return Tree().path() + QStringLiteral("/bin/ferrydock-test-viewer");
}

QString ViewerName() {
    return QStringLiteral("Ferrydock Test Viewer");
}

bool Install() {
    const QString root = Tree().path();
    const QByteArray exe = ViewerExecutable().toUtf8();
    // The viewer notes its arguments, one a line, beside itself.
    bool ok = Write(ViewerExecutable(),
                    "#!/bin/sh\nfor a in \"$@\"; do printf '%s\\n' \"$a\"; done > \"$0.args.tmp\"\n"
                    "mv \"$0.args.tmp\" \"$0.args\"\n",
                    true);
    ok = ok && Write(root + "/data/applications/" + ViewerId(),
                     "[Desktop Entry]\nType=Application\nName=" + ViewerName().toUtf8() + "\nExec=" + exe +
                         " %f\nMimeType=text/plain;\n");
    ok = ok && Write(root + "/config/mimeapps.list",
                     "[Default Applications]\ntext/plain=" + ViewerId().toUtf8() + "\n");
    qputenv("XDG_DATA_HOME", (root + "/data").toUtf8());
    qputenv("XDG_CONFIG_HOME", (root + "/config").toUtf8());
    // The type database stays the machine's.
    qputenv("XDG_DATA_DIRS", (root + "/data:/usr/local/share:/usr/share").toUtf8());
    qputenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + root + "/no-bus").toUtf8());
    return ok;
}

QByteArray ViewerArguments() {
    QFile f(ViewerExecutable() + QStringLiteral(".args"));
    if (!f.open(QIODevice::ReadOnly)) return {};
    const QByteArray args = f.readAll();
    f.remove();
    return args;
}

bool WaitFor(const std::function<bool()>& condition, int ms) {
    QElapsedTimer t;
    t.start();
    while (!condition()) {
        if (t.elapsed() > ms) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(10);
    }
    return true;
}

PrivateBus::PrivateBus() : dir_(std::make_unique<QTemporaryDir>()), daemon_(std::make_unique<QProcess>()) {
    const QString config = dir_->path() + "/bus.conf";
    Write(config, "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
                  " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                  "<busconfig><type>session</type><listen>unix:dir=" +
                      dir_->path().toUtf8() +
                      "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
                      "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                      "<allow own=\"*\"/></policy></busconfig>\n");
    daemon_->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    daemon_->start("dbus-daemon", {"--config-file=" + config, "--nofork", "--print-address=1"});
    if (!daemon_->waitForStarted(5000)) return;
    QElapsedTimer t;
    t.start();
    while (!daemon_->canReadLine() && t.elapsed() < 5000) daemon_->waitForReadyRead(100);
    address_ = QString::fromUtf8(daemon_->readLine()).trimmed();
}

PrivateBus::~PrivateBus() {
    for (auto* p : {fileManager_.get(), daemon_.get()}) {
        if (!p || p->state() == QProcess::NotRunning) continue;
        p->kill();
        p->waitForFinished(3000);
    }
    if (used_) qputenv("DBUS_SESSION_BUS_ADDRESS", previous_);
}

void PrivateBus::Use() {
    if (!used_) previous_ = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    used_ = true;
    qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toUtf8());
}

bool PrivateBus::StartFileManager() {
    fileManager_ = std::make_unique<QProcess>();
    fileManager_->start("/usr/bin/python3", {QStringLiteral(FERRYDOCK_SOURCE_DIR "/tests/support/file_manager_stub.py"),
                                             address_, dir_->path() + "/calls.txt"});
    if (!fileManager_->waitForStarted(5000)) return false;
    QElapsedTimer t;
    t.start();
    while (!fileManager_->canReadLine() && t.elapsed() < 10000) fileManager_->waitForReadyRead(100);
    return fileManager_->readLine().trimmed() == "ready";
}

QStringList PrivateBus::Calls() const {
    QFile f(dir_->path() + "/calls.txt");
    if (!f.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts);
}

}  // namespace testdesktop
