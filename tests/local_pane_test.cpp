// The local pane over real temporary folders: rows, sort, keys, sizes, the
// phantom row, the tree read one level ahead, the combo and the refreshes.
#include "support/frame_fixture.h"

#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/localReader.h"
#include "platform/localfs.h"
#include "shared/mPublic.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>
#include <ctime>

namespace {

class LocalPane : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        frmLocal();  // its load reads the start drive
    }
    void Make(const QString& relative, qint64 size = 1) {
        const QString path = dir_.path() + "/" + relative;
        QDir().mkpath(QFileInfo(path).path());
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        f.resize(size);
    }
    void Folder(const QString& relative) { QDir().mkpath(dir_.path() + "/" + relative); }
    QString Win(const QString& relative = QString()) const {
        return localfs::ToWindows(relative.isEmpty() ? dir_.path() : dir_.path() + "/" + relative);
    }
    static controls::ListView& list() { return *frmLocal().lsvDirFile; }
    static controls::TreeView& tree() { return *frmLocal().trwPaths; }
    static QStringList Rows() { return RowTexts(list()); }
    static int RowOf(const QString& text) { return FrameTest::RowOf(list(), text); }
    // A click on the node's row, as the user makes it.
    static void ClickNode(int index) {
        const QRect row = tree().NodeRect(index);
        ASSERT_FALSE(row.isEmpty());
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, row.center());
    }
    void View(const QString& path) {
        QString p = path;
        frmLocal().ViewFolder(p, "*.*");
    }
    QTemporaryDir dir_;
};

TEST_F(LocalPane, FoldersFirstThenFilesEachSortedIgnoringCase) {
    for (const char* f : {"b.txt", "a.TXT", "README", "x.exe", "y.ico", "archive.tar.gz", "k.bin"}) Make(f);
    Make("empty.dat", 0);
    Make("k.bin", 1024);
    Folder("Zeta");
    Folder("alpha");
    View(Win());
    const QStringList rows = Rows();
    ASSERT_EQ(rows.size(), 10);
    EXPECT_EQ(rows.mid(0, 2), QStringList({"alpha", "Zeta"}));
    EXPECT_EQ(rows.mid(2), QStringList({"a.TXT", "archive.tar.gz", "b.txt", "empty.dat", "k.bin", "README",
                                        "x.exe", "y.ico"}));

    EXPECT_EQ(list().SubItem(1, 1), "");
    EXPECT_EQ(list().SubItem(1, 2), GetLanguageText("FOLDER"));
    EXPECT_EQ(list().SubItem(1, 4), "D");
    EXPECT_EQ(list().IconKey(1), "Folder");
    EXPECT_EQ(list().IconKey(RowOf("a.TXT")), "ztxt");
    EXPECT_EQ(list().IconKey(RowOf("b.txt")), "ztxt");
    EXPECT_EQ(list().SubItem(RowOf("a.TXT"), 2), list().SubItem(RowOf("b.txt"), 2));
    EXPECT_EQ(list().IconKey(RowOf("x.exe")), "zexe0");
    EXPECT_EQ(list().IconKey(RowOf("y.ico")), "zico1");
    EXPECT_EQ(list().SubItem(RowOf("x.exe"), 2), "Anwendung");
    EXPECT_EQ(list().SubItem(RowOf("y.ico"), 2), "Symbol");
    EXPECT_EQ(list().IconKey(RowOf("archive.tar.gz")), "zgz");
    EXPECT_EQ(list().IconKey(RowOf("README")), "zreadme");
    EXPECT_EQ(list().SubItem(RowOf("empty.dat"), 1), "1 KB");
    EXPECT_EQ(list().SubItem(RowOf("k.bin"), 1), "2 KB");
    EXPECT_EQ(list().SubItem(RowOf("k.bin"), 4), "A");
}

