#include "serverops/serverRename.h"

#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "server/serverRefresh.h"
#include "serverops/nameBox.h"
#include "shared/mPublic.h"
#include "transfer/upload.h"

namespace {
// The rename puts the caret at the end itself; the effect is the same.
void CaretToEnd() {
    controls::RichLog& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelStart(int(log.Text().size()));
}

void Line(uint32_t colour, const QString& text) {
    CaretToEnd();
    controls::RichLog& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelColor(colour);
    log.SetSelText(text + vbCrLf);
    log.SetSelColor(kBlack);
}
}  // namespace

bool RenameServerFile(const QString& sOld, const QString& sNew) {
    return FtpRenameFileA(hConnection, sOld, sNew);
}

void RenameServerEntry() {
    const controls::ListView& list = *frmServer().lsvServer;
    int selected = 0;
    for (int i = 1; i <= list.Count(); ++i)
        if (list.Selected(i)) ++selected;
    if (selected >= 2) {
        MsgBox(GetLanguageText("FRMPUSERVER_ONEFILE"), vbInformation);
        return;
    }
    // Kept: without a selected row this is the item the list holds as
    // selected, normally "..", and nothing stops its rename. Blanks at
    // either end are lost, so such a name can't be renamed.
    const QString sOld = TrimBlanks(list.Text(list.SelectedIndex()));
    CaretToEnd();
    frmTransferHistory().rtfTransferHistory->SetSelText(GetLanguageText("FRMPUSERVER_RENAMEOF") + u' ' + sOld +
                                                       vbCrLf);
    const QString sNew = AskServerName(GetLanguageText("FRMPUSERVER_NEWNAME") + u' ' + sOld + QStringLiteral(" ?"), sOld);
    if (sNew.isEmpty()) {
        Line(kRed, GetLanguageText("FRMPUSERVER_RENAMECANCEL"));
        return;
    }
    // Kept: a new name equal to the old one goes to the server too.
    if (!RenameServerFile(sOld, sNew)) {
        Line(kRed, GetLanguageText("FRMPUSERVER_RENAMEFAILED"));
        return;
    }
    Line(kGreen, GetLanguageText("FRMPUSERVER_RENAMEOK"));
    RefreshServer(hConnection);
}
