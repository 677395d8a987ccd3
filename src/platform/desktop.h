// What the desktop's shell does with local files: start a program with a
// file, the open-with choice, the properties, and deleting a whole tree.
// Paths are Windows-form (see localfs.h). Program starts go through the
// start seam (seams.h). Nothing here throws.
#pragma once

#include <QString>
#include <cstdint>

class QWidget;

// Show commands.
constexpr int SW_SHOWNORMAL = 1;
// Shell's window style: minimised, with the focus.
constexpr int vbMinimizedFocus = 2;

// ShellExecuteA: with the verb "open" (or none) starts `file`, a program
// (Windows-form path, a name on the PATH, or the id of a registered
// application), with `parameters` split at blanks as a Windows command line
// is; a piece that is a Windows-form absolute path reaches the program as
// the POSIX path of the same bytes. Greater than 32 when it started.
intptr_t ShellExecuteA(QWidget* hwnd, const QString& verb, const QString& file, const QString& parameters,
                       const QString& directory, int showCmd);

constexpr uint32_t SEE_MASK_INVOKEIDLIST = 0x0C;
constexpr uint32_t SEE_MASK_NOCLOSEPROCESS = 0x40;
constexpr uint32_t SEE_MASK_FLAG_NO_UI = 0x400;

struct SHELLEXECUTEINFO {
    uint32_t cbSize = 0;
    uint32_t fMask = 0;
    QWidget* hwnd = nullptr;
    QString lpVerb;
    QString lpFile;
    QString lpParameters;
    QString lpDirectory;
    int nShow = 0;
};

// ShellExecuteEx: the verb "properties" asks the desktop's file manager
// (org.freedesktop.FileManager1 on the session bus) to show the path's
// properties; when none answers, a properties dialog of the program's own
// opens over hwnd's window. Returns at once, before the answer. Other
// verbs go as in ShellExecuteA.
bool ShellExecuteEx(SHELLEXECUTEINFO& info);

// Shell: runs a command line. "rundll32.exe shell32.dll, OpenAs_RunDLL "
// followed by a path stands for the open-with choice: a dialog of the
// program's own lists the applications registered for the file's type and
// takes any other program, and starts the one chosen with the file. Any
// other line starts its first word with the rest as parameters.
double Shell(const QString& commandLine, int windowStyle);

constexpr uint32_t FO_DELETE = 3;
constexpr uint16_t FOF_NOCONFIRMATION = 0x10;
constexpr uint16_t FOF_ALLOWUNDO = 0x40;
constexpr uint16_t FOF_SIMPLEPROGRESS = 0x100;

struct SHFILEOPSTRUCT {
    QWidget* hwnd = nullptr;
    uint32_t wFunc = 0;
    QString pFrom;
    QString pTo;
    uint16_t fFlags = 0;
    bool fAnyOperationsAborted = false;
};

// SHFileOperationA with FO_DELETE: removes pFrom and everything below it,
// for good (there is no trash here), asking nothing. A link goes, never
// what it points to. 0 when all of it went.
int SHFileOperationA(SHFILEOPSTRUCT& op);

namespace desktop {

// The words of the program's own properties and open-with dialogs; the
// logic hands them over from its catalogue before it asks for either.
struct DialogTexts {
    QString propertiesTitle, name, folder, type, size, bytes, contents, items, modified, accessed, permissions,
        owner, close;
    QString openWithTitle, openWithPrompt, otherProgram, browse, ok, cancel;
};
void SetDialogTexts(const DialogTexts& texts);

}  // namespace desktop
