#include "support/ftp_server.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <csignal>
#include <sys/prctl.h>
#include <sys/types.h>

namespace {

// Below 32768: the program reads ports as 16-bit signed numbers, and the
// kernel's own ephemeral range lies above that.
int FreePort() {
    static quint32 next = 20000 + quint32(QCoreApplication::applicationPid() % 500) * 20;
    for (int tries = 0; tries < 2000; ++tries) {
        const quint16 port = quint16(20000 + (next++ % 12000));
        QTcpServer probe;
        if (probe.listen(QHostAddress::LocalHost, port)) return port;
    }
    return 0;
}

// Every process below `root`, found through /proc.
QList<qint64> Descendants(qint64 root) {
    QList<qint64> found;
    if (root <= 0) return found;
    QMultiMap<qint64, qint64> children;
    for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        bool isPid = false;
        const qint64 pid = entry.toLongLong(&isPid);
        if (!isPid) continue;
        QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
        if (!stat.open(QIODevice::ReadOnly)) continue;
        // "pid (name) state ppid ...": the name may hold blanks and brackets.
        const QByteArray line = stat.readAll();
        const QList<QByteArray> rest = line.mid(line.lastIndexOf(')') + 2).split(' ');
        if (rest.size() > 1) children.insert(rest[1].toLongLong(), pid);
    }
    QList<qint64> todo{root};
    while (!todo.isEmpty()) {
        for (qint64 child : children.values(todo.takeFirst())) {
            found << child;
            todo << child;
        }
    }
    return found;
}

// A killed process has closed its sockets once it is a zombie or gone;
// until then its clients may not see it go.
void WaitGone(const QList<qint64>& pids) {
    QElapsedTimer t;
    t.start();
    for (qint64 pid : pids) {
        while (t.elapsed() < 3000) {
            QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
            if (!stat.open(QIODevice::ReadOnly)) break;
            const QByteArray line = stat.readAll();
            if (line.mid(line.lastIndexOf(')') + 2, 1) == "Z") break;
            QThread::msleep(5);
        }
    }
}

// A passive port range of its own per server keeps parallel tests apart.
int PassiveBase(int port) {
    return 42000 + (port % 200) * 100;
}

}  // namespace

FtpServer::FtpServer(Kind kind, bool readOnly)
    : kind_(kind), readOnly_(readOnly), dir_(std::make_unique<QTemporaryDir>()) {
    QDir().mkpath(dir_->path() + "/root");
    port_ = FreePort();
    Start();
}

FtpServer::~FtpServer() {
    Stop();
}

QString FtpServer::root() const {
    return dir_->path() + "/root";
}

QString FtpServer::serverRoot() const {
    return IsVsftpd() ? root() : QStringLiteral("/");
}

QString FtpServer::user() const {
    return IsVsftpd() ? QStringLiteral("anonymous") : QStringLiteral("test");
}

QString FtpServer::password() const {
    return IsVsftpd() ? QStringLiteral("guest") : QStringLiteral("secret");
}

bool FtpServer::Start() {
    if (Running()) return true;
    process_ = std::make_unique<QProcess>();
    process_->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // The server dies with the test process, also one that ends at once
    // (the tests of the program's end do).
    process_->setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
    if (!IsVsftpd()) {
        QStringList args{QStringLiteral(FERRYDOCK_SOURCE_DIR "/tests/support/pyftpdlib_server.py"),
                         QString::number(port_), root()};
        if (kind_ == Kind::PyftpdlibWithDots) args << QStringLiteral("--dots");
        if (kind_ == Kind::PyftpdlibPassiveOnly) args << QStringLiteral("--passive-only");
        if (kind_ == Kind::PyftpdlibPwdFails) args << QStringLiteral("--pwd-fails");
        if (kind_ == Kind::PyftpdlibBareCwdFails) args << QStringLiteral("--bare-cwd-fails");
        args << QStringLiteral("--log") << dir_->path() + "/commands.log";
        process_->start(QStringLiteral("/usr/bin/python3"), args);
    } else {
        const int pasv = PassiveBase(port_);
        const QString conf = dir_->path() + "/vsftpd.conf";
        QFile f(conf);
        f.open(QIODevice::WriteOnly);
        const QString write = readOnly_ ? "NO" : "YES";
        f.write(QStringLiteral("listen=YES\nlisten_ipv6=NO\nlisten_address=127.0.0.1\nlisten_port=%1\n"
                               "background=NO\nrun_as_launching_user=YES\nseccomp_sandbox=NO\n"
                               "anonymous_enable=YES\nlocal_enable=NO\nanon_root=%2\nno_anon_password=YES\n"
                               "write_enable=%3\nanon_upload_enable=%3\nanon_mkdir_write_enable=%3\n"
                               "anon_other_write_enable=%3\nanon_world_readable_only=NO\nanon_umask=022\n"
                               "connect_from_port_20=NO\npasv_enable=YES\npasv_address=127.0.0.1\n"
                               "pasv_min_port=%4\npasv_max_port=%5\nxferlog_enable=NO\nutf8_filesystem=%6\n"
                               "ascii_download_enable=YES\n")
                    .arg(port_)
                    .arg(root(), write)
                    .arg(pasv)
                    .arg(pasv + 99)
                    .arg(kind_ == Kind::VsftpdLatin1 ? "NO" : "YES")
                    .toUtf8());
        f.close();
        process_->start(QStringLiteral("/usr/sbin/vsftpd"), {conf});
    }
    if (!process_->waitForStarted(5000)) return false;
    return WaitReady();
}

void FtpServer::Stop() {
    if (!process_) return;
    // vsftpd's sessions are forked children that outlive the listener: they
    // are ended too, by their ids, so the server's clients see it go.
    const QList<qint64> sessions = Descendants(process_->processId());
    for (qint64 pid : sessions) ::kill(pid_t(pid), SIGKILL);
    WaitGone(sessions);
    if (process_->state() != QProcess::NotRunning) {
        process_->terminate();
        if (!process_->waitForFinished(3000)) {
            process_->kill();
            process_->waitForFinished(3000);
        }
    }
    process_.reset();
}

bool FtpServer::Restart() {
    Stop();
    return Start();
}

bool FtpServer::Running() const {
    return process_ && process_->state() == QProcess::Running;
}

bool FtpServer::WaitReady() const {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 10000) {
        QTcpSocket s;
        s.connectToHost(QHostAddress::LocalHost, quint16(port_));
        if (s.waitForConnected(200) && s.waitForReadyRead(2000) && s.readAll().startsWith("220")) {
            s.write("QUIT\r\n");
            s.waitForBytesWritten(200);
            return true;
        }
        QThread::msleep(50);
    }
    return false;
}

void FtpServer::WriteFile(const QString& relative, const QByteArray& content) const {
    const QString path = root() + "/" + relative;
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(content);
}

QByteArray FtpServer::ReadFile(const QString& relative) const {
    QFile f(root() + "/" + relative);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void FtpServer::MakeFolder(const QString& relative) const {
    QDir().mkpath(root() + "/" + relative);
}

bool FtpServer::Exists(const QString& relative) const {
    return QFileInfo::exists(root() + "/" + relative);
}

QStringList FtpServer::Commands() const {
    QFile f(dir_->path() + "/commands.log");
    if (!f.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts);
}

void FtpServer::ClearCommands() const {
    QFile::remove(dir_->path() + "/commands.log");
}
