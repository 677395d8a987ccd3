// The handle table behind the WinInet calls: sessions, connections, finds
// and upload streams, each a non-zero number never reused in a run.
// Platform-only.
#pragma once

#include "platform/wininet_control.h"
#include "platform/wintypes.h"

#include <QString>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace wininet::detail {

struct Connection;

struct Stream {
    Connection* owner = nullptr;
    Poco::Net::StreamSocket data;
    std::string buffer;
    bool ascii = false;
    bool lastWasCR = false;
    bool open = true;        // the transfer still runs
    bool succeeded = false;  // it ended with the server's 2xx
};

struct Connection {
    std::unique_ptr<Control> control;
    bool passive = false;
    bool utf8 = false;
    bool mlsd = false;
    Stream* activeStream = nullptr;

    // Names travel as UTF-8 when the server agreed to it, else as Latin-1.
    std::string Encode(const QString& s) const;
    QString Decode(const std::string& s) const;
};

struct Session {
    QString agent;
};

struct Find {
    std::vector<WIN32_FIND_DATA> entries;
    size_t next = 0;
};

using Object = std::variant<Session, std::unique_ptr<Connection>, Find, std::unique_ptr<Stream>>;

HINTERNET Add(Object o);
// The object behind a handle; nullptr when the handle names none or another kind.
Object* Lookup(HINTERNET h);
// Drops the handle; false when there was none.
bool Remove(HINTERNET h);
// Every stream still in the table.
std::vector<Stream*> Streams();

template <class T>
T* Get(HINTERNET h) {
    Object* o = Lookup(h);
    return o ? std::get_if<T>(o) : nullptr;
}

inline Connection* GetConnection(HINTERNET h) {
    auto* p = Get<std::unique_ptr<Connection>>(h);
    return p ? p->get() : nullptr;
}

// Ends a stream's transfer. With `flush` the buffered bytes go out first and
// the server's verdict decides; without, the transfer is simply torn down.
// Either way the pending reply is read, so the dialogue stays in step.
void EndStream(Stream& st, bool flush);

// The control session of a connection, ready for a new command: a stream
// still open on it is finished first and stray replies are read.
Control* Ready(Connection* c);

// After a failed data transfer: drop the data connection and take the
// server's reply, whatever it is.
void Settle(Control& ctl, Poco::Net::StreamSocket& data);

// Runs one command on a ready connection; false when there is none or the
// command failed.
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

}  // namespace wininet::detail
