#include "server/typeIcons.h"

#include "frame/mdiMain.h"
#include "platform/ftp_listing.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "server/formatters.h"
#include "server/frmServer.h"

#include <QFile>

namespace {
int gTypeLookups = 0;

// Text behind "|key=" up to the next "|".
QString ValueAt(const QString& table, qsizetype pos, const QString& key) {
    const qsizetype start = pos + key.size() + 2;
    const qsizetype end = table.indexOf('|', start);
    return table.mid(start, end < 0 ? -1 : end - start);
}
}  // namespace

int ShellTypeLookups() {
    return gTypeLookups;
}

QString CreateDummyFile(const QString& sFileName) {
    // Each location in turn, as the drive letters once were.
    for (const QString& folder : shell::TempFolderCandidates()) {
        if (localfs::DirFolder(folder).isEmpty() && !shell::MakeTempFolder(folder)) {
            localfs::RmDir(folder);
            continue;
        }
        if (!shell::TempFolderIsSafe(folder)) continue;
        const QString path = folder + "\\" + sFileName;
        if (ftp::IsUnsafeName(sFileName) || sFileName.isEmpty() || sFileName == "." || sFileName == "..") {
            localfs::RmDir(folder);
            continue;
        }
        QFile f(localfs::ToPosix(path));
        if (!f.open(QIODevice::ReadWrite)) {  // creates, leaves an existing file as it is
            localfs::RmDir(folder);
            continue;
        }
        f.close();
        return path;
    }
    return QString();
}

QString GetShellTypeName(const QString& sPath) {
    ++gTypeLookups;
    SHFILEINFO info;
    SHGetFileInfoA(sPath, 0, info, SHGFI_TYPENAME);
    return info.szTypeName;
}

QIcon GetShellIcon(uint32_t lFlags, const QString& sPath) {
    SHFILEINFO info;
    SHGetFileInfoA(sPath, 0, info, lFlags);
    return info.hIcon;
}

void TypeCache::BeginRead() {
    sTypeCache = QStringLiteral("|Folder=Dateiordner|");
    lIconNumber = 0;
    auto& frame = mdiMain();
    auto* list = frmServer().lsvServer;
    list->SetIcons(nullptr);
    list->SetSmallIcons(nullptr);
    list->SetIcons(frame.imgListLarge);
    list->SetSmallIcons(frame.imgListSmall);
    // From the second read on these adds fail for the existing keys.
    frame.imgListSmall->Add("zdirectoryx", frame.imgDir->Picture(1));
    frame.imgListLarge->Add("zdirectoryx", frame.imgDir->Picture(2));
    frame.imgListSmall->Add("zunbekannty", frame.imgDir->Picture(3));
    frame.imgListLarge->Add("zunbekannty", frame.imgDir->Picture(4));
}

void TypeCache::Step(const QString& sName, bool following, QString& sType, QString& sKey) {
    sKey = "z" + GetExtension(sName).toLower();
    const QString needle = "|" + sKey + "=";
    const qsizetype lCachePos = sTypeCache.indexOf(needle);
    const qsizetype lFixedPos = sFixedTypes.indexOf(needle);
    if (lCachePos >= 0 && lFixedPos < 0) {
        sType = ValueAt(sTypeCache, lCachePos, sKey);
        return;
    }
    if (lFixedPos >= 0) {
        sType = ValueAt(sFixedTypes, lFixedPos, sKey);
        sKey += QString::number(lIconNumber);
        ++lIconNumber;
    } else {
        const QString sDummy = CreateDummyFile(sName);
        sType = GetShellTypeName(sDummy);
        localfs::Kill(sDummy);
        if (following && sType.isEmpty()) sType = sKey.mid(1).toUpper() + "-Datei";
        sTypeCache += sKey + "=" + sType + "|";
    }
    const QString sDummy = CreateDummyFile(sName);
    auto& frame = mdiMain();
    frame.imgListSmall->Add(sKey, GetShellIcon(SHGFI_ICON | SHGFI_SMALLICON, sDummy));
    frame.imgListLarge->Add(sKey, GetShellIcon(SHGFI_ICON, sDummy));
    localfs::Kill(sDummy);
}
