// The FTP operations over Poco::Net. Every entry point catches everything:
// the logic only ever sees 0, false or empty text.
#include "platform/wininet.h"

#include "platform/ftp_listing.h"
#include "platform/localfs.h"

#include <Poco/Net/DialogSocket.h>
#include <Poco/Net/FTPClientSession.h>
#include <Poco/Net/NetException.h>
#include <Poco/Net/ServerSocket.h>
#include <Poco/Net/SocketAddress.h>
#include <Poco/Net/StreamSocket.h>
#include <Poco/Timespan.h>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <csignal>
#include <map>
#include <memory>
#include <sys/socket.h>
#include <iterator>
#include <variant>

namespace {

const Poco::Timespan kTimeout(30, 0);
constexpr size_t kUploadBuffer = 64 * 1024;

using Poco::Net::FTPException;
using Poco::Net::Socket;
using Poco::Net::StreamSocket;

class Control : public Poco::Net::FTPClientSession {
public:
    explicit Control(const StreamSocket& socket) : FTPClientSession(socket, true) {}

    // Opens a data connection for `command`. An active one that the server
    // refuses or can't reach is tried once more passively; a refusal of the
    // command itself (550, 553...) is final.
    StreamSocket OpenData(const std::string& command, const std::string& arg, bool passive) {
        if (!passive) {
            bool retry = false;
            try {
                return Active(command, arg, retry);
            } catch (...) {
                if (!retry) throw;
            }
        }
        return Passive(command, arg);
    }

    int Reply(std::string& text) { return _pControlSocket->receiveStatusMessage(text); }

    // The final reply of a transfer; true for 2xx.
    bool FinishTransfer() {
        std::string text;
        return Reply(text) / 100 == 2;
    }

    // True when the server has said something nobody asked for yet: during
    // an upload that can only be the end of it.
    bool Speaking() { return _pControlSocket && _pControlSocket->poll(Poco::Timespan(0), Socket::SELECT_READ); }

    // Reads replies that arrived unasked (a late 426, a 421 before the
    // server hangs up), so the next command gets its own answer.
    void Drain() {
        for (int i = 0; i < 8 && Speaking(); ++i) {
            std::string text;
            if (Reply(text) == 0) break;  // the server hung up
        }
    }

    // Says goodbye without waiting long for the answer: closing a handle
    // must not hang on a server that has stopped listening.
    void QuickClose() {
        if (_pControlSocket) _pControlSocket->setReceiveTimeout(Poco::Timespan(0, 300000));
        close();
    }

private:
    static void Prepare(StreamSocket& s) {
        s.setReceiveTimeout(kTimeout);
        s.setSendTimeout(kTimeout);
    }

    StreamSocket Active(const std::string& command, const std::string& arg, bool& retry) {
        Poco::Net::ServerSocket listener(Poco::Net::SocketAddress(_pControlSocket->address().host(), 0));
        try {
            sendPortCommand(listener.address());  // EPRT, else PORT
        } catch (...) {
            retry = true;
            throw;
        }
        std::string text;
        const int status = sendCommand(command, arg, text);
        if (status / 100 != 1) {
            retry = status / 100 == 4;  // 425 and the like: it couldn't connect
            throw FTPException(command + " refused", text, status);
        }
        if (!listener.poll(kTimeout, Socket::SELECT_READ)) {
            // It said yes but never came: take its verdict first.
            std::string verdict;
            Reply(verdict);
            retry = true;
            throw FTPException("no data connection from the server");
        }
        StreamSocket s = listener.acceptConnection();
        Prepare(s);
        return s;
    }

    StreamSocket Passive(const std::string& command, const std::string& arg) {
        const Poco::Net::SocketAddress where = sendPassiveCommand();  // EPSV, else PASV
        StreamSocket s;
        s.connect(where, kTimeout);
        Prepare(s);
        std::string text;
        const int status = sendCommand(command, arg, text);
        if (status / 100 != 1) throw FTPException(command + " refused", text, status);
        return s;
    }
};

bool SendAll(StreamSocket& s, const char* data, size_t size) {
    size_t sent = 0;
    while (sent < size) {
        const int n = s.sendBytes(data + sent, int(std::min<size_t>(size - sent, 1 << 20)), MSG_NOSIGNAL);
        if (n <= 0) return false;
        sent += size_t(n);
    }
    return true;
}

struct Connection;

struct Stream {
    Connection* owner = nullptr;
    StreamSocket data;
    std::string buffer;
    bool ascii = false;
    bool lastWasCR = false;
    bool open = true;       // the transfer still runs
    bool succeeded = false;  // it ended with the server's 2xx
};

struct Connection {
    std::unique_ptr<Control> control;
    bool passive = false;
    bool utf8 = false;
    bool mlsd = false;
    Stream* activeStream = nullptr;

