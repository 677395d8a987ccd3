#include "frame/mdiMain.h"

#include "frame/frmUploadDownload.h"
#include "frame/layout.h"
#include "frame/mPublic.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "platform/controls/twips.h"
#include "platform/seams.h"
#include "platform/shell.h"
#include "platform/wininet.h"
#include "server/frmServer.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QLocale>
#include <QTimer>
#include <QVBoxLayout>

controls::FormSlot<MdiMain> mdiMain;

namespace {
constexpr int kClientWidth = 12840;  // design size of the client area
constexpr int kClientHeight = 8595;
}  // namespace

MdiMain::MdiMain() {
    setObjectName("mdiMain");
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
    imlToolbarIcons = new controls::ImageList(this);
    imlToolbarIcons->Add(QStringLiteral("connect"), shell::BundledIcon(QStringLiteral("connect")));
    imlToolbarIcons->Add(QStringLiteral("ascii"), shell::BundledIcon(QStringLiteral("ascii-list")));
    imgListLarge = new controls::ImageList(this);
    imgListSmall = new controls::ImageList(this);
    imgDir = new controls::ImageList(this);
    imgDir->Add(QString(), shell::BundledIcon(QStringLiteral("folder")));
    imgDir->Add(QString(), shell::BundledIcon(QStringLiteral("folder")));
    imgDir->Add(QString(), shell::BundledIcon(QStringLiteral("unknown")));
    imgDir->Add(QString(), shell::BundledIcon(QStringLiteral("unknown")));

    setWindowIcon(shell::BundledIcon(QStringLiteral("app")));
    const int chrome = menuBar->sizeHint().height() + picTop->height() + pgbBottom->height();
    resize(ToPixels(kClientWidth), ToPixels(kClientHeight) + chrome);
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
    // 4. Connection toolbar.
    tlbConnect->SetImageList(imlToolbarIcons);
    {
        auto& b = tlbConnect->AddButton(QStringLiteral("connect"), 1);
        b.SetToolTipText(GetLanguageText("BUILD_CONNECTION"));
        b.description = b.ToolTipText();
        auto& a = tlbConnect->AddButton(QStringLiteral("ascii"), 2);
        a.SetToolTipText(GetLanguageText("ASCII_LIST_SHOW"));
        a.description = a.ToolTipText();
    }

    // 5. Captions; choosing AUTO touches the log first, so the log form
    // exists from here on.
    LoadCaptions();

    // 6.-8. The three upper panes.
    AttachChild(&frmLocal());
    frmLocal().SetLeft(0);
    frmLocal().SetTop(0);
    frmLocal().SetWidth(VbRound(Width() / 2.0) - 200);
    frmLocal().show();

    AttachChild(&frmUploadDownload());
    frmUploadDownload().SetLeft(frmLocal().Left() + frmLocal().Width());
    frmUploadDownload().SetTop(0);
    frmUploadDownload().SetWidth(400);
    frmUploadDownload().show();

    AttachChild(&frmServer());
    frmServer().SetLeft(frmLocal().Width() + 400);
    frmServer().SetTop(0);
    frmServer().SetWidth(VbRound(Width() / 2.0) - 200);
    frmServer().show();

    // 9.
    LayoutTransferHistory();
    LayoutLocalPane();
    LayoutArrowBar();
    LayoutServerPane();

    // 10.-11. The log.
    AttachChild(&frmTransferHistory());
    frmTransferHistory().SetHeight(2000);
    frmTransferHistory().SetTop(Height() - frmLocal().Top() - frmLocal().Height() - 10);
    frmTransferHistory().SetLeft(0);
    frmTransferHistory().SetWidth(Width());
    frmTransferHistory().SetHeight(frmTransferHistory().Height() + 10);
    frmTransferHistory().show();

    // 12.-15.
    MDIForm_Resize();
    txtAddress->SetFocus();
    lTransferMode = 2;
    setWindowTitle(QStringLiteral("Ferrydock Release 1 Version 3"));

    // 16.-18. The welcome text, one insertion of two lines.
    MoveLogCaretToEnd();
    auto& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelColor(kBlack);
    const QLocale locale = QLocale::system();
    const QDateTime now = QDateTime::currentDateTime();
    log.SetSelText(GetLanguageText(QStringLiteral("WELCOME1")) + vbCrLf + GetLanguageText(QStringLiteral("WELCOME2")) + u' ' +
                   locale.toString(now.date(), QLocale::ShortFormat) + u' ' + GetLanguageText(QStringLiteral("WELCOME3")) +
                   u' ' + locale.toString(now.time(), QLocale::ShortFormat) + u' ' +
                   GetLanguageText("WELCOME4") + vbCrLf);
    log.SetSelColor(kBlack);
}

void MdiMain::Form_Unload() {
    timIsConnected->SetEnabled(false);
    CloseLanguageDatabase();
    // Also on the way through File > Exit, which closed it already: the
    // second close fails quietly.
    InternetCloseHandle(hConnection);
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
