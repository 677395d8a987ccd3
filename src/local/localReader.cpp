#include "local/localReader.h"

#include "frame/mPublic.h"
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "server/formatters.h"
#include "server/typeIcons.h"

#include <QFile>
#include <cmath>

std::vector<tLocalEntry> arrLocalFiles(1);

namespace {

const QString kFolderKey = QStringLiteral("Folder");
const QString kFolderType = QStringLiteral("Dateiordner");

QString ValueAfter(const QString& table, qsizetype pos, const QString& key) {
    const qsizetype start = pos + key.size() + 2;
    const qsizetype end = table.indexOf('|', start);
    return table.mid(start, end < 0 ? -1 : end - start);
}

int Compare(const QString& a, const QString& b, bool caseSensitive) {
    return a.compare(b, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
}

QString Two(int v) {
    return v < 10 ? "0" + QString::number(v) : QString::number(v);
}

}  // namespace

int PivotIndex(int lLow, int lHigh) {
    return int(std::nearbyint((lLow + lHigh) / 2.0));
}

QString FormatLocalDate(const FILETIME& ftChanged, bool trimDay) {
    SYSTEMTIME t;
    FileTimeToSystemTime(ftChanged, t);
    const QString day = trimDay ? Two(t.wDay).trimmed() : Two(t.wDay);
    return day + "." + Two(t.wMonth) + "." + QString::number(t.wYear) + " " + Two(t.wHour) + ":" + Two(t.wMinute) +
           ":" + Two(t.wSecond);
}

QString FormatLocalAttributes(uint32_t a, bool withDirectory, bool directoryBeforeSystem) {
    struct Letter {
        uint32_t bit;
        char letter;
    };
    static const Letter pane[] = {{0x100, 'T'}, {0x1, 'R'}, {0x2, 'H'}, {0x4, 'S'},
                                  {0x80, 'N'},  {0x10, 'D'}, {0x800, 'C'}, {0x20, 'A'}};
    static const Letter afterDelete[] = {{0x100, 'T'}, {0x1, 'R'}, {0x2, 'H'}, {0x10, 'D'},
                                         {0x4, 'S'},   {0x80, 'N'}, {0x800, 'C'}, {0x20, 'A'}};
    QString s;
    for (const Letter& o : directoryBeforeSystem ? afterDelete : pane)
        if ((a & o.bit) && (withDirectory || o.letter != 'D')) s += QLatin1Char(o.letter);
    return s;
}

bool ReadLocalFolder(QString& pPath, const QString& pPattern, const LocalReaderVariant& variant) {
    if (!pPath.endsWith('\\') && !pPath.endsWith('/')) pPath += '\\';
    const Qt::CaseSensitivity cs = variant.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    QString sTypeCache = QStringLiteral("|Folder=Dateiordner|");
    int16_t lIconSerial = 0;
    arrLocalFiles.assign(1, tLocalEntry{});
    auto& pane = frmLocal();
    pane.lsvDirFile->SetIcons(nullptr);
    pane.lsvDirFile->SetSmallIcons(nullptr);
    pane.imgListSmall->Clear();
    pane.imgListLarge->Clear();

    bool folderSeen = false;
    WIN32_FIND_DATA data;
    // Tested against 0 only: a failed search still runs the loop once over
    // the zeroed record and leaves a row without a name.
    const HANDLE hFind = FindFirstFileA(pPath + pPattern, data);
    if (hFind != 0) {
        do {
            tLocalEntry& entry = arrLocalFiles.back();
            const QString name = data.cFileName;
            if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                if (name == "." || name == "..") continue;
                entry = tLocalEntry{kFolderKey, name, kFolderType, int32_t(data.dwFileAttributes),
                                    int32_t(data.nFileSizeLow), data.ftLastWriteTime};
                folderSeen = true;
            } else {
                QString sKey = "z" + GetExtension(name).toLower();
                QString sType;
                const QString needle = "|" + sKey + "=";
                const qsizetype cachePos = sTypeCache.indexOf(needle, 0, cs);
                const qsizetype fixedPos = sFixedTypes.indexOf(needle, 0, cs);
                bool fetchPictures = false;
                if (fixedPos >= 0) {
                    sType = ValueAfter(sFixedTypes, fixedPos, sKey);
                    sKey += QString::number(lIconSerial);
                    ++lIconSerial;
                    fetchPictures = true;
                } else if (cachePos < 0) {
                    sType = GetShellTypeName(pPath + name);
                    if (variant.dropEmptyAfterLookup && localfs::FileLen(pPath + name) == 0)
                        localfs::Kill(pPath + name);
                    sTypeCache += sKey + "=" + sType + "|";
                    fetchPictures = true;
                } else {
                    sType = ValueAfter(sTypeCache, cachePos, sKey);
                }
                if (fetchPictures) {
                    pane.imgListSmall->Add(sKey, GetShellIcon(SHGFI_ICON | SHGFI_SMALLICON, pPath + name));
                    pane.imgListLarge->Add(sKey, GetShellIcon(SHGFI_ICON, pPath + name));
                }
                if (sType.isEmpty() && variant.dateiFallback) {
                    // Keys of 3 to 11 characters lose their "z"; the uneven
                    // limit is how the pane has always named them.
                    const QString stem = sKey.size() >= 3 && sKey.size() <= 11 ? sKey.mid(1) : sKey;
                    sType = stem.toUpper() + "-Datei";
                }
                entry = tLocalEntry{sKey, name, sType, int32_t(data.dwFileAttributes), int32_t(data.nFileSizeLow),
                                    data.ftLastWriteTime};
            }
            arrLocalFiles.emplace_back();
        } while (FindNextFileA(hFind, data = WIN32_FIND_DATA{}));
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
    const int upper = int(arrLocalFiles.size()) - 1;
    int n = 0;
    for (int i = 0; i < upper; ++i) {
        if (Compare(arrLocalFiles[size_t(i)].sType, kFolderType, variant.caseSensitive) == 0) {
            std::swap(arrLocalFiles[size_t(n)], arrLocalFiles[size_t(i)]);
            ++n;
        }
    }
    if (n > 0) QuickSortLocalFiles(0, n - 1, variant.caseSensitive);
    if (n < upper) QuickSortLocalFiles(n, upper - 1, variant.caseSensitive);
}

void QuickSortLocalFiles(int lLow, int lHigh, bool caseSensitive) {
    int i = lLow, j = lHigh;
    const QString pivot = arrLocalFiles[size_t(PivotIndex(lLow, lHigh))].sName;
    do {
        while (Compare(arrLocalFiles[size_t(i)].sName, pivot, caseSensitive) < 0) ++i;
        while (Compare(arrLocalFiles[size_t(j)].sName, pivot, caseSensitive) > 0) --j;
        if (i > j) break;
        std::swap(arrLocalFiles[size_t(i)], arrLocalFiles[size_t(j)]);
        ++i;
        --j;
    } while (i <= j);
    if (lLow < j) QuickSortLocalFiles(lLow, j, caseSensitive);
    if (i < lHigh) QuickSortLocalFiles(i, lHigh, caseSensitive);
}

void FillLocalRows(const LocalReaderVariant& variant) {
    auto& pane = frmLocal();
    auto& list = *pane.lsvDirFile;
    list.SetIcons(pane.imgListLarge);
    list.SetSmallIcons(pane.imgListSmall);
    const QString folderWord = GetLanguageText("FOLDER");
    list.BeginBulk();
    const int upper = int(arrLocalFiles.size()) - 1;
    for (int i = 0; i < upper; ++i) {
        const tLocalEntry& e = arrLocalFiles[size_t(i)];
        int row = list.Add(e.sName, e.sKey, e.sKey);
        if (row == 0) row = list.Count();  // the sub-items go to the row before
        if (e.sKey != kFolderKey) list.SetSubItem(row, 1, QString::number(e.lSize / 1024 + 1) + " KB");
        const QString type = e.sType.trimmed();
        list.SetSubItem(row, 2, Compare(type, kFolderType, variant.caseSensitive) == 0 ? folderWord : type);
        list.SetSubItem(row, 3, FormatLocalDate(e.ftChanged, variant.trimDay));
        list.SetSubItem(row, 4, FormatLocalAttributes(uint32_t(e.lAttributes), variant.showDirectoryLetter,
                                                      variant.directoryBeforeSystem));
        if (i % 1000 == 0) list.Refresh();
    }
    list.EndBulk();
}
