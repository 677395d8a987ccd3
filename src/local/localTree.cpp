// The left pane's navigation: drive box, folder tree read one level ahead,
// the combo of visited folders and the double click, kept in step by hand.
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/localReader.h"
#include "platform/localfs.h"
#include "platform/seams.h"
#include "shared/mPublic.h"

namespace {

void QuickSortLocalFolders(std::vector<tLocalFolder>& a, int lLow, int lHigh, Qt::CaseSensitivity cs) {
    int i = lLow, j = lHigh;
    const QString pivot = a[size_t(PivotIndex(lLow, lHigh))].sName;
    do {
        while (a[size_t(i)].sName.compare(pivot, cs) < 0) ++i;
        while (a[size_t(j)].sName.compare(pivot, cs) > 0) --j;
        if (i > j) break;
        std::swap(a[size_t(i)], a[size_t(j)]);
        ++i;
        --j;
    } while (i <= j);
    if (lLow < j) QuickSortLocalFolders(a, lLow, j, cs);
    if (i < lHigh) QuickSortLocalFolders(a, i, lHigh, cs);
}

bool SameEntry(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// The combo's index of an entry, -1 when it has none.
int ComboIndexOf(const controls::ComboBox& combo, const QString& entry) {
    for (int i = 0; i < combo.ListCount(); ++i)
        if (SameEntry(combo.List(i), entry)) return i;
    return -1;
}

}  // namespace

QString FrmLocal::CurrentFolder(NoNode fallback, bool lowerParents) const {
    int index = trwPaths->SelectedIndex();
    QString text;
    if (index == 0) {
        if (fallback == NoNode::Drive) return drvDrive->Drive().left(2) + QStringLiteral("\\");
        index = 1;
        text = trwPaths->Text(1);
        if (fallback == NoNode::FirstNodeLowered) text = text.toLower();
    } else {
        text = TrimBlanks(trwPaths->Text(index));
    }
    if (index == 1) return text + QStringLiteral("\\");
    QString path = text;
    for (int parent = trwPaths->Parent(index); parent != 0; parent = trwPaths->Parent(parent)) {
        const QString parentText = TrimBlanks(trwPaths->Text(parent));
        path = (lowerParents ? parentText.toLower() : parentText) + QStringLiteral("\\") + path;
        if (parentText.size() >= 2 && parentText[1] == u':') break;
    }
    return path + QStringLiteral("\\");
}

void FrmLocal::RefreshLocal() {
    QString folder = CurrentFolder();
    ViewFolder(folder, QStringLiteral("*.*"));
}

void FrmLocal::ViewSelectedNode() {
    QString folder = CurrentFolder();
    SetMousePointer(vbHourglass);
    ViewFolder(folder, QStringLiteral("*.*"));
    SetMousePointer(vbDefault);
}

void FrmLocal::ReadDrive(const QString& pDrive) {
    const QString drive = pDrive.toLower();
    trwPaths->Clear();
    trwPaths->Add(QString(), 0, drive, drive.left(2), kRootImage, kRootImage);
    GetFilestrwPaths(drive);
    trwPaths->SetExpanded(1, true);
}

void FrmLocal::GetFilestrwPaths(const QString& pPath) {
    ReadFolderNodes(pPath, pPath + QStringLiteral("*.*"), arrLocalFolders, Qt::CaseInsensitive);
}

void FrmLocal::ReadFolderNodes(const QString& pPath, const QString& search, std::vector<tLocalFolder>& folders,
                               Qt::CaseSensitivity cs) {
    folders.assign(1, tLocalFolder{});
    const QString base = pPath.endsWith(u'\\') ? pPath : pPath + QStringLiteral("\\");
    WIN32_FIND_DATA data;
    const HANDLE hFind = FindFirstFileA(search, data);
    if (hFind != 0) {
        do {
            const QString name = data.cFileName;
            if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && name != u"." && name != u"..") {
                folders.back() = tLocalFolder{name, base + name + QStringLiteral("\\")};
                folders.emplace_back();
            }
        } while (FindNextFileA(hFind, data = WIN32_FIND_DATA{}));
        FindClose(hFind);
    }
    const int upper = int(folders.size()) - 1;
    if (upper <= 0) return;
    QuickSortLocalFolders(folders, 0, upper - 1, cs);
    // A node read before already has these children: the adds fail.
    for (int i = 0; i < upper; ++i)
        trwPaths->Add(pPath, controls::tvwChild, folders[size_t(i)].sPath.toLower(), folders[size_t(i)].sName,
                      kFolderImage, kOpenFolderImage);
}

void FrmLocal::trwPaths_Expand(int node) {
    const int child = trwPaths->Child(node);
    if (child == 0) return;
    const int first = trwPaths->FirstSibling(child);
    const int last = trwPaths->LastSibling(child);
    for (int i = first; i != 0 && i <= last; ++i) {
        if (trwPaths->Tag(i) == u"*") continue;
        SetMousePointer(vbHourglass);
        GetFilestrwPaths(trwPaths->Key(i));
        trwPaths->SetTag(i, QStringLiteral("*"));
        SetMousePointer(vbDefault);
    }
}

