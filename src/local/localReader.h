// Reading one local folder into sorted rows of the left pane's list.
#pragma once

#include "platform/wintypes.h"

#include <QString>
#include <functional>
#include <vector>

struct tLocalEntry {
    QString sKey;   // picture key: "Folder", or "z" + extension (+ number)
    QString sName;
    QString sType;  // "Dateiordner" for every folder
    int32_t lAttributes = 0;
    int32_t lSize = 0;  // the low word only: wraps at 4 GiB
    FILETIME ftChanged;
};

// The pane's reader has copies elsewhere (the popup's, the download-as
// dialog's, the delete's) that differ in these points only. All of them fill
// frmLocal's list and image lists.
struct LocalReaderVariant {
    bool caseSensitive = false;          // the type lookups, "Dateiordner" and the sort
    int nameLength = 259;                // characters kept of a found name
    bool showDirectoryLetter = true;     // "D" among the attribute letters
    bool directoryBeforeSystem = false;  // letters T R H D S N C A instead of T R H S N D C A
    bool trimDay = false;                // the day of the date text trimmed
    bool dateiFallback = true;           // "TXT-Datei" for an empty type text
    bool probeEmptyAfterLookup = false;  // open the file after its type lookup, see ReadLocalFolder
};

constexpr LocalReaderVariant PaneReader() { return {}; }
constexpr LocalReaderVariant PopupReader() {
    return {.caseSensitive = true, .nameLength = 260, .showDirectoryLetter = false, .trimDay = true};
}
constexpr LocalReaderVariant DownloadAsReader() {
    return {.caseSensitive = true,
            .nameLength = 260,
            .showDirectoryLetter = false,
            .dateiFallback = false,
            .probeEmptyAfterLookup = true};
}
constexpr LocalReaderVariant DeleteReader() {
    return {.caseSensitive = true, .directoryBeforeSystem = true, .trimDay = true};
}

// Entries 0..N-1 and one blank slot behind them, so size() - 1 is the count.
extern std::vector<tLocalEntry> arrLocalFiles;

// The whole refill of frmLocal's list: hourglass through `setPointer` (the
// pane's is the screen's), clear, read, one turn of the event loop, rows.
// pPath comes back with its trailing "\".
void ViewLocalFolderWith(QString& pPath, const QString& pPattern, const LocalReaderVariant& variant,
                         const std::function<void(int)>& setPointer);

// Fills arrLocalFiles and the pane's image lists; pPath gets its trailing
// "\". True when at least one entry was stored.
bool ReadLocalFolder(QString& pPath, const QString& pPattern, const LocalReaderVariant& variant = {});
// Folders first, then each group by name.
void SortLocalFiles(const LocalReaderVariant& variant = {});
void QuickSortLocalFiles(int lLow, int lHigh, bool caseSensitive = false);
// The list's rows from arrLocalFiles, with a repaint every 1,000 rows.
void FillLocalRows(const LocalReaderVariant& variant = {});

// "DD.MM.YYYY HH:MM:SS" of the time as stored (UTC).
QString FormatLocalDate(const FILETIME& ftChanged, bool trimDay = false);
// Letters for the bits set, in the pane's order T R H S N D C A (T R H D S N
// C A with directoryBeforeSystem).
QString FormatLocalAttributes(uint32_t lAttributes, bool withDirectory = true, bool directoryBeforeSystem = false);
// "TXT-Datei": the type text of an extension the shell has no name for.
QString DateiTypeText(const QString& sKey);

// The middle of lLow..lHigh rounded as a conversion to a whole number does:
// halves go to the even neighbour.
int PivotIndex(int lLow, int lHigh);
