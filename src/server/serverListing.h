// Reading the server's current folder into rows of ready-made texts.
#pragma once

#include "platform/wintypes.h"

#include <QString>
#include <vector>

struct tServerFile {
    QString sName;
    QString sSize;
    QString sType;
    QString sDate;
    QString sAttributes;  // the attribute number as decimal text
    QString sExtension;   // image key in both image lists
};

// Entries 0..N-1 and one spare, empty element behind them: size() - 1 is
// the count. Callers reset it to one element before every read.
extern std::vector<tServerFile> arrServerFiles;

inline int UBoundServerFiles() {
    return int(arrServerFiles.size()) - 1;
}
inline void ResetServerFiles() {
    arrServerFiles.assign(1, tServerFile{});
}

void ReadServerDirectory(const QString& sPattern, HINTERNET& hConnection);
