// One FTP control connection over Poco's session: data connections with the
// passive retry, replies read in step, and a quick goodbye. Platform-only.
#pragma once

#include <Poco/Net/FTPClientSession.h>
#include <Poco/Net/StreamSocket.h>
#include <Poco/Timespan.h>
#include <string>

namespace wininet::detail {

// To connect, for each reply and for each data read.
inline const Poco::Timespan kTimeout(30, 0);

class Control : public Poco::Net::FTPClientSession {
public:
    explicit Control(const Poco::Net::StreamSocket& socket) : FTPClientSession(socket, true) {}

    // Opens a data connection for `command`. An active one that the server
    // refuses or can't reach is tried once more passively; a refusal of the
    // command itself (550, 553...) is final.
    Poco::Net::StreamSocket OpenData(const std::string& command, const std::string& arg, bool passive);

    int Reply(std::string& text) { return _pControlSocket->receiveStatusMessage(text); }
    // The final reply of a transfer; true for 2xx.
    bool FinishTransfer();
    // True when the server has said something nobody asked for yet: during
    // an upload that can only be the end of it.
    bool Speaking();
    // Reads replies that arrived unasked (a late 426, a 421 before the
    // server hangs up), so the next command gets its own answer.
    void Drain();
    // Says goodbye without waiting long for the answer: closing a handle
    // must not hang on a server that has stopped listening.
    void QuickClose();

private:
    Poco::Net::StreamSocket Active(const std::string& command, const std::string& arg, bool& retry);
    Poco::Net::StreamSocket Passive(const std::string& command, const std::string& arg);
};

// Sends every byte (in pieces of at most a MiB); false when the socket
// refused some. A peer that hung up gives an error, not SIGPIPE.
bool SendAll(Poco::Net::StreamSocket& s, const char* data, size_t size);

}  // namespace wininet::detail
