// The server pane against real servers: rows, columns, navigation, the
// combo of visited paths, views, a server that cannot say where it is,
// Latin-1 names.
#include "support/server_pane.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "server/serverListing.h"
#include "server/serverRefresh.h"
#include "shared/mPublic.h"
#include "transfer/upload.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringList>
#include <QTemporaryDir>
#include <QTimeZone>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using ServerPane = ServerPaneTest;

TEST_F(ServerPane, ConnectShowsDotDotThenFoldersThenFilesWithTheirColumns) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("x.txt", QByteArray(1536, 'x'));
    server.MakeFolder("alpha");
    server.WriteFile("empty.bin", QByteArray());
    server.MakeFolder("beta");
    {
        // Sparse: 2 GiB of nothing, whose low size word reads negative.
        QFile big(server.root() + "/big.iso");
        ASSERT_TRUE(big.open(QIODevice::WriteOnly) && big.resize(qint64(2147483648LL)));
    }
    // Recent enough that a LIST line carries the time of day too.
    const QDateTime stamp(QDate::currentDate().addDays(-10), QTime(7, 4, 31), QTimeZone::utc());
    QFile stamped(server.root() + "/x.txt");
    ASSERT_TRUE(stamped.open(QIODevice::ReadWrite));
    ASSERT_TRUE(stamped.setFileTime(stamp, QFileDevice::FileModificationTime));
    stamped.close();
    ConnectTo(server);

    const QStringList rows = Rows();
    ASSERT_EQ(rows.size(), 6);
    EXPECT_EQ(rows[0], "..");
    EXPECT_EQ(QSet<QString>({rows[1], rows[2]}), QSet<QString>({"alpha", "beta"}));
    EXPECT_EQ(QSet<QString>({rows[3], rows[4], rows[5]}), QSet<QString>({"x.txt", "empty.bin", "big.iso"}));
    for (int sub = 1; sub <= 4; ++sub) EXPECT_EQ(list().SubItem(1, sub), "");

    const int folder = RowOf("alpha");
    EXPECT_EQ(list().SubItem(folder, 1), "");
    EXPECT_EQ(list().SubItem(folder, 2), GetLanguageText("MPUB_FOLDER"));
    EXPECT_EQ(list().SubItem(folder, 4), "D");
    EXPECT_EQ(list().IconKey(folder), "zdirectoryx");

    const int text = RowOf("x.txt");
    EXPECT_EQ(list().SubItem(text, 1), "2 KB");
    EXPECT_FALSE(list().SubItem(text, 2).isEmpty());
    EXPECT_EQ(list().SubItem(text, 4), "N");
    EXPECT_EQ(list().IconKey(text), "ztxt");
    EXPECT_EQ(list().SubItem(text, 3), stamp.toString("dd.MM.yyyy 07:04"));  // as the server states it
    EXPECT_EQ(list().SubItem(RowOf("empty.bin"), 1), "1 KB");
    EXPECT_EQ(list().SubItem(RowOf("big.iso"), 1), "-2097152 KB");
    // The reader keys a folder by its name; only its row uses the folder picture.
    for (int i = 0; i < UBoundServerFiles(); ++i)
        if (arrServerFiles[size_t(i)].sName == "alpha") {
            EXPECT_EQ(arrServerFiles[size_t(i)].sExtension, "zalpha");
        }

    EXPECT_EQ(ComboItems(), QStringList({"/"}));
    EXPECT_EQ(combo().ListIndex(), 0);
    EXPECT_EQ(list().SelectedIndex(), 1);  // the ".." row after every fill
}

TEST_F(ServerPane, DoubleClickGoesDownAndDotDotComesBackWithoutADuplicatePath) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.MakeFolder("docs/empty");
    server.WriteFile("docs/a.txt", "a");
    server.WriteFile("top.txt", "t");
    ConnectTo(server);

    list().DoubleClickRow(RowOf("top.txt"));  // a file row changes nothing
    EXPECT_EQ(GetServerDirectory(), "/");
    EXPECT_EQ(MousePointer(), 0);

    list().DoubleClickRow(RowOf("docs"));
    EXPECT_EQ(GetServerDirectory(), "/docs");
    EXPECT_EQ(Rows(), QStringList({"..", "empty", "a.txt"}));
    EXPECT_EQ(ComboItems(), QStringList({"/", "/docs"}));
    EXPECT_EQ(combo().Text(), "/docs");

    list().DoubleClickRow(RowOf("empty"));
    EXPECT_EQ(Rows(), QStringList({".."}));  // an empty folder shows ".." alone

    list().DoubleClickRow(RowOf(".."));
    list().DoubleClickRow(RowOf(".."));
    EXPECT_EQ(GetServerDirectory(), "/");
    EXPECT_EQ(ComboItems(), QStringList({"/", "/docs", "/docs/empty"}));
    EXPECT_EQ(combo().Text(), "/");
    EXPECT_TRUE(Rows().contains("top.txt"));
}

