#include "frame/mdiMain.h"

#include "frame/layout.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "platform/controls/twips.h"
#include "platform/seams.h"
#include "platform/shell.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "shared/frameControls.h"
#include "shared/mPublic.h"
#include "shared/toolbarButtons.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QLocale>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

controls::FormSlot<MdiMain> mdiMain;

namespace {
constexpr int kClientWidth = 12840;  // design size of the client area
constexpr int kClientHeight = 8595;
}  // namespace

MdiMain::MdiMain() {
    setObjectName(QStringLiteral("mdiMain"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // The frame may be made smaller than its contents; the panes then keep
    // their last layout.
    layout->setSizeConstraint(QLayout::SetNoConstraint);

    BuildMenus();
    layout->setMenuBar(menuBar);

    picTop = new QWidget(this);
    picTop->setFixedHeight(ToPixels(705));
    layout->addWidget(picTop);
    BuildConnectionBar();

    clientArea = new QWidget(this);
    clientArea->setObjectName("clientArea");
    clientArea->setAutoFillBackground(true);
    clientArea->setBackgroundRole(QPalette::Dark);
    layout->addWidget(clientArea, 1);

    pgbBottom = new controls::ProgressBar(this);
    pgbBottom->setFixedHeight(ToPixels(135));
    layout->addWidget(pgbBottom);

    timIsConnected = new controls::Timer(this);
    timIsConnected->SetInterval(1000);
    timIsConnected->onTimer = [this] { timIsConnected_Timer(); };

    shell::EnsureIconTheme();
    imlToolbarIcons = PictureList(this, {{"connect", "connect"}, {"ascii", "ascii-list"}});
    imgListLarge = new controls::ImageList(this);
    imgListSmall = new controls::ImageList(this);
    imgDir = new controls::ImageList(this);
    for (const char* picture : {"folder", "folder", "unknown", "unknown"})
        imgDir->Add(QString(), shell::BundledIcon(QString::fromLatin1(picture)));
    Frame() = FrameControls{imgListLarge, imgListSmall, imgDir, cboTransferMode, timIsConnected, pgbBottom};

    setWindowIcon(shell::BundledIcon(QStringLiteral("app")));
    const int chrome = menuBar->sizeHint().height() + picTop->height() + pgbBottom->height();
    resize(ToPixels(std::max(kClientWidth, ConnectionBarWidth())), ToPixels(kClientHeight) + chrome);
}

int MdiMain::ScaleWidth() const {
    return ToTwips(clientArea->width());
}

int MdiMain::ScaleHeight() const {
    return ToTwips(clientArea->height());
}

void MdiMain::AttachChild(QWidget* form) {
    if (!form || form->parentWidget() == clientArea) return;
    form->setParent(clientArea, Qt::Widget);
}

void MdiMain::Form_Load() {
    AddToolbarButtons(*tlbConnect, imlToolbarIcons,
                      {{"connect", 1, "BUILD_CONNECTION"}, {"ascii", 2, "ASCII_LIST_SHOW"}});
    // Choosing AUTO reads the log, so the log form exists from here on.
    LoadCaptions();
    LoadPanes();
    MDIForm_Resize();
    txtAddress->SetFocus();
    lTransferMode = FTP_TRANSFER_TYPE_BINARY;
    setWindowTitle(QStringLiteral("Ferrydock Release 1 Version 3"));

    // The welcome text: one insertion of two lines.
    MoveLogCaretToEnd();
    auto& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelColor(kBlack);
    const QLocale locale = QLocale::system();
    const QDateTime now = QDateTime::currentDateTime();
    log.SetSelText(GetLanguageText("WELCOME1") + vbCrLf + GetLanguageText("WELCOME2") + u' ' +
                   locale.toString(now.date(), QLocale::ShortFormat) + u' ' + GetLanguageText("WELCOME3") + u' ' +
                   locale.toString(now.time(), QLocale::ShortFormat) + u' ' + GetLanguageText("WELCOME4") + vbCrLf);
    log.SetSelColor(kBlack);
}

void MdiMain::Form_Unload() {
    timIsConnected->SetEnabled(false);
    CloseLanguageDatabase();
    // Kept: also on the way through File > Exit, which closed it already;
    // the second close fails quietly, and the handle is never cleared.
    InternetCloseHandle(hConnection);
    // Kept: frmUploadDownload isn't named; it goes with the frame.
    frmLocal.Unload();
    frmServer.Unload();
    frmTransferHistory.Unload();
    EndProgram();
}

void MdiMain::mnuFileExit_Click() {
    timIsConnected->SetEnabled(false);
    InternetCloseHandle(hConnection);
    // Not from inside the menu's own event: the frame goes once it returns.
    QTimer::singleShot(0, [] { mdiMain.Unload(); });
}

void MdiMain::closeEvent(QCloseEvent* e) {
    e->ignore();
    QTimer::singleShot(0, [] { mdiMain.Unload(); });
}
