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

// The executable of the default application for the file's type (by its
// name), as a Windows-form path; "" when there is none or it isn't on the
// PATH. A file that is a program itself (executable, starting with "#!" or
// an ELF header) gives itself, as given.
QString FindExecutableA(const QString& file);

// The shell's type text of a path (SHGFI_TYPENAME), cut at its first NUL.
QString GetShellTypeName(const QString& sPath);
// The shell's icon of a path as a picture: lFlags SHGFI_ICON, with
// SHGFI_SMALLICON for the small one.
QIcon GetShellIcon(uint32_t lFlags, const QString& sPath);
// How often GetShellTypeName asked the shell so far (tests and benchmarks).
int ShellTypeLookups();

namespace shell {

// Installs the icon theme search paths and the fallback theme once; called
// before the first icon lookup.
void EnsureIconTheme();

// Pictures the program ships: "folder", "folder-open", "drive", "file", ...
QIcon BundledIcon(const QString& name);

}  // namespace shell