TEST_F(ServerPane, ComboChoiceRereadsThatFolderAndObenGoesWhereTheSelectionLeads) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("sub/inner.txt", "i");
    server.WriteFile("root.txt", "r");
    ConnectTo(server);
    list().DoubleClickRow(RowOf("sub"));
    ASSERT_EQ(ComboItems(), QStringList({"/", "/sub"}));

    combo().SetListIndex(0);
    EXPECT_EQ(GetServerDirectory(), "/");
    EXPECT_TRUE(Rows().contains("root.txt"));
    EXPECT_EQ(ComboItems().size(), 2);  // the combo's own refresh adds nothing

    // With a folder row selected "oben" enters it.
    list().SetSelected(RowOf("sub"), true);
    frmServer().tlbServerLinks->Press("oben");
    EXPECT_EQ(GetServerDirectory(), "/sub");
    // After the refresh ".." is selected again: one level up.
    frmServer().tlbServerLinks->Press("oben");
    EXPECT_EQ(GetServerDirectory(), "/");
    // In the root the server stays where it is and the list with it.
    const QStringList before = Rows();
    frmServer().tlbServerLinks->Press("oben");
    EXPECT_EQ(GetServerDirectory(), "/");
    EXPECT_EQ(Rows(), before);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ServerPane, AFirstVisitReadsTwiceThroughTheComboWhileF5AndAComboChoiceReadOnce) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("d/only.txt", "x");
    ConnectTo(server);
    // One extension in the folder: one type lookup per read of it.
    int before = ShellTypeLookups();
    list().DoubleClickRow(RowOf("d"));
    EXPECT_EQ(ShellTypeLookups() - before, 2);
    EXPECT_EQ(Rows(), QStringList({"..", "only.txt"}));

    before = ShellTypeLookups();
    int key = 116;  // F5
    frmServer().lsvServer_KeyDown(key, 0);
    EXPECT_EQ(ShellTypeLookups() - before, 1);
    EXPECT_EQ(MousePointer(), 0);

    combo().SetListIndex(0);
    before = ShellTypeLookups();
    combo().SetListIndex(1);
    EXPECT_EQ(ShellTypeLookups() - before, 1);
    EXPECT_EQ(GetServerDirectory(), "/d");
    EXPECT_EQ(ComboItems(), QStringList({"/", "/d"}));
}

TEST_F(ServerPane, AServerListingDotAndDotDotGetsTwoMoreFolderRows) {
    FtpServer server(FtpServer::Kind::PyftpdlibWithDots);
    server.MakeFolder("sub");
    server.WriteFile("f.txt", "f");
    ConnectTo(server);
    EXPECT_EQ(Rows(), QStringList({"..", ".", "..", "sub", "f.txt"}));
    EXPECT_EQ(list().SubItem(2, 2), GetLanguageText("MPUB_FOLDER"));
    // The server's own ".." row leads up like the fixed one.
    list().DoubleClickRow(4);
    EXPECT_EQ(GetServerDirectory(), "/sub");
    list().DoubleClickRow(3);
    EXPECT_EQ(GetServerDirectory(), "/");
}

