#include "transfer/upload.h"

#include "language/mDataBase.h"
#include "platform/fileio.h"
#include "platform/wininet.h"
#include "shared/frameControls.h"
#include "shared/mPublic.h"
#include "transfer/asciiDat.h"

HINTERNET hUploadFile = 0;

namespace {

constexpr int kChunk = 255;
constexpr int kAutoIndex = 2;  // AUTO in the transfer-mode combo

// The timer is looked up at each use: an event turn in the middle of the
// upload may have unloaded the frame.
void SetWatch(bool on) {
    if (controls::Timer* watch = Frame().timIsConnected) watch->SetEnabled(on);
}

bool AutoMode() {
    const controls::ComboBox* mode = Frame().cboTransferMode;
    return mode && mode->ListIndex() == kAutoIndex;
}

bool Fail() {
    AppendLogLine(kRed, GetLanguageText("MPUB_UPFAILED"));
    SetWatch(true);
    return false;
}

}  // namespace

bool IsAsciiFile(const QString& pFileName) {
    QStringList entries;
    if (!ReadAsciiDat(entries)) {
        // Kept: a list that can't be read gives empty fields, and the needle
        // "." takes a name with a point at once. A name without one never
        // ended that loop; here it goes binary.
        return pFileName.contains(u'.');
    }
    for (const QString& sLine : entries)
        if (pFileName.contains(u'.' + sLine, Qt::CaseInsensitive)) return true;
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

    if (AutoMode()) lTransferMode = IsAsciiFile(pRemoteFile) ? FTP_TRANSFER_TYPE_ASCII : FTP_TRANSFER_TYPE_BINARY;

    // Kept: the server file is made before the local one is looked at, so
    // a missing local file still leaves an (empty) file on the server.
    hUploadFile = FtpOpenFileA(hConnection, pRemoteFile, GENERIC_WRITE, lTransferMode, 0);
    if (hUploadFile == 0) return Fail();

    // Only regular files open; anything else reads as nothing, which is what
    // a failed open left behind.
    BinaryFile file(pLocalFile);
    const int32_t lFileSize = file.LOF();
    char bytUploadBuffer[kChunk] = {};
    uint32_t lWritten = 0;
    // Kept: failed writes leave the stream open (hUploadFile keeps its
    // value); the walks open a new connection before their next item.
    for (int32_t i = 1; i <= lFileSize / kChunk; ++i) {
        file.Get(bytUploadBuffer, kChunk);
        // Kept: hUploadFile is read afresh; a nested upload during the turn
        // below replaces it, and this one then writes to the nested one's
        // stream.
        if (!InternetWriteFile(hUploadFile, bytUploadBuffer, kChunk, lWritten)) return Fail();
        DoEvents();
        lBytesSent += kChunk;
    }
    // Kept: the tail write always happens, of 0 bytes too. A length from
    // 2 GiB on reads negative: its tail can't be written, so it fails here.
    const int32_t lTail = lFileSize % kChunk;
    file.Get(bytUploadBuffer, kChunk);
    if (lTail < 0 || !InternetWriteFile(hUploadFile, bytUploadBuffer, uint32_t(lTail), lWritten)) return Fail();
    lBytesSent += lTail;
    file.Close();
    InternetCloseHandle(hUploadFile);
    result = true;
    AppendLogLine(kGreen, GetLanguageText("MPUB_UPOK"));
    SetWatch(true);
    return result;
}
