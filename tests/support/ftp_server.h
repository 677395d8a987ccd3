// A real FTP server on 127.0.0.1 for one test: pyftpdlib or vsftpd over a
// temporary root, started by the constructor and stopped by the destructor.
//
// pyftpdlib: users "test"/"secret" (everything), "reader"/"secret" (list and
// read only). vsftpd: anonymous login with uploads; it runs unprivileged, so
// its "/" is the machine's root and a session starts in root(); `readOnly`
// refuses every write. A failed login costs 3 s on pyftpdlib, so tests use
// few; vsftpd refuses any user but anonymous at once.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>

class QProcess;
class QTemporaryDir;

class FtpServer {
public:
    // PyftpdlibWithDots: LIST only, and every listing starts with "." and "..".
    // PyftpdlibPassiveOnly: PORT and EPRT are refused.
    // PyftpdlibPwdFails: every PWD is answered 550.
    // VsftpdLatin1: vsftpd without UTF8 in FEAT, so names travel as Latin-1.
    // PyftpdlibBareCwdFails: a CWD without a folder is refused, as vsftpd
    // and most servers do, rather than taken as the root.
    enum class Kind {
        Pyftpdlib,
        Vsftpd,
        PyftpdlibWithDots,
        PyftpdlibPassiveOnly,
        PyftpdlibPwdFails,
        VsftpdLatin1,
        PyftpdlibBareCwdFails
    };
    // readOnly (vsftpd only): every write is refused.
    explicit FtpServer(Kind kind, bool readOnly = false);
    FtpServer(const FtpServer&) = delete;
    FtpServer& operator=(const FtpServer&) = delete;
    ~FtpServer();

    // Stops the server (its sessions die with it) and starts it again on
    // the same port over the same root.
    void Stop();
    bool Start();
    bool Restart();
    bool Running() const;

    Kind kind() const { return kind_; }
    int port() const { return port_; }
    QString portText() const { return QString::number(port_); }
    // POSIX path of the server's root folder.
    QString root() const;
    // Path a session uses to reach the root ("/" on pyftpdlib).
    QString serverRoot() const;
    QString user() const;
    QString password() const;
    // A user who may list and read but not write (pyftpdlib only).
    static QString readOnlyUser() { return QStringLiteral("reader"); }

    // Writes a file below the root (folders made as needed).
    void WriteFile(const QString& relative, const QByteArray& content) const;
    QByteArray ReadFile(const QString& relative) const;
    void MakeFolder(const QString& relative) const;
    bool Exists(const QString& relative) const;

    // pyftpdlib: the folder commands the server answered, oldest first, as
    // "DELE /a/f 250" (the command, the session's path, the reply code).
    // Files whose names start with "locked" can't be deleted or renamed.
    QStringList Commands() const;
    void ClearCommands() const;

private:
    bool IsVsftpd() const { return kind_ == Kind::Vsftpd || kind_ == Kind::VsftpdLatin1; }
    bool WaitReady() const;
    Kind kind_;
    bool readOnly_ = false;
    int port_ = 0;
    std::unique_ptr<QTemporaryDir> dir_;
    std::unique_ptr<QProcess> process_;
};
