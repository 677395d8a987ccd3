// Type texts that both panes work out the same way: the extension of a
// name, the fixed table of per-file types and the text form of a read's
// type cache.
#pragma once

#include <QString>

// Text behind the last ".", the whole name when it has none.
QString GetExtension(const QString& sFileName);

// The fixed German type texts of the extensions whose icons differ per file.
inline const QString sFixedTypes = QStringLiteral("|zico=Symbol|zexe=Anwendung|zlnk=Verknüpfung|zcur=Cursor|");

// The start value of a read's type cache. Its one pair never matches a
// picture key, as those begin with "z".
inline const QString kTypeCacheStart = QStringLiteral("|Folder=Dateiordner|");

// The text behind "|key=" found at `pos` of a cache or the fixed table, up
// to the next "|".
QString TypeTextAt(const QString& table, qsizetype pos, const QString& key);