    std::string Encode(const QString& s) const {
        const QByteArray b = utf8 ? s.toUtf8() : s.toLatin1();
        return std::string(b.constData(), size_t(b.size()));
    }
    QString Decode(const std::string& s) const {
        return utf8 ? QString::fromUtf8(s.data(), qsizetype(s.size()))
                    : QString::fromLatin1(s.data(), qsizetype(s.size()));
    }
};

struct Session {
    QString agent;
};

struct Find {
    std::vector<WIN32_FIND_DATA> entries;
    size_t next = 0;
};

using Object = std::variant<Session, std::unique_ptr<Connection>, Find, std::unique_ptr<Stream>>;
std::map<HINTERNET, Object>& Table() {
    static std::map<HINTERNET, Object> table;
    return table;
}

// Handles are never reused in a run: a stale handle the logic still holds
// can't reach a newer object.
HINTERNET Add(Object o) {
    static HINTERNET next = 1;
    const HINTERNET h = next++;
    if (next == 0) next = 1;
    Table().emplace(h, std::move(o));
    return h;
}

template <class T>
T* Get(HINTERNET h) {
    auto it = Table().find(h);
    if (it == Table().end()) return nullptr;
    return std::get_if<T>(&it->second);
}

Connection* GetConnection(HINTERNET h) {
    auto* p = Get<std::unique_ptr<Connection>>(h);
    return p ? p->get() : nullptr;
}

// Ends a stream's transfer. With `flush` the buffered bytes go out first and
// the server's verdict decides; without, the transfer is simply torn down.
// Either way the pending reply is read, so the dialogue stays in step.
void EndStream(Stream& st, bool flush) {
    if (!st.open) return;
    st.open = false;
    bool ok = flush;
    try {
        if (ok && !st.buffer.empty()) ok = SendAll(st.data, st.buffer.data(), st.buffer.size());
    } catch (...) {
        ok = false;
    }
    st.buffer.clear();
    try {
        st.data.close();
    } catch (...) {
    }
    try {
        if (st.owner && st.owner->control) ok = st.owner->control->FinishTransfer() && ok;
    } catch (...) {
        ok = false;
    }
    st.succeeded = ok;
    if (st.owner && st.owner->activeStream == &st) st.owner->activeStream = nullptr;
}

// The control session of a connection, ready for a new command: a stream
// still open on it is finished first and stray replies are read.
Control* Ready(Connection* c) {
    if (!c || !c->control) return nullptr;
    if (c->activeStream) EndStream(*c->activeStream, true);
    c->control->Drain();
    return c->control.get();
}

// After a failed data transfer: drop the data connection and take the
// server's reply, whatever it is.
void Settle(Control& ctl, StreamSocket& data) {
    try {
        data.close();
    } catch (...) {
    }
    try {
        ctl.FinishTransfer();
    } catch (...) {
    }
}

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

template <class F>
bool Command(HINTERNET hConnect, F&& f) {
    try {
        Connection* c = GetConnection(hConnect);
        Control* ctl = Ready(c);
        if (!ctl) return false;
        f(*c, *ctl);
        return true;
    } catch (...) {
        return false;
    }
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
        const QString user = userName.isEmpty() ? QStringLiteral("anonymous") : userName;
        c->control->login(user.toStdString(), password.toStdString());
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
        auto it = Table().find(handle);
        if (it == Table().end()) return false;
        if (auto* c = std::get_if<std::unique_ptr<Connection>>(&it->second)) {
            Connection* conn = c->get();
            if (conn->activeStream) EndStream(*conn->activeStream, true);
            // Streams of this connection stay in the table as dead handles.
            for (auto& [h, o] : Table())
                if (auto* s = std::get_if<std::unique_ptr<Stream>>(&o); s && (*s)->owner == conn)
                    (*s)->owner = nullptr;
            try {
                conn->control->QuickClose();
            } catch (...) {
            }
        } else if (auto* s = std::get_if<std::unique_ptr<Stream>>(&it->second)) {
            Stream& st = **s;
            EndStream(st, true);
            const bool ok = st.succeeded;
            Table().erase(it);
            return ok;
        }
        Table().erase(it);
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

HINTERNET FtpOpenFileA(HINTERNET hConnect, const QString& fileName, uint32_t access, uint32_t flags, uint32_t) {
    try {
        Connection* c = GetConnection(hConnect);
        Control* ctl = Ready(c);
        if (!ctl || !(access & GENERIC_WRITE)) return 0;
        const bool ascii = (flags & 3) == FTP_TRANSFER_TYPE_ASCII;
        ctl->setFileType(ascii ? Poco::Net::FTPClientSession::TYPE_TEXT : Poco::Net::FTPClientSession::TYPE_BINARY);
        auto st = std::make_unique<Stream>();
        st->owner = c;
        st->ascii = ascii;
        st->data = ctl->OpenData("STOR", c->Encode(fileName), c->passive);
        st->buffer.reserve(kUploadBuffer + 512);
        c->activeStream = st.get();
        return Add(std::move(st));
    } catch (...) {
        return 0;
    }
}

bool InternetWriteFile(HINTERNET hFile, const void* buffer, uint32_t count, uint32_t& written) {
    written = 0;
    Stream* st = nullptr;
    try {
        auto* p = Get<std::unique_ptr<Stream>>(hFile);
        if (!p) return false;
        st = p->get();
        if (!st->open || !st->owner || !st->owner->control) return false;
        const char* bytes = static_cast<const char*>(buffer);
        if (st->ascii) {
            // The wire form of text has CR LF line ends.
            for (uint32_t i = 0; i < count; ++i) {
                if (bytes[i] == '\n' && !st->lastWasCR) st->buffer += '\r';
                st->buffer += bytes[i];
                st->lastWasCR = bytes[i] == '\r';
            }
        } else if (count > 0) {
            st->buffer.append(bytes, count);
        }
        const bool flush = st->buffer.size() >= kUploadBuffer;
        // On a STOR the server sends nothing on the data connection and
        // speaks on the control connection only at the end: anything to read
        // on either means the transfer is over. Asked only when bytes go
        // out (or nothing was given), as asking costs more than buffering.
        if ((flush || count == 0) &&
            (st->data.poll(Poco::Timespan(0), Socket::SELECT_READ | Socket::SELECT_ERROR) ||
             st->owner->control->Speaking()))
            throw Poco::Net::NetException("transfer ended by the server");
        if (flush) {
            if (!SendAll(st->data, st->buffer.data(), st->buffer.size()))
                throw Poco::Net::NetException("short write");
            st->buffer.clear();
        }
        written = count;
        return true;
    } catch (...) {
        // Tear the transfer down here: the logic leaves this handle open, and
        // the connection's next command must find the dialogue in step.
        if (st) {
            try {
                EndStream(*st, false);
            } catch (...) {
            }
        }
        return false;
    }
}

bool FtpGetFileA(HINTERNET hConnect, const QString& remoteFile, const QString& newFile, bool failIfExists,
                 uint32_t, uint32_t flags, uint32_t) {
    try {
        Connection* c = GetConnection(hConnect);
        Control* ctl = Ready(c);
        if (!ctl) return false;
        const QString target = localfs::ToPosix(newFile);
        if (target.isEmpty() || (failIfExists && QFileInfo::exists(target))) return false;
        QSaveFile out(target);  // a temporary file beside it, renamed at commit
        if (!out.open(QIODevice::WriteOnly)) return false;
        const bool ascii = (flags & 3) == FTP_TRANSFER_TYPE_ASCII;
        ctl->setFileType(ascii ? Poco::Net::FTPClientSession::TYPE_TEXT : Poco::Net::FTPClientSession::TYPE_BINARY);
        StreamSocket data = ctl->OpenData("RETR", c->Encode(remoteFile), c->passive);
        bool ok = true;
        try {
            char buf[65536];
            bool pendingCR = false;  // a CR at the end of one read, its LF maybe in the next
            for (;;) {
                const int n = data.receiveBytes(buf, int(sizeof buf));
                if (n <= 0) break;
                if (!ascii) {
                    ok = out.write(buf, n) == n;
                } else {
                    // Text arrives with CR LF line ends; the local form has LF.
                    QByteArray text;
                    text.reserve(n + 1);
                    for (int i = 0; i < n; ++i) {
                        if (pendingCR && buf[i] != '\n') text += '\r';
                        pendingCR = buf[i] == '\r';
                        if (!pendingCR) text += buf[i];
                    }
                    ok = out.write(text) == text.size();
                }
                if (!ok) break;
            }
            if (ok && pendingCR) ok = out.write("\r", 1) == 1;
        } catch (...) {
            ok = false;
        }
        if (!ok) {
            Settle(*ctl, data);
            out.cancelWriting();
            return false;
        }
        data.close();
        if (!ctl->FinishTransfer()) {
            out.cancelWriting();
            return false;
        }
        return out.commit();
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
