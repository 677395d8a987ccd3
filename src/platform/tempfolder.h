// The program's temporary folder "tempqorvn" and the empty files made in it
// to ask the shell about a name. Paths are Windows-form (see localfs.h).
#pragma once

#include <QString>
#include <QStringList>

namespace tempfolder {

// The places tried in turn, each ending in "\tempqorvn": under the user's
// cache folder, /tmp, /var/tmp.
QStringList Candidates();
// False for a folder that is a link or belongs to someone else; true for
// one that doesn't exist yet.
bool IsSafe(const QString& windowsFolder);
// Makes the folder with mode 0700; true when it exists and is safe after.
bool Make(const QString& windowsFolder);

// An empty file of that name in the first place that takes one, or the file
// there already whose name matches ignoring case, left as it is. Its path,
// or "" when no place would take it (or the name can't be a file name).
// The folder that took it is held open until Release, so the next files go
// into the very folder that was checked.
QString MakeDummy(const QString& name);
// Deletes such a file again, whatever the case of its name on disk; a
// missing one is no error.
void RemoveDummy(const QString& windowsPath);
// Lets go of the held folder and of the helper file kept beside the dummy
// files; the next MakeDummy looks for its place in turn again.
void Release();
// Removes helper files that processes which are gone left behind.
void RemoveStale();

}  // namespace tempfolder
