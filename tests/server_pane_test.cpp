// The server pane against real servers: rows, columns, navigation, the
// combo of visited paths, type names and their cache.
#include "support/frame_fixture.h"
#include "support/ftp_server.h"

#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "server/formatters.h"
#include "server/frmServer.h"
#include "server/serverListing.h"
#include "server/serverRefresh.h"
#include "server/typeIcons.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QFile>
#include <QStringList>

namespace {

class ServerPane : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        StartFrame();
    }
    void ConnectTo(const FtpServer& s) { ASSERT_TRUE(Connect(s, /*full=*/true)); }
    static controls::ListView& list() { return *frmServer().lsvServer; }
    static controls::ComboBox& combo() { return *frmServer().cboServer; }
    static QStringList Rows() { return RowTexts(list()); }
    static int RowOf(const QString& text) { return FrameTest::RowOf(list(), text); }
    static QStringList ComboItems() {
        QStringList items;
        for (int i = 0; i < combo().ListCount(); ++i) items << combo().List(i);
        return items;
    }
};

TEST_F(ServerPane, ConnectShowsDotDotThenFoldersThenFilesWithTheirColumns) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("x.txt", QByteArray(1536, 'x'));
    server.MakeFolder("alpha");
    server.WriteFile("empty.bin", QByteArray());
    server.MakeFolder("beta");
    ConnectTo(server);

    const QStringList rows = Rows();
    ASSERT_EQ(rows.size(), 5);
    EXPECT_EQ(rows[0], "..");
    EXPECT_EQ(QSet<QString>({rows[1], rows[2]}), QSet<QString>({"alpha", "beta"}));
    EXPECT_EQ(QSet<QString>({rows[3], rows[4]}), QSet<QString>({"x.txt", "empty.bin"}));
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
    EXPECT_EQ(list().SubItem(RowOf("empty.bin"), 1), "1 KB");
    const QRegularExpression date("^\\d\\d\\.\\d\\d\\.\\d{4} \\d\\d:\\d\\d$");
    EXPECT_TRUE(date.match(list().SubItem(text, 3)).hasMatch()) << list().SubItem(text, 3).toStdString();

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
    ConnectTo(server);
    ASSERT_TRUE(SetServerDirectory(server.root()));
    frmServer().RefreshServer(hConnection);

    EXPECT_EQ(Rows().indexOf("open"), 1);
    const int locked = RowOf("locked");
    ASSERT_GT(locked, 2);  // after the folders, among the files
    EXPECT_EQ(list().SubItem(locked, 1), "4 KB");
    EXPECT_EQ(list().SubItem(locked, 4), "RD");
    // A double click on it goes by the size text and stays put.
    list().DoubleClickRow(locked);
    EXPECT_EQ(GetServerDirectory(), server.root());
}

TEST_F(ServerPane, TypeTextsAreAskedOncePerExtensionAndFixedTypesGetNumberedKeys) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    for (const char* name : {"a.txt", "b.TXT", "c.txt"}) server.WriteFile(QString("text/") + name, "x");
    for (const char* name : {"one.exe", "two.exe"}) server.WriteFile(QString("progs/") + name, "x");
    ConnectTo(server);

    SetServerDirectory("text");
    ResetServerFiles();
    const int before = ShellTypeLookups();
    ReadServerDirectory("*.*", hConnection);
    EXPECT_EQ(ShellTypeLookups() - before, 1);
    EXPECT_EQ(UBoundServerFiles(), 3);
    frmServer().RefreshServer(hConnection);
    const QString type = list().SubItem(RowOf("a.txt"), 2);
    for (const char* name : {"a.txt", "b.TXT", "c.txt"}) {
        EXPECT_EQ(list().IconKey(RowOf(name)), "ztxt");
        EXPECT_EQ(list().SubItem(RowOf(name), 2), type);
    }

    SetServerDirectory("/progs");
    const int beforeExe = ShellTypeLookups();
    frmServer().RefreshServer(hConnection);
    EXPECT_EQ(ShellTypeLookups(), beforeExe);  // no shell call for the fixed types
    QStringList keys;
    for (const char* name : {"one.exe", "two.exe"}) {
        keys << list().IconKey(RowOf(name));
        EXPECT_EQ(list().SubItem(RowOf(name), 2), "Anwendung");
    }
    keys.sort();
    EXPECT_EQ(keys, QStringList({"zexe0", "zexe1"}));
}

