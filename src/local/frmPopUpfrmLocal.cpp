#include "local/frmPopUpfrmLocal.h"

#include "language/mDataBase.h"
#include "local/localOpen.h"
#include "local/localReader.h"
#include "local/localRename.h"
#include "local/localTreeWalk.h"
#include "local/mShellDelete.h"
#include "platform/localfs.h"
#include "shared/mPublic.h"
#include "shared/openWith.h"

controls::FormSlot<FrmPopUpfrmLocal> frmPopUpfrmLocal;

FrmPopUpfrmLocal::FrmPopUpfrmLocal() {
    setObjectName(QStringLiteral("frmPopUpfrmLocal"));
    mnu = new QMenu(this);
    auto entry = [this](QMenu* menu, const char* name, void (FrmPopUpfrmLocal::*handler)()) {
        QAction* a = menu->addAction(QString());
        a->setObjectName(QLatin1String(name));
        connect(a, &QAction::triggered, this, [this, handler] { (this->*handler)(); });
        return a;
    };
    mnuUpload = entry(mnu, "mnuUpload", &FrmPopUpfrmLocal::mnuUpload_Click);
    mnuUploadAls = entry(mnu, "mnuUploadAls", &FrmPopUpfrmLocal::mnuUploadAls_Click);
    mnuTrennlinie1 = mnu->addSeparator();
    mnuOeffnen = entry(mnu, "mnuOeffnen", &FrmPopUpfrmLocal::mnuOeffnen_Click);
    mnuOeffnenMit = entry(mnu, "mnuOeffnenMit", &FrmPopUpfrmLocal::mnuOeffnenMit_Click);
    mnuTrennlinie2 = mnu->addSeparator();
    mnuUmbenennen = entry(mnu, "mnuUmbenennen", &FrmPopUpfrmLocal::mnuUmbenennen_Click);
    mnuTrennlinie3 = mnu->addSeparator();
    mnuLoeschen = entry(mnu, "mnuLoeschen", &FrmPopUpfrmLocal::mnuLoeschen_Click);
    mnuTrennlinie4 = mnu->addSeparator();
    mnuNeu = mnu->addMenu(QString());
    mnuNeu->setObjectName(QStringLiteral("mnuNeu"));
    mnuNeuVerzeichnis = entry(mnuNeu, "mnuNeuVerzeichnis", &FrmPopUpfrmLocal::mnuNeuVerzeichnis_Click);
    mnuTrennlinie5 = mnu->addSeparator();
    mnuAktualisieren = entry(mnu, "mnuAktualisieren", &FrmPopUpfrmLocal::mnuAktualisieren_Click);
    mnuTrennlinie6 = mnu->addSeparator();
    mnuEigenschaften = entry(mnu, "mnuEigenschaften", &FrmPopUpfrmLocal::mnuEigenschaften_Click);
}

void FrmPopUpfrmLocal::Form_Load() {
    mnuUpload->setText(GetLanguageText("FRMPULOC_UPLOAD"));
    mnuUploadAls->setText(GetLanguageText("FRMPULOC_UPLOADAS"));
    mnuOeffnen->setText(GetLanguageText("FRMPULOC_OPEN"));
    mnuOeffnenMit->setText(GetLanguageText("FRMPULOC_OPENWITH"));
    mnuUmbenennen->setText(GetLanguageText("FRMPULOC_RENAME"));
    mnuLoeschen->setText(GetLanguageText("FRMPULOC_DELETE"));
    mnuNeu->setTitle(GetLanguageText("FRMPULOC_NEW"));
    mnuNeuVerzeichnis->setText(GetLanguageText("FRMPULOC_NEWFOLDER"));
    mnuAktualisieren->setText(GetLanguageText("FRMPULOC_REFRESH"));
    mnuEigenschaften->setText(GetLanguageText("FRMPULOC_PROP"));
}

void FrmPopUpfrmLocal::mnuOeffnen_Click() {
    OpenLocalFile();
}

void FrmPopUpfrmLocal::mnuOeffnenMit_Click() {
    auto& pane = frmLocal();
    OpenLocalFileWith(pane.CurrentFolder(FrmLocal::NoNode::Drive) +
                      pane.lsvDirFile->Text(pane.lsvDirFile->SelectedIndex()));
}

void FrmPopUpfrmLocal::mnuEigenschaften_Click() {
    auto& pane = frmLocal();
    ShowLocalProperties(pane.CurrentFolder(FrmLocal::NoNode::Drive) +
                        pane.lsvDirFile->Text(pane.lsvDirFile->SelectedIndex()));
}

void FrmPopUpfrmLocal::mnuUmbenennen_Click() {
    RenameLocalSelection(RenameRefresh::Popup);
}

void FrmPopUpfrmLocal::mnuAktualisieren_Click() {
    QString folder = frmLocal().CurrentFolder();
    ViewFolder(folder, QStringLiteral("*.*"));
}

void FrmPopUpfrmLocal::mnuLoeschen_Click() {
    DeleteLocalSelection();
    auto& pane = frmLocal();
    auto& tree = *pane.trwPaths;
    const QString sDrive = tree.Text(1);
    const QString folder = pane.CurrentFolder();
    ReadDrive(sDrive);
    // Every part, the current folder itself included.
    ReadTreeDownTo(folder, FolderParts(folder).size() - 1, TreeReader::Popup);
    const int node = tree.IndexOf(folder.toLower());
    tree.SetSelected(node);
    tree.SetExpanded(node, true);

    // Visited folders that are gone leave the combo. The limit is taken
    // once; an entry past the end reads as "", which lists the current
    // folder and so stays.
    auto& combo = *pane.cboLocal;
    const int limit = combo.ListCount() - 1;
    for (int i = 0; i <= limit; ++i) {
        if (!localfs::Dir(combo.List(i), localfs::vbDirectory).isEmpty()) continue;
        // Only a removal steps back: a failed one would visit the same
        // index for ever.
        if (i < combo.ListCount()) {
            combo.RemoveItem(i);
            --i;
        }
    }
}

void FrmPopUpfrmLocal::ViewFolder(QString& pPath, const QString& pPattern) {
    // The hourglass would be this hidden form's: none is seen.
    ViewLocalFolderWith(pPath, pPattern, PopupReader(), [](int) {});
}

void FrmPopUpfrmLocal::GetFilestrwPaths(const QString& pPath) {
    frmLocal().ReadFolderNodes(pPath, pPath + QStringLiteral("\\*.*"), arrLocalFolders, Qt::CaseSensitive);
}

void FrmPopUpfrmLocal::ReadDrive(const QString& pDrive) {
    const QString drive = pDrive.toLower();
    auto& tree = *frmLocal().trwPaths;
    tree.Clear();
    tree.Add(QString(), 0, drive, drive.left(2), FrmLocal::kRootImage, FrmLocal::kRootImage);
    GetFilestrwPaths(drive);
    tree.SetExpanded(1, true);
}
