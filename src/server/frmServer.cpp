#include "server/frmServer.h"

#include "language/mDataBase.h"

controls::FormSlot<FrmServer> frmServer;

FrmServer::FrmServer() {
    setObjectName("frmServer");
    fraServer = new QGroupBox("Mein Server", this);
    tlbServerLinks = new controls::Toolbar(fraServer);
    cboServer = new controls::ComboBox(fraServer);
    tlbServerRechts = new controls::Toolbar(fraServer);
    lsvServer = new controls::ListView(fraServer);
    lsvServer->setObjectName("lsvServer");
}

void FrmServer::Form_Load() {
    fraServer->setTitle(GetLanguageText("FRMSERVER_FRA"));
    lsvServer->SetView(3);
}
