// The language database as an SQLite file opened read-only by a Windows-form
// path; the queries run on the named Qt SQL connection.
#pragma once

#include <QString>

// Opens the file read-only under the connection name. A missing file is not
// made: the connection then stays closed and false comes back.
bool OpenDatabaseReadOnly(const QString& connection, const QString& windowsPath);
// Closes the connection and forgets it; nothing happens when there is none.
void CloseDatabase(const QString& connection);