TEST_F(LocalPane, TheDateIsTheFilesTimeInUtcWithSeconds) {
    Make("k.bin");
    QFile f(dir_.path() + "/k.bin");
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    ASSERT_TRUE(f.setFileTime(QDateTime(QDate(2001, 3, 5), QTime(7, 4, 5), QTimeZone::utc()),
                              QFileDevice::FileModificationTime));
    f.close();
    // Nine hours east of Greenwich: a local-time conversion would show 16:04.
    const QByteArray tz = qgetenv("TZ");
    qputenv("TZ", "XYZ-9");
    tzset();
    View(Win());
    EXPECT_EQ(list().SubItem(RowOf("k.bin"), 3), "05.03.2001 07:04:05");
    if (tz.isNull()) qunsetenv("TZ");
    else qputenv("TZ", tz);
    tzset();
}

TEST_F(LocalPane, NamesWithoutPointShareAKeyAndEmptyTypesGetTheDateiText) {
    Make("README");
    Make("readme");
    Make("one.q");
    Make("long.abcdefghijk");
    View(Win());
    EXPECT_EQ(list().IconKey(RowOf("README")), "zreadme");
    EXPECT_EQ(list().IconKey(RowOf("readme")), "zreadme");
    EXPECT_EQ(list().SubItem(RowOf("one.q"), 2), "ZQ-Datei");                 // too short: keeps its Z
    EXPECT_EQ(list().SubItem(RowOf("long.abcdefghijk"), 2), "ZABCDEFGHIJK-Datei");  // too long: the same
}

TEST_F(LocalPane, AnUpperCasePathFindsItsFilesAndTheCallerGetsTheBackslash) {
    Make("Mixed/Inner.txt");
    QString upper = Win("Mixed").toUpper();
    frmLocal().ViewFolder(upper, "*.*");
    EXPECT_EQ(Rows(), QStringList({"Inner.txt"}));
    EXPECT_TRUE(upper.endsWith('\\'));
    QString drive = "c:";
    frmLocal().ViewFolder(drive, "*.*");
    EXPECT_EQ(drive, "c:\\");
}

TEST_F(LocalPane, AFolderThatCantBeReadShowsThePhantomRow) {
    View(Win("does-not-exist"));
    ASSERT_EQ(list().Count(), 1);
    EXPECT_EQ(list().Text(1), "");
    EXPECT_EQ(list().SubItem(1, 1), "1 KB");
    EXPECT_EQ(list().SubItem(1, 3), "01.01.1601 00:00:00");
    EXPECT_EQ(list().SubItem(1, 4), "");
    // A folder holding nothing gives no row at all.
    Folder("void");
    View(Win("void"));
    EXPECT_EQ(list().Count(), 0);
}

TEST_F(LocalPane, LargeFoldersRepaintEveryThousandRows) {
    for (int i = 0; i < 2500; ++i) Make(QString("many/f%1.dat").arg(i, 4, 10, QChar('0')));
    const int before = list().RefreshCount();
    View(Win("many"));
    EXPECT_EQ(list().Count(), 2500);
    EXPECT_EQ(list().RefreshCount() - before, 3);
}

TEST_F(LocalPane, TheTreeReadsOneLevelAheadAndTagsWhatItRead) {
    Folder("Alpha/Inner/Deep");
    Folder("beta");
    const QString tmpKey = localfs::ToWindows(QFileInfo(dir_.path()).path()).toLower() + "\\";
    const QString ourKey = Win().toLower() + "\\";
    frmLocal().ReadDrive("C:\\");
    EXPECT_EQ(tree().Key(1), "c:\\");
    EXPECT_EQ(tree().Text(1), "c:");
    EXPECT_TRUE(tree().Expanded(1));

    // The start folder of temporary files lies one level below the root;
    // it was read together with the root's children.
    ASSERT_EQ(tmpKey.count('\\'), 2) << tmpKey.toStdString();
    const int tmp = tree().IndexOf(tmpKey);
    ASSERT_NE(tmp, 0);
    EXPECT_EQ(tree().Tag(tmp), "*");
    const int ours = tree().IndexOf(ourKey);
    ASSERT_NE(ours, 0);
    EXPECT_EQ(tree().Text(ours), QFileInfo(dir_.path()).fileName());
    EXPECT_EQ(tree().Tag(ours), "");
    EXPECT_EQ(tree().Children(ours), 0);

    tree().SetExpanded(tmp, true);
    EXPECT_EQ(tree().Tag(ours), "*");
    EXPECT_EQ(tree().Children(ours), 2);
    const int alpha = tree().IndexOf(ourKey + "alpha\\");
    ASSERT_NE(alpha, 0);
    EXPECT_EQ(tree().Text(alpha), "Alpha");
    EXPECT_EQ(tree().IndexOf(ourKey + "alpha\\inner\\"), 0);  // two levels down: not yet
    EXPECT_EQ(tree().Parent(alpha), ours);
}

