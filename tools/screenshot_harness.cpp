// Drives the real program to the pictures the README shows: the language
// dialog, then the frame connected to a server at two window sizes.
// Usage: screenshot-harness OUTDIR HOST PORT USER PASSWORD
#include "frame/mdiMain.h"
#include "frame/frmStart.h"
#include "platform/seams.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTimer>
#include <cstdio>

namespace {
void Settle(int ms = 300) {
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms) QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

bool Save(QWidget& w, const QString& path) {
    const bool ok = w.grab().save(path);
    std::printf("%s %s\n", ok ? "saved" : "FAILED", qPrintable(path));
    return ok;
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc != 6) {
        std::fprintf(stderr, "usage: screenshot-harness OUTDIR HOST PORT USER PASSWORD\n");
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(out);
    seams::SetEndHandler([] {});
    seams::SetMsgBoxHandler([](const seams::MessageBoxCall& call) {
        std::printf("box: %s\n", qPrintable(call.prompt));
        return vbOK;
    });

    bool ok = true;
    frmStart().show();
    Settle();
    ok &= Save(frmStart(), out + "/language-dialog.png");
    frmStart().cmdOk->click();
    Settle();

    auto& frame = mdiMain();
    frame.resize(1100, 720);
    Settle();
    frame.txtAddress->SetText(QString::fromLocal8Bit(argv[2]));
    frame.txtPort->SetText(QString::fromLocal8Bit(argv[3]));
    frame.txtUserID->SetText(QString::fromLocal8Bit(argv[4]));
    frame.txtPassword->SetText(QString::fromLocal8Bit(argv[5]));
    frame.tlbConnect->Press("connect");
    Settle(800);
    ok &= Save(frame, out + "/main-1100x720.png");
    frame.resize(1400, 900);
    Settle(800);
    ok &= Save(frame, out + "/main-1400x900.png");
    frame.timIsConnected->SetEnabled(false);
    return ok ? 0 : 1;
}
