#include "support/bench_frame.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/seams.h"
#include "shared/mPublic.h"
#include "support/ftp_server.h"

#include <QProcess>
#include <sys/resource.h>

void StartBenchFrame() {
    seams::SetMsgBoxHandler([](const seams::MessageBoxCall&) { return vbOK; });
    seams::SetEndHandler([] {});
    OpenLanguageDatabase(localfs::ToWindows(QStringLiteral(FERRYDOCK_PROGRAM_DIR "/lang.db")));
    sLanguageTable = QStringLiteral("english");
    mdiMain().show();
}

bool ConnectBenchFrame(const FtpServer& server) {
    auto& f = mdiMain();
    f.txtAddress->SetText("127.0.0.1");
    f.txtPort->SetText(server.portText());
    f.txtUserID->SetText(server.user());
    f.txtPassword->SetText(server.password());
    f.QuickConnect();
    f.timIsConnected->SetEnabled(false);
    return hConnection != 0 && SetServerDirectory(server.serverRoot());
}

double PeakMemoryMiB() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return double(u.ru_maxrss) / 1024.0;
}

double TimeCommand(const QString& program, const QStringList& arguments) {
    QElapsedTimer t;
    t.start();
    QProcess p;
    p.start(program, arguments);
    if (!p.waitForFinished(600000) || p.exitCode() != 0) return -1;
    return double(t.nsecsElapsed()) / 1e9;
}