TEST_F(ServerPane, ReadOnlyFolderStandsAmongTheFilesAndAttributesFollowTheListing) {
    FtpServer server(FtpServer::Kind::Vsftpd);
    server.MakeFolder("locked");
    QFile::setPermissions(server.root() + "/locked", QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                                          QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther);
    server.MakeFolder("open");
    server.WriteFile("note.txt", "n");
    server.WriteFile("fixed.txt", "f");
    QFile::setPermissions(server.root() + "/fixed.txt", QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    ConnectTo(server);
    ASSERT_TRUE(SetServerDirectory(server.root()));
    frmServer().RefreshServer(hConnection);

    EXPECT_EQ(Rows().indexOf("open"), 1);
    const int locked = RowOf("locked");
    ASSERT_GT(locked, 2);  // after the folders, among the files
    EXPECT_EQ(list().SubItem(locked, 1), "4 KB");
    EXPECT_EQ(list().SubItem(locked, 4), "RD");
    EXPECT_FALSE(list().SubItem(locked, 2).isEmpty());
    EXPECT_EQ(list().SubItem(RowOf("note.txt"), 4), "N");
    EXPECT_EQ(list().SubItem(RowOf("fixed.txt"), 4), "RN");
    // A double click on it goes by the size text and stays put.
    list().DoubleClickRow(locked);
    EXPECT_EQ(GetServerDirectory(), server.root());
}

TEST_F(ServerPane, ViewsKeepTheRowsAndCommandsWithoutAConnectionSaySo) {
    auto& links = *frmServer().tlbServerLinks;
    ASSERT_EQ(links.ButtonCount(), 6);
    EXPECT_EQ(links.Button(4)->key, "oben");
    EXPECT_EQ(links.Button(4)->ToolTipText(), GetLanguageText("FRMSERVER_UPPER"));
    EXPECT_EQ(links.Button(4)->description, GetLanguageText("FRMSERVER_UPPER"));
    EXPECT_EQ(links.Button(1)->description, "");
    EXPECT_EQ(list().ColumnHeader(2), GetLanguageText("FRMSERVER_SIZE"));
    EXPECT_EQ(list().View(), 3);

    links.Press("actualize");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("FRMSERVER_NOCONNECTION"));
    EXPECT_EQ(boxes[0].flags, 64);

    frmServer().tlbServerRechts->Press("eins");
    EXPECT_EQ(list().View(), 0);
    frmServer().tlbServerRechts->Press("drei");
    EXPECT_EQ(list().View(), 2);
    EXPECT_EQ(boxes.size(), 1u);  // the view buttons need no connection
    EXPECT_EQ(frmServer().tlbServerRechts->Button(1)->description, GetLanguageText("FRMSERVER_BIG"));
    EXPECT_EQ(frmServer().tlbServerRechts->Button(2)->description, "");
}

TEST_F(ServerPane, AViewChangeKeepsTheRowsAndTheSelection) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("a.txt", "a");
    server.WriteFile("b.txt", "b");
    ConnectTo(server);
    const QStringList before = Rows();
    list().SetSelected(1, false);
    list().SetSelected(RowOf("b.txt"), true);
    for (const char* key : {"eins", "zwei", "drei", "vier"}) {
        frmServer().tlbServerRechts->Press(key);
        EXPECT_EQ(Rows(), before);
        EXPECT_TRUE(list().Selected(RowOf("b.txt"))) << key;
        EXPECT_FALSE(list().Selected(1)) << key;
    }
}

TEST_F(ServerPane, MoreFoldersThanTheTableHoldsHaveTwoDifferentOutcomes) {
    FtpServer server(FtpServer::Kind::Vsftpd);
    // Ten thousand folders cost seconds to make and remove on a disk; in
    // memory, where there is such a place, they cost nothing.
    QTemporaryDir memory(QDir("/dev/shm").exists() ? "/dev/shm/ferrydock-XXXXXX" : QDir::tempPath() + "/fd-XXXXXX");
    ASSERT_TRUE(memory.isValid());
    ASSERT_TRUE(QFile::link(memory.path(), server.root() + "/many"));
    for (int i = 0; i < kFolderTableRows + 4; ++i)
        QDir().mkpath(memory.path() + QString("/f%1.d").arg(i, 5, 10, QChar('0')));
    server.WriteFile("many/zz.txt", "z");
    ConnectTo(server);
    ASSERT_TRUE(SetServerDirectory(server.root() + "/many"));

    // The first refresh selects the new path in the combo, whose own
    // refresh reads again and stops at the first folder too many: no rows.
    frmServer().RefreshServer(hConnection);
    EXPECT_EQ(list().Count(), 0);

    // With the path selected already, the refresh stands alone: "..", the
    // folders the table holds, and the file.
    frmServer().RefreshServer(hConnection);
    EXPECT_EQ(list().Count(), 1 + kFolderTableRows + 1);
    EXPECT_EQ(list().Text(kFolderTableRows + 1), "f10000.d");
    EXPECT_EQ(list().SubItem(kFolderTableRows + 1, 2), GetLanguageText("MPUB_FOLDER"));
    EXPECT_EQ(list().Text(list().Count()), "zz.txt");
    EXPECT_EQ(list().SubItem(list().Count(), 1), "1 KB");
    QFile::remove(server.root() + "/many");
}

