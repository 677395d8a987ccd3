#include "serverops/frmPopUpfrmServer.h"

#include "language/mDataBase.h"
#include "server/serverRefresh.h"
#include "serverops/mDelete.h"
#include "serverops/serverNewFolder.h"
#include "serverops/serverRename.h"
#include "shared/mPublic.h"

controls::FormSlot<FrmPopUpfrmServer> frmPopUpfrmServer;

namespace {
QAction* Item(QMenu* menu, const char* name) {
    QAction* a = menu->addAction(QString());
    a->setObjectName(QString::fromLatin1(name));
    return a;
}
}  // namespace

FrmPopUpfrmServer::FrmPopUpfrmServer() {
    setObjectName(QStringLiteral("frmPopUpfrmServer"));
    mnu = new QMenu(this);
    mnuDownload = Item(mnu, "mnuDownload");
    mnuDownloadAls = Item(mnu, "mnuDownloadAls");
    mnuTrennlinie1 = mnu->addSeparator();
    mnuOeffnen = Item(mnu, "mnuOeffnen");
    mnuOeffnenMit = Item(mnu, "mnuOeffnenMit");
    mnuTrennlinie2 = mnu->addSeparator();
    mnuUmbenennen = Item(mnu, "mnuUmbenennen");
    mnuTrennlinie3 = mnu->addSeparator();
    mnuLoeschen = Item(mnu, "mnuLoeschen");
    mnuTrennlinie4 = mnu->addSeparator();
    mnuNeu = mnu->addMenu(QString());
    mnuNeu->setObjectName(QStringLiteral("mnuNeu"));
    mnuNeuVerzeichnis = Item(mnuNeu, "mnuNeuVerzeichnis");
    mnuTrennlinie5 = mnu->addSeparator();
    mnuAktualisieren = Item(mnu, "mnuAktualisieren");
    connect(mnuUmbenennen, &QAction::triggered, this, [this] { mnuUmbenennen_Click(); });
    connect(mnuLoeschen, &QAction::triggered, this, [this] { mnuLoeschen_Click(); });
    connect(mnuNeuVerzeichnis, &QAction::triggered, this, [this] { mnuNeuVerzeichnis_Click(); });
}

void FrmPopUpfrmServer::Form_Load() {
    mnuDownload->setText(GetLanguageText("FRMPUSERVER_DOWNLOAD"));
    mnuDownloadAls->setText(GetLanguageText("FRMPUSERVER_DOWNLOADAS"));
    mnuOeffnen->setText(GetLanguageText("FRMPUSERVER_OPEN"));
    mnuOeffnenMit->setText(GetLanguageText("FRMPUSERVER_OPENWITH"));
    mnuUmbenennen->setText(GetLanguageText("FRMPUSERVER_RENAME"));
    mnuLoeschen->setText(GetLanguageText("FRMPUSERVER_DELETE"));
    mnuNeu->setTitle(GetLanguageText("FRMPUSERVER_NEW"));
    mnuNeuVerzeichnis->setText(GetLanguageText("FRMPUSERVER_NEWFOLDER"));
    mnuAktualisieren->setText(GetLanguageText("FRMPUSERVER_REFRESH"));
}

void FrmPopUpfrmServer::mnuUmbenennen_Click() {
    RenameServerEntry();
}

void FrmPopUpfrmServer::mnuLoeschen_Click() {
    // No question, as from the frame's menu.
    DeleteServerSelection();
    RefreshServer(hConnection);
    PruneServerCombo();
}

void FrmPopUpfrmServer::mnuNeuVerzeichnis_Click() {
    NewServerFolder(kMenuNewFolder);
}
