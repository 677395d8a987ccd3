#include "server/serverListing.h"

#include "language/mDataBase.h"
#include "platform/wininet.h"
#include "server/formatters.h"
#include "server/typeIcons.h"
#include "shared/mPublic.h"

std::vector<tServerFile> arrServerFiles(1);

namespace {
// The name as the record holds it: the text in front of its first NUL.
QString CutName(const QString& cFileName) {
    const qsizetype nul = cFileName.indexOf(QChar(0));
    return nul < 0 ? cFileName : cFileName.left(nul);
}

// `st` lives for the whole read: a time that can't be converted shows the
// one converted before. Entries of a folder often share their minute, so
// the text of the last one is kept and shared.
struct DateText {
    SYSTEMTIME st;
    SYSTEMTIME shown;
    QString text;

    const QString& Of(const FILETIME& ft) {
        FileTimeToSystemTime(ft, st);
        if (text.isNull() || st.wYear != shown.wYear || st.wMonth != shown.wMonth || st.wDay != shown.wDay ||
            st.wHour != shown.wHour || st.wMinute != shown.wMinute) {
            text = FormatServerDate(st);
            shown = st;
        }
        return text;
    }
};

// The same for a value's text: neighbours often share attributes or size.
template <class T, QString (*Format)(T)>
struct LastText {
    T value{};
    QString text;
    const QString& Of(T v) {
        if (text.isNull() || v != value) {
            value = v;
            text = Format(v);
        }
        return text;
    }
};

QString Number(uint32_t v) {
    return QString::number(v);
}

struct Texts {
    DateText date;
    LastText<uint32_t, Number> attributes;
    LastText<int32_t, FormatSizeKB> size;
};

void Fill(tServerFile& f, const WIN32_FIND_DATA& d, Texts& texts, const QString& sName, const QString& sType,
          const QString& sKey) {
    f.sName = sName;
    f.sAttributes = texts.attributes.Of(d.dwFileAttributes);
    f.sDate = texts.date.Of(d.ftLastWriteTime);
    f.sType = sType;
    f.sSize = texts.size.Of(int32_t(d.nFileSizeLow));
    f.sExtension = sKey;
}
}  // namespace

void ReadServerDirectory(const QString& sPattern, HINTERNET& hConnection) {
    TypeCache cache;
    cache.BeginRead();
    DoEvents();
    if (GetServerDirectory().isEmpty()) SetServerDirectory(QStringLiteral("/"));

    WIN32_FIND_DATA data;
    const HINTERNET hFind = FtpFindFirstFileA(hConnection, sPattern, data, 0, 0);
    DoEvents();
    DoEvents();
    if (hFind == 0) {
        // Kept: the failed find's handle, 0, is closed all the same.
        InternetCloseHandle(0);
        return;
    }

    // Kept: the first entry never gets the "DATEI" text nor the "-Datei"
    // fallback; the two halves stay apart.
    Texts texts;
    QString sType, sKey;
    QString sName = CutName(data.cFileName);
    cache.Step(sName, false, sType, sKey);
    arrServerFiles.resize(2);
    Fill(arrServerFiles[0], data, texts, sName, sType, sKey);

    QString sDatei;  // the catalogue's word, asked for once a read
    for (;;) {
        data.cFileName.clear();
        if (!InternetFindNextFileA(hFind, data)) break;
        sName = CutName(data.cFileName);
        cache.Step(sName, true, sType, sKey);
        const size_t u = arrServerFiles.size() - 1;
        arrServerFiles.resize(u + 2);
        if (sType.isEmpty()) {
            if (sDatei.isNull()) sDatei = GetLanguageText("DATEI");
            // Kept: the last three characters of the key, whatever its length.
            sType = sKey.right(3).toUpper() + QStringLiteral("-") + sDatei;
        }
        Fill(arrServerFiles[u], data, texts, sName, sType, sKey);
    }
    InternetCloseHandle(hFind);
}
