// Drives the real program to the README's pictures: the frame in one
// language, connected to a server, with the local pane in a sample folder
// of its own; and, for English, the preselected language, the language
// dialog as it opens.
// Usage: screenshot-harness OUTDIR HOST PORT USER PASSWORD de|fr|en|es
#include "frame/mdiMain.h"
#include "frame/frmStart.h"
#include "local/frmLocal.h"
#include "platform/localfs.h"
#include "platform/seams.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>
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

// A small tree of the program's own, so the pictures show no folder of the
// machine; the files get times of their own, days apart.
QString MakeSample(const QString& parent) {
    const QString root = parent + QStringLiteral("/Samples");
    for (const char* folder : {"Documents/Letters", "Documents/Reports", "Music", "Pictures/Holiday 2026",
                               "Projects/scripts", "Projects/website/css", "Projects/website/images"})
        QDir().mkpath(root + '/' + QLatin1String(folder));
    const std::pair<const char*, int> files[] = {
        {"backup.zip", 48200}, {"budget.csv", 2300}, {"index.html", 5400}, {"notes.txt", 900},
        {"photo.jpg", 184000}, {"README.txt", 1200}, {"report.pdf", 96000}, {"song.mp3", 3400000},
        {"style.css", 1700},   {"upload.sh", 600}};
    QDateTime when(QDate(2026, 11, 2), QTime(9, 30), QTimeZone::utc());
    for (const auto& [name, size] : files) {
        QFile f(root + '/' + QLatin1String(name));
        if (!f.open(QIODevice::WriteOnly)) continue;
        f.write(QByteArray(size, 'x'));
        f.flush();  // a later flush would set the time again
        when = when.addSecs(29 * 3600 + 17 * 60);
        f.setFileTime(when, QFileDevice::FileModificationTime);
    }
    return root;
}

// Opens the sample folder in the local pane as a user does through the
// tree, with its subfolders shown, and scrolls the tree to it.
void ShowInLocalPane(const QString& posixFolder) {
    auto& pane = frmLocal();
    auto& tree = *pane.trwPaths;
    const auto key = [](const QString& posix) { return localfs::ToWindows(posix).toLower() + '\\'; };
    QStringList chain;
    for (QDir d(posixFolder); !d.isRoot(); d.cdUp()) chain.prepend(d.absolutePath());
    for (const QString& folder : chain.mid(0, chain.size() - 1)) tree.SetExpanded(tree.IndexOf(key(folder)), true);
    tree.ClickNode(tree.IndexOf(key(posixFolder)));
    for (const QString& folder : {posixFolder, posixFolder + "/Documents", posixFolder + "/Pictures",
                                  posixFolder + "/Projects", posixFolder + "/Projects/website"})
        tree.SetExpanded(tree.IndexOf(key(folder)), true);
    tree.scrollToItem(tree.currentItem(), QAbstractItemView::PositionAtTop);
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QStringList languages = {"de", "fr", "en", "es"};  // the catalogue's order
    const int language = argc == 7 ? int(languages.indexOf(QString::fromLocal8Bit(argv[6]))) : -1;
    if (language < 0) {
        std::fprintf(stderr, "usage: screenshot-harness OUTDIR HOST PORT USER PASSWORD de|fr|en|es\n");
        return 2;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(out);
    seams::SetEndHandler([] {});
    seams::SetMsgBoxHandler([](const seams::MessageBoxCall& call) {
        std::printf("box: %s\n", qPrintable(call.prompt));
        return vbOK;
    });
    QTemporaryDir sampleParent;
    const QString sample = MakeSample(sampleParent.path());

    bool ok = true;
    auto& start = frmStart();
    start.show();
    Settle();
    if (start.cboSprache->ListIndex() == language) ok &= Save(start, out + "/language-dialog.png");
    start.cboSprache->SetListIndex(language);
    start.cmdOk->click();
    Settle();

    auto& frame = mdiMain();
    frame.resize(1100, 720);
    Settle();
    ShowInLocalPane(sample);
    frame.txtAddress->SetText(QString::fromLocal8Bit(argv[2]));
    frame.txtPort->SetText(QString::fromLocal8Bit(argv[3]));
    frame.txtUserID->SetText(QString::fromLocal8Bit(argv[4]));
    frame.txtPassword->SetText(QString::fromLocal8Bit(argv[5]));
    frame.tlbConnect->Press("connect");
    Settle(800);
    ok &= Save(frame, out + "/ferrydock-" + languages[language] + ".png");
    frame.timIsConnected->SetEnabled(false);
    return ok ? 0 : 1;
}
