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
#include <functional>

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

    // The commands on the server's files live in a folder after this one;
    // the frame plugs them in when it loads. Unplugged, they do nothing.
    struct FileCommands {
        std::function<void()> DeleteServerSelection;
        std::function<void()> PruneServerCombo;
        std::function<void()> NewFolder;  // the steps behind "new"
    };
    FileCommands fileCommands;

protected:
    void Form_Resize() override;

private:
    // Design places in twips: the row of toolbars and combo, the list.
    static constexpr int kCommandsLeft = 120;
    static constexpr int kRowTop = 270;
    static constexpr int kListLeft = 120;
};

extern controls::FormSlot<FrmServer> frmServer;
