#include "serverops/mDelete.h"

#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "shared/frameControls.h"
#include "shared/mPublic.h"

#include <QStringList>
#include <utility>

std::vector<tDeleteItem> arrDeleteItems(1);

namespace {

const QString kRoot = QStringLiteral("/");
const QString kAll = QStringLiteral("*.*");
constexpr int kFolderRow = 16;  // sAttributes of a selected folder row

// The value goes into the spare last element, and a new spare behind it.
void AddItem(tDeleteItem item) {
    arrDeleteItems.back() = std::move(item);
    arrDeleteItems.emplace_back();
}

// A copy of entry i; empty once the list no longer holds it (a delete
// started in an event turn of this one begins the list anew).
tDeleteItem ItemAt(int i) {
    return i >= 0 && i < UBoundDeleteItems() ? arrDeleteItems[size_t(i)] : tDeleteItem{};
}

QString Slashed(QString text) {
    return ReplaceInString(text, QStringLiteral("\\"), QStringLiteral("/"));
}

// The pieces of a path between its "/". An empty rest after the last "/"
// makes a last, empty piece only with `emptyLastPart`: "/a/b/" gives "",
// "a", "b", "" with it and "", "a", "b" without.
QStringList SplitPath(const QString& path, bool emptyLastPart) {
    QStringList parts;
    QString rest = path;
    for (;;) {
        const qsizetype slash = rest.indexOf(u'/');
        if (slash < 0) {
            if (!rest.isEmpty() || emptyLastPart) parts << rest;
            return parts;
        }
        parts << rest.left(slash);
        rest = rest.mid(slash + 1);
    }
}

controls::RichLog& Log() {
    return *frmTransferHistory().rtfTransferHistory;
}

// A line where the caret stands, in a colour, then black again.
void LineAtCaret(uint32_t colour, const QString& text) {
    Log().SetSelColor(colour);
    Log().SetSelText(text + vbCrLf);
    Log().SetSelColor(kBlack);
}

void Verdict(bool ok) {
    if (ok)
        LineAtCaret(kGreen, GetLanguageText("MDEL_DELOK"));
    else
        LineAtCaret(kRed, GetLanguageText("MDEL_DELFAILED"));
}

// The selected rows but "..", as entries of the list.
void CollectSelection(const QString& sCurrent) {
    const controls::ListView& list = *frmServer().lsvServer;
    for (int i = 1; i <= list.Count(); ++i) {
        const QString text = list.Text(i);
        // Kept: the test is for ".." anywhere, so a name such as "a..b" is
        // left out with the ".." row, and nothing says so.
        if (!list.Selected(i) || text.contains(QStringLiteral(".."), Qt::CaseInsensitive)) continue;
        tDeleteItem item;
        if (list.SubItem(i, 1).isEmpty()) {
            item.sPath = sCurrent == kRoot ? sCurrent + Slashed(text) : sCurrent + u'/' + Slashed(text);
            item.sAttributes = QString::number(kFolderRow);
        } else {
            item.sName = text;
            // The folder is asked for again, once per file row.
            item.sPath = sCurrent == kRoot ? kRoot : Slashed(GetServerDirectory() + u'/');
            item.sAttributes = QStringLiteral("128");
        }
        AddItem(std::move(item));
    }
}

// Every file, each from the root down to its folder and back to sCurrent;
// the folders are gathered on the way.
QStringList DeleteFiles(const QString& sCurrent) {
    QStringList arrFolderPaths;
    const int upper = UBoundDeleteItems();
    for (int i = 0; i < upper; ++i) {
        if (controls::ProgressBar* bar = Frame().pgbBottom) bar->SetValue(i);
        const tDeleteItem item = ItemAt(i);
        const QStringList parts = SplitPath(item.sPath, true);
        const QString sJoined = parts.join(u'\\');
        if (item.sName.isEmpty()) {
            if (!item.sPath.isEmpty()) arrFolderPaths << item.sPath;
        } else {
            // Kept: empty parts are sent too. They must fail, or the file
            // deleted would be a namesake where the empty part led.
            SetServerDirectory(kRoot);
            for (const QString& part : parts) SetServerDirectory(part);
            QString shown = Slashed(sJoined + (sJoined.endsWith(u'\\') ? QString() : QStringLiteral("\\")) +
                                    item.sName);
            if (!shown.startsWith(u'/')) shown.prepend(u'/');
            AppendLogLine(kBlack, GetLanguageText("MDEL_DELFILE") + u' ' + shown);
            const bool ok = DeleteServerFile(item.sName);
            MoveLogCaretToEnd();
            Verdict(ok);
        }
        SetServerDirectory(sCurrent);
        DoEvents();
    }
    return arrFolderPaths;
}

// Longest first by repeated exchange; equal lengths keep their order, and
// every folder comes before its parent.
void SortLongestFirst(QStringList& arrFolderPaths) {
    const qsizetype n = arrFolderPaths.size() - 1;
    for (qsizetype pass = 0; pass < n; ++pass)
        for (qsizetype b = 0; b < n; ++b)
            if (arrFolderPaths[b + 1].size() > arrFolderPaths[b].size()) arrFolderPaths.swapItemsAt(b, b + 1);
}

// Each folder from its parent, with a new connection after each.
void RemoveFolders(const QStringList& arrFolderPaths, const QString& sCurrent) {
    for (const QString& path : arrFolderPaths) {
        const QStringList parts = SplitPath(path, false);
        // Kept: no change to the root first; the walk starts in sCurrent,
        // and the parts above it fail. A folder named like one of those
        // parts can lead it astray.
        for (qsizetype j = 0; j + 1 < parts.size(); ++j) SetServerDirectory(parts[j]);
        // Kept: written where the caret stands.
        LineAtCaret(kBlack, GetLanguageText("MDEL_DELFILE") + u' ' + path);
        QString name = parts.isEmpty() ? QString() : parts.back();
        if (name.isEmpty() && parts.size() > 1) name = parts[parts.size() - 2];
        Verdict(RemoveServerDirectory(name));
        Reinitialize_Internet();
        SetServerDirectory(sCurrent);
    }
}

void DeleteItems(const QString& sCurrent) {
    // Entries the scans add behind the selected ones aren't visited here:
    // each scan walks its own sub-folders.
    const int selected = UBoundDeleteItems();
    for (int i = 0; i < selected; ++i) {
        tDeleteItem item = ItemAt(i);
        if (item.sAttributes.toInt() == kFolderRow) ScanServerTree(hConnection, item.sPath, kAll);
    }
    if (UBoundDeleteItems() < 1) return;
    if (controls::ProgressBar* bar = Frame().pgbBottom) {
        bar->SetMin(0);
        bar->SetMax(UBoundDeleteItems());
        bar->setVisible(true);
    }
    QStringList arrFolderPaths = DeleteFiles(sCurrent);
    SortLongestFirst(arrFolderPaths);
    RemoveFolders(arrFolderPaths, sCurrent);
    if (controls::ProgressBar* bar = Frame().pgbBottom) bar->setVisible(false);
}

// Takes out the combo's paths that can't be entered any more.
void CheckCombo() {
    controls::ComboBox& combo = *frmServer().cboServer;
    // The end stays as it was at the start; reads past it give "".
    const int last = combo.ListCount() - 1;
    for (int i = 0; i <= last; ++i) {
        const QString item = combo.List(i);
        if (item.isEmpty()) continue;
        // Kept: the whole path in one step, from wherever the connection stands.
        if (!SetServerDirectory(item)) {
            combo.RemoveItem(i);
            --i;
        }
    }
}

}  // namespace

