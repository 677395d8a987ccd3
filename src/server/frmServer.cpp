#include "server/frmServer.h"

#include "frame/mPublic.h"
#include "language/mDataBase.h"
#include "platform/controls/keys.h"
#include "platform/seams.h"
#include "platform/shell.h"
#include "server/serverRefresh.h"

controls::FormSlot<FrmServer> frmServer;

FrmServer::FrmServer() {
    setObjectName("frmServer");
    fraServer = new QGroupBox(QStringLiteral("Mein Server"), this);
    tlbServerLinks = new controls::Toolbar(fraServer);
    cboServer = new controls::ComboBox(fraServer);
    tlbServerRechts = new controls::Toolbar(fraServer);
    lsvServer = new controls::ListView(fraServer);
    lsvServer->setObjectName("lsvServer");

    imgServerFile = new controls::ImageList(this);
    const std::pair<const char*, const char*> commands[] = {{"del", "delete"}, {"open", "open"},
                                                            {"new", "new-folder"}, {"oben", "up"},
                                                            {"actualize", "refresh"}, {"download", "download"}};
    for (const auto& [key, picture] : commands) imgServerFile->Add(QString::fromLatin1(key), shell::BundledIcon(QString::fromLatin1(picture)));
    imgListView = new controls::ImageList(this);
    const std::pair<const char*, const char*> views[] = {
        {"eins", "view-large"}, {"zwei", "view-small"}, {"drei", "view-list"}, {"vier", "view-details"}};
    for (const auto& [key, picture] : views) imgListView->Add(QString::fromLatin1(key), shell::BundledIcon(QString::fromLatin1(picture)));

    cboServer->onClick = [this] { cboServer_Click(); };
    lsvServer->onDblClick = [this] { lsvServer_DblClick(); };
    lsvServer->onKeyDown = [this](int& keyCode, int shift) { lsvServer_KeyDown(keyCode, shift); };
    tlbServerLinks->onButtonClick = [this](const QString& key) { tlbServerLinks_ButtonClick(key); };
    tlbServerRechts->onButtonClick = [this](const QString& key) { tlbServerRechts_ButtonClick(key); };
}

void FrmServer::Form_Load() {
    fraServer->setTitle(GetLanguageText("FRMSERVER_FRA"));
    lsvServer->ColumnHeadersClear();
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_FILENAME"), 140 * 15, 0);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_SIZE"), 50 * 15, 1);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_TYP"), 130 * 15, 0);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_CHANGED"), 120 * 15, 0);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_ATTRIB"), 60 * 15, 1);
    lsvServer->SetView(3);

    tlbServerLinks->SetImageList(imgServerFile);
    const struct {
        const char* key;
        const char* tip;
        bool description;
    } links[] = {{"del", "FRMSERVER_DEL", false},      {"open", "FRMSERVER_OPEN", true},
                 {"new", "FRMSERVER_NEWDIR", false},   {"oben", "FRMSERVER_UPPER", true},
                 {"actualize", "FRMSERVER_REFRESH", false}, {"download", "FRMSERVER_DOWN", false}};
    int image = 1;
    for (const auto& b : links) {
        auto& button = tlbServerLinks->AddButton(QString::fromLatin1(b.key), image++);
        button.SetToolTipText(GetLanguageText(b.tip));
        if (b.description) button.description = button.ToolTipText();
    }
    tlbServerRechts->SetImageList(imgListView);
    const struct {
        const char* key;
        const char* tip;
        bool description;
    } views[] = {{"eins", "FRMSERVER_BIG", true},
                 {"zwei", "FRMSERVER_SMALL", false},
                 {"drei", "FRMSERVER_LIST", false},
                 {"vier", "FRMSERVER_DETAIL", false}};
    image = 1;
    for (const auto& v : views) {
        auto& button = tlbServerRechts->AddButton(QString::fromLatin1(v.key), image++);
        button.SetToolTipText(GetLanguageText(v.tip));
        if (v.description) button.description = button.ToolTipText();
    }
}

void FrmServer::RefreshServer(HINTERNET& h) {
    ::RefreshServer(h);
}

void FrmServer::RefreshServerList(HINTERNET& h) {
    FillServerRows(h, true);
    DoEvents();
}

void FrmServer::cboServer_Click() {
    SetServerDirectory(cboServer->List(cboServer->ListIndex()));
    DoEvents();
    SetMousePointer(11);
    RefreshServerList(hConnection);
    DoEvents();
    SetMousePointer(0);
    DoEvents();
}

void FrmServer::lsvServer_DblClick() {
    bFound = false;
    if (hConnection == 0) return;
    SetMousePointer(11);
    const int selected = lsvServer->SelectedIndex();
    const QString text = lsvServer->Text(selected);
    if (!text.isEmpty()) {
        if (text != QStringLiteral("..")) {
            // A double click enters folders only; files stay where they are.
            if (lsvServer->SubItem(selected, 1).isEmpty()) {
                SetServerDirectory(text);
                RefreshServer(hConnection);
            }
        } else {
            SetServerDirectory(QStringLiteral(".."));
            const QString path = GetServerDirectory();
            for (int i = 0; i < cboServer->ListCount(); ++i)
                if (cboServer->List(i) == path) bFound = true;
            SelectServerPath(path, bFound);
            RefreshServer(hConnection);
        }
    }
    SetMousePointer(0);
    SelectServerPath(GetServerDirectory(), bFound);
}

void FrmServer::lsvServer_KeyDown(int& keyCode, int) {
    if (keyCode == controls::vbKeyF5) RefreshServer(hConnection);
}

void FrmServer::tlbServerLinks_ButtonClick(const QString& key) {
    if (hConnection == 0) {
        MsgBox(GetLanguageText("FRMSERVER_NOCONNECTION"), 64);
        return;
    }
    if (key == QStringLiteral("oben")) {
        // Goes where the selected row leads: normally "..", one level up.
        // Without a selected item (an empty list) there is nothing to pass.
        if (const int selected = lsvServer->SelectedIndex(); selected != 0)
            SetServerDirectory(lsvServer->Text(selected));
        SelectServerPath(GetServerDirectory());
        RefreshServer(hConnection);
    } else if (key == QStringLiteral("actualize")) {
        SetMousePointer(11);
        RefreshServer(hConnection);
        SetMousePointer(0);
    }
    // "del", "open", "new" and "download" come with the server commands.
}

void FrmServer::tlbServerRechts_ButtonClick(const QString& key) {
    if (key == QStringLiteral("eins")) lsvServer->SetView(0);
    else if (key == QStringLiteral("zwei")) lsvServer->SetView(1);
    else if (key == QStringLiteral("drei")) lsvServer->SetView(2);
    else if (key == QStringLiteral("vier")) lsvServer->SetView(3);
}
