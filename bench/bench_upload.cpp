// Upload of one 256 MiB file through UploadFile to a local vsftpd, against
// curl -T of the same file, with the program's peak memory.
#include "frame/mdiMain.h"
#include "platform/localfs.h"
#include "shared/mPublic.h"
#include "support/bench_frame.h"
#include "support/ftp_server.h"
#include "transfer/upload.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    constexpr qint64 kSize = 256LL * 1024 * 1024;
    QTemporaryDir dir;
    const QString path = dir.path() + "/big.bin";
    {
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        QByteArray block(1 << 20, '\0');
        for (int i = 0; i < block.size(); ++i) block[i] = char(i * 131 + 7);
        for (qint64 done = 0; done < kSize; done += block.size()) f.write(block);
    }

    // What a turn costs with nothing pending: the toolkit's full turn, and
    // the program's DoEvents, which the upload calls once per 255 bytes.
    StartBenchFrame();
    QElapsedTimer t;
    constexpr int kTurns = 200000;
    t.start();
    for (int i = 0; i < kTurns; ++i) QCoreApplication::processEvents();
    const double fullTurnMicros = double(t.nsecsElapsed()) / kTurns / 1000.0;
    t.restart();
    for (int i = 0; i < kTurns; ++i) DoEvents();
    const double turnMicros = double(t.nsecsElapsed()) / kTurns / 1000.0;

    FtpServer server(FtpServer::Kind::Vsftpd);
    if (!ConnectBenchFrame(server)) {
        std::fprintf(stderr, "connect failed\n");
        return 1;
    }
    mdiMain().cboTransferMode->SetListIndex(1);  // binary, as curl sends
    const double memBefore = PeakMemoryMiB();
    QString local = localfs::ToWindows(path), remote = "ours.bin";
    t.restart();
    const bool ok = UploadFile(local, remote);
    const double ours = double(t.nsecsElapsed()) / 1e9;
    const double memAfter = PeakMemoryMiB();
    const bool same = QFile(server.root() + "/ours.bin").size() == kSize;

    const double curl = TimeCommand("curl", {"-s", "-T", path, "--user", "anonymous:x",
                                             QString("ftp://127.0.0.1:%1/curl.bin").arg(server.port())});
    const double mib = double(kSize) / (1024 * 1024);
    std::printf("| what | seconds | MiB/s |\n|---|---|---|\n");
    std::printf("| UploadFile, 255-byte chunks | %.3f | %.1f |\n", ours, mib / ours);
    std::printf("| curl -T | %.3f | %.1f |\n", curl, curl > 0 ? mib / curl : 0.0);
    std::printf("\nthroughput against curl: %.0f%% (target at least 50%%)\n", curl > 0 ? 100.0 * curl / ours : 0.0);
    std::printf("nothing pending: processEvents %.2f us, DoEvents %.2f us; %.0f turns cost %.3f s\n",
                fullTurnMicros, turnMicros, double(kSize / 255), turnMicros * double(kSize / 255) / 1e6);
    std::printf("peak memory: %.1f MiB before the upload, %.1f MiB after (file %.0f MiB)\n", memBefore, memAfter, mib);
    std::printf("upload %s, size on the server %s\n", ok ? "ok" : "FAILED", same ? "matches" : "DIFFERS");
    return ok && same ? 0 : 1;
}
