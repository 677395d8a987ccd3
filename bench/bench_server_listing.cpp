// Time from RefreshServer to a filled server list for a folder of 20,000
// entries on a local vsftpd, against curl fetching the same listing.
#include "frame/mPublic.h"
#include "server/frmServer.h"
#include "server/serverListing.h"
#include "server/serverRefresh.h"
#include "support/bench_frame.h"
#include "support/ftp_server.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    constexpr int kEntries = 20000;
    FtpServer server(FtpServer::Kind::Vsftpd);
    QDir().mkpath(server.root() + "/big");
    for (int i = 0; i < kEntries; ++i) {
        if (i % 20 == 0) {
            QDir().mkpath(server.root() + QString("/big/folder%1").arg(i));
            continue;
        }
        QFile f(server.root() + QString("/big/file%1.e%2").arg(i).arg(i % 19));
        f.open(QIODevice::WriteOnly);
        f.write("x");
    }
    StartBenchFrame();
    if (!ConnectBenchFrame(server) || !SetServerDirectory(server.root() + "/big")) return 1;

    QElapsedTimer t;
    t.start();
    RefreshServer(hConnection);  // the new path in the combo reads twice
    const double first = double(t.nsecsElapsed()) / 1e9;
    t.restart();
    RefreshServer(hConnection);
    const double steady = double(t.nsecsElapsed()) / 1e9;
    const int rows = frmServer().lsvServer->Count();
    t.restart();
    ResetServerFiles();
    ReadServerDirectory("*.*", hConnection);
    const double readOnly = double(t.nsecsElapsed()) / 1e9;

    const double curl = TimeCommand("curl", {"-s", "-o", "/dev/null", "--user", "anonymous:x",
                                             QString("ftp://127.0.0.1:%1/big/").arg(server.port())});
    std::printf("| what | seconds |\n|---|---|\n");
    std::printf("| RefreshServer, path new to the combo (two reads) | %.3f |\n", first);
    std::printf("| RefreshServer | %.3f |\n", steady);
    std::printf("| of which reading the listing | %.3f |\n", readOnly);
    std::printf("| curl, bare listing | %.3f |\n", curl);
    std::printf("\nrows: %d; against curl: %.2fx (target at most 1.5x and below 1 s)\n", rows,
                curl > 0 ? steady / curl : 0.0);
    std::printf("peak memory: %.1f MiB\n", PeakMemoryMiB());
    return rows == kEntries + 1 ? 0 : 1;
}
