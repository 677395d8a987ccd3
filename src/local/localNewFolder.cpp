// A new folder in the current one, by the toolbar's button (frmLocal) or the
// popup's entry: the popup's door compares case-sensitively, writes the
// root's text in upper case, reads the tree into the current folder and
// fills the list with its own reader.
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/frmPopUpfrmLocal.h"
#include "local/localTreeWalk.h"
#include "platform/localfs.h"
#include "platform/controls/twips.h"
#include "platform/seams.h"
#include "shared/mPublic.h"

namespace {

void NewFolder(TreeReader door) {
    auto& pane = frmLocal();
    const int lLeft = HalfTwips(ScreenWidth()) - 1000;
    const int lTop = HalfTwips(ScreenHeight()) - 1500;
    const QString sName = InputBox(GetLanguageText("FRMPULOC_DIRNAME"), QString(), QString(), lLeft, lTop);
    QString folder = pane.CurrentFolder(FrmLocal::NoNode::Drive, true);
    if (sName.isEmpty()) return;

    // A file of that name counts too.
    const QString sFound = localfs::Dir(folder + sName, localfs::vbDirectory);
    AppendLogText(GetLanguageText("FRMPUSERVER_DIRNEW1") + u' ' + folder + sName + u' ' +
                  GetLanguageText("FRMPUSERVER_DIRNEW2"));
    if (!sFound.isEmpty()) {
        AppendLogLine(kRed, GetLanguageText("FRMPULOC_GENFAIL"));
        return;
    }
    // Kept: a folder that can't be made (an illegal name) isn't noticed;
    // the green line comes all the same.
    localfs::MkDir(folder + sName);
    AppendLogLine(kGreen, GetLanguageText("FRMPULOC_GENOK"));

    RebuildTreeTo(folder, door);
    // In the root no node has the key "c:\": nothing gets selected.
    auto& tree = *pane.trwPaths;
    const int node = tree.IndexOf(folder.toLower());
    if (node != 0) {
        tree.SetExpanded(node, true);
        tree.SetSelected(node);
    }
    if (door == TreeReader::Popup)
        frmPopUpfrmLocal().ViewFolder(folder, QStringLiteral("*.*"));
    else
        pane.ViewFolder(folder, QStringLiteral("*.*"));
}

}  // namespace

void FrmLocal::NewLocalFolder() {
    NewFolder(TreeReader::Pane);
}

void FrmPopUpfrmLocal::mnuNeuVerzeichnis_Click() {
    NewFolder(TreeReader::Popup);
}
