// Type text and pictures of a name that exists only on the server, found
// by asking the shell about an empty file of that name in the program's
// temporary folder.
#pragma once

#include "platform/wintypes.h"

#include <QIcon>
#include <QString>

// Full Windows-form path of a new (or existing) file of that name in the
// temporary folder; "" when no location would take it.
QString CreateDummyFile(const QString& sFileName);
// Deletes a dummy file again; a missing one is no error.
void RemoveDummyFile(const QString& sPath);
QString GetShellTypeName(const QString& sPath);
QIcon GetShellIcon(uint32_t lFlags, const QString& sPath);

// The fixed German type texts of the extensions whose icons differ per file.
inline const QString sFixedTypes = QStringLiteral("|zico=Symbol|zexe=Anwendung|zlnk=Verknüpfung|zcur=Cursor|");

// One directory read's memory of extensions and their type texts.
class TypeCache {
public:
    // Starts a read: empties the cache, binds and seeds the image lists.
    void BeginRead();
    // The type-and-image step for one entry: type text and image key.
    // `following` marks every entry after the first.
    void Step(const QString& sName, bool following, QString& sType, QString& sKey);

    QString sTypeCache;
    int32_t lIconNumber = 0;
};

// How often the shell was asked for a type text (for tests and the bench).
int ShellTypeLookups();
