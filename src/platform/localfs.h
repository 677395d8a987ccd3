// Local files as the logic sees them: Windows-form paths ("c:\dir\file",
// case-insensitive) translated to POSIX paths at this boundary only.
#pragma once

#include "platform/wintypes.h"

#include <QStringList>

using HANDLE = intptr_t;
constexpr HANDLE INVALID_HANDLE_VALUE = -1;

// Lists `pathAndPattern` ("c:\dir\*.*"); -1 on failure. Lists "." and ".."
// in non-root folders.
HANDLE FindFirstFileA(const QString& pathAndPattern, WIN32_FIND_DATA& findData);
bool FindNextFileA(HANDLE hFind, WIN32_FIND_DATA& findData);
bool FindClose(HANDLE hFind);

namespace localfs {

// "c:\Some\Path" -> "/some/Path" resolved case-insensitively, component by
// component; components that don't exist keep the case given.
QString ToPosix(const QString& windowsPath);
// "/home/x" -> "c:\home\x" (or the drive of the volume it lies on).
QString ToWindows(const QString& posixPath);

// Drive list in the form of a drive box: "c: [/]", "d: [/media/usb]", ...
QStringList DriveList();
// True when the drive letter exists (its volume is mounted).
bool DriveExists(const QString& drive);

bool ChDir(const QString& windowsPath);
QString CurDir();
// Dir(path, 16): the name when path names an existing folder, else "".
QString DirFolder(const QString& windowsPath);
// Dir(path): the name when path names an existing file, else "".
QString DirFile(const QString& windowsPath);
bool MkDir(const QString& windowsPath);
bool RmDir(const QString& windowsPath);
bool Kill(const QString& windowsPath);
// -1 when the file can't be opened.
int64_t FileLen(const QString& windowsPath);

}  // namespace localfs
