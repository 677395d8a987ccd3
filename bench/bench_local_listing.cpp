// Time from ViewFolder to a filled local list for a folder of 10,000 files
// in 20 extensions, against ls -l of the same folder, with peak memory.
#include "local/frmLocal.h"
#include "platform/localfs.h"
#include "support/bench_frame.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    constexpr int kFiles = 10000;
    QTemporaryDir dir;
    for (int i = 0; i < kFiles; ++i) {
        QFile f(dir.path() + QString("/file%1.ext%2").arg(i).arg(i % 20));
        f.open(QIODevice::WriteOnly);
        f.write("x");
    }
    StartBenchFrame();
    QString path = localfs::ToWindows(dir.path());
    QElapsedTimer t;
    t.start();
    frmLocal().ViewFolder(path, "*.*");
    const double first = double(t.nsecsElapsed()) / 1e9;
    t.restart();
    frmLocal().ViewFolder(path, "*.*");
    const double again = double(t.nsecsElapsed()) / 1e9;
    const int rows = frmLocal().lsvDirFile->Count();
    const double ls = TimeCommand("sh", {"-c", QString("ls -l '%1' > /dev/null").arg(dir.path())});
    std::printf("| what | seconds |\n|---|---|\n");
    std::printf("| ViewFolder, first read | %.3f |\n", first);
    std::printf("| ViewFolder, again | %.3f |\n", again);
    std::printf("| ls -l | %.3f |\n", ls);
    std::printf("\nrows: %d (target below 0.5 s)\npeak memory: %.1f MiB\n", rows, PeakMemoryMiB());
    return rows == kFiles ? 0 : 1;
}
