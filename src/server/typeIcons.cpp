#include "server/typeIcons.h"

#include "frame/mdiMain.h"
#include "platform/ftp_listing.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "server/formatters.h"
#include "server/frmServer.h"

#include <QFile>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
int gTypeLookups = 0;

// Text behind "|key=" up to the next "|".
QString ValueAt(const QString& table, qsizetype pos, const QString& key) {
    const qsizetype start = pos + key.size() + 2;
    const qsizetype end = table.indexOf(u'|', start);
    return table.mid(start, end < 0 ? -1 : end - start);
}
}  // namespace

int ShellTypeLookups() {
    return gTypeLookups;
}

namespace {
// The folder that took the last dummy file: a directory read makes two
// dummies per new extension, and finding the folder afresh each time would
// cost more than the shell's answer. It is held open, so every dummy goes
// into the folder that was checked, whatever happens to its path.
//
// Dummies are made as links to one empty spare file the read keeps in the
// folder: a new link costs a few microseconds, while a new file costs an
// inode, which some file systems hand out slowly after many deletions.
struct TempFolder {
    QString windows;
    QString posix;
    int dir = -1;
    bool spare = false;
};
TempFolder gTempFolder;

// One spare per process: two programs reading at once don't share one.
const QByteArray& SpareName() {
    static const QByteArray name = ".ferrydock-spare-" + QByteArray::number(qint64(getpid()));
    return name;
}

QByteArray Encoded(const QString& name) {
    return QFile::encodeName(name);
}

// Opens the folder itself (no link) when it is ours.
bool Open(TempFolder& folder) {
    folder.dir = ::open(Encoded(folder.posix).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat st;
    if (folder.dir >= 0 && fstat(folder.dir, &st) == 0 && st.st_uid == geteuid()) return true;
    if (folder.dir >= 0) ::close(folder.dir);
    folder.dir = -1;
    return false;
}

// An empty regular file of ours, or none.
void MakeSpare(TempFolder& folder) {
    const int fd = ::openat(folder.dir, SpareName().constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0) return;
    struct stat st;
    folder.spare = fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && st.st_size == 0 && st.st_uid == geteuid();
    ::close(fd);
}

// Drops the spare and lets go of the folder.
void Release(TempFolder& folder) {
    if (folder.dir >= 0) {
        if (folder.spare) ::unlinkat(folder.dir, SpareName().constData(), 0);
        ::close(folder.dir);
    }
    folder = TempFolder{};
}

// Still a folder of ours that hasn't been removed.
bool StillSafe(const TempFolder& folder) {
    struct stat st;
    return folder.dir >= 0 && fstat(folder.dir, &st) == 0 && S_ISDIR(st.st_mode) && st.st_nlink > 0 &&
           st.st_uid == geteuid();
}

// Creates the file, or keeps one that exists. A name taken already (the
// spare's own too) makes the link fail and falls to the plain create.
bool TryCreate(const TempFolder& folder, const QString& sFileName) {
    const QByteArray name = Encoded(sFileName);
    if (folder.spare && ::linkat(folder.dir, SpareName().constData(), folder.dir, name.constData(), 0) == 0)
        return true;
    const int fd = ::openat(folder.dir, name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    ::close(fd);
    return true;
}
}  // namespace

QString CreateDummyFile(const QString& sFileName) {
    if (sFileName.isEmpty() || sFileName == QStringLiteral(".") || sFileName == QStringLiteral("..") || ftp::IsUnsafeName(sFileName))
        return QString();
    if (StillSafe(gTempFolder) && TryCreate(gTempFolder, sFileName)) return gTempFolder.windows + QStringLiteral("\\") + sFileName;
    // Each location in turn, as the drive letters once were.
    for (const QString& folder : shell::TempFolderCandidates()) {
        if (!shell::MakeTempFolder(folder)) continue;
        TempFolder candidate{folder, localfs::ToPosix(folder)};
        if (!Open(candidate)) continue;
        if (!TryCreate(candidate, sFileName)) {
            Release(candidate);
            localfs::RmDir(folder);  // only an empty folder goes
            continue;
        }
        Release(gTempFolder);
        MakeSpare(candidate);
        gTempFolder = candidate;
        return folder + QStringLiteral("\\") + sFileName;
    }
    Release(gTempFolder);
    return QString();
}

namespace {
// The name of a dummy in the current temporary folder; "" for any other path.
QString DummyName(const QString& sPath) {
    if (gTempFolder.windows.isEmpty()) return QString();
    const qsizetype prefix = gTempFolder.windows.size() + 1;
    if (sPath.size() <= prefix || sPath[prefix - 1] != u'\\' || !sPath.startsWith(gTempFolder.windows))
        return QString();
    const QString name = sPath.mid(prefix);
    return name.contains(u'\\') ? QString() : name;
}

// The shell's answer; for a dummy of ours the POSIX form is known already.
SHFILEINFO Ask(const QString& sPath, uint32_t lFlags) {
    SHFILEINFO info;
    const QString name = DummyName(sPath);
    if (name.isEmpty())
        SHGetFileInfoA(sPath, 0, info, lFlags);
    else
        shell::FileInfoAt(gTempFolder.posix + u'/' + name, sPath, 0, info, lFlags);
    return info;
}
}  // namespace

void RemoveDummyFile(const QString& sPath) {
    const QString name = DummyName(sPath);
    if (!name.isEmpty())
        ::unlinkat(gTempFolder.dir, Encoded(name).constData(), 0);
    else
        localfs::Kill(sPath);
}

QString GetShellTypeName(const QString& sPath) {
    ++gTypeLookups;
    return Ask(sPath, SHGFI_TYPENAME).szTypeName;
}

QIcon GetShellIcon(uint32_t lFlags, const QString& sPath) {
    return Ask(sPath, lFlags).hIcon;
}

namespace {
bool IsPlain(const QString& s) {
    return !s.contains(u'|') && !s.contains(u'=');
}
}  // namespace

TypeCache::~TypeCache() {
    Release(gTempFolder);
}

qsizetype TypeCache::CachePos(const QString& sKey) const {
    if (plain_ && IsPlain(sKey)) {
        const auto it = pairAt_.constFind(sKey);
        return it == pairAt_.constEnd() ? -1 : it->pos;
    }
    return sTypeCache.indexOf(u'|' + sKey + u'=');
}

void TypeCache::Append(const QString& sKey, const QString& sType) {
    const qsizetype at = sTypeCache.size() - 1;  // the closing "|" of the pair before
    sTypeCache += sKey + u'=' + sType + u'|';
    if (plain_ && IsPlain(sKey) && IsPlain(sType))
        pairAt_.insert(sKey, Pair{at, sType});
    else
        plain_ = false;
}

void TypeCache::BeginRead() {
    sTypeCache = QStringLiteral("|Folder=Dateiordner|");
    pairAt_.clear();
    plain_ = true;
    lIconNumber = 0;
    // Every read looks for its temporary folder in turn again.
    Release(gTempFolder);
    auto& frame = mdiMain();
    auto* list = frmServer().lsvServer;
    list->SetIcons(nullptr);
    list->SetSmallIcons(nullptr);
    list->SetIcons(frame.imgListLarge);
    list->SetSmallIcons(frame.imgListSmall);
    // From the second read on these adds fail for the existing keys.
    frame.imgListSmall->Add(QStringLiteral("zdirectoryx"), frame.imgDir->Picture(1));
    frame.imgListLarge->Add(QStringLiteral("zdirectoryx"), frame.imgDir->Picture(2));
    frame.imgListSmall->Add(QStringLiteral("zunbekannty"), frame.imgDir->Picture(3));
    frame.imgListLarge->Add(QStringLiteral("zunbekannty"), frame.imgDir->Picture(4));
}

namespace {
// Where "|key=" stands in sFixedTypes. The table is fixed and plain, so a
// plain key is looked up; any other is searched for as text.
qsizetype FixedPos(const QString& sKey) {
    static const QHash<QString, qsizetype> at = [] {
        QHash<QString, qsizetype> out;
        for (qsizetype bar = 0; bar + 1 < sFixedTypes.size(); bar = sFixedTypes.indexOf(u'|', bar + 1)) {
            const qsizetype eq = sFixedTypes.indexOf(u'=', bar);
            if (eq < 0) break;
            out.insert(sFixedTypes.mid(bar + 1, eq - bar - 1), bar);
        }
        return out;
    }();
    if (IsPlain(sKey)) return at.value(sKey, -1);
    return sFixedTypes.indexOf(u'|' + sKey + u'=');
}

// "z" and the extension in lower case, made in one piece.
QString KeyOf(const QString& sName) {
    const qsizetype dot = sName.lastIndexOf(u'.');
    const QStringView ext = dot < 0 ? QStringView(sName) : QStringView(sName).sliced(dot + 1);
    QString key(ext.size() + 1, Qt::Uninitialized);
    QChar* out = key.data();
    *out++ = u'z';
    for (const QChar c : ext) {
        if (c.unicode() >= 0x80) return u'z' + ext.toString().toLower();  // beyond ASCII: the full rules
        *out++ = c >= u'A' && c <= u'Z' ? QChar(c.unicode() + 32) : c;
    }
    return key;
}
}  // namespace

void TypeCache::Step(const QString& sName, bool following, QString& sType, QString& sKey) {
    sKey = KeyOf(sName);
    const qsizetype lFixedPos = FixedPos(sKey);
    if (lFixedPos < 0 && plain_ && IsPlain(sKey)) {
        if (const auto it = pairAt_.constFind(sKey); it != pairAt_.constEnd()) {
            sType = it->type;  // what ValueAt would cut out of the text
            return;
        }
    }
    const qsizetype lCachePos = CachePos(sKey);
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
        if (following && sType.isEmpty()) sType = sKey.mid(1).toUpper() + QStringLiteral("-Datei");
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
