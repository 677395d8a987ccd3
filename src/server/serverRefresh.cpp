#include "server/serverRefresh.h"

#include "language/mDataBase.h"
#include "server/formatters.h"
#include "server/frmServer.h"
#include "server/serverListing.h"
#include "server/typeIcons.h"
#include "shared/frameControls.h"
#include "shared/mPublic.h"

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

// The attribute numbers of the entries, read once: both passes ask each
// entry whether it is a folder, and the rows show its letters. Entries share
// a few values, so each value's letters are made once too.
class Attributes {
public:
    explicit Attributes(int upper) : values_(size_t(std::max(upper, 0))) {
        for (size_t i = 0; i < values_.size(); ++i) values_[i] = arrServerFiles[i].sAttributes.toUInt();
    }
    // Kept: exactly 16; 17, a read-only folder, is a file here.
    bool IsFolder(int i) const { return values_[size_t(i)] == FILE_ATTRIBUTE_DIRECTORY; }
    const QString& Letters(int i) {
        const uint32_t v = values_[size_t(i)];
        if (v != lastValue_ || lastLetters_.isNull()) {
            lastValue_ = v;
            lastLetters_ = FormatAttributes(v);
        }
        return lastLetters_;
    }

private:
    std::vector<uint32_t> values_;
    uint32_t lastValue_ = 0;
    QString lastLetters_;
};

class RowFiller {
public:
    RowFiller(controls::ListView& list, bool stopOnFailure) : list_(list), stop_(stopOnFailure) {}

    // Adds a row; false when the fill is to stop. Kept: a failed add that
    // is skipped leaves the sub-items that follow to the row added before.
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
    list.SetIcons(Frame().imgListLarge);
    list.SetSmallIcons(Frame().imgListSmall);
    DoEvents();
    ReadServerDirectory(QStringLiteral("*.*"), hConnection);
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
    Attributes attributes(upper);
    for (int i = 0; i < upper; ++i) {
        const tServerFile& f = arrServerFiles[size_t(i)];
        if (!attributes.IsFolder(i)) continue;
        if (n < kFolderTableRows)
            arrFolders.push_back({f.sName, f.sDate, attributes.Letters(i)});
        else if (stopOnFailure)
            return false;
        ++n;
    }

    RowFiller rows(list, stopOnFailure);
    if (!rows.Add(QStringLiteral(".."), kFolderPicture)) return false;
    if (upper >= 1) {
        // One text for every folder row; the catalogue can't change while
        // the rows are added.
        const QString folderType = n > 0 ? GetLanguageText("MPUB_FOLDER") : QString();
        for (int i = 0; i < n; ++i) {
            if (i >= kFolderTableRows) {
                // Kept: no such row in the table: the add fails, the two
                // sub-items without a table read reach the last row added,
                // the rest fail too.
                rows.Sub(1, QString());
                rows.Sub(2, folderType);
                continue;
            }
            const FolderRow& folder = arrFolders[size_t(i)];
            if (!rows.Add(folder.name, kFolderPicture)) return false;
            rows.Sub(1, QString());
            rows.Sub(2, folderType);
            rows.Sub(3, folder.date);
            rows.Sub(4, folder.attributes);
        }
        for (int i = 0; i < upper; ++i) {
            const tServerFile& f = arrServerFiles[size_t(i)];
            if (attributes.IsFolder(i)) continue;
            if (!rows.Add(f.sName, f.sExtension)) return false;
            rows.Sub(1, f.sSize);
            rows.Sub(2, f.sType);
            rows.Sub(3, f.sDate);
            rows.Sub(4, attributes.Letters(i));
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
