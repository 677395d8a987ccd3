// Type names, icons and associated programs of files, as the shell of a
// desktop would give them. Paths are Windows-form (see localfs.h).
#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>
#include <cstdint>

constexpr uint32_t SHGFI_SMALLICON = 0x1;
constexpr uint32_t SHGFI_ICON = 0x100;
constexpr uint32_t SHGFI_TYPENAME = 0x400;

struct SHFILEINFO {
    QIcon hIcon;           // the picture itself; null when there is none
    QString szTypeName;    // "" when only the default type matches
    QString szDisplayName;
};

// Type text by name only (MIME comment); icons from the icon theme with
// bundled fallbacks. An empty path gives an empty type and no icon.
bool SHGetFileInfoA(const QString& path, uint32_t fileAttributes, SHFILEINFO& info, uint32_t flags);

// The executable of the default application for the file's type; "" when
// there is none.
QString FindExecutableA(const QString& file);

namespace shell {

// SHGetFileInfoA for a path whose POSIX form the caller has at hand already
// ("" when it names nothing on disk): resolving the Windows form is the
// dearest part of the call.
bool FileInfoAt(const QString& posixPath, const QString& path, uint32_t fileAttributes, SHFILEINFO& info,
                uint32_t flags);

// Folders that may hold the program's temporary folder, in the order they
// are tried, Windows-form, ending in "\tempqorvn".
QStringList TempFolderCandidates();
// False for a folder that is a link or is owned by someone else.
bool TempFolderIsSafe(const QString& windowsFolder);
// Makes the folder with mode 0700; true when it exists and is safe after.
bool MakeTempFolder(const QString& windowsFolder);

// Installs the icon theme search paths and the fallback theme once; called
// before the first icon lookup.
void EnsureIconTheme();

// Pictures the program ships: "folder", "folder-open", "drive", "file", ...
QIcon BundledIcon(const QString& name);

}  // namespace shell
