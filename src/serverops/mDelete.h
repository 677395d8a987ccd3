// Deleting the selection of the server pane: files at once, folders with
// everything in them. The whole tree goes into one flat list first; then
// every file is deleted, and last the folders, longest path first.
#pragma once

#include "platform/wintypes.h"

#include <QString>
#include <vector>

struct tDeleteItem {
    QString sName;        // the bare file name; empty for a folder
    QString sPath;        // a file's folder ending in "/", or the folder itself
    QString sAttributes;  // "16" or "128" for selected rows, else the server's number
};

// Entries 0..U-1 and one spare, empty element behind them: size() - 1 is
// the count. Each run starts it afresh; it stays after the run.
extern std::vector<tDeleteItem> arrDeleteItems;

inline int UBoundDeleteItems() {
    return int(arrDeleteItems.size()) - 1;
}

// Deletes what is selected in lsvServer, asking nothing, logging each
// step, and ends on a new connection in the folder it started in, with
// the paths of cboServer that are gone taken out.
void DeleteServerSelection();

// Adds the entries of the server folder sPath to arrDeleteItems, then
// walks its sub-folders. sPath gets its trailing "/" in place.
bool ScanServerTree(HINTERNET& hConnection, QString& sPath, const QString& sPattern);

// After the caller's refresh: takes the paths out of cboServer that can't
// be reached from the root any more.
void PruneServerCombo();

bool DeleteServerFile(const QString& sName);
bool RemoveServerDirectory(const QString& sName);