bool DeleteServerFile(const QString& sName) {
    return FtpDeleteFileA(hConnection, sName);
}

bool RemoveServerDirectory(const QString& sName) {
    return FtpRemoveDirectoryA(hConnection, sName);
}

void DeleteServerSelection() {
    SetMousePointer(vbHourglass);
    const QString sCurrent = GetServerDirectory();
    arrDeleteItems.assign(1, tDeleteItem{});
    CollectSelection(sCurrent);
    if (hConnection != 0) DeleteItems(sCurrent);
    // On every path, also without a connection or with nothing to delete.
    Reinitialize_Internet();
    SetServerDirectory(sCurrent);
    CheckCombo();
    SetServerDirectory(sCurrent);
    SetMousePointer(vbDefault);
}

bool ScanServerTree(HINTERNET& hConnection, QString& sPath, const QString& sPattern) {
    // Kept: the test is for "\" while paths use "/", so a path that ends in
    // "/" gets a second one: from the second level on paths read "/a/b//",
    // in the list and in the log.
    if (!sPath.endsWith(u'\\')) sPath += u'/';
    // The pieces after the leading "/": "/a/b/" gives "a", "b".
    const QStringList parts = SplitPath(Slashed(sPath).mid(1), false);
    SetServerDirectory(kRoot);
    for (const QString& part : parts) SetServerDirectory(part);

    std::vector<int> arrFolderIndexes;
    WIN32_FIND_DATA record;
    const HINTERNET hFind = FtpFindFirstFileA(hConnection, sPattern, record, 0, 0);
    if (hFind == 0) return false;
    do {
        const QString name = record.cFileName.section(QChar(0), 0, 0);
        const uint32_t attributes = record.dwFileAttributes;
        // A bit test here, where the list compares with exactly 16.
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            AddItem({name, sPath, QString::number(attributes)});
        } else if (name != u"." && name != u"..") {
            AddItem({QString(), sPath + name + u'/', QString::number(attributes)});
            arrFolderIndexes.push_back(UBoundDeleteItems() - 1);
        }
        record.cFileName.clear();
    } while (InternetFindNextFileA(hFind, record));
    // Kept: the kernel's FindClose, not InternetCloseHandle: the find stays
    // with its connection, which the delete's reconnects replace.
    FindClose(static_cast<HANDLE>(hFind));

    for (int index : arrFolderIndexes) {
        QString path = ItemAt(index).sPath;
        ScanServerTree(hConnection, path, kAll);
    }
    return true;
}

void PruneServerCombo() {
    const QString sHere = GetServerDirectory();
    controls::ComboBox& combo = *frmServer().cboServer;
    const int last = combo.ListCount() - 1;
    for (int i = 0; i <= last; ++i) {
        const QString item = combo.List(i);
        if (item.isEmpty()) continue;
        SetServerDirectory(kRoot);
        if (!SetServerDirectory(item)) {
            combo.RemoveItem(i);
            --i;
        }
    }
    SetServerDirectory(kRoot);
    SetServerDirectory(sHere);
}
