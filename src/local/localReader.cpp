#include "local/localReader.h"

#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "platform/fileio.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "shared/mPublic.h"
#include "shared/typeTexts.h"

#include <cmath>
#include <cstdio>

std::vector<tLocalEntry> arrLocalFiles(1);

namespace {

const QString kFolderKey = QStringLiteral("Folder");
const QString kFolderType = QStringLiteral("Dateiordner");

Qt::CaseSensitivity Sensitivity(bool caseSensitive) {
    return caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

// Kept: the download-as copy opens each newly typed file and tries to
// delete it while it is open when it is empty. A file held open can't be
// deleted there, so the try always fails and the file stays; only the open
// and close are left to do.
void ProbeEmptyFile(const QString& windowsPath) {
    BinaryFile file(windowsPath);
    file.Close();
}

}  // namespace

int PivotIndex(int lLow, int lHigh) {
    return int(std::nearbyint((double(lLow) + double(lHigh)) / 2.0));
}

QString FormatLocalDate(const FILETIME& ftChanged, bool trimDay) {
    SYSTEMTIME t;
    FileTimeToSystemTime(ftChanged, t);
    char text[48];
    // A padded day has no blanks, so trimming it changes nothing.
    (void)trimDay;
    const int n = std::snprintf(text, sizeof text, "%02u.%02u.%u %02u:%02u:%02u", unsigned(t.wDay),
                                unsigned(t.wMonth), unsigned(t.wYear), unsigned(t.wHour), unsigned(t.wMinute),
                                unsigned(t.wSecond));
    return QString::fromLatin1(text, n);
}

QString FormatLocalAttributes(uint32_t a, bool withDirectory, bool directoryBeforeSystem) {
    struct Letter {
        uint32_t bit;
        char letter;
    };
    static const Letter pane[] = {{0x100, 'T'}, {0x1, 'R'},  {0x2, 'H'},   {0x4, 'S'},
                                  {0x80, 'N'},  {0x10, 'D'}, {0x800, 'C'}, {0x20, 'A'}};
    static const Letter afterDelete[] = {{0x100, 'T'}, {0x1, 'R'},  {0x2, 'H'},   {0x10, 'D'},
                                         {0x4, 'S'},   {0x80, 'N'}, {0x800, 'C'}, {0x20, 'A'}};
    QString s;
    for (const Letter& o : directoryBeforeSystem ? afterDelete : pane)
        if ((a & o.bit) && (withDirectory || o.bit != 0x10)) s += QLatin1Char(o.letter);
    return s;
}

QString DateiTypeText(const QString& sKey) {
    // Kept: keys of 3 to 11 characters lose their "z", shorter and longer
    // ones keep it; the pane names them by this uneven limit.
    const QString stem = sKey.size() >= 3 && sKey.size() <= 11 ? sKey.mid(1) : sKey;
    return stem.toUpper() + QStringLiteral("-Datei");
}

bool ReadLocalFolder(QString& pPath, const QString& pPattern, const LocalReaderVariant& variant) {
    if (!pPath.endsWith(u'\\') && !pPath.endsWith(u'/')) pPath += u'\\';
    const Qt::CaseSensitivity cs = Sensitivity(variant.caseSensitive);
    QString sTypeCache = kTypeCacheStart;
    int16_t lIconSerial = 0;
    arrLocalFiles.assign(1, tLocalEntry{});
    auto& pane = frmLocal();
    pane.lsvDirFile->SetIcons(nullptr);
    pane.lsvDirFile->SetSmallIcons(nullptr);
    pane.imgListSmall->Clear();
    pane.imgListLarge->Clear();

    bool folderSeen = false;
    WIN32_FIND_DATA data;
    // Kept: tested against 0 only; a failed search gives -1, runs the loop
    // once over the zeroed record and leaves a row without a name.
    const HANDLE hFind = FindFirstFileA(pPath + pPattern, data);
    if (hFind != 0) {
        do {
            tLocalEntry& entry = arrLocalFiles.back();
            const QString name = data.cFileName.left(variant.nameLength);
            if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                if (name == u"." || name == u"..") continue;
                entry = tLocalEntry{kFolderKey, name, kFolderType, int32_t(data.dwFileAttributes),
                                    int32_t(data.nFileSizeLow), data.ftLastWriteTime};
                folderSeen = true;
            } else {
                QString sKey = u'z' + GetExtension(name).toLower();
                QString sType;
                const QString needle = u'|' + sKey + u'=';
                const qsizetype cachePos = sTypeCache.indexOf(needle, 0, cs);
                const qsizetype fixedPos = sFixedTypes.indexOf(needle, 0, cs);
                bool fetchPictures = false;
                if (fixedPos >= 0) {
                    // Each of these has an icon of its own, so a key of its own.
                    sType = TypeTextAt(sFixedTypes, fixedPos, sKey);
                    sKey += QString::number(lIconSerial);
                    ++lIconSerial;
                    fetchPictures = true;
                } else if (cachePos < 0) {
                    sType = GetShellTypeName(pPath + name);
                    if (variant.probeEmptyAfterLookup) ProbeEmptyFile(pPath + name);
                    sTypeCache += sKey + u'=' + sType + u'|';
                    fetchPictures = true;
                } else {
                    sType = TypeTextAt(sTypeCache, cachePos, sKey);
                }
                if (fetchPictures) {
                    pane.imgListSmall->Add(sKey, GetShellIcon(SHGFI_ICON | SHGFI_SMALLICON, pPath + name));
                    pane.imgListLarge->Add(sKey, GetShellIcon(SHGFI_ICON, pPath + name));
                }
                if (sType.isEmpty() && variant.dateiFallback) sType = DateiTypeText(sKey);
                entry = tLocalEntry{sKey, name, sType, int32_t(data.dwFileAttributes), int32_t(data.nFileSizeLow),
                                    data.ftLastWriteTime};
            }
            arrLocalFiles.emplace_back();
        } while (FindNextFileA(hFind, data));
        FindClose(hFind);
    }
    if (folderSeen) {
        // The folder picture is that of the program's own folder.
        pane.imgListSmall->Add(kFolderKey, GetShellIcon(SHGFI_ICON | SHGFI_SMALLICON, AppPath()));
        pane.imgListLarge->Add(kFolderKey, GetShellIcon(SHGFI_ICON, AppPath()));
    }
    if (arrLocalFiles.size() <= 1) return false;
    SortLocalFiles(variant);
    return true;
}

