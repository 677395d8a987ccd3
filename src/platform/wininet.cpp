// The WinInet calls over Poco::Net: sessions, connections, the current
// directory, finds and the folder commands. Every call catches everything:
// the logic only ever sees 0, false or empty text.
#include "platform/wininet.h"

#include "platform/ftp_listing.h"
#include "platform/wininet_handles.h"

#include <Poco/Net/SocketAddress.h>
#include <QDateTime>
#include <QRegularExpression>
#include <QStringList>
#include <csignal>
#include <iterator>

using namespace wininet::detail;
using Poco::Net::StreamSocket;

namespace {

bool WantsAll(const QString& pattern) {
    return pattern.isEmpty() || pattern == QLatin1String("*.*") || pattern == QLatin1String("*");
}

bool HasFeature(const std::string& feat, const char* name) {
    const QString f = QString::fromLatin1(feat.data(), qsizetype(feat.size())).toUpper();
    return f.contains(QRegularExpression(QStringLiteral("(^|\\n)\\s*%1\\b").arg(QLatin1String(name))));
}

// The read-only bit follows the owner's write permission, as in LIST. MLSD
// carries it in unix.mode, which servers such as pyftpdlib offer but don't
// send unless asked.
void AskForOwnerMode(Control& ctl, const std::string& feat) {
    const QString f = QString::fromLatin1(feat.data(), qsizetype(feat.size()));
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral("(?:^|\\n)\\s*MLST\\s+(\\S+)"), QRegularExpression::CaseInsensitiveOption)
            .match(f);
    if (!m.hasMatch()) return;
    QStringList offered;
    bool modeOn = false;
    for (QString fact : m.captured(1).split(u';', Qt::SkipEmptyParts)) {
        const bool on = fact.endsWith(u'*');
        if (on) fact.chop(1);
        fact = fact.toLower();
        if (fact == QLatin1String("unix.mode")) modeOn = on;
        offered << fact;
    }
    if (modeOn || !offered.contains(QLatin1String("unix.mode"))) return;
    std::string wanted;
    for (const char* fact : {"type", "size", "modify", "perm", "unix.mode"})
        if (offered.contains(QLatin1String(fact))) wanted += std::string(fact) + ";";
    std::string reply;
    ctl.sendCommand("OPTS MLST " + wanted, reply);
}

}  // namespace

HINTERNET InternetOpenA(const QString& agent, uint32_t, const QString&, const QString&, uint32_t) {
    try {
        return Add(Session{agent});
    } catch (...) {
        return 0;
    }
}

HINTERNET InternetConnectA(HINTERNET hInternet, const QString& serverName, int16_t serverPort,
                           const QString& userName, const QString& password, uint32_t service, uint32_t flags,
                           uint32_t) {
    try {
        if (!Get<Session>(hInternet) || service != INTERNET_SERVICE_FTP) return 0;
        // A server that hangs up mid-write must give an error, not end the
        // process.
        static const bool noSigpipe = (std::signal(SIGPIPE, SIG_IGN), true);
        (void)noSigpipe;
        const uint16_t port = serverPort == 0 ? 21 : uint16_t(serverPort);
        StreamSocket socket;
        socket.connect(Poco::Net::SocketAddress(serverName.toStdString(), port), kTimeout);
        socket.setReceiveTimeout(kTimeout);
        socket.setSendTimeout(kTimeout);
        auto c = std::make_unique<Connection>();
        c->control = std::make_unique<Control>(socket);
        c->control->setTimeout(kTimeout);
        c->passive = (flags & INTERNET_FLAG_PASSIVE) != 0;
        c->control->setPassive(c->passive, true);
        // An empty user goes as it is: no anonymous login stands in for it.
        c->control->login(userName.toStdString(), password.toStdString());
        std::string features;
        if (c->control->sendCommand("FEAT", features) / 100 == 2) {
            // MLST in FEAT stands for MLSD too (RFC 3659).
            c->mlsd = HasFeature(features, "MLST") || HasFeature(features, "MLSD");
            if (c->mlsd) AskForOwnerMode(*c->control, features);
            if (HasFeature(features, "UTF8")) {
                std::string r;
                c->control->sendCommand("OPTS UTF8 ON", r);
                c->utf8 = true;
            }
        }
        return Add(std::move(c));
    } catch (...) {
        return 0;
    }
}

