#include "local/frmLocal.h"

#include "frame/mPublic.h"
#include "language/mDataBase.h"
#include "local/localReader.h"
#include "platform/controls/keys.h"
#include "platform/shell.h"

controls::FormSlot<FrmLocal> frmLocal;

namespace {
controls::ImageList* Pictures(QObject* owner, std::initializer_list<std::pair<const char*, const char*>> list) {
    auto* images = new controls::ImageList(owner);
    for (const auto& [key, picture] : list) images->Add(QString::fromLatin1(key), shell::BundledIcon(QString::fromLatin1(picture)));
    return images;
}
}  // namespace

FrmLocal::FrmLocal() {
    setObjectName("frmLocal");
    fraLocal = new QGroupBox(QStringLiteral("Mein Computer"), this);
    drvDrive = new controls::DriveListBox(fraLocal);
    tlbdrvDrive = new controls::Toolbar(fraLocal);
    trwPaths = new controls::TreeView(fraLocal);
    tlbDirOptions = new controls::Toolbar(fraLocal);
    cboLocal = new controls::ComboBox(fraLocal);
    tlbLocal = new controls::Toolbar(fraLocal);
    lsvDirFile = new controls::ListView(fraLocal);
    lsvDirFile->setObjectName("lsvDirFile");
    controls::PlaceTwips(drvDrive, 120, 270, 3000, 315);
    controls::PlaceTwips(trwPaths, 120, 700, 3000, 2000);
    controls::PlaceTwips(lsvDirFile, 120, 3200, 3000, 2000);

    imgImages = Pictures(this, {{"root", "drive-root"}, {"closed", "folder"}, {"open", "folder-open"}});
    imgListLarge = new controls::ImageList(this);
    imgListSmall = new controls::ImageList(this);
    imgLocalLinks = Pictures(this, {{"del", "delete"}, {"prop", "properties"}, {"new", "new-folder"},
                                    {"open", "open"}, {"refresh", "refresh"}, {"upload", "upload"}});
    imgLocalRechts = Pictures(this, {{"eins", "view-large"}, {"zwei", "view-small"}, {"drei", "view-list"},
                                     {"vier", "view-details"}});
    imgdrvDrive = Pictures(this, {{"refresh", "refresh"}});

    drvDrive->onChange = [this] { drvDrive_Change(); };
    cboLocal->onClick = [this] { cboLocal_Click(); };
    trwPaths->onExpand = [this](int node) { trwPaths_Expand(node); };
    trwPaths->onNodeClick = [this](int node) { trwPaths_NodeClick(node); };
    lsvDirFile->onDblClick = [this] { lsvDirFile_DblClick(); };
    lsvDirFile->onKeyDown = [this](int& keyCode, int shift) { lsvDirFile_KeyDown(keyCode, shift); };
    tlbLocal->onButtonClick = [this](const QString& key) { tlbLocal_ButtonClick(key); };
    tlbdrvDrive->onButtonClick = [this](const QString& key) { tlbdrvDrive_ButtonClick(key); };
    tlbDirOptions->onButtonClick = [this](const QString& key) { tlbDirOptions_ButtonClick(key); };
}

void FrmLocal::Form_Load() {
    fraLocal->setTitle(GetLanguageText("FRMLOCAL_MYCOMPUTER"));
    trwPaths->SetImageList(imgImages);
    lsvDirFile->ColumnHeadersClear();
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_FILENAME"), 140 * 15, 0);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_SIZE"), 50 * 15, 1);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_TYP"), 130 * 15, 0);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_CHANGED"), 120 * 15, 0);
    lsvDirFile->ColumnHeadersAdd(GetLanguageText("FRMLOCAL_ATTRIBUTE"), 60 * 15, 1);

    tlbDirOptions->SetImageList(imgLocalLinks);
    const std::pair<const char*, const char*> options[] = {{"del", "FRMLOCAL_DELETE"}, {"prop", "FRMLOCAL_PROP"},
                                                           {"new", "FRMLOCAL_NEW"},     {"open", "FRMLOCAL_OPEN"},
                                                           {"refresh", "FRMLOCAL_REFRESH"},
                                                           {"upload", "FRMLOCAL_UPLOAD"}};
    int image = 1;
    for (const auto& [key, tip] : options) {
        auto& b = tlbDirOptions->AddButton(QString::fromLatin1(key), image++);
        b.SetToolTipText(GetLanguageText(tip));
        b.description = b.ToolTipText();
    }
    tlbLocal->SetImageList(imgLocalRechts);
    const std::pair<const char*, const char*> views[] = {
        {"eins", "FRMLOCAL_BIG"}, {"zwei", "FRMLOCAL_SMALL"}, {"drei", "FRMLOCAL_LIST"}, {"vier", "FRMLOCAL_DETAIL"}};
    image = 1;
    for (const auto& [key, tip] : views) {
        auto& b = tlbLocal->AddButton(QString::fromLatin1(key), image++);
        b.SetToolTipText(GetLanguageText(tip));
        // Only the first of them ever had a description.
        if (b.key == QStringLiteral("eins")) b.description = b.ToolTipText();
    }
    tlbdrvDrive->SetImageList(imgdrvDrive);
    auto& refresh = tlbdrvDrive->AddButton(QStringLiteral("refresh"), 1);
    refresh.SetToolTipText(GetLanguageText("FRMLOCAL_REFRESH"));
    refresh.description = refresh.ToolTipText();

    ChooseStartDrive();
    lsvDirFile->SetView(3);
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
    if (key == QStringLiteral("eins")) lsvDirFile->SetView(0);
    else if (key == QStringLiteral("zwei")) lsvDirFile->SetView(1);
    else if (key == QStringLiteral("drei")) lsvDirFile->SetView(2);
    else if (key == QStringLiteral("vier")) lsvDirFile->SetView(3);
}

void FrmLocal::tlbdrvDrive_ButtonClick(const QString& key) {
    // Only the drive list: tree and rows stay as they are.
    if (key == QStringLiteral("refresh")) drvDrive->Refresh();
}

void FrmLocal::tlbDirOptions_ButtonClick(const QString& key) {
    // The commands on selected rows come with the pane commands.
    if (key == QStringLiteral("refresh")) RefreshLocal();
}

void FrmLocal::lsvDirFile_KeyDown(int& keyCode, int) {
    if (keyCode == controls::vbKeyF5) {
        QString folder = CurrentFolder();
        ViewFolder(folder, QStringLiteral("*.*"));
    }
}
