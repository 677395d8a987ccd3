#include "server/typeIcons.h"

#include "platform/shell.h"
#include "platform/tempfolder.h"
#include "server/formatters.h"
#include "server/frmServer.h"
#include "shared/frameControls.h"
#include "shared/typeTexts.h"

QString CreateDummyFile(const QString& sFileName) {
    return tempfolder::MakeDummy(sFileName);
}

void RemoveDummyFile(const QString& sPath) {
    tempfolder::RemoveDummy(sPath);
}

namespace {
bool IsPlain(const QString& s) {
    return !s.contains(u'|') && !s.contains(u'=');
}
}  // namespace

TypeCache::~TypeCache() {
    tempfolder::Release();
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
    sTypeCache = kTypeCacheStart;
    pairAt_.clear();
    plain_ = true;
    lIconNumber = 0;
    // Every read looks for its temporary folder in turn again.
    tempfolder::Release();
    const FrameControls& frame = Frame();
    auto* list = frmServer().lsvServer;
    list->SetIcons(nullptr);
    list->SetSmallIcons(nullptr);
    list->SetIcons(frame.imgListLarge);
    list->SetSmallIcons(frame.imgListSmall);
    if (!frame.imgListSmall || !frame.imgListLarge || !frame.imgDir) return;
    // From the second read on these adds fail for the existing keys.
    frame.imgListSmall->Add(kFolderPicture, frame.imgDir->Picture(kSmallFolder));
    frame.imgListLarge->Add(kFolderPicture, frame.imgDir->Picture(kLargeFolder));
    frame.imgListSmall->Add(kUnknownPicture, frame.imgDir->Picture(kSmallUnknown));
    frame.imgListLarge->Add(kUnknownPicture, frame.imgDir->Picture(kLargeUnknown));
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
            sType = it->type;  // what TypeTextAt would cut out of the text
            return;
        }
    }
    const qsizetype lCachePos = CachePos(sKey);
    if (lCachePos >= 0 && lFixedPos < 0) {
        sType = TypeTextAt(sTypeCache, lCachePos, sKey);
        return;
    }
    if (lFixedPos >= 0) {
        sType = TypeTextAt(sFixedTypes, lFixedPos, sKey);
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
    const FrameControls& frame = Frame();
    if (!frame.imgListSmall || !frame.imgListLarge) {
        RemoveDummyFile(sDummy);
        return;
    }
    // Kept: the picture a key got first stays for the whole run; an
    // existing key refuses the add, so the shell isn't even asked for it.
    if (!frame.imgListSmall->HasKey(sKey))
        frame.imgListSmall->Add(sKey, GetShellIcon(SHGFI_ICON | SHGFI_SMALLICON, sDummy));
    if (!frame.imgListLarge->HasKey(sKey)) frame.imgListLarge->Add(sKey, GetShellIcon(SHGFI_ICON, sDummy));
    RemoveDummyFile(sDummy);
}
