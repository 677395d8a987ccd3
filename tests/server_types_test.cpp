// Type texts and pictures of server names: the shell asked once per
// extension and read, the fixed per-file types, the fall-backs, the cache
// searched as text, the dummy files; and the row formatters.
#include "support/server_pane.h"

#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/shell.h"
#include "platform/tempfolder.h"
#include "server/formatters.h"
#include "server/serverListing.h"
#include "server/typeIcons.h"
#include "shared/mPublic.h"
#include "shared/typeTexts.h"

#include <QDir>
#include <QFileInfo>
#include <unistd.h>

namespace {

using ServerPane = ServerPaneTest;

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

    // The numbers restart with every read.
    frmServer().RefreshServer(hConnection);
    keys.clear();
    for (const char* name : {"one.exe", "two.exe"}) keys << list().IconKey(RowOf(name));
    keys.sort();
    EXPECT_EQ(keys, QStringList({"zexe0", "zexe1"}));
}

TEST_F(ServerPane, FixedTypesShortcutsIconsCursorsAndASingleEntry) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    for (const char* name : {"shortcut.lnk", "x.ico", "y.cur"}) server.WriteFile(QString("fixed/") + name, "x");
    server.WriteFile("single/archive.tar.GZ", "x");
    ConnectTo(server);

    SetServerDirectory("fixed");
    frmServer().RefreshServer(hConnection);
    EXPECT_EQ(list().SubItem(RowOf("shortcut.lnk"), 2), "Verknüpfung");
    EXPECT_EQ(list().SubItem(RowOf("x.ico"), 2), "Symbol");
    EXPECT_EQ(list().SubItem(RowOf("y.cur"), 2), "Cursor");
    // One counter for all four extensions.
    QStringList keys;
    for (const char* name : {"shortcut.lnk", "x.ico", "y.cur"}) keys << list().IconKey(RowOf(name)).right(1);
    keys.sort();
    EXPECT_EQ(keys, QStringList({"0", "1", "2"}));

    SetServerDirectory("/single");
    ResetServerFiles();
    ReadServerDirectory("*.*", hConnection);
    ASSERT_EQ(UBoundServerFiles(), 1);
    EXPECT_EQ(arrServerFiles[0].sName, "archive.tar.GZ");
    EXPECT_EQ(arrServerFiles[0].sExtension, "zgz");
    EXPECT_EQ(arrServerFiles[0].sAttributes, "128");
    EXPECT_EQ(arrServerFiles[0].sSize, "1 KB");
    EXPECT_TRUE(arrServerFiles[1].sName.isEmpty());  // the spare element
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

TEST_F(ServerPane, TheTypeCacheIsSearchedAsTextSoAKeyInsideAnOddPairIsFound) {
    FtpServer server(FtpServer::Kind::Vsftpd);  // lists in name order
    server.WriteFile("s.a|zqqb", "1");  // key "za|zqqb", type text empty
    server.WriteFile("u.qqb", "2");     // "|zqqb=" stands inside that pair
    ConnectTo(server);
    ASSERT_TRUE(SetServerDirectory(server.root()));
    ResetServerFiles();
    const int before = ShellTypeLookups();
    ReadServerDirectory("*.*", hConnection);
    ASSERT_EQ(UBoundServerFiles(), 2);
    EXPECT_EQ(ShellTypeLookups() - before, 1);
    EXPECT_EQ(arrServerFiles[0].sExtension, "za|zqqb");
    EXPECT_EQ(arrServerFiles[1].sName, "u.qqb");
    EXPECT_EQ(arrServerFiles[1].sType, "QQB-" + GetLanguageText("DATEI"));
}

TEST_F(ServerPane, NoDummyFileIsLeftBehindByARead) {
    // The dummies are links to a spare file the read keeps beside them; a
    // server file of the spare's own name must neither break the read nor
    // leave anything behind.
    const QString spare = ".ferrydock-spare-" + QString::number(qint64(getpid()));
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("left.abc", "1");
    server.WriteFile(spare + ".qqx", "2");
    server.WriteFile(spare, "3");
    server.WriteFile("right.xyz", "4");
    ConnectTo(server);
    EXPECT_EQ(list().Count(), 5);
    for (const QString& folder : tempfolder::Candidates()) {
        const QDir dir(localfs::ToPosix(folder));
        if (!dir.exists()) continue;
        for (const QString& name : {QString("left.abc"), QString("right.xyz"), spare, spare + ".qqx"})
            EXPECT_FALSE(QFileInfo::exists(dir.filePath(name))) << qPrintable(name);
    }
    // Made and removed twice per new name: the type text is asked once each.
    frmServer().RefreshServer(hConnection);
    EXPECT_EQ(list().Count(), 5);
    for (const QString name : {"left.abc", "right.xyz"}) {
        const QString expected = arrServerFiles[0].sName == name ? "" : GetExtension(name).toUpper() + "-Datei";
        EXPECT_EQ(list().SubItem(RowOf(name), 2), expected) << qPrintable(name);
    }
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
