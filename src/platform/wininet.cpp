// The FTP operations over Poco::Net. Every entry point catches everything:
// the logic only ever sees 0, false or empty text.
#include "platform/wininet.h"

#include "platform/ftp_listing.h"

#include <Poco/Net/DialogSocket.h>
#include <Poco/Net/FTPClientSession.h>
#include <Poco/Net/NetException.h>
#include <Poco/Net/SocketAddress.h>
#include <Poco/Net/StreamSocket.h>
#include <Poco/Timespan.h>
#include <QRegularExpression>
#include <map>
#include <memory>
#include <variant>

namespace {

const Poco::Timespan kTimeout(30, 0);
constexpr size_t kUploadBuffer = 64 * 1024;

class Control : public Poco::Net::FTPClientSession {
public:
    explicit Control(const Poco::Net::StreamSocket& socket) : FTPClientSession(socket, true) {}

    // Opens a data connection for `command`; an active one the server can't
    // reach is tried once more passively.
    Poco::Net::StreamSocket OpenData(const std::string& command, const std::string& arg, bool passive) {
        if (!passive) {
            try {
                setPassive(false, true);
                return establishDataConnection(command, arg);
            } catch (const Poco::Net::FTPException& e) {
                if (e.code() / 100 != 4) throw;  // refused for other reasons: no retry
            } catch (const Poco::TimeoutException&) {
            }
        }
        setPassive(true, true);
        Poco::Net::StreamSocket s = establishDataConnection(command, arg);
        setPassive(passive, true);
        return s;
    }

    // Says goodbye without waiting long for the answer: closing a handle
    // must not hang on a server that has stopped listening.
    void QuickClose() {
        if (_pControlSocket) _pControlSocket->setReceiveTimeout(Poco::Timespan(0, 300000));
        close();
    }

