#include "server/typeIcons.h"

#include "frame/mdiMain.h"
#include "platform/ftp_listing.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "server/formatters.h"
#include "server/frmServer.h"

#include <QFile>
#include <sys/stat.h>
#include <unistd.h>

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

namespace {
// The folder that took the last dummy file, in both forms: a directory read
// makes two dummies per new extension, and finding the folder afresh each
// time would cost more than the shell's answer.
struct TempFolder {
    QString windows;
    QString posix;
};
TempFolder gTempFolder;

// Still a folder of ours and no link, checked on the POSIX form at hand: the
// Windows form would be resolved afresh for every dummy file.
bool StillSafe(const TempFolder& folder) {
    struct stat st;
    return lstat(QFile::encodeName(folder.posix).constData(), &st) == 0 && S_ISDIR(st.st_mode) &&
           st.st_uid == geteuid();
}

bool TryCreate(const TempFolder& folder, const QString& sFileName) {
    QFile f(folder.posix + "/" + sFileName);
    if (!f.open(QIODevice::ReadWrite)) return false;  // creates, keeps an existing file
    f.close();
    return true;
}
}  // namespace

QString CreateDummyFile(const QString& sFileName) {
    if (sFileName.isEmpty() || sFileName == "." || sFileName == ".." || ftp::IsUnsafeName(sFileName))
        return QString();
    if (!gTempFolder.posix.isEmpty() && StillSafe(gTempFolder) &&
        TryCreate(gTempFolder, sFileName))
        return gTempFolder.windows + "\\" + sFileName;
    // Each location in turn, as the drive letters once were.
    for (const QString& folder : shell::TempFolderCandidates()) {
        if (!shell::MakeTempFolder(folder)) continue;
        const TempFolder candidate{folder, localfs::ToPosix(folder)};
        if (!TryCreate(candidate, sFileName)) {
            localfs::RmDir(folder);  // only an empty folder goes
            continue;
        }
        gTempFolder = candidate;
        return folder + "\\" + sFileName;
    }
    gTempFolder = TempFolder{};
    return QString();
}

void RemoveDummyFile(const QString& sPath) {
    const QString prefix = gTempFolder.windows + "\\";
    if (!gTempFolder.windows.isEmpty() && sPath.startsWith(prefix))
        QFile::remove(gTempFolder.posix + "/" + sPath.mid(prefix.size()));
    else
        localfs::Kill(sPath);
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

namespace {
bool IsPlain(const QString& s) {
    return !s.contains(u'|') && !s.contains(u'=');
}
}  // namespace

qsizetype TypeCache::CachePos(const QString& sKey) const {
    if (plain_ && IsPlain(sKey)) return pairAt_.value(sKey, -1);
    return sTypeCache.indexOf(u'|' + sKey + u'=');
}

void TypeCache::Append(const QString& sKey, const QString& sType) {
    const qsizetype at = sTypeCache.size() - 1;  // the closing "|" of the pair before
    sTypeCache += sKey + u'=' + sType + u'|';
    if (plain_ && IsPlain(sKey) && IsPlain(sType))
        pairAt_.insert(sKey, at);
    else
        plain_ = false;
}

void TypeCache::BeginRead() {
    sTypeCache = QStringLiteral("|Folder=Dateiordner|");
    pairAt_.clear();
    plain_ = true;
    lIconNumber = 0;
    // Every read looks for its temporary folder in turn again.
    gTempFolder = TempFolder{};
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
    const qsizetype lCachePos = CachePos(sKey);
    const qsizetype lFixedPos = sFixedTypes.indexOf(u'|' + sKey + u'=');
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
        RemoveDummyFile(sDummy);
        if (following && sType.isEmpty()) sType = sKey.mid(1).toUpper() + "-Datei";
        Append(sKey, sType);
    }
    const QString sDummy = CreateDummyFile(sName);
    auto& frame = mdiMain();
    // An existing key refuses the add, so the shell isn't asked for it: the
    // picture a key got first stays for the whole run either way.
    if (!frame.imgListSmall->HasKey(sKey))
        frame.imgListSmall->Add(sKey, GetShellIcon(SHGFI_ICON | SHGFI_SMALLICON, sDummy));
    if (!frame.imgListLarge->HasKey(sKey)) frame.imgListLarge->Add(sKey, GetShellIcon(SHGFI_ICON, sDummy));
    RemoveDummyFile(sDummy);
}
