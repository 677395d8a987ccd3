// Time from RefreshServer to a filled server list for a folder of 20,000
// entries on a local vsftpd, against curl fetching the same listing (a full
// LIST) in the same run.
// Two folders: one whose 1,000 subfolders have names of their own (each
// new "extension" costs the type-and-icon step with its dummy files), one
// whose subfolders share an extension.
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "server/serverListing.h"
#include "server/serverRefresh.h"
#include "server/typeIcons.h"
#include "shared/mPublic.h"
#include "support/bench_frame.h"
#include "support/ftp_server.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {
constexpr int kEntries = 20000;
constexpr int kRounds = 15;

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

template <typename F>
double Best(F&& run) {
    double best = 1e9;
    for (int i = 0; i < kRounds; ++i) {
        QElapsedTimer t;
        t.start();
        run();
        best = std::min(best, double(t.nsecsElapsed()) / 1e9);
    }
    return best;
}

// The platform's listing alone: what any client pays for the bytes.
int BareFind() {
    WIN32_FIND_DATA d;
    int n = 0;
    const HINTERNET h = FtpFindFirstFileA(hConnection, "*.*", d, 0, 0);
    if (h != 0) {
        ++n;
        while (InternetFindNextFileA(h, d)) ++n;
    }
    InternetCloseHandle(h);
    return n;
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

    std::printf("best of %d, seconds, %d entries per folder\n\n", kRounds, kEntries);
    std::printf("| folder | curl LIST | bare find | ReadServerDirectory | RefreshServer | new path (two reads) | "
                "RefreshServer / curl |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    bool ok = true;
    bool fast = true;
    for (const QString name : {"named", "shared"}) {
        const QString url = QString("ftp://127.0.0.1:%1/%2/").arg(server.port()).arg(name);
        bool curlOk = true;
        const double curl = Best([&] {
            curlOk = curlOk && TimeCommand("curl", {"-s", "-o", "/dev/null", "--user", "anonymous:x", url}) >= 0;
        });
        SetServerDirectory(server.root() + "/" + name);
        int found = 0;
        const double bare = Best([&] { found = BareFind(); });
        const double read = Best([&] {
            ResetServerFiles();
            ReadServerDirectory("*.*", hConnection);
        });
        const double refresh = Best([&] { RefreshServer(hConnection); });
        ok = ok && curlOk && found == kEntries && frmServer().lsvServer->Count() == kEntries + 1;
        // A path the combo doesn't hold yet: the combo's own refresh reads
        // the folder a second time.
        const double first = Best([&] {
            frmServer().cboServer->Clear();
            SetServerDirectory(server.root() + "/" + name);
            RefreshServer(hConnection);
        });
        fast = fast && refresh <= 1.5 * curl && refresh < 1.0;
        std::printf("| %s | %.3f | %.3f | %.3f | %.3f | %.3f | %.2fx |\n", qPrintable(name), curl, bare, read,
                    refresh, first, curl > 0 ? refresh / curl : 0.0);
    }
    std::printf("\ntarget: RefreshServer within 1.5x curl and below 1 s: %s; rows %s\n", fast ? "met" : "MISSED",
                ok ? "complete" : "MISSING");
    std::printf("peak memory: %.1f MiB\n", PeakMemoryMiB());
    return ok ? 0 : 1;
}
