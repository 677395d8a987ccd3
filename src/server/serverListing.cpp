#include "server/serverListing.h"

#include "frame/mPublic.h"
#include "language/mDataBase.h"
#include "platform/wininet.h"
#include "server/formatters.h"
#include "server/typeIcons.h"

std::vector<tServerFile> arrServerFiles(1);

namespace {
void Fill(tServerFile& f, const WIN32_FIND_DATA& d, const QString& sType, const QString& sKey) {
    f.sName = d.cFileName;
    f.sAttributes = QString::number(d.dwFileAttributes);
    SYSTEMTIME st;
    if (FileTimeToSystemTime(d.ftLastWriteTime, st)) f.sDate = FormatServerDate(st);
    f.sType = sType;
    f.sSize = FormatSizeKB(int32_t(d.nFileSizeLow));
    f.sExtension = sKey;
}
}  // namespace

void ReadServerDirectory(const QString& sPattern, HINTERNET& hConnection) {
    TypeCache cache;
    cache.BeginRead();
    DoEvents();
    if (GetServerDirectory().isEmpty()) SetServerDirectory("/");

    WIN32_FIND_DATA data;
    const HINTERNET hFind = FtpFindFirstFileA(hConnection, sPattern, data, 0, 0);
    DoEvents();
    DoEvents();
    if (hFind == 0) {
        InternetCloseHandle(0);
        return;
    }

    // The first entry never gets the "DATEI" text nor the "-Datei" fallback;
    // the two halves stay apart on purpose.
    QString sType, sKey;
    cache.Step(data.cFileName, false, sType, sKey);
    if (arrServerFiles.empty()) arrServerFiles.resize(1);
    arrServerFiles.resize(2);
    Fill(arrServerFiles[0], data, sType, sKey);

    for (;;) {
        data = WIN32_FIND_DATA{};
        if (!InternetFindNextFileA(hFind, data)) break;
        cache.Step(data.cFileName, true, sType, sKey);
        const size_t u = arrServerFiles.size() - 1;
        arrServerFiles.resize(u + 2);
        if (sType.isEmpty()) sType = sKey.right(3).toUpper() + "-" + GetLanguageText("DATEI");
        Fill(arrServerFiles[u], data, sType, sKey);
    }
    InternetCloseHandle(hFind);
}
