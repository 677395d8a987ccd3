// Local files as the logic sees them: Windows-form paths ("c:\dir\file",
// case-insensitive) translated to POSIX paths at this boundary only.
// Nothing here throws; failures come back as the documented values.
#pragma once

#include "platform/wintypes.h"

#include <QByteArray>
#include <QStringList>

using HANDLE = intptr_t;
constexpr HANDLE INVALID_HANDLE_VALUE = -1;

// Lists `pathAndPattern` ("c:\dir\*.*"); -1 on failure, and then the record
// is zeroed. "*" and "*.*" match everything, other patterns use * and ?
// case-insensitively. Lists "." and ".." first in non-root folders.
HANDLE FindFirstFileA(const QString& pathAndPattern, WIN32_FIND_DATA& findData);
bool FindNextFileA(HANDLE hFind, WIN32_FIND_DATA& findData);
bool FindClose(HANDLE hFind);

// Copies one file (never a folder), keeping its mode and modification
// time. With `failIfExists` an existing target is left alone and the copy
// fails; otherwise the target is replaced in one step unless it is a
// folder or read-only.
bool CopyFileA(const QString& existingFile, const QString& newFile, bool failIfExists);
// Renames a file or folder on its volume; fails when the target exists,
// except for a change of case of the same entry.
bool MoveFileA(const QString& existingFile, const QString& newFile);

namespace localfs {

// "c:\Some\Path" -> "/some/Path" resolved case-insensitively, component by
// component; components that don't exist keep the case given. "/" is a
// separator too; a path without a drive is taken from the current
// directory. Empty for a drive that isn't mounted. As a QString it can't
// hold bytes that aren't UTF-8: the platform's own calls use the bytes.
QString ToPosix(const QString& windowsPath);
// "/home/x" -> "c:\home\x" (or the drive of the volume it lies on). Names
// get their texts: bytes that aren't UTF-8, characters a Windows name can't
// hold and blanks at a name's ends become private-use stand-ins, which the
// way back turns into the same bytes again.
QString ToWindows(const QString& posixPath);

// The folder of the executable without a trailing separator, such as
// "c:\opt\ferrydock".
QString ProgramFolder();

// Drive list in the form of a drive box: "c: [/]", "d: [/media/usb]", ...
QStringList DriveList();
// True when the drive letter exists (its volume is mounted). Reads the
// first two characters, so "c:", "C:\" and "d: [/media/usb]" all work.
bool DriveExists(const QString& drive);
// The POSIX folder of a drive: "c:" -> "/"; empty when it isn't mounted.
QString DriveRoot(const QString& drive);
// The folders of d:, e:, ... in letter order, from a mount table in the
// format of /proc/self/mounts.
QStringList ExtraDriveRoots(const QByteArray& mountTable);

// Attribute masks of Dir.
constexpr int vbNormal = 0;
constexpr int vbReadOnly = 1;
constexpr int vbHidden = 2;
constexpr int vbSystem = 4;
constexpr int vbVolume = 8;
constexpr int vbDirectory = 16;
constexpr int vbArchive = 32;
constexpr int vbAlias = 64;

bool ChDir(const QString& windowsPath);
QString CurDir();
// The name when path names an existing folder, else ""; "." for a drive
// root. Unlike Dir with 16, files and hidden entries don't matter.
QString DirFolder(const QString& windowsPath);
// The name when path names an existing file, else "". The name
// comes back in its case on disk; a last component with * or ? gives the
// first matching file.
QString DirFile(const QString& windowsPath);
// Dir(path, attributes): the name, in its case on disk, of the entry the
// path names, or of the first that its last component matches with * or ?;
// "" when there is none. An entry shows when the mask holds its folder (16),
// hidden (2) and system (4) bits; 1, 32 and 64 add nothing, and with no
// volume labels here neither does 8. A path ending in "\" (or a bare "c:",
// or "") stands for its folder's entries: "." comes first below a root.
QString Dir(const QString& windowsPath, int attributes = vbNormal);
// Makes one folder, its name in the case given; the folder above must exist.
bool MkDir(const QString& windowsPath);
// Removes an empty folder, or a link to a folder (the target stays).
bool RmDir(const QString& windowsPath);
// Deletes a file; never a folder or a link to one.
bool Kill(const QString& windowsPath);
// -1 when the file can't be opened or is a folder.
int64_t FileLen(const QString& windowsPath);

}  // namespace localfs
