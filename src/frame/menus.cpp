// The frame's menu tree, its captions from the catalogue and its routing.
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/seams.h"
#include "shared/mPublic.h"
#include "transfer/frmASCIIListe.h"
#include "transfer/transferMode.h"

namespace {
// Names and design-time captions are the program's own UTF-8 literals.
QAction* Entry(QMenu* menu, const char* name, const char* caption, const QKeySequence& shortcut = QKeySequence()) {
    QAction* a = menu->addAction(QString::fromUtf8(caption));
    a->setObjectName(QString::fromUtf8(name));
    if (!shortcut.isEmpty()) {
        a->setShortcut(shortcut);
        // Shortcuts work whichever pane has the focus.
        a->setShortcutContext(Qt::WindowShortcut);
    }
    return a;
}
QMenu* Sub(QMenuBar* bar, QMenu* menu, const char* name, const char* caption) {
    const QString text = QString::fromUtf8(caption);
    QMenu* m = menu ? menu->addMenu(text) : bar->addMenu(text);
    m->setObjectName(QString::fromUtf8(name));
    return m;
}
}  // namespace

void MdiMain::BuildMenus() {
    menuBar = new QMenuBar(this);
    menuBar->setNativeMenuBar(false);

    mnuFile = Sub(menuBar, nullptr, "mnuFile", "&Datei");
    mnuFileExit = Entry(mnuFile, "mnuFileExit", "&Exit");

    mnuVerbindung = Sub(menuBar, nullptr, "mnuVerbindung", "Meine &Verbindung");
    mnuVerbindungVerbinden = Entry(mnuVerbindung, "mnuVerbindungVerbinden", "&Verbinden", Qt::Key_F4);
    mnuVerbindung->addSeparator();
    mnuVerbindungTransfer = Sub(menuBar, mnuVerbindung, "mnuVerbindungTransfer", "&Transfermodus");
    mnuVerbindungTransferASCII = Entry(mnuVerbindungTransfer, "mnuVerbindungTransferASCII", "&ASCII");
    mnuVerbindungTransferBINARY = Entry(mnuVerbindungTransfer, "mnuVerbindungTransferBINARY", "&BINARY");
    mnuVerbindungTransferAUTO = Entry(mnuVerbindungTransfer, "mnuVerbindungTransferAUTO", "AU&TO");
    for (QAction* a : {mnuVerbindungTransferASCII, mnuVerbindungTransferBINARY, mnuVerbindungTransferAUTO})
        a->setCheckable(true);
    mnuVerbindungTransferAUTO->setChecked(true);
    mnuVerbindungPassiverTransfer =
        Sub(menuBar, mnuVerbindung, "mnuVerbindungPassiverTransfer", "&Passiver Transfer");
    mnuVerbindungTransfertypEin = Entry(mnuVerbindungPassiverTransfer, "mnuVerbindungTransfertypEin", "&Ein");
    mnuVerbindungTransfertypAus = Entry(mnuVerbindungPassiverTransfer, "mnuVerbindungTransfertypAus", "&Aus");
    // Kept: ticked by design and never touched again; the two entries have
    // no work and don't follow the passive box.
    mnuVerbindungTransfertypEin->setCheckable(true);
    mnuVerbindungTransfertypAus->setCheckable(true);
    mnuVerbindungTransfertypAus->setChecked(true);
    for (QAction* a : {mnuVerbindungTransfertypEin, mnuVerbindungTransfertypAus})
        connect(a, &QAction::triggered, a, [a](bool) { a->setChecked(!a->isChecked()); });
    mnuVerbindung->addSeparator();
    mnuVerbindungASCIIListe = Entry(mnuVerbindung, "mnuVerbindungASCIIListe", "&ASCII Liste");

    mnuMyComputer = Sub(menuBar, nullptr, "mnuMyComputer", "Mein &Computer");
    mnuMyComputerUpload = Entry(mnuMyComputer, "mnuMyComputerUpload", "&Upload", Qt::Key_F2);
    mnuMyComputerUploadAls = Entry(mnuMyComputer, "mnuMyComputerUploadAls", "U&pload als ...");
    mnuMyComputer->addSeparator();
    mnuMyComputerOeffnen = Entry(mnuMyComputer, "mnuMyComputerOeffnen", "&Öffnen", Qt::Key_F3);
    mnuMyComputerOeffnenMit = Entry(mnuMyComputer, "mnuMyComputerOeffnenMit", "Öffnen &mit ...");
    mnuMyComputer->addSeparator();
    mnuMyComputerUmbenennen = Entry(mnuMyComputer, "mnuMyComputerUmbenennen", "&Umbenennen");
    mnuMyComputer->addSeparator();
    mnuMyComputerLoeschen = Entry(mnuMyComputer, "mnuMyComputerLoeschen", "&Löschen", Qt::Key_Delete);
    mnuMyComputer->addSeparator();
    mnuMyComputerNeu = Sub(menuBar, mnuMyComputer, "mnuMyComputerNeu", "&Neu");
    mnuMyComputerNeuOrdner = Entry(mnuMyComputerNeu, "mnuMyComputerNeuOrdner", "&Ordner");
    mnuMyComputer->addSeparator();
    mnuMyComputerAktualisieren = Entry(mnuMyComputer, "mnuMyComputerAktualisieren", "&Aktualisieren", Qt::Key_F5);
    mnuMyComputer->addSeparator();
    mnuMyComputerEigenschaften = Entry(mnuMyComputer, "mnuMyComputerEigenschaften", "&Eigenschaften");

    mnuMyServer = Sub(menuBar, nullptr, "mnuMyServer", "Mein &Server");
    mnuMyServerDownload = Entry(mnuMyServer, "mnuMyServerDownload", "&Download", Qt::CTRL | Qt::Key_F2);
    mnuMyServerDownloadAls = Entry(mnuMyServer, "mnuMyServerDownloadAls", "D&ownload als ...");
    mnuMyServer->addSeparator();
    mnuMyServerOeffnen = Entry(mnuMyServer, "mnuMyServerOeffnen", "&Öffnen", Qt::CTRL | Qt::Key_F3);
    mnuMyServerOeffnenMit = Entry(mnuMyServer, "mnuMyServerOeffnenMit", "Öffnen &mit ...");
    mnuMyServer->addSeparator();
    mnuMyServerUmbenennen = Entry(mnuMyServer, "mnuMyServerUmbenennen", "&Umbenennen");
    mnuMyServer->addSeparator();
    mnuMyServerLoeschen = Entry(mnuMyServer, "mnuMyServerLoeschen", "&Löschen", Qt::SHIFT | Qt::Key_Delete);
    mnuMyServer->addSeparator();
    mnuMyServerNeu = Sub(menuBar, mnuMyServer, "mnuMyServerNeu", "&Neu");
    mnuMyServerNeuOrdner = Entry(mnuMyServerNeu, "mnuMyServerNeuOrdner", "&Ordner");
    mnuMyServer->addSeparator();
    mnuMyServerAktualisieren = Entry(mnuMyServer, "mnuMyServerAktualisieren", "&Aktualisieren", Qt::CTRL | Qt::Key_F5);

    mniInfo = Sub(menuBar, nullptr, "mniInfo", "&?");
    mnuInfoWeb = Sub(menuBar, mniInfo, "mnuInfoWeb", "&Brackhaven Laboratories im Web");
    mnuInfoWebHomepage = Entry(mnuInfoWeb, "mnuInfoWebHomepage", "&Homepage");
    mnuInfoInfo = Entry(mniInfo, "mnuInfoInfo", "&Info", Qt::Key_F12);

    // Every entry stays live; each handler makes its own tests.
    connect(mnuFileExit, &QAction::triggered, this, [this] { mnuFileExit_Click(); });
    connect(mnuVerbindungVerbinden, &QAction::triggered, this, [this] { mnuVerbindungVerbinden_Click(); });
    connect(mnuVerbindungTransferASCII, &QAction::triggered, this, [this] { mnuVerbindungTransferASCII_Click(); });
    connect(mnuVerbindungTransferBINARY, &QAction::triggered, this, [this] { mnuVerbindungTransferBINARY_Click(); });
    connect(mnuVerbindungTransferAUTO, &QAction::triggered, this, [this] { mnuVerbindungTransferAUTO_Click(); });
    connect(mnuVerbindungASCIIListe, &QAction::triggered, this, [this] { mnuVerbindungASCIIListe_Click(); });
}