TEST_F(LocalPane, NodeClickAndDoubleClickKeepTreeComboAndListInStep) {
    Folder("Alpha/Inner");
    Make("Alpha/a.txt");
    Make("top.txt");
    auto& pane = frmLocal();
    const QString tmpKey = localfs::ToWindows(QFileInfo(dir_.path()).path()).toLower() + "\\";
    const QString ourKey = Win().toLower() + "\\";
    pane.ReadDrive("c:\\");
    tree().SetExpanded(tree().IndexOf(tmpKey), true);
    const int ours = tree().IndexOf(ourKey);
    ASSERT_NE(ours, 0);

    pane.cboLocal->Clear();
    pane.SetWidth(9000);
    pane.SetHeight(8000);
    pane.show();
    // The new combo entry's click reads the folder, then the node click
    // reads it again: each read repaints once at its first row.
    int reads = list().RefreshCount();
    ClickNode(ours);
    EXPECT_EQ(list().RefreshCount() - reads, 2);
    EXPECT_EQ(pane.cboLocal->ListCount(), 1);
    EXPECT_EQ(pane.cboLocal->List(0), ourKey.left(ourKey.size() - 1));
    EXPECT_EQ(Rows(), QStringList({"Alpha", "top.txt"}));
    EXPECT_EQ(pane.CurrentFolder(), Win() + "\\");

    // Clicked again, the node's entry is found and assigned twice, each
    // time with the combo's click: a collapsed node opens again.
    tree().collapseItem(tree().currentItem());
    ASSERT_FALSE(tree().Expanded(ours));
    reads = list().RefreshCount();
    ClickNode(ours);
    EXPECT_EQ(list().RefreshCount() - reads, 3);
    EXPECT_TRUE(tree().Expanded(ours));
    EXPECT_EQ(pane.cboLocal->ListCount(), 1);

    // A double click on a file changes nothing.
    list().DoubleClickRow(RowOf("top.txt"));
    EXPECT_EQ(Rows(), QStringList({"Alpha", "top.txt"}));

    reads = list().RefreshCount();
    list().DoubleClickRow(RowOf("Alpha"));
    EXPECT_EQ(list().RefreshCount() - reads, 2);  // its own read and the combo's
    EXPECT_EQ(Rows(), QStringList({"Inner", "a.txt"}));
    const int alpha = tree().IndexOf(ourKey + "alpha\\");
    EXPECT_EQ(tree().SelectedIndex(), alpha);
    EXPECT_EQ(pane.cboLocal->ListCount(), 2);
    EXPECT_EQ(pane.cboLocal->Text(), ourKey + "alpha");

    // The combo entry of the drive leads back to the root.
    pane.cboLocal->SetListIndex(0);
    EXPECT_EQ(tree().SelectedIndex(), ours);
}

TEST_F(LocalPane, DriveChangeRebuildsTreeAndComboAndF5WithoutANodeReadsTheRoot) {
    auto& pane = frmLocal();
    pane.drvDrive_Change();
    EXPECT_EQ(pane.cboLocal->ListCount(), 1);
    EXPECT_EQ(pane.cboLocal->List(0), "C:\\");
    EXPECT_EQ(pane.cboLocal->ListIndex(), 0);
    EXPECT_EQ(tree().Key(1), "c:\\");
    EXPECT_EQ(tree().SelectedIndex(), 1);
    EXPECT_GT(list().Count(), 0);

    tree().setCurrentItem(nullptr);
    ASSERT_EQ(tree().SelectedIndex(), 0);
    list().Clear();
    int f5 = 116;
    pane.lsvDirFile_KeyDown(f5, 0);
    EXPECT_GT(list().Count(), 0);
    EXPECT_NE(RowOf("tmp"), 0);

    // The refresh of the drive box leaves the rows alone.
    const int rows = list().Count();
    pane.tlbdrvDrive->Press("refresh");
    EXPECT_EQ(list().Count(), rows);
}

