// The right pane: the server's current folder.
#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormSlot.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Toolbar.h"

#include <QGroupBox>

class FrmServer : public controls::Form {
    Q_OBJECT
public:
    FrmServer();
    void Form_Load();
    void Form_Unload() {}

    QGroupBox* fraServer = nullptr;
    controls::ComboBox* cboServer = nullptr;
    controls::ListView* lsvServer = nullptr;
    controls::Toolbar* tlbServerLinks = nullptr;
    controls::Toolbar* tlbServerRechts = nullptr;

protected:
    void Form_Resize() override;
};

extern controls::FormSlot<FrmServer> frmServer;
