#include "local/frmLocal.h"

#include "language/mDataBase.h"
#include "local/frmPopUpfrmLocal.h"
#include "local/localOpen.h"
#include "local/localReader.h"
#include "local/mShellDelete.h"
#include "platform/controls/keys.h"
#include "platform/controls/twips.h"
#include "shared/mPublic.h"
#include "shared/toolbarButtons.h"

controls::FormSlot<FrmLocal> frmLocal;

FrmLocal::FrmLocal() {
    setObjectName(QStringLiteral("frmLocal"));
    fraLocal = new QGroupBox(QStringLiteral("Mein Computer"), this);
    drvDrive = new controls::DriveListBox(fraLocal);
    tlbdrvDrive = new controls::Toolbar(fraLocal);
    trwPaths = new controls::TreeView(fraLocal);
    tlbDirOptions = new controls::Toolbar(fraLocal);
    cboLocal = new controls::ComboBox(fraLocal);
    tlbLocal = new controls::Toolbar(fraLocal);
    lsvDirFile = new controls::ListView(fraLocal);
    lsvDirFile->setObjectName(QStringLiteral("lsvDirFile"));
    controls::PlaceTwips(drvDrive, 120, 270, 3000, 315);
    controls::PlaceTwips(trwPaths, 120, 700, 3000, 2000);
    controls::PlaceTwips(lsvDirFile, 120, 3200, 3000, 2000);

    imgImages = PictureList(this, {{"root", "drive-root"}, {"closed", "folder"}, {"open", "folder-open"}});
    imgListLarge = new controls::ImageList(this);
    imgListSmall = new controls::ImageList(this);
    imgLocalLinks = PictureList(this, {{"del", "delete"}, {"prop", "properties"}, {"new", "new-folder"},
                                    {"open", "open"}, {"refresh", "refresh"}, {"upload", "upload"}});
    imgLocalRechts = PictureList(this, {{"eins", "view-large"}, {"zwei", "view-small"}, {"drei", "view-list"},
                                     {"vier", "view-details"}});
    imgdrvDrive = PictureList(this, {{"refresh", "refresh"}});

    drvDrive->onChange = [this] { drvDrive_Change(); };
    cboLocal->onClick = [this] { cboLocal_Click(); };
    trwPaths->onExpand = [this](int node) { trwPaths_Expand(node); };
    trwPaths->onNodeClick = [this](int node) { trwPaths_NodeClick(node); };
    lsvDirFile->onDblClick = [this] { lsvDirFile_DblClick(); };
    lsvDirFile->onKeyDown = [this](int& keyCode, int shift) { lsvDirFile_KeyDown(keyCode, shift); };
    // The list's own keys go to its handler while it has the focus, before
    // the frame menu's shortcuts of the same keys.
    lsvDirFile->SetKeysBeforeShortcuts({controls::vbKeyDelete, controls::vbKeyF5});
    lsvDirFile->onMouseDown = [this](int button, int shift, int x, int y) {
        lsvDirFile_MouseDown(button, shift, x, y);
    };
    tlbLocal->onButtonClick = [this](const QString& key) { tlbLocal_ButtonClick(key); };
    tlbdrvDrive->onButtonClick = [this](const QString& key) { tlbdrvDrive_ButtonClick(key); };
    tlbDirOptions->onButtonClick = [this](const QString& key) { tlbDirOptions_ButtonClick(key); };
}

void FrmLocal::Form_Load() {
    fraLocal->setTitle(GetLanguageText("FRMLOCAL_MYCOMPUTER"));
    trwPaths->SetImageList(imgImages);
    lsvDirFile->ColumnHeadersClear();
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_FILENAME"), ToTwips(140), controls::lvwColumnLeft);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_SIZE"), ToTwips(50), controls::lvwColumnRight);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_TYP"), ToTwips(130), controls::lvwColumnLeft);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_CHANGED"), ToTwips(120), controls::lvwColumnLeft);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_ATTRIBUTE"), ToTwips(60), controls::lvwColumnRight);

    AddToolbarButtons(*tlbDirOptions, imgLocalLinks,
                      {{"del", 1, "FRMLOCAL_DELETE"},
                       {"prop", 2, "FRMLOCAL_PROP"},
                       {"new", 3, "FRMLOCAL_NEW"},
                       {"open", 4, "FRMLOCAL_OPEN"},
                       {"refresh", 5, "FRMLOCAL_REFRESH"},
                       {"upload", 6, "FRMLOCAL_UPLOAD"}});
    // Kept: only the first of the view buttons has a description.
    AddToolbarButtons(*tlbLocal, imgLocalRechts,
                      {{"eins", 1, "FRMLOCAL_BIG"},
                       {"zwei", 2, "FRMLOCAL_SMALL", false},
                       {"drei", 3, "FRMLOCAL_LIST", false},
                       {"vier", 4, "FRMLOCAL_DETAIL", false}});
    AddToolbarButtons(*tlbdrvDrive, imgdrvDrive, {{"refresh", 1, "FRMLOCAL_REFRESH"}});

    ChooseStartDrive();
    lsvDirFile->SetView(controls::lvwReport);
}

void FrmLocal::Form_Unload() {
    lsvDirFile->SetIcons(nullptr);
    lsvDirFile->SetSmallIcons(nullptr);
    imgListSmall->Clear();
    imgListLarge->Clear();
}

void FrmLocal::ViewFolder(QString& pPath, const QString& pPattern) {
    ViewLocalFolderWith(pPath, pPattern, PaneReader(), SetMousePointer);
}

void FrmLocal::tlbLocal_ButtonClick(const QString& key) {
    if (key == u"eins") lsvDirFile->SetView(controls::lvwIcon);
    else if (key == u"zwei") lsvDirFile->SetView(controls::lvwSmallIcon);
    else if (key == u"drei") lsvDirFile->SetView(controls::lvwList);
    else if (key == u"vier") lsvDirFile->SetView(controls::lvwReport);
}

void FrmLocal::tlbdrvDrive_ButtonClick(const QString& key) {
    // Only the drive list: tree and rows stay as they are.
    if (key == u"refresh") drvDrive->Refresh();
}

void FrmLocal::tlbDirOptions_ButtonClick(const QString& key) {
    QString sFolder = CurrentFolder();
    const QString sFull = sFolder + lsvDirFile->Text(lsvDirFile->SelectedIndex());
    if (key == u"del") frmPopUpfrmLocal().mnuLoeschen_Click();
    else if (key == u"prop") ShowLocalProperties(sFull);
    else if (key == u"new") NewLocalFolder();
    else if (key == u"open") OpenLocalFile();
    else if (key == u"refresh") ViewFolder(sFolder, QStringLiteral("*.*"));
    // "upload" comes with the upload of selections.
}

void FrmLocal::lsvDirFile_KeyDown(int& keyCode, int) {
    QString folder = CurrentFolder();
    if (keyCode == controls::vbKeyF5) ViewFolder(folder, QStringLiteral("*.*"));
    // Kept: the key deletes without the tree and the combo being brought
    // into line afterwards, as the popup's and the toolbar's delete do.
    if (keyCode == controls::vbKeyDelete) DeleteLocalSelection();
}

void FrmLocal::lsvDirFile_MouseDown(int button, int, int x, int y) {
    // Kept: every press touches the popup form, which loads it the first
    // time, and hides its menu.
    auto& popup = frmPopUpfrmLocal();
    popup.mnu->setVisible(false);
    if (button != 2) return;
    popup.mnu->setDefaultAction(popup.mnuUpload);
    popup.mnu->popup(lsvDirFile->MapToGlobal(x, y));
}