    // The final reply of a transfer; true for 2xx.
    bool FinishTransfer() {
        std::string response;
        const int status = _pControlSocket->receiveStatusMessage(response);
        return status / 100 == 2;
    }
};

struct Connection;

struct Stream {
    Connection* owner = nullptr;
    Poco::Net::StreamSocket data;
    std::string buffer;
    bool ascii = false;
    bool lastWasCR = false;
    bool healthy = true;
    bool open = true;
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
        return utf8 ? QString::fromStdString(s) : QString::fromLatin1(s.data(), qsizetype(s.size()));
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
HINTERNET gNext = 1;

HINTERNET Add(Object o) {
    const HINTERNET h = gNext++;
    if (gNext == 0) gNext = 1;
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

bool SendAll(Poco::Net::StreamSocket& s, const std::string& data) {
    size_t sent = 0;
    while (sent < data.size()) {
        const int n = s.sendBytes(data.data() + sent, int(data.size() - sent));
        if (n <= 0) return false;
        sent += size_t(n);
    }
    return true;
}

// Ends a stream: flushes, closes the data connection and takes the reply.
bool FinishStream(Stream& st) {
    if (!st.open) return false;
    st.open = false;
    bool ok = st.healthy;
    try {
        if (ok && !st.buffer.empty()) ok = SendAll(st.data, st.buffer);
        st.buffer.clear();
        st.data.close();
        if (st.owner && st.owner->control) ok = st.owner->control->FinishTransfer() && ok;
    } catch (...) {
        ok = false;
    }
    if (st.owner && st.owner->activeStream == &st) st.owner->activeStream = nullptr;
    return ok;
}

// A command on a connection first ends a stream still open on it, so the
// dialogue stays in step.
Control* Ready(Connection* c) {
    if (!c || !c->control) return nullptr;
    if (c->activeStream) FinishStream(*c->activeStream);
    return c->control.get();
}

bool WantsAll(const QString& pattern) {
    return pattern.isEmpty() || pattern == QLatin1String("*.*") || pattern == QLatin1String("*");
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
        const uint16_t port = serverPort == 0 ? 21 : uint16_t(serverPort);
        Poco::Net::StreamSocket socket;
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
            const QString f = QString::fromStdString(features).toUpper();
            c->mlsd = f.contains(QRegularExpression(QStringLiteral("\\bMLSD\\b")));
            if (f.contains(QRegularExpression(QStringLiteral("\\bUTF8\\b")))) {
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
            if (conn->activeStream) FinishStream(*conn->activeStream);
            // Streams of this connection stay in the table as dead handles.
            for (auto& [h, o] : Table())
                if (auto* s = std::get_if<std::unique_ptr<Stream>>(&o); s && (*s)->owner == conn) (*s)->owner = nullptr;
            try {
                conn->control->QuickClose();
            } catch (...) {
            }
        } else if (auto* s = std::get_if<std::unique_ptr<Stream>>(&it->second)) {
            const bool ok = FinishStream(**s);
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
    try {
        Connection* c = GetConnection(hConnect);
        Control* ctl = Ready(c);
        if (!ctl) return false;
        ctl->setWorkingDirectory(c->Encode(directory));
        return true;
    } catch (...) {
        return false;
    }
}

HINTERNET FtpFindFirstFileA(HINTERNET hConnect, const QString& searchFile, WIN32_FIND_DATA& findData, uint32_t,
                            uint32_t) {
    try {
        Connection* c = GetConnection(hConnect);
        Control* ctl = Ready(c);
        if (!ctl) return 0;
        Poco::Net::StreamSocket data = ctl->OpenData(c->mlsd ? "MLSD" : "LIST", "", c->passive);
        std::string body;
        char buf[65536];
        for (;;) {
            const int n = data.receiveBytes(buf, int(sizeof buf));
            if (n <= 0) break;
            body.append(buf, size_t(n));
        }
        data.close();
        if (!ctl->FinishTransfer()) return 0;
        const QByteArray raw(body.data(), qsizetype(body.size()));
        const auto enc = c->utf8 ? ftp::NameEncoding::Utf8 : ftp::NameEncoding::Latin1;
        Find f;
        f.entries = c->mlsd ? ftp::ParseMlsd(raw, enc) : ftp::ParseList(raw, enc, QDateTime::currentDateTimeUtc());
        if (!WantsAll(searchFile)) {
            const QRegularExpression re(QRegularExpression::wildcardToRegularExpression(searchFile));
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
    Find* f = Get<Find>(hFind);
    if (!f || f->next >= f->entries.size()) return false;
    findData = f->entries[f->next++];
    return true;
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
        st->buffer.reserve(kUploadBuffer);
        c->activeStream = st.get();
        return Add(std::move(st));
    } catch (...) {
        return 0;
    }
}

bool InternetWriteFile(HINTERNET hFile, const void* buffer, uint32_t count, uint32_t& written) {
    written = 0;
    auto* p = Get<std::unique_ptr<Stream>>(hFile);
    if (!p) return false;
    Stream& st = **p;
    if (!st.open || !st.healthy || !st.owner) return false;
    try {
        const char* bytes = static_cast<const char*>(buffer);
        if (st.ascii) {
            // The wire form of text has CR LF line ends.
            for (uint32_t i = 0; i < count; ++i) {
                if (bytes[i] == '\n' && !st.lastWasCR) st.buffer += '\r';
                st.buffer += bytes[i];
                st.lastWasCR = bytes[i] == '\r';
            }
        } else if (count > 0) {
            st.buffer.append(bytes, count);
        }
        if (st.buffer.size() >= kUploadBuffer) {
            if (!SendAll(st.data, st.buffer)) throw Poco::Net::NetException("short write");
            st.buffer.clear();
        }
        written = count;
        return true;
    } catch (...) {
        // Tear the transfer down here, so the connection's next command
        // finds the dialogue in step.
        st.healthy = false;
        try {
            st.data.close();
            if (st.owner && st.owner->control) st.owner->control->FinishTransfer();
        } catch (...) {
        }
        st.open = false;
        if (st.owner && st.owner->activeStream == &st) st.owner->activeStream = nullptr;
        return false;
    }
}
