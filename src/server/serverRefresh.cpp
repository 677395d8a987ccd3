#include "server/serverRefresh.h"

#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "server/formatters.h"
#include "server/frmServer.h"
#include "server/serverListing.h"

namespace {

struct FolderRow {
    QString name;
    QString date;
    QString attributes;
};

// A failed add leaves the sub-items to the row added before, as the list
// always did.
int AddRow(controls::ListView& list, const QString& text, const QString& key) {
    const int index = list.Add(text, key, key);
    return index != 0 ? index : list.Count();
}

}  // namespace

bool FillServerRows(HINTERNET& hConnection, bool stopAtFolderLimit) {
    auto& list = *frmServer().lsvServer;
    int n = 0;
    ResetServerFiles();
    list.SetIcons(mdiMain().imgListLarge);
    list.SetSmallIcons(mdiMain().imgListSmall);
    DoEvents();
    ReadServerDirectory("*.*", hConnection);
    DoEvents();
    list.Clear();  // the old rows stay visible through the whole read
    DoEvents();
    list.BeginBulk();

    std::vector<FolderRow> arrFolders;
    arrFolders.reserve(64);
    const int upper = UBoundServerFiles();
    for (int i = 0; i < upper; ++i) {
        const tServerFile& f = arrServerFiles[size_t(i)];
        if (f.sAttributes.toInt() != int(FILE_ATTRIBUTE_DIRECTORY)) continue;
        if (n >= kFolderTableRows) {
            if (stopAtFolderLimit) {
                list.EndBulk();
                return false;
            }
        } else {
            arrFolders.push_back({f.sName, f.sDate, FormatAttributes(f.sAttributes.toUInt())});
        }
        ++n;
    }

    list.Add("..", "zdirectoryx", "zdirectoryx");
    if (upper >= 1) {
        for (int i = 0; i < n; ++i) {
            if (i >= kFolderTableRows) {
                // The table has no such row: only the type text reaches the
                // last row added, the rest fails.
                list.SetSubItem(list.Count(), 2, GetLanguageText("MPUB_FOLDER"));
                continue;
            }
            const FolderRow& folder = arrFolders[size_t(i)];
            const int row = AddRow(list, folder.name, "zdirectoryx");
            list.SetSubItem(row, 1, QString());
            list.SetSubItem(row, 2, GetLanguageText("MPUB_FOLDER"));
            list.SetSubItem(row, 3, folder.date);
            list.SetSubItem(row, 4, folder.attributes);
        }
        for (int i = 0; i < upper; ++i) {
            const tServerFile& f = arrServerFiles[size_t(i)];
            if (f.sAttributes.toInt() == int(FILE_ATTRIBUTE_DIRECTORY)) continue;
            const int row = AddRow(list, f.sName, f.sExtension);
            list.SetSubItem(row, 1, f.sSize);
            list.SetSubItem(row, 2, f.sType);
            list.SetSubItem(row, 3, f.sDate);
            list.SetSubItem(row, 4, FormatAttributes(f.sAttributes.toUInt()));
        }
    }
    list.EndBulk();
    list.Refresh();
    return true;
}

void SelectServerPath(const QString& path, bool known) {
    auto& combo = *frmServer().cboServer;
    bool found = known;
    for (int i = 0; i < combo.ListCount() && !found; ++i)
        if (combo.List(i) == path) found = true;
    if (!found) combo.AddItem(path);
    for (int i = 0; i < combo.ListCount(); ++i) {
        if (combo.List(i) == path) {
            combo.SetListIndex(i);
            break;
        }
    }
}

void RefreshServer(HINTERNET& hConnection) {
    FillServerRows(hConnection, false);
    SelectServerPath(GetServerDirectory());
    DoEvents();
}