TEST_F(LocalPane, ViewButtonsKeepTheRows) {
    Make("one.txt");
    View(Win());
    frmLocal().tlbLocal->Press("eins");
    EXPECT_EQ(list().View(), 0);
    View(Win());
    EXPECT_EQ(list().View(), 0);  // a refresh keeps the view
    EXPECT_EQ(Rows(), QStringList({"one.txt"}));
    EXPECT_EQ(frmLocal().tlbLocal->Button(1)->description, GetLanguageText("FRMLOCAL_BIG"));
    EXPECT_EQ(frmLocal().tlbLocal->Button(2)->description, "");
}

TEST_F(LocalPane, TheStartReadsDriveCAndLeavesTheComboEmpty) {
    EXPECT_EQ(tree().Key(1), "c:\\");
    EXPECT_TRUE(tree().Expanded(1));
    EXPECT_EQ(tree().DropHighlight(), 1);
    EXPECT_EQ(frmLocal().cboLocal->ListCount(), 0);
    EXPECT_EQ(list().View(), 3);
    EXPECT_NE(RowOf("tmp"), 0);
    EXPECT_EQ(list().ColumnCount(), 5);
}

TEST_F(LocalPane, TheOtherReadersDifferOnlyInTheirParameters) {
    Make("a.txt");
    Make("B.txt");
    Make("empty.q", 0);
    Folder("Sub");
    auto read = [&](const LocalReaderVariant& variant) {
        QString p = Win();
        ViewLocalFolderWith(p, "*.*", variant, [](int) {});
    };
    read(PopupReader());
    EXPECT_EQ(Rows(), QStringList({"Sub", "B.txt", "a.txt", "empty.q"}));  // byte order
    EXPECT_EQ(list().SubItem(1, 4), "");                                     // no "D"
    EXPECT_EQ(list().SubItem(RowOf("empty.q"), 2), "ZQ-Datei");
    read(DownloadAsReader());
    EXPECT_EQ(list().SubItem(RowOf("empty.q"), 2), "");
    EXPECT_TRUE(QFileInfo::exists(dir_.path() + "/empty.q"));  // the delete of an open file fails
    read(DeleteReader());
    EXPECT_EQ(list().SubItem(1, 4), "D");
    // The pane's own: the pattern is honoured, and case is ignored.
    QString p = Win();
    frmLocal().ViewFolder(p, "*.TXT");
    EXPECT_EQ(Rows(), QStringList({"a.txt", "B.txt"}));
}

TEST(LocalFormats, DatesAttributesAndThePivot) {
    FILETIME ft = FileTimeFromUnix(983775845);  // 2001-03-05 07:04:05 UTC
    EXPECT_EQ(FormatLocalDate(ft), "05.03.2001 07:04:05");
    EXPECT_EQ(FormatLocalAttributes(0x1A1), "TRNA");
    EXPECT_EQ(FormatLocalAttributes(0x30), "DA");
    EXPECT_EQ(FormatLocalAttributes(0x30, false), "A");
    EXPECT_EQ(FormatLocalAttributes(0x14), "SD");
    EXPECT_EQ(FormatLocalAttributes(0x14, true, true), "DS");
    EXPECT_EQ(PivotIndex(1, 2), 2);
    EXPECT_EQ(PivotIndex(0, 1), 0);
    EXPECT_EQ(PivotIndex(2, 5), 4);
    EXPECT_EQ(DateiTypeText("zab"), "AB-Datei");
    EXPECT_EQ(DateiTypeText("z"), "Z-Datei");
}

}  // namespace
