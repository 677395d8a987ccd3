#include "transfer/upload.h"

#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/wininet.h"
#include "transfer/asciiDat.h"

#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

HINTERNET hUploadFile = 0;

namespace {

constexpr int kChunk = 255;

// The frame is looked up at each use: an event turn in the middle of the
// upload may have unloaded it, and a touch brings it back as it always has.
void SetWatch(bool on) {
    mdiMain().timIsConnected->SetEnabled(on);
}

bool Fail() {
    AppendLogLine(kRed, GetLanguageText("MPUB_UPFAILED"));
    SetWatch(true);
    return false;
}

// The local file opened for binary reading. Only regular files open (a
// pipe or a device would block or never end); anything else reads as
// nothing, which is what a failed open left behind.
class LocalFile {
public:
    explicit LocalFile(const QString& windowsPath) {
        const QByteArray path = localfs::ToPosix(windowsPath).toLocal8Bit();
        if (path.isEmpty()) return;
        fd_ = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        struct stat st {};
        if (fd_ >= 0 && (::fstat(fd_, &st) != 0 || !S_ISREG(st.st_mode))) Close();
        if (fd_ >= 0) {
            size_ = st.st_size;
            buffer_ = std::make_unique<char[]>(kBuffer);
        }
    }
    ~LocalFile() { Close(); }
    LocalFile(const LocalFile&) = delete;
    LocalFile& operator=(const LocalFile&) = delete;

    // The length as the classic signed 32-bit file length gives it.
    int32_t Length() const { return static_cast<int32_t>(size_); }

    // Fills `out` as far as the file goes; the rest of it keeps what it held.
    void Read(char* out, int count) {
        while (count > 0 && fd_ >= 0) {
            if (pos_ == len_ && !Fill()) return;
            const int n = int(std::min<qsizetype>(count, len_ - pos_));
            std::memcpy(out, buffer_.get() + pos_, size_t(n));
            pos_ += n;
            out += n;
            count -= n;
        }
    }

    void Close() {
        if (fd_ >= 0) ::close(fd_);
        fd_ = -1;
    }

private:
    static constexpr qsizetype kBuffer = 64 * 1024;
    bool Fill() {
        ssize_t n;
        do n = ::read(fd_, buffer_.get(), size_t(kBuffer));
        while (n < 0 && errno == EINTR);
        pos_ = 0;
        len_ = n > 0 ? n : 0;
        return len_ > 0;
    }
    int fd_ = -1;
    off_t size_ = 0;
    std::unique_ptr<char[]> buffer_;
    qsizetype pos_ = 0, len_ = 0;
};

}  // namespace

QString TrimBlanks(const QString& s) {
    qsizetype from = 0, to = s.size();
    while (from < to && s[from] == u' ') ++from;
    while (to > from && s[to - 1] == u' ') --to;
    return s.mid(from, to - from);
}

bool IsAsciiFile(const QString& pFileName) {
    for (const QString& sLine : ReadAsciiDat())
        if (pFileName.contains(QLatin1Char('.') + sLine, Qt::CaseInsensitive)) return true;
    return false;
}

bool UploadFile(QString& pLocalFile, QString& pRemoteFile) {
    // The watch must not poll the connection between chunks.
    SetWatch(false);
    bool result = false;
    int32_t lBytesSent = 0;
    pLocalFile = TrimBlanks(pLocalFile);
    pRemoteFile = TrimBlanks(pRemoteFile);
    if (pLocalFile.isEmpty() || pRemoteFile.isEmpty()) {
        SetWatch(true);
        return result;
    }

    if (mdiMain().cboTransferMode->ListIndex() == 2) lTransferMode = IsAsciiFile(pRemoteFile) ? 1 : 2;

    // The server file is made before the local one is looked at, so a
    // missing local file still leaves an (empty) file on the server.
    hUploadFile = FtpOpenFileA(hConnection, pRemoteFile, GENERIC_WRITE, lTransferMode, 0);
    if (hUploadFile == 0) return Fail();

    LocalFile file(pLocalFile);
    const int32_t lFileSize = file.Length();
    char bytUploadBuffer[kChunk] = {};
    uint32_t lWritten = 0;
    // Failed writes leave the stream open (hUploadFile keeps its value): the
    // walks open a new connection before their next item.
    for (int32_t i = 1; i <= lFileSize / kChunk; ++i) {
        file.Read(bytUploadBuffer, kChunk);
        // hUploadFile is read afresh: a nested upload during the turn below
        // replaces it, and this one then writes to the nested one's stream.
        if (!InternetWriteFile(hUploadFile, bytUploadBuffer, kChunk, lWritten)) return Fail();
        DoEvents();
        lBytesSent += kChunk;
    }
    // The tail write always happens, of 0 bytes too. A length from 2 GiB on
    // reads negative: its tail can't be written, so it fails here.
    const int32_t lTail = lFileSize % kChunk;
    file.Read(bytUploadBuffer, kChunk);
    if (lTail < 0 || !InternetWriteFile(hUploadFile, bytUploadBuffer, uint32_t(lTail), lWritten)) return Fail();
    lBytesSent += lTail;
    file.Close();
    InternetCloseHandle(hUploadFile);
    result = true;
    AppendLogLine(kGreen, GetLanguageText("MPUB_UPOK"));
    SetWatch(true);
    return result;
}
