#include "transfer/upload.h"

#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/wininet.h"
#include "transfer/asciiDat.h"

#include <QFile>

HINTERNET hUploadFile = 0;

namespace {
constexpr int kChunk = 255;

bool Fail(controls::Timer& timer) {
    AppendLogLine(kRed, GetLanguageText("MPUB_UPFAILED"));
    timer.SetEnabled(true);
    return false;
}
}  // namespace

bool IsAsciiFile(const QString& pFileName) {
    // A substring test over the whole name, not an extension test: TXT also
    // matches a.txt.bak. A missing list gives no entries.
    for (const QString& entry : ReadAsciiDat())
        if (pFileName.contains("." + entry, Qt::CaseInsensitive)) return true;
    return false;
}

bool UploadFile(QString& pLocalFile, QString& pRemoteFile) {
    auto& timer = *mdiMain().timIsConnected;
    // The watch must not poll between chunks.
    timer.SetEnabled(false);
    bool result = false;
    pLocalFile = pLocalFile.trimmed();
    pRemoteFile = pRemoteFile.trimmed();
    if (!pLocalFile.isEmpty() && !pRemoteFile.isEmpty()) {
        if (mdiMain().cboTransferMode->ListIndex() == 2) lTransferMode = IsAsciiFile(pRemoteFile) ? 1 : 2;
        // The server file exists before the local one is touched.
        hUploadFile = FtpOpenFileA(hConnection, pRemoteFile, GENERIC_WRITE, lTransferMode, 0);
        if (hUploadFile == 0) return Fail(timer);

        // A local file that can't be read goes as an empty one.
        QFile file(localfs::ToPosix(pLocalFile));
        file.open(QIODevice::ReadOnly);
        const int32_t lFileSize = file.isOpen() ? int32_t(file.size()) : 0;
        char bytUploadBuffer[kChunk] = {};
        uint32_t written = 0;
        int32_t lBytesSent = 0;
        for (int32_t i = 1; i <= lFileSize / kChunk; ++i) {
            file.read(bytUploadBuffer, kChunk);
            // On a failed write the stream stays as it is; the walks renew
            // the connection before their next item.
            if (!InternetWriteFile(hUploadFile, bytUploadBuffer, kChunk, written)) return Fail(timer);
            DoEvents();
            lBytesSent += kChunk;
        }
        const int32_t tail = lFileSize % kChunk;
        file.read(bytUploadBuffer, kChunk);
        // The tail write always happens, also of 0 bytes; sizes from 2 GiB on
        // turn negative and fail here.
        if (tail < 0 || !InternetWriteFile(hUploadFile, bytUploadBuffer, uint32_t(tail), written))
            return Fail(timer);
        lBytesSent += tail;
        file.close();
        InternetCloseHandle(hUploadFile);
        result = true;
        AppendLogLine(kGreen, GetLanguageText("MPUB_UPOK"));
    }
    timer.SetEnabled(true);
    return result;
}