TEST_F(ServerPane, AFailingPwdMakesTheReadStartAtTheRootAndTheComboShowAnEmptyLine) {
    FtpServer server(FtpServer::Kind::PyftpdlibPwdFails);
    server.WriteFile("root.txt", "r");
    server.WriteFile("sub/inner.txt", "i");
    ConnectTo(server);
    mdiMain().timIsConnected->SetEnabled(false);  // it would find the connection lost
    EXPECT_TRUE(Rows().contains("root.txt"));
    EXPECT_EQ(ComboItems(), QStringList{""});
    EXPECT_EQ(combo().ListIndex(), 0);

    // Where the server can't say where it is, the read goes to "/" first.
    ASSERT_TRUE(SetServerDirectory("sub"));
    frmServer().RefreshServer(hConnection);
    EXPECT_TRUE(Rows().contains("root.txt"));
    EXPECT_FALSE(Rows().contains("inner.txt"));
    EXPECT_EQ(ComboItems(), QStringList{""});
}

TEST_F(ServerPane, TheHourglassStandsOnceAndGoesWhateverTheNesting) {
    SetMousePointer(vbHourglass);
    SetMousePointer(vbHourglass);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    SetMousePointer(vbDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    SetMousePointer(vbDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    // The refresh button sets it, and the combo's click that the refresh
    // raises inside sets and clears it again.
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.MakeFolder("sub");
    ConnectTo(server);
    ASSERT_TRUE(SetServerDirectory("sub"));
    frmServer().tlbServerLinks->Press("actualize");
    EXPECT_EQ(combo().Text(), "/sub");
    EXPECT_EQ(MousePointer(), vbDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ServerPane, Latin1NamesGoBothWaysUnchanged) {
    // vsftpd without UTF8: names travel as Latin-1 bytes.
    FtpServer server(FtpServer::Kind::VsftpdLatin1);
    const QByteArray root = QFile::encodeName(server.root());
    const auto put = [&](const QByteArray& name, const QByteArray& content) {
        const int fd = ::open((root + "/" + name).constData(), O_CREAT | O_WRONLY | O_TRUNC, 0644);
        ASSERT_GE(fd, 0);
        ASSERT_EQ(::write(fd, content.constData(), size_t(content.size())), content.size());
        ::close(fd);
    };
    // Names that aren't UTF-8 can't be removed by name through Qt: these go
    // by their bytes.
    struct Cleanup {
        QByteArray root;
        ~Cleanup() {
            ::unlink((root + "/caf\xe9.txt").constData());
            ::unlink((root + "/Gr\xfc\xdf" "e.txt").constData());
            ::unlink((root + "/\xdc" "bersicht/inner.txt").constData());
            ::rmdir((root + "/\xdc" "bersicht").constData());
        }
    } cleanup{root};
    put("caf\xe9.txt", "coffee");
    ASSERT_EQ(::mkdir((root + "/\xdc" "bersicht").constData(), 0755), 0);
    put("\xdc" "bersicht/inner.txt", "inside");
    ConnectTo(server);
    ASSERT_TRUE(SetServerDirectory(server.serverRoot()));
    frmServer().RefreshServer(hConnection);
    EXPECT_NE(RowOf(QString::fromUtf8("café.txt")), 0) << Rows().join(u'|').toStdString();
    ASSERT_NE(RowOf(QString::fromUtf8("Übersicht")), 0);

    // Into the folder and back, by its name.
    list().DoubleClickRow(RowOf(QString::fromUtf8("Übersicht")));
    EXPECT_EQ(Rows(), QStringList({"..", "inner.txt"}));
    EXPECT_EQ(combo().Text(), server.root() + QString::fromUtf8("/Übersicht"));
    list().DoubleClickRow(RowOf(".."));

    // An upload lands under the Latin-1 bytes of its name.
    QTemporaryDir local;
    const QString upload = QString::fromUtf8("Grüße.txt");
    QFile out(local.path() + "/" + upload);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write("greetings");
    out.close();
    QString from = localfs::ToWindows(out.fileName());
    QString to = upload;
    ASSERT_TRUE(UploadFile(from, to));
    EXPECT_EQ(::access((root + "/Gr\xfc\xdf" "e.txt").constData(), F_OK), 0);
    frmServer().RefreshServer(hConnection);
    EXPECT_NE(RowOf(upload), 0);

    // A download brings the file back under its name.
    const QString target = localfs::ToWindows(local.path()) + QString::fromUtf8("\\café.txt");
    ASSERT_TRUE(FtpGetFileA(hConnection, QString::fromUtf8("café.txt"), target, false, 0, FTP_TRANSFER_TYPE_BINARY, 0));
    QFile back(local.path() + QString::fromUtf8("/café.txt"));
    ASSERT_TRUE(back.open(QIODevice::ReadOnly));
    EXPECT_EQ(back.readAll(), "coffee");
}

}  // namespace
