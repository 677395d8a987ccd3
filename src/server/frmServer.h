// The right pane: the server's current folder, its path combo, its
// command and view toolbars.
#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormSlot.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Toolbar.h"
#include "platform/wintypes.h"

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
    controls::ImageList* imgServerFile = nullptr;
    controls::ImageList* imgListView = nullptr;

    // The form's own copy of the refresh, and the one that leaves the combo
    // alone.
    void RefreshServer(HINTERNET& hConnection);
    void RefreshServerList(HINTERNET& hConnection);

    void cboServer_Click();
    void lsvServer_DblClick();
    void lsvServer_KeyDown(int& keyCode, int shift);
    void tlbServerLinks_ButtonClick(const QString& key);
    void tlbServerRechts_ButtonClick(const QString& key);

    bool bFound = false;

protected:
    void Form_Resize() override;

private:
    // Design places in twips: the row of toolbars and combo, the list.
    static constexpr int kCommandsLeft = 120;
    static constexpr int kRowTop = 270;
    static constexpr int kListLeft = 120;
};

extern controls::FormSlot<FrmServer> frmServer;