void MdiMain::LoadCaptions() {
    fraTop->setTitle(GetLanguageText("MY_CONNECTION"));
    lblAdresse->setText(GetLanguageText("LABEL_ADRESS"));
    lblBenutzer->setText(GetLanguageText("LABEL_USER"));
    lblPasswort->setText(GetLanguageText("LABEL_PASSWORD"));
    lblPort->setText(GetLanguageText("LABEL_PORT"));
    lblModus->setText(GetLanguageText("LABEL_MODUS"));
    cboTransferMode->AddItem(GetLanguageText("OPT_ASCII"));
    cboTransferMode->AddItem(GetLanguageText("OPT_BINARY"));
    cboTransferMode->AddItem(GetLanguageText("OPT_AUTO"));
    cboTransferMode->SetListIndex(2);
    chkPassiveTransfer->setText(GetLanguageText("CHK_PASSIVE"));

    mnuFile->setTitle(GetLanguageText("Datei"));
    mnuVerbindung->setTitle(GetLanguageText("MY_CONNECTION"));
    mnuVerbindungTransfer->setTitle(GetLanguageText("TRANSFERMODUS"));
    mnuVerbindungTransferASCII->setText(GetLanguageText("OPT_ASCII"));
    mnuVerbindungTransferBINARY->setText(GetLanguageText("OPT_BINARY"));
    mnuVerbindungTransferAUTO->setText(GetLanguageText("OPT_AUTO"));
    mnuVerbindungPassiverTransfer->setTitle(GetLanguageText("CHK_PASSIVE"));
    mnuVerbindungTransfertypEin->setText(GetLanguageText("EIN"));
    mnuVerbindungTransfertypAus->setText(GetLanguageText("AUS"));
    mnuVerbindungASCIIListe->setText(GetLanguageText("ASCII_LIST_SHOW"));
    mnuMyComputer->setTitle(GetLanguageText("FRMLOCAL_MYCOMPUTER"));
    mnuMyComputerUpload->setText(GetLanguageText("FRMPULOC_UPLOAD"));
    mnuMyComputerUploadAls->setText(GetLanguageText("FRMPULOC_UPLOADAS"));
    mnuMyComputerOeffnen->setText(GetLanguageText("FRMPULOC_OPEN"));
    mnuMyComputerOeffnenMit->setText(GetLanguageText("FRMPULOC_OPENWITH"));
    mnuMyComputerUmbenennen->setText(GetLanguageText("FRMPULOC_RENAME"));
    mnuMyComputerLoeschen->setText(GetLanguageText("FRMPULOC_DELETE"));
    mnuMyComputerNeu->setTitle(GetLanguageText("FRMPULOC_NEW"));
    mnuMyComputerNeuOrdner->setText(GetLanguageText("FRMPULOC_NEWFOLDER"));
    mnuMyComputerAktualisieren->setText(GetLanguageText("FRMPULOC_REFRESH"));
    mnuMyComputerEigenschaften->setText(GetLanguageText("FRMPULOC_PROP"));
    mnuMyServer->setTitle(GetLanguageText("FRMSERVER_FRA"));
    mnuMyServerDownload->setText(GetLanguageText("FRMPUSERVER_DOWNLOAD"));
    mnuMyServerDownloadAls->setText(GetLanguageText("FRMPUSERVER_DOWNLOADAS"));
    mnuMyServerOeffnen->setText(GetLanguageText("FRMPUSERVER_OPEN"));
    mnuMyServerOeffnenMit->setText(GetLanguageText("FRMPUSERVER_OPENWITH"));
    mnuMyServerUmbenennen->setText(GetLanguageText("FRMPUSERVER_RENAME"));
    mnuMyServerLoeschen->setText(GetLanguageText("FRMPUSERVER_DELETE"));
    mnuMyServerNeu->setTitle(GetLanguageText("FRMPUSERVER_NEW"));
    mnuMyServerNeuOrdner->setText(GetLanguageText("FRMPUSERVER_NEWFOLDER"));
    mnuMyServerAktualisieren->setText(GetLanguageText("FRMPUSERVER_REFRESH"));
    mnuInfoWeb->setTitle(GetLanguageText("MDIMAIN_WEBSITE"));
    // The captions are the language's now: the bar's font fits them.
    FitConnectionBarFont();
}

namespace {
TransferModeControls ModeControls(const MdiMain& f) {
    return {f.cboTransferMode, f.mnuVerbindungTransferASCII, f.mnuVerbindungTransferBINARY,
            f.mnuVerbindungTransferAUTO};
}
}  // namespace

void MdiMain::cboTransferMode_Click() {
    TransferModeComboClick(ModeControls(*this));
}

void MdiMain::mnuVerbindungTransferASCII_Click() {
    TransferModeASCII(ModeControls(*this));
}

void MdiMain::mnuVerbindungTransferBINARY_Click() {
    TransferModeBINARY(ModeControls(*this));
}

void MdiMain::mnuVerbindungTransferAUTO_Click() {
    TransferModeAUTO(ModeControls(*this));
}

void MdiMain::mnuVerbindungASCIIListe_Click() {
    ShowAsciiListModal();
}
