// The main frame: menus, connection bar, watch timer, progress bar and the
// client area that holds the three panes and the log.
#pragma once

#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormSlot.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"
#include "platform/controls/Toolbar.h"
#include "platform/wintypes.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

class MdiMain : public controls::Form {
    Q_OBJECT
public:
    MdiMain();

    void Form_Load();
    void Form_Unload();

    // The frame's outer size counts a title bar the toolkit doesn't report,
    // so the panes keep the proportions they were laid out for. The inner
    // size is the client area that holds the panes.
    static constexpr int kTitleAllowance = 450;
    int Width() const { return Form::Width(); }
    int Height() const { return Form::Height() + kTitleAllowance; }
    int ScaleWidth() const;
    int ScaleHeight() const;

    // Puts a pane form into the client area.
    void AttachChild(QWidget* form);
    QWidget* ClientArea() const { return clientArea; }

    // Menus, by their entry names.
    QMenuBar* menuBar = nullptr;
    QMenu* mnuFile = nullptr;
    QAction* mnuFileExit = nullptr;
    QMenu* mnuVerbindung = nullptr;
    QAction* mnuVerbindungVerbinden = nullptr;
    QMenu* mnuVerbindungTransfer = nullptr;
    QAction* mnuVerbindungTransferASCII = nullptr;
    QAction* mnuVerbindungTransferBINARY = nullptr;
    QAction* mnuVerbindungTransferAUTO = nullptr;
    QMenu* mnuVerbindungPassiverTransfer = nullptr;
    QAction* mnuVerbindungTransfertypEin = nullptr;
    QAction* mnuVerbindungTransfertypAus = nullptr;
    QAction* mnuVerbindungASCIIListe = nullptr;
    QMenu* mnuMyComputer = nullptr;
    QAction* mnuMyComputerUpload = nullptr;
    QAction* mnuMyComputerUploadAls = nullptr;
    QAction* mnuMyComputerOeffnen = nullptr;
    QAction* mnuMyComputerOeffnenMit = nullptr;
    QAction* mnuMyComputerUmbenennen = nullptr;
    QAction* mnuMyComputerLoeschen = nullptr;
    QMenu* mnuMyComputerNeu = nullptr;
    QAction* mnuMyComputerNeuOrdner = nullptr;
    QAction* mnuMyComputerAktualisieren = nullptr;
    QAction* mnuMyComputerEigenschaften = nullptr;
    QMenu* mnuMyServer = nullptr;
    QAction* mnuMyServerDownload = nullptr;
    QAction* mnuMyServerDownloadAls = nullptr;
    QAction* mnuMyServerOeffnen = nullptr;
    QAction* mnuMyServerOeffnenMit = nullptr;
    QAction* mnuMyServerUmbenennen = nullptr;
    QAction* mnuMyServerLoeschen = nullptr;
    QMenu* mnuMyServerNeu = nullptr;
    QAction* mnuMyServerNeuOrdner = nullptr;
    QAction* mnuMyServerAktualisieren = nullptr;
    QMenu* mniInfo = nullptr;
    QMenu* mnuInfoWeb = nullptr;
    QAction* mnuInfoWebHomepage = nullptr;
    QAction* mnuInfoInfo = nullptr;

    // Connection bar.
    QWidget* picTop = nullptr;
    QGroupBox* fraTop = nullptr;
    QLabel* lblAdresse = nullptr;
    QLabel* lblBenutzer = nullptr;
    QLabel* lblPasswort = nullptr;
    QLabel* lblPort = nullptr;
    QLabel* lblModus = nullptr;
    controls::TextBox* txtAddress = nullptr;
    controls::TextBox* txtUserID = nullptr;
    controls::TextBox* txtPassword = nullptr;
    controls::TextBox* txtPort = nullptr;
    controls::Toolbar* tlbConnect = nullptr;
    controls::CheckBox* chkPassiveTransfer = nullptr;
    controls::ComboBox* cboTransferMode = nullptr;

    controls::ProgressBar* pgbBottom = nullptr;
    controls::Timer* timIsConnected = nullptr;

    controls::ImageList* imlToolbarIcons = nullptr;
    controls::ImageList* imgListLarge = nullptr;
    controls::ImageList* imgListSmall = nullptr;
    controls::ImageList* imgDir = nullptr;

    // The frame's own connection pair (manual connects).
    HINTERNET hInternet = 0;
    HINTERNET hMainConnection = 0;

    // Connection (connection.cpp).
    void Initialize_Internet();
    bool OpenConnection(const QString& sServer, const QString& sPort, const QString& sUser,
                        const QString& sPassword);
    void mnuVerbindungVerbinden_Click();
    void QuickConnect();
    void tlbConnect_ButtonClick(const QString& key);
    void chkPassiveTransfer_Click();

    // Exit.
    void mnuFileExit_Click();

    // Watch (watch.cpp).
    void timIsConnected_Timer();

    // Transfer mode: forwarded to the transfer module.
    void cboTransferMode_Click();
    void mnuVerbindungTransferASCII_Click();
    void mnuVerbindungTransferBINARY_Click();
    void mnuVerbindungTransferAUTO_Click();
    void mnuVerbindungASCIIListe_Click();

    // Layout (layout.cpp).
    void MDIForm_Resize();

    // The server menu's commands on files (serverCommands.cpp); each tests
    // the connection first.
    void mnuMyServerUmbenennen_Click();
    void mnuMyServerLoeschen_Click();
    void mnuMyServerNeuOrdner_Click();

protected:
    void Form_Resize() override { MDIForm_Resize(); }
    void closeEvent(QCloseEvent* e) override;

private:
    void BuildMenus();
    void BuildConnectionBar();
    void WireConnectionBar();
    void LoadCaptions();
    // The frame's width at which the whole connection bar shows.
    static int ConnectionBarWidth();
    bool ConnectionBarFits(const QFont& font) const;
    void FitConnectionBarFont();
    // Gives the server pane its commands on files.
    static void PlugServerCommands();
    QWidget* clientArea = nullptr;
};

extern controls::FormSlot<MdiMain> mdiMain;
