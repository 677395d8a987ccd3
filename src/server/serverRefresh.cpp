#include "server/serverRefresh.h"

#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "server/formatters.h"
#include "server/frmServer.h"
#include "server/serverListing.h"

#include <algorithm>
#include <vector>

namespace {

// Columns 0, 2 and 3 of the folder table; column 1 only ever held the
// literal "Dateiordner" and nothing reads it.
struct FolderRow {
    QString name;
    QString date;
    QString attributes;
};

bool IsFolder(const tServerFile& f) {
    return f.sAttributes.toInt() == int(FILE_ATTRIBUTE_DIRECTORY);
}

class RowFiller {
public:
    RowFiller(controls::ListView& list, bool stopOnFailure) : list_(list), stop_(stopOnFailure) {}

    // Adds a row; false when the fill is to stop. A failed add that is
    // skipped leaves the sub-items that follow to the row added before, as
    // the list always did.
    bool Add(const QString& text, const QString& key) {
        const int index = list_.Add(text, key, key);
        if (index == 0 && stop_) return false;
        row_ = index != 0 ? index : list_.Count();
        return true;
    }
    void Sub(int sub, const QString& text) { list_.SetSubItem(row_, sub, text); }

private:
    controls::ListView& list_;
    bool stop_;
    int row_ = 0;
};

}  // namespace

bool FillServerRows(HINTERNET& hConnection, bool stopOnFailure) {
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
    struct EndBulk {
        controls::ListView& list;
        ~EndBulk() { list.EndBulk(); }
    } endBulk{list};

    std::vector<FolderRow> arrFolders;
    const int upper = UBoundServerFiles();
    // Both passes ask each entry whether it is a folder; the text is read once.
    std::vector<char> folder(size_t(std::max(upper, 0)));
    for (int i = 0; i < upper; ++i) folder[size_t(i)] = IsFolder(arrServerFiles[size_t(i)]);
    for (int i = 0; i < upper; ++i) {
        const tServerFile& f = arrServerFiles[size_t(i)];
        if (!folder[size_t(i)]) continue;  // 17, a read-only folder, is a file here
        if (n < kFolderTableRows)
            arrFolders.push_back({f.sName, f.sDate, FormatAttributes(f.sAttributes.toUInt())});
        else if (stopOnFailure)
            return false;
        ++n;
    }

    RowFiller rows(list, stopOnFailure);
    if (!rows.Add("..", "zdirectoryx")) return false;
    if (upper >= 1) {
        // One text for every folder row; the catalogue can't change while
        // the rows are added.
        const QString folderType = n > 0 ? GetLanguageText("MPUB_FOLDER") : QString();
        for (int i = 0; i < n; ++i) {
            if (i >= kFolderTableRows) {
                // No such row in the table: the add fails, the two sub-items
                // without a table read reach the last row added, the rest
                // fail too.
                rows.Sub(1, QString());
                rows.Sub(2, folderType);
                continue;
            }
            const FolderRow& folder = arrFolders[size_t(i)];
            if (!rows.Add(folder.name, "zdirectoryx")) return false;
            rows.Sub(1, QString());
            rows.Sub(2, folderType);
            rows.Sub(3, folder.date);
            rows.Sub(4, folder.attributes);
        }
        for (int i = 0; i < upper; ++i) {
            const tServerFile& f = arrServerFiles[size_t(i)];
            if (folder[size_t(i)]) continue;
            if (!rows.Add(f.sName, f.sExtension)) return false;
            rows.Sub(1, f.sSize);
            rows.Sub(2, f.sType);
            rows.Sub(3, f.sDate);
            rows.Sub(4, FormatAttributes(f.sAttributes.toUInt()));
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
