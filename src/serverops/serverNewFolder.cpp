#include "serverops/serverNewFolder.h"

#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "server/frmServer.h"
#include "server/serverRefresh.h"
#include "serverops/nameBox.h"
#include "shared/mPublic.h"

void NewServerFolder(const NewFolderPlace& place) {
    // Kept: the new connection stands at "/" and nothing takes it back, so
    // the toolbar's folder is made in the root, whatever folder the pane
    // shows; its refresh then shows the root. A cancel keeps the reconnect.
    if (place.reconnectFirst) Reinitialize_Internet();
    const QString name = AskServerName(GetLanguageText(place.prompt));
    if (name.isEmpty()) return;
    MoveLogCaretToEnd();
    // In the colour that stands, black after every coloured line.
    frmTransferHistory().rtfTransferHistory->SetSelText(GetLanguageText(place.logFirst) + u' ' + name + u' ' +
                                                       GetLanguageText(place.logSecond) + vbCrLf);
    // Kept: no trimming and no test of the characters; a path with
    // separators goes to the server as it stands.
    const bool ok = CreateServerDirectory(name);
    if (!ok) {
        AppendLogLine(kRed, GetLanguageText(place.failure));
        return;
    }
    AppendLogLine(kGreen, GetLanguageText(place.success));
    if (place.paneRefresh)
        frmServer().RefreshServer(hConnection);
    else
        RefreshServer(hConnection);
}