bool InternetCloseHandle(HINTERNET handle) {
    try {
        Object* o = Lookup(handle);
        if (!o) return false;
        if (auto* c = std::get_if<std::unique_ptr<Connection>>(o)) {
            Connection* conn = c->get();
            if (conn->activeStream) EndStream(*conn->activeStream, true);
            // Streams of this connection stay in the table as dead handles.
            for (Stream* s : Streams())
                if (s->owner == conn) s->owner = nullptr;
            try {
                conn->control->QuickClose();
            } catch (...) {
            }
        } else if (auto* s = std::get_if<std::unique_ptr<Stream>>(o)) {
            Stream& st = **s;
            EndStream(st, true);
            const bool ok = st.succeeded;
            Remove(handle);
            return ok;
        }
        Remove(handle);
        return true;
    } catch (...) {
        return false;
    }
}

uint32_t FtpGetCurrentDirectoryA(HINTERNET hConnect, QString& currentDirectory, uint32_t& length) {
    try {
        Connection* c = GetConnection(hConnect);
        Control* ctl = Ready(c);
        if (!ctl) return 0;
        const QString dir = c->Decode(ctl->getWorkingDirectory());
        if (uint32_t(dir.size()) >= length) return 0;
        currentDirectory = dir;
        length = uint32_t(dir.size());
        return 1;
    } catch (...) {
        return 0;
    }
}

bool FtpSetCurrentDirectoryA(HINTERNET hConnect, const QString& directory) {
    return Command(hConnect, [&](Connection& c, Control& ctl) { ctl.setWorkingDirectory(c.Encode(directory)); });
}

HINTERNET FtpFindFirstFileA(HINTERNET hConnect, const QString& searchFile, WIN32_FIND_DATA& findData, uint32_t,
                            uint32_t) {
    try {
        Connection* c = GetConnection(hConnect);
        Control* ctl = Ready(c);
        if (!ctl) return 0;
        StreamSocket data = ctl->OpenData(c->mlsd ? "MLSD" : "LIST", "", c->passive);
        // Whole lines are parsed as they arrive, while the server still
        // writes the rest: a long listing costs little more than its bytes.
        const auto enc = c->utf8 ? ftp::NameEncoding::Utf8 : ftp::NameEncoding::Latin1;
        const QDateTime now = QDateTime::currentDateTimeUtc();
        Find f;
        QByteArray pending;
        const auto parse = [&](qsizetype size) {
            const QByteArray lines = QByteArray::fromRawData(pending.constData(), size);
            std::vector<WIN32_FIND_DATA> part = c->mlsd ? ftp::ParseMlsd(lines, enc) : ftp::ParseList(lines, enc, now);
            if (f.entries.empty())
                f.entries = std::move(part);
            else
                f.entries.insert(f.entries.end(), std::make_move_iterator(part.begin()),
                                 std::make_move_iterator(part.end()));
            pending.remove(0, size);
        };
        try {
            char buf[65536];
            for (;;) {
                const int n = data.receiveBytes(buf, int(sizeof buf));
                if (n <= 0) break;
                pending.append(buf, n);
                const qsizetype lineEnd = pending.lastIndexOf('\n');
                if (lineEnd >= 0) parse(lineEnd + 1);
            }
        } catch (...) {
            Settle(*ctl, data);
            return 0;
        }
        data.close();
        if (!ctl->FinishTransfer()) return 0;
        if (!pending.isEmpty()) parse(pending.size());
        if (!WantsAll(searchFile)) {
            const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(searchFile),
                                        QRegularExpression::CaseInsensitiveOption);
            std::erase_if(f.entries, [&](const WIN32_FIND_DATA& d) { return !re.match(d.cFileName).hasMatch(); });
        }
        if (f.entries.empty()) return 0;
        findData = f.entries[0];
        f.next = 1;
        return Add(std::move(f));
    } catch (...) {
        return 0;
    }
}

bool InternetFindNextFileA(HINTERNET hFind, WIN32_FIND_DATA& findData) {
    try {
        Find* f = Get<Find>(hFind);
        if (!f || f->next >= f->entries.size()) return false;
        findData = f->entries[f->next++];
        return true;
    } catch (...) {
        return false;
    }
}

bool FtpCreateDirectoryA(HINTERNET hConnect, const QString& directory) {
    return Command(hConnect, [&](Connection& c, Control& ctl) { ctl.createDirectory(c.Encode(directory)); });
}

bool FtpRemoveDirectoryA(HINTERNET hConnect, const QString& directory) {
    return Command(hConnect, [&](Connection& c, Control& ctl) { ctl.removeDirectory(c.Encode(directory)); });
}

bool FtpDeleteFileA(HINTERNET hConnect, const QString& fileName) {
    return Command(hConnect, [&](Connection& c, Control& ctl) { ctl.remove(c.Encode(fileName)); });
}

bool FtpRenameFileA(HINTERNET hConnect, const QString& existingName, const QString& newName) {
    return Command(hConnect,
                   [&](Connection& c, Control& ctl) { ctl.rename(c.Encode(existingName), c.Encode(newName)); });
}
