// Time from RefreshServer to a filled server list for a folder of 20,000
// entries on a local vsftpd, against curl fetching the same listing.
// Two folders: one whose 1,000 subfolders have names of their own (each
// new "extension" costs the type-and-icon step with its dummy files), one
// whose subfolders share an extension.
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

namespace {
constexpr int kEntries = 20000;

void MakeFolder(const FtpServer& server, const QString& name, const QString& folderSuffix) {
    QDir().mkpath(server.root() + "/" + name);
    for (int i = 0; i < kEntries; ++i) {
        if (i % 20 == 0) {
            QDir().mkpath(server.root() + QString("/%1/folder%2%3").arg(name).arg(i).arg(folderSuffix));
            continue;
        }
        QFile f(server.root() + QString("/%1/file%2.e%3").arg(name).arg(i).arg(i % 19));
        f.open(QIODevice::WriteOnly);
        f.write("x");
    }
}

double Seconds(QElapsedTimer& t) {
    const double s = double(t.nsecsElapsed()) / 1e9;
    t.restart();
    return s;
}
}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    FtpServer server(FtpServer::Kind::Vsftpd);
    MakeFolder(server, "named", "");
    MakeFolder(server, "shared", ".d");
    StartBenchFrame();
    if (!ConnectBenchFrame(server)) return 1;

    std::printf("| folder | RefreshServer, new path (two reads) | RefreshServer | of which the read | curl, bare listing | ratio |\n");
    std::printf("|---|---|---|---|---|---|\n");
    bool ok = true;
    for (const QString name : {"named", "shared"}) {
        const QString url = QString("ftp://127.0.0.1:%1/%2/").arg(server.port()).arg(name);
        const double curl = TimeCommand("curl", {"-s", "-o", "/dev/null", "--user", "anonymous:x", url});
        SetServerDirectory(server.root() + "/" + name);
        QElapsedTimer t;
        t.start();
        RefreshServer(hConnection);
        const double first = Seconds(t);
        RefreshServer(hConnection);
        const double steady = Seconds(t);
        ok = ok && frmServer().lsvServer->Count() == kEntries + 1;
        ResetServerFiles();
        ReadServerDirectory("*.*", hConnection);
        const double read = Seconds(t);
        std::printf("| %s | %.3f | %.3f | %.3f | %.3f | %.2fx |\n", qPrintable(name), first, steady, read, curl,
                    curl > 0 ? steady / curl : 0.0);
    }
    std::printf("\ntarget: RefreshServer within 1.5x curl and below 1 s; rows %s\n", ok ? "complete" : "MISSING");
    std::printf("peak memory: %.1f MiB\n", PeakMemoryMiB());
    return ok ? 0 : 1;
}