void FrmLocal::drvDrive_Change() {
    const QString sDrive = drvDrive->Drive().left(2);
    if (!localfs::DriveExists(sDrive)) {
        // Kept: no blank between the drive and the second text.
        MsgBox(GetLanguageText("FRMLOCAL_INSERTDEVICE") + u' ' + sDrive + GetLanguageText("FRMLOCAL_INTO"),
               vbExclamation);
        return;
    }
    localfs::ChDir(sDrive + QStringLiteral("\\"));
    ReadDrive(sDrive + QStringLiteral("\\"));
    cboLocal->Clear();
    cboLocal->AddItem(sDrive.toUpper() + QStringLiteral("\\"));
    // The combo's click fills the list.
    cboLocal->SetListIndex(0);
}

void FrmLocal::ChooseStartDrive() {
    // Kept: a fixed order of drives, the floppy last after g:.
    QString tried;
    for (const char* drive : {"c:\\", "d:\\", "e:\\", "f:\\", "g:\\", "a:\\"}) {
        tried = QString::fromLatin1(drive);
        if (drvDrive->SetDrive(tried)) break;
    }
    // Kept: starting on the drive chosen raises no change, so the combo
    // stays empty until the first node click.
    ReadDrive(tried.left(2).toLower() + QStringLiteral("\\"));
    ViewFolder(tried, QStringLiteral("*.*"));
    // The first row of the tree, found by a hit test at its design place.
    trwPaths->SetDropHighlight(trwPaths->HitTest(kFirstRowX, kFirstRowY));
}

void FrmLocal::cboLocal_Click() {
    const QString s = TrimBlanks(cboLocal->Text());
    QString sKey = s.size() == 3 ? s.left(2).toLower() : s.toLower();
    if (s.size() != 3 && !sKey.endsWith(u'\\')) sKey += u'\\';
    SetMousePointer(vbHourglass);
    const int node = sKey.size() == 2 ? 1 : trwPaths->IndexOf(sKey);
    if (node != 0) {
        trwPaths->SetExpanded(node, true);
        trwPaths->SetSelected(node);
    }
    ViewFolder(sKey, QStringLiteral("*.*"));
    SetMousePointer(vbDefault);
}

// Kept: here each assignment of the combo's index raises its click, also
// one of the index it holds already; the click expands and selects the
// node again and reads its folder.
void FrmLocal::AssignComboIndex(int index) {
    if (index == cboLocal->ListIndex())
        cboLocal_Click();
    else
        cboLocal->SetListIndex(index);
}

void FrmLocal::trwPaths_NodeClick(int node) {
    QString sKey = trwPaths->Key(node);
    if (sKey.endsWith(u'\\') && sKey.size() > 3) sKey.chop(1);
    if (sKey.endsWith(u':')) sKey += u'\\';
    const int found = ComboIndexOf(*cboLocal, sKey);
    if (found >= 0) AssignComboIndex(found);
    else cboLocal->AddItem(sKey);
    cboLocal->update();
    // Kept: assigned a second time even when found, so one click reads the
    // folder up to three times; the read that counts is the last, with the
    // real case of the node texts.
    const int entry = ComboIndexOf(*cboLocal, sKey);
    if (entry >= 0) AssignComboIndex(entry);
    ViewSelectedNode();
}

void FrmLocal::lsvDirFile_DblClick() {
    const QString folder = CurrentFolder(NoNode::FirstNodeLowered);
    const int row = lsvDirFile->SelectedIndex();
    if (lsvDirFile->SubItem(row, 1).isEmpty()) {
        QString sFolder = folder + lsvDirFile->Text(row);
        ViewFolder(sFolder, QStringLiteral("*.*"));
        if (sFolder.endsWith(u'\\')) sFolder = sFolder.left(sFolder.size() - 1).toLower();
        // Kept: below a node without children only the list moves on; tree
        // and combo stay behind it.
        const int selected = trwPaths->SelectedIndex();
        if (selected != 0 && trwPaths->Children(selected) > 0) {
            trwPaths->SetExpanded(selected, true);
            const int target = trwPaths->IndexOf(sFolder.endsWith(u'\\') ? sFolder : sFolder + QStringLiteral("\\"));
            if (target != 0) {
                trwPaths->SetExpanded(target, true);
                trwPaths->SetSelected(target);
            }
            // Each assignment raises the combo's click, which reads again.
            int entry = ComboIndexOf(*cboLocal, sFolder);
            if (entry < 0) {
                cboLocal->AddItem(sFolder);
                entry = ComboIndexOf(*cboLocal, sFolder);
            }
            if (entry >= 0) cboLocal->SetListIndex(entry);
        }
    }
    SetMousePointer(vbDefault);
}