void SortLocalFiles(const LocalReaderVariant& variant) {
    const Qt::CaseSensitivity cs = Sensitivity(variant.caseSensitive);
    const int upper = int(arrLocalFiles.size()) - 1;
    int n = 0;
    for (int i = 0; i < upper; ++i) {
        if (arrLocalFiles[size_t(i)].sType.compare(kFolderType, cs) == 0) {
            std::swap(arrLocalFiles[size_t(n)], arrLocalFiles[size_t(i)]);
            ++n;
        }
    }
    if (n > 0) QuickSortLocalFiles(0, n - 1, variant.caseSensitive);
    if (n < upper) QuickSortLocalFiles(n, upper - 1, variant.caseSensitive);
}

void QuickSortLocalFiles(int lLow, int lHigh, bool caseSensitive) {
    const int last = int(arrLocalFiles.size()) - 1;
    if (lLow < 0 || lHigh > last || lLow > lHigh) return;
    const Qt::CaseSensitivity cs = Sensitivity(caseSensitive);
    auto name = [](int k) -> const QString& { return arrLocalFiles[size_t(k)].sName; };
    int i = lLow, j = lHigh;
    const QString pivot = name(PivotIndex(lLow, lHigh));
    do {
        // The pivot lies in the range, so neither scan leaves it.
        while (name(i).compare(pivot, cs) < 0) ++i;
        while (name(j).compare(pivot, cs) > 0) --j;
        if (i > j) break;
        std::swap(arrLocalFiles[size_t(i)], arrLocalFiles[size_t(j)]);
        ++i;
        --j;
    } while (i <= j);
    if (lLow < j) QuickSortLocalFiles(lLow, j, caseSensitive);
    if (i < lHigh) QuickSortLocalFiles(i, lHigh, caseSensitive);
}

void FillLocalRows(const LocalReaderVariant& variant) {
    const Qt::CaseSensitivity cs = Sensitivity(variant.caseSensitive);
    auto& pane = frmLocal();
    auto& list = *pane.lsvDirFile;
    list.SetIcons(pane.imgListLarge);
    list.SetSmallIcons(pane.imgListSmall);
    const QString folderWord = GetLanguageText("FOLDER");
    list.BeginBulk();
    const int upper = int(arrLocalFiles.size()) - 1;
    int row = 0;
    for (int i = 0; i < upper; ++i) {
        const tLocalEntry& e = arrLocalFiles[size_t(i)];
        // Kept: a row whose picture key the list lacks isn't added; the
        // sub-items that follow then go to the row before.
        if (const int added = list.Add(e.sName, e.sKey, e.sKey)) row = added;
        if (e.sKey.compare(kFolderKey, cs) != 0)
            list.SetSubItem(row, 1, QString::number(e.lSize / 1024 + 1) + QStringLiteral(" KB"));
        const QString type = e.sType.trimmed();
        list.SetSubItem(row, 2, type.compare(kFolderType, cs) == 0 ? folderWord : type);
        list.SetSubItem(row, 3, FormatLocalDate(e.ftChanged, variant.trimDay));
        list.SetSubItem(row, 4, FormatLocalAttributes(uint32_t(e.lAttributes), variant.showDirectoryLetter,
                                                      variant.directoryBeforeSystem));
        // Large folders show progress: the first row, then every 1,000th.
        if (i % 1000 == 0) list.Refresh();
    }
    list.EndBulk();
}

void ViewLocalFolderWith(QString& pPath, const QString& pPattern, const LocalReaderVariant& variant,
                         const std::function<void(int)>& setPointer) {
    setPointer(vbHourglass);
    frmLocal().lsvDirFile->Clear();
    if (!ReadLocalFolder(pPath, pPattern, variant)) {
        setPointer(vbDefault);
        return;
    }
    // The pointer is back before the first row exists.
    setPointer(vbDefault);
    DoEvents();
    FillLocalRows(variant);
}