TEST_F(ServerPane, ExtensionsWithoutATypeTextGetTheFallbacksButTheFirstEntryDoesNot) {
    FtpServer server(FtpServer::Kind::Vsftpd);
    server.WriteFile("data.qqzz", "1");
    server.WriteFile("more.qqzz", "2");
    server.WriteFile("other.zzqq", "3");
    ConnectTo(server);
    ASSERT_TRUE(SetServerDirectory(server.root()));
    frmServer().RefreshServer(hConnection);
    // The first entry of the listing keeps an empty type; entries after it
    // of the same extension get "QZZ-" and the catalogue's word, others the
    // "-Datei" text.
    ASSERT_GE(UBoundServerFiles(), 3);
    const tServerFile& first = arrServerFiles[0];
    EXPECT_EQ(first.sType, "");
    for (int i = 1; i < UBoundServerFiles(); ++i) {
        const tServerFile& f = arrServerFiles[size_t(i)];
        const QString ext = GetExtension(f.sName).toLower();
        if (ext == GetExtension(first.sName).toLower())
            EXPECT_EQ(f.sType, ("z" + ext).right(3).toUpper() + "-" + GetLanguageText("DATEI"));
        else
            EXPECT_EQ(f.sType, ext.toUpper() + "-Datei");
    }
}

TEST_F(ServerPane, NoDummyFileIsLeftBehindByARead) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("left.abc", "1");
    server.WriteFile("right.xyz", "2");
    ConnectTo(server);
    for (const QString& folder : shell::TempFolderCandidates()) {
        const QDir dir(localfs::ToPosix(folder));
        if (dir.exists()) {
            EXPECT_FALSE(dir.exists("left.abc"));
            EXPECT_FALSE(dir.exists("right.xyz"));
        }
    }
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
}

TEST_F(ServerPane, MoreFoldersThanTheTableHoldsHaveTwoDifferentOutcomes) {
    FtpServer server(FtpServer::Kind::Vsftpd);
    for (int i = 0; i < kFolderTableRows + 4; ++i)
        QDir().mkpath(server.root() + QString("/many/f%1.d").arg(i, 5, 10, QChar('0')));
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
    EXPECT_EQ(list().Text(list().Count()), "zz.txt");
}

TEST(ServerFormatters, SizesDatesAttributesAndExtensions) {
    EXPECT_EQ(FormatSizeKB(0), "1 KB");
    EXPECT_EQ(FormatSizeKB(512), "1 KB");
    EXPECT_EQ(FormatSizeKB(1024), "1 KB");
    EXPECT_EQ(FormatSizeKB(1536), "2 KB");
    EXPECT_EQ(FormatSizeKB(2560), "2 KB");
    EXPECT_EQ(FormatSizeKB(3584), "4 KB");
    EXPECT_EQ(FormatSizeKB(int32_t(uint32_t(2147483648u))), "-2097152 KB");
    SYSTEMTIME t;
    t.wYear = 2001, t.wMonth = 3, t.wDay = 5, t.wHour = 7, t.wMinute = 4;
    EXPECT_EQ(FormatServerDate(t), "05.03.2001 07:04");
    EXPECT_EQ(FormatAttributes(0x1A1), "TRNA");
    EXPECT_EQ(FormatAttributes(16), "D");
    EXPECT_EQ(FormatAttributes(33), "RA");
    EXPECT_EQ(FormatAttributes(0), "");
    EXPECT_EQ(GetExtension("archive.tar.GZ"), "GZ");
    EXPECT_EQ(GetExtension("README"), "README");
    EXPECT_EQ(GetExtension(".profile"), "profile");
    EXPECT_EQ(GetExtension("dot."), "");
    EXPECT_EQ(GetExtension(""), "");
}

}  // namespace
