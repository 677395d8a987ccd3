#include "local/localOpen.h"

#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "platform/desktop.h"
#include "platform/seams.h"
#include "shared/mPublic.h"
#include "shared/openWith.h"

void OpenLocalFile() {
    auto& pane = frmLocal();
    const QString folder = pane.CurrentFolder(FrmLocal::NoNode::Drive);
    // A folder row goes the same way; without a row the folder itself does.
    const QString sFile = folder + pane.lsvDirFile->Text(pane.lsvDirFile->SelectedIndex());
    const QString sProgram = FindAssociatedProgram(sFile);
    if (TrimBlanks(sProgram).isEmpty()) {
        if (MsgBox(GetLanguageText("MPUB_NOAPP") + vbCrLf + GetLanguageText("MPUB_PROGSEL"), vbYesNo) == vbYes)
            OpenLocalFileWith(sFile);
        return;
    }
    // Kept: the program itself starts with the path as its parameters,
    // unquoted, so a path with blanks reaches it in pieces.
    ShellExecuteA(pane.window(), QStringLiteral("open"), sProgram, sFile, QString(), SW_SHOWNORMAL);
}

void ShowLocalProperties(const QString& sFile) {
    HandDialogTextsToDesktop();
    SHELLEXECUTEINFO info;
    info.cbSize = 60;
    info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
    info.hwnd = &frmLocal();
    info.lpVerb = QStringLiteral("properties");
    info.lpFile = sFile;
    ShellExecuteEx(info);
}
