// The frame's copies of the server's file commands, and the pane's own
// commands plugged into the server pane.
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "server/frmServer.h"
#include "server/serverRefresh.h"
#include "serverops/mDelete.h"
#include "serverops/serverNewFolder.h"
#include "serverops/serverRename.h"
#include "shared/mPublic.h"

namespace {
bool Connected() {
    if (hConnection != 0) return true;
    MsgBox(GetLanguageText("FRMSERVER_NOCONNECTION"), vbInformation);
    return false;
}
}  // namespace

void MdiMain::PlugServerCommands() {
    frmServer().fileCommands = {DeleteServerSelection, PruneServerCombo,
                                [] { NewServerFolder(kToolbarNewFolder); }};
}

void MdiMain::mnuMyServerUmbenennen_Click() {
    if (!Connected()) return;
    RenameServerEntry();
}

void MdiMain::mnuMyServerLoeschen_Click() {
    if (!Connected()) return;
    // No question here; only the Delete key asks.
    DeleteServerSelection();
    RefreshServer(hConnection);
    PruneServerCombo();
}

void MdiMain::mnuMyServerNeuOrdner_Click() {
    if (!Connected()) return;
    NewServerFolder(kMenuNewFolder);
}
