#include "platform/wininet_control.h"

#include <Poco/Net/DialogSocket.h>
#include <Poco/Net/NetException.h>
#include <Poco/Net/ServerSocket.h>
#include <Poco/Net/SocketAddress.h>
#include <algorithm>
#include <sys/socket.h>

namespace wininet::detail {

using Poco::Net::FTPException;
using Poco::Net::Socket;
using Poco::Net::StreamSocket;

namespace {
void Prepare(StreamSocket& s) {
    s.setReceiveTimeout(kTimeout);
    s.setSendTimeout(kTimeout);
}
}  // namespace

StreamSocket Control::OpenData(const std::string& command, const std::string& arg, bool passive) {
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

bool Control::FinishTransfer() {
    std::string text;
    return Reply(text) / 100 == 2;
}

bool Control::Speaking() {
    return _pControlSocket && _pControlSocket->poll(Poco::Timespan(0), Socket::SELECT_READ);
}

void Control::Drain() {
    for (int i = 0; i < 8 && Speaking(); ++i) {
        std::string text;
        if (Reply(text) == 0) break;  // the server hung up
    }
}

void Control::QuickClose() {
    if (_pControlSocket) _pControlSocket->setReceiveTimeout(Poco::Timespan(0, 300000));
    close();
}

StreamSocket Control::Active(const std::string& command, const std::string& arg, bool& retry) {
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

StreamSocket Control::Passive(const std::string& command, const std::string& arg) {
    const Poco::Net::SocketAddress where = sendPassiveCommand();  // EPSV, else PASV
    StreamSocket s;
    s.connect(where, kTimeout);
    Prepare(s);
    std::string text;
    const int status = sendCommand(command, arg, text);
    if (status / 100 != 1) throw FTPException(command + " refused", text, status);
    return s;
}

bool SendAll(StreamSocket& s, const char* data, size_t size) {
    size_t sent = 0;
    while (sent < size) {
        const int n = s.sendBytes(data + sent, int(std::min<size_t>(size - sent, 1 << 20)), MSG_NOSIGNAL);
        if (n <= 0) return false;
        sent += size_t(n);
    }
    return true;
}

}  // namespace wininet::detail
