#include "support/frame_fixture.h"

#include "frame/frmStart.h"
#include "frame/frmUploadDownload.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/frmPopUpfrmLocal.h"
#include "platform/localfs.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "serverops/frmPopUpfrmServer.h"
#include "shared/mPublic.h"
#include "support/ftp_server.h"

#include <QCoreApplication>
#include <QEvent>

void FrameTest::SetUp() {
    UnloadAll();
    seams::SetMsgBoxHandler([this](const seams::MessageBoxCall& call) {
        boxes.push_back(call);
        int answer = (call.flags & 7) == 4 ? vbNo : vbOK;
        if (!boxAnswers.empty()) {
            answer = boxAnswers.front();
            boxAnswers.pop_front();
        }
        return answer;
    });
    seams::SetInputBoxHandler([this](const seams::InputBoxCall& call) {
        inputPrompts.push_back(call.prompt);
        inputBoxes.push_back(call);
        inputDefaults.push_back(call.defaultText);
        if (inputAnswers.empty()) return QString();
        QString a = inputAnswers.front();
        inputAnswers.pop_front();
        return a;
    });
    seams::SetStartHandler([this](const QString& program, const QString& parameters) {
        started.emplace_back(program, parameters);
        return true;
    });
    seams::SetEndHandler([this] { ++endCalls; });
    hConnection = 0;
    hInternetReconnect = 0;
    lConnectFlags = 0;
    lTransferMode = 0;
    OpenLanguageDatabase(localfs::ToWindows(QStringLiteral(FERRYDOCK_PROGRAM_DIR "/lang.db")));
    sLanguageTable = LanguageTable();
}

void FrameTest::TearDown() {
    if (hConnection) InternetCloseHandle(hConnection);
    UnloadAll();
    CloseLanguageDatabase();
    seams::SetMsgBoxHandler({});
    seams::SetInputBoxHandler({});
    seams::SetStartHandler({});
    seams::SetEndHandler({});
    sLanguageTable.clear();
    hConnection = 0;
    SetMousePointer(0);
}

void FrameTest::StartFrame() {
    mdiMain().show();
    Pump();
}

void FrameTest::UnloadAll() {
    // Children before the frame, as the frame's own unload does.
    frmPopUpfrmLocal.Unload();
    frmLocal.Unload();
    frmServer.Unload();
    frmTransferHistory.Unload();
    frmUploadDownload.Unload();
    frmPopUpfrmServer.Unload();
    if (mdiMain.Exists()) {
        mdiMain().timIsConnected->SetEnabled(false);
        mdiMain.Unload();
    }
    frmStart.Unload();
    Pump();
}

void FrameTest::Pump(int turns) {
    for (int i = 0; i < turns; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void FrameTest::FillBar(const FtpServer& server, const QString& port) {
    auto& f = mdiMain();
    f.txtAddress->SetText("127.0.0.1");
    f.txtPort->SetText(port.isNull() ? server.portText() : port);
    f.txtUserID->SetText(server.user());
    f.txtPassword->SetText(server.password());
}

bool FrameTest::Connect(const FtpServer& server, bool full) {
    FillBar(server);
    if (full)
        mdiMain().mnuVerbindungVerbinden_Click();
    else
        mdiMain().QuickConnect();
    return hConnection != 0;
}

QStringList FrameTest::RowTexts(const controls::ListView& list) {
    QStringList rows;
    for (int i = 1; i <= list.Count(); ++i) rows << list.Text(i);
    return rows;
}

int FrameTest::RowOf(const controls::ListView& list, const QString& text) {
    for (int i = 1; i <= list.Count(); ++i)
        if (list.Text(i) == text) return i;
    return 0;
}

bool FrameTest::Alive(HINTERNET h) {
    QString dir;
    uint32_t length = 1024;
    return FtpGetCurrentDirectoryA(h, dir, length) != 0;
}

QString FrameTest::LogText() const {
    return frmTransferHistory().rtfTransferHistory->Text();
}

std::vector<FrameTest::LogLine> FrameTest::LogLines() const {
    std::vector<LogLine> out;
    const auto& log = *frmTransferHistory().rtfTransferHistory;
    const QString text = log.Text();
    int start = 0;
    for (const QString& line : text.split('\n')) {
        if (!line.isEmpty()) out.push_back({line, log.ColorAt(start)});
        start += int(line.size()) + 1;
    }
    return out;
}
