#include "server/frmServer.h"

#include "language/mDataBase.h"
#include "platform/controls/keys.h"
#include "platform/controls/twips.h"
#include "platform/seams.h"
#include "server/serverRefresh.h"
#include "shared/mPublic.h"
#include "shared/toolbarButtons.h"

controls::FormSlot<FrmServer> frmServer;

FrmServer::FrmServer() {
    setObjectName(QStringLiteral("frmServer"));
    fraServer = new QGroupBox(QStringLiteral("Mein Server"), this);
    tlbServerLinks = new controls::Toolbar(fraServer);
    cboServer = new controls::ComboBox(fraServer);
    tlbServerRechts = new controls::Toolbar(fraServer);
    lsvServer = new controls::ListView(fraServer);
    lsvServer->setObjectName(QStringLiteral("lsvServer"));
    controls::SetLeftOf(lsvServer, kListLeft);
    cboServer->resize(cboServer->width(), cboServer->sizeHint().height());

    imgServerFile = PictureList(this, {{"del", "delete"},
                                       {"open", "open"},
                                       {"new", "new-folder"},
                                       {"oben", "up"},
                                       {"actualize", "refresh"},
                                       {"download", "download"}});
    imgListView = PictureList(
        this, {{"eins", "view-large"}, {"zwei", "view-small"}, {"drei", "view-list"}, {"vier", "view-details"}});

    cboServer->onClick = [this] { cboServer_Click(); };
    lsvServer->onDblClick = [this] { lsvServer_DblClick(); };
    lsvServer->onKeyDown = [this](int& keyCode, int shift) { lsvServer_KeyDown(keyCode, shift); };
    // Delete in the list deletes on the server, whatever the frame's
    // shortcut for it does elsewhere.
    lsvServer->SetKeysBeforeShortcuts({controls::vbKeyDelete});
    tlbServerLinks->onButtonClick = [this](const QString& key) { tlbServerLinks_ButtonClick(key); };
    tlbServerRechts->onButtonClick = [this](const QString& key) { tlbServerRechts_ButtonClick(key); };
}

void FrmServer::Form_Load() {
    fraServer->setTitle(GetLanguageText("FRMSERVER_FRA"));
    lsvServer->ColumnHeadersClear();
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_FILENAME"), ToTwips(140), controls::lvwColumnLeft);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_SIZE"), ToTwips(50), controls::lvwColumnRight);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_TYP"), ToTwips(130), controls::lvwColumnLeft);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_CHANGED"), ToTwips(120), controls::lvwColumnLeft);
    lsvServer->ColumnHeadersAdd(GetLanguageText("FRMSERVER_ATTRIB"), ToTwips(60), controls::lvwColumnRight);
    lsvServer->SetView(controls::lvwReport);

    // Kept: only "open" and "oben" of the commands, and only the first view
    // button, have a description.
    AddToolbarButtons(*tlbServerLinks, imgServerFile,
                      {{"del", 1, "FRMSERVER_DEL", false},
                       {"open", 2, "FRMSERVER_OPEN"},
                       {"new", 3, "FRMSERVER_NEWDIR", false},
                       {"oben", 4, "FRMSERVER_UPPER"},
                       {"actualize", 5, "FRMSERVER_REFRESH", false},
                       {"download", 6, "FRMSERVER_DOWN", false}});
    AddToolbarButtons(*tlbServerRechts, imgListView,
                      {{"eins", 1, "FRMSERVER_BIG"},
                       {"zwei", 2, "FRMSERVER_SMALL", false},
                       {"drei", 3, "FRMSERVER_LIST", false},
                       {"vier", 4, "FRMSERVER_DETAIL", false}});
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
    SetMousePointer(vbHourglass);
    RefreshServerList(hConnection);
    DoEvents();
    SetMousePointer(vbDefault);
    DoEvents();
}

void FrmServer::lsvServer_DblClick() {
    bFound = false;
    if (hConnection == 0) return;
    SetMousePointer(vbHourglass);
    const int selected = lsvServer->SelectedIndex();
    const QString text = lsvServer->Text(selected);
    if (!text.isEmpty()) {
        if (text != u"..") {
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
    SetMousePointer(vbDefault);
    SelectServerPath(GetServerDirectory(), bFound);
}

namespace {
void Run(const std::function<void()>& command) {
    if (command) command();
}
}  // namespace

void FrmServer::lsvServer_KeyDown(int& keyCode, int) {
    if (keyCode == controls::vbKeyDelete) {
        // Kept: the question is fixed English text, not from the catalogue,
        // and it comes without a connection too. This path doesn't prune
        // the combo.
        if (MsgBox(QStringLiteral("Delete Selection?"), vbYesNo, QStringLiteral("Ferrydock")) == vbYes) {
            Run(fileCommands.DeleteServerSelection);
            RefreshServer(hConnection);
        }
    } else if (keyCode == controls::vbKeyF5) {
        RefreshServer(hConnection);
    }
}

void FrmServer::tlbServerLinks_ButtonClick(const QString& key) {
    if (hConnection == 0) {
        MsgBox(GetLanguageText("FRMSERVER_NOCONNECTION"), vbInformation);
        return;
    }
    if (key == u"oben") {
        // Kept: goes where the selected row leads, normally "..", one level
        // up. Without a selected item (an empty list) there is nothing to
        // pass.
        if (const int selected = lsvServer->SelectedIndex(); selected != 0)
            SetServerDirectory(lsvServer->Text(selected));
        SelectServerPath(GetServerDirectory());
        RefreshServer(hConnection);
    } else if (key == u"actualize") {
        SetMousePointer(vbHourglass);
        RefreshServer(hConnection);
        SetMousePointer(vbDefault);
    } else if (key == u"del") {
        Run(fileCommands.DeleteServerSelection);
        RefreshServer(hConnection);
        Run(fileCommands.PruneServerCombo);
    } else if (key == u"new") {
        Run(fileCommands.NewFolder);
    }
    // "open" and "download" come with the transfers.
}

void FrmServer::tlbServerRechts_ButtonClick(const QString& key) {
    if (key == u"eins") lsvServer->SetView(controls::lvwIcon);
    else if (key == u"zwei") lsvServer->SetView(controls::lvwSmallIcon);
    else if (key == u"drei") lsvServer->SetView(controls::lvwList);
    else if (key == u"vier") lsvServer->SetView(controls::lvwReport);
}
