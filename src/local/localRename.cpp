#include "local/localRename.h"

#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/frmPopUpfrmLocal.h"
#include "platform/localfs.h"
#include "platform/controls/twips.h"
#include "platform/seams.h"
#include "shared/mPublic.h"

void RenameLocalSelection(RenameRefresh refresh) {
    auto& pane = frmLocal();
    auto& list = *pane.lsvDirFile;
    QString folder = UCase(pane.CurrentFolder(FrmLocal::NoNode::Drive));

    // Kept: the last row isn't counted, so two rows of which one is the last
    // pass as one and the rename goes on with the current row.
    int selected = 0;
    for (int i = 1; i <= list.Count() - 1; ++i)
        if (list.Selected(i)) ++selected;
    if (selected >= 2) {
        MsgBox(GetLanguageText("FRMPOPLOC_ONEFILE"), vbInformation);
        return;
    }

    const QString sOld = TrimBlanks(list.Text(list.SelectedIndex()));
    const int lLeft = HalfTwips(ScreenWidth()) - 1000;
    const int lTop = HalfTwips(ScreenHeight()) - 1500;
    AppendLogText(GetLanguageText("FRMPULOC_RENAME2") + u' ' + sOld);
    const QString prompt = GetLanguageText("FRMPULOC_NEWNAME") + u' ' + sOld + QStringLiteral(" ?");
    const QString sNew = InputBox(prompt, QString(), sOld, lLeft, lTop);
    if (sNew.isEmpty()) {
        AppendLogLine(kRed, GetLanguageText("FRMPULOC_RENCANCEL"));
        return;
    }
    // The copy refuses an existing target and any folder, so a folder keeps
    // its name and nothing is overwritten.
    if (!CopyFileA(folder + sOld, folder + sNew, true)) {
        AppendLogLine(kRed, GetLanguageText("FRMPULOC_RENFAILED"));
        return;
    }
    if (!localfs::Kill(folder + sOld)) {
        AppendLogLine(kRed, GetLanguageText("FRMPULOC_RENFAILED"));
        localfs::Kill(folder + sNew);
        return;
    }
    AppendLogLine(kGreen, GetLanguageText("FRMPULOC_RENOK"));
    if (refresh == RenameRefresh::Popup)
        frmPopUpfrmLocal().ViewFolder(folder, QStringLiteral("*.*"));
    else
        pane.ViewFolder(folder, QStringLiteral("*.*"));
}
