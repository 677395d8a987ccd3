// Transfers: upload streams that buffer the logic's small writes, and
// downloads that replace the local file only once the whole file arrived.
#include "platform/localfs.h"
#include "platform/wininet.h"
#include "platform/wininet_handles.h"

#include <Poco/Net/NetException.h>
#include <QFileInfo>
#include <QSaveFile>

using namespace wininet::detail;
using Poco::Net::Socket;
using Poco::Net::StreamSocket;

namespace {
constexpr size_t kUploadBuffer = 64 * 1024;
}  // namespace

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
