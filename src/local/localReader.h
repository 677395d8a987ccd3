// Reading one local folder into sorted rows of the left pane's list.
#pragma once

#include "platform/wintypes.h"

#include <QString>
#include <vector>

struct tLocalEntry {
    QString sKey;   // picture key: "Folder", or "z" + extension (+ number)
    QString sName;
    QString sType;  // "Dateiordner" for every folder
    int32_t lAttributes = 0;
    int32_t lSize = 0;  // the low word only: wraps at 4 GiB
    FILETIME ftChanged;
};

// The ways the reader is used: the pane's own, the popup's, the download-as
// dialog's and the delete's differ in these points only.
struct LocalReaderVariant {
    bool caseSensitive = false;      // comparisons and the sort
    bool showDirectoryLetter = true; // "D" among the attribute letters
    bool trimDay = false;            // the day of the date text trimmed
    bool dateiFallback = true;       // "TXT-Datei" for an empty type text
    bool dropEmptyAfterLookup = false;  // a 0-byte file is deleted after its type lookup
    bool directoryBeforeSystem = false;  // "DS" after a delete where the pane shows "SD"
};

// Entries 0..N-1 and one blank slot behind them.
extern std::vector<tLocalEntry> arrLocalFiles;

// Fills arrLocalFiles and the pane's image lists; pPath gets its trailing
// "\". True when at least one entry was stored.
bool ReadLocalFolder(QString& pPath, const QString& pPattern, const LocalReaderVariant& variant = {});
void SortLocalFiles(const LocalReaderVariant& variant = {});
void QuickSortLocalFiles(int lLow, int lHigh, bool caseSensitive = false);

// "DD.MM.YYYY HH:MM:SS" of the time as stored (UTC).
QString FormatLocalDate(const FILETIME& ftChanged, bool trimDay = false);
// Letters T R H S N D C A for the bits set, in that order (T R H D S N C A
// with directoryBeforeSystem).
QString FormatLocalAttributes(uint32_t lAttributes, bool withDirectory = true, bool directoryBeforeSystem = false);

// The list's rows from arrLocalFiles, with a repaint every 1,000 rows.
void FillLocalRows(const LocalReaderVariant& variant = {});

// Classic rounding of the midpoint: halves to the even neighbour.
int PivotIndex(int lLow, int lHigh);
