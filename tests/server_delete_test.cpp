// Deleting the server pane's selection against real servers: the order of
// the FTP actions, what is left alone, refusals, the log and the combo;
// and the text replacement the walk builds its paths with.
#include "support/server_pane.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "serverops/frmPopUpfrmServer.h"
#include "serverops/mDelete.h"
#include "shared/mPublic.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {

using Kind = FtpServer::Kind;

class ServerDelete : public ServerPaneTest {
protected:
    void Open(const FtpServer& s) { ConnectInRoot(s); }
    // The deletes and removals the server carried out or refused.
    static QStringList Actions(const FtpServer& s) {
        return s.Commands().filter(QRegularExpression("^(DELE|RMD) "));
    }
    QStringList Log() const { return ColouredLog(); }
    static QString Deleting(const QString& path) { return GetLanguageText("MDEL_DELFILE") + " " + path + "|black"; }
    static QString Ok() { return GetLanguageText("MDEL_DELOK") + "|green"; }
    static QString Failed() { return GetLanguageText("MDEL_DELFAILED") + "|red"; }
};

// Both servers refuse a CWD without a folder, as the walk needs.
class ServerDeleteOnBoth : public ServerDelete, public ::testing::WithParamInterface<Kind> {};

TEST_P(ServerDeleteOnBoth, AFolderGoesFilesFirstThenItsFoldersDeepestFirstEachLineInItsColour) {
    FtpServer server(GetParam());
    server.WriteFile("a/f", "f");
    server.WriteFile("a/b/g", "g");
    server.WriteFile("keep.txt", "k");
    Open(server);
    const QString here = server.serverRoot() == "/" ? "" : server.serverRoot();
    const HINTERNET before = hConnection;

    ClickRow("a");
    ClickButton("del");

    EXPECT_FALSE(server.Exists("a"));
    EXPECT_TRUE(server.Exists("keep.txt"));
    // Files below the first level show the walk's doubled "/".
    EXPECT_EQ(Log(), QStringList({Deleting(here + "/a/f"), Ok(), Deleting(here + "/a/b//g"), Ok(),
                                  Deleting(here + "/a/b/"), Ok(), Deleting(here + "/a"), Ok()}));
    EXPECT_EQ(Rows(), QStringList({"..", "keep.txt"}));
    EXPECT_EQ(GetServerDirectory(), server.serverRoot());
    EXPECT_NE(hConnection, before);  // the run ends on a new connection
    EXPECT_FALSE(mdiMain().pgbBottom->isVisible());
    EXPECT_EQ(mdiMain().pgbBottom->Max(), 4);
    EXPECT_EQ(MousePointer(), 0);
    // The list: the selected folder, then a folder's entries in the
    // server's order before anything of its sub-folders, and a spare.
    ASSERT_EQ(UBoundDeleteItems(), 4);
    EXPECT_EQ(arrDeleteItems[0].sPath, here + "/a");
    EXPECT_EQ(arrDeleteItems[0].sAttributes, "16");
    QStringList level;
    for (int i = 1; i <= 2; ++i) level << arrDeleteItems[size_t(i)].sName + "@" + arrDeleteItems[size_t(i)].sPath;
    level.sort();
    EXPECT_EQ(level, QStringList({"@" + here + "/a/b/", "f@" + here + "/a/"}));
    EXPECT_EQ(arrDeleteItems[3].sName, "g");
    EXPECT_EQ(arrDeleteItems[3].sPath, here + "/a/b//");
    EXPECT_TRUE(arrDeleteItems[4].sName.isEmpty() && arrDeleteItems[4].sPath.isEmpty());
}

TEST_P(ServerDeleteOnBoth, AnEmptyFolderIsOneRemovalAndFilesGoBeforeFoldersWhateverTheRowOrder) {
    FtpServer server(GetParam());
    server.MakeFolder("empty");
    server.WriteFile("full/in.txt", "i");
    server.WriteFile("z.txt", "z");
    Open(server);
    const QString here = server.serverRoot() == "/" ? "" : server.serverRoot();

    ClickRow("empty");
    ClickButton("del");
    EXPECT_FALSE(server.Exists("empty"));
    EXPECT_EQ(Log(), QStringList({Deleting(here + "/empty"), Ok()}));

    frmTransferHistory().rtfTransferHistory->SetText("");
    ClickRow("full");
    ClickRow("z.txt", Qt::ControlModifier);
    ClickButton("del");
    EXPECT_EQ(Log(), QStringList({Deleting(here + "/z.txt"), Ok(), Deleting(here + "/full/in.txt"), Ok(),
                                  Deleting(here + "/full"), Ok()}));
    EXPECT_EQ(Rows(), QStringList({".."}));
}

TEST_P(ServerDeleteOnBoth, TheDeleteKeyAsksFirstAndLeavesDotDotAndDoublePointNamesAlone) {
    FtpServer server(GetParam());
    server.WriteFile("a..b", "x");
    server.WriteFile("x.txt", "x");
    Open(server);

    ClickRow("a..b");
    ClickRow("x.txt", Qt::ControlModifier);
    PressKey(Qt::Key_Delete);  // answered No
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, "Delete Selection?");
    EXPECT_EQ(boxes[0].title, "Ferrydock");
    EXPECT_EQ(boxes[0].flags, vbYesNo);
    EXPECT_TRUE(server.Exists("x.txt"));
    EXPECT_TRUE(LogText().isEmpty());

    boxAnswers.push_back(vbYes);
    ClickRow("..");
    ClickRow("a..b", Qt::ControlModifier);
    ClickRow("x.txt", Qt::ControlModifier);
    PressKey(Qt::Key_Delete);
    EXPECT_TRUE(server.Exists("a..b"));  // nothing says so
    EXPECT_FALSE(server.Exists("x.txt"));
    EXPECT_EQ(Log().size(), 2);
    EXPECT_EQ(Rows(), QStringList({"..", "a..b"}));
}

INSTANTIATE_TEST_SUITE_P(Servers, ServerDeleteOnBoth, ::testing::Values(Kind::PyftpdlibBareCwdFails, Kind::Vsftpd),
                         [](const auto& info) { return info.param == Kind::Vsftpd ? "vsftpd" : "pyftpdlib"; });

TEST_F(ServerDelete, TheServerSeesEachFileDeletedInItsFolderAndEachFolderRemovedFromItsParent) {
    FtpServer server(Kind::PyftpdlibBareCwdFails);
    server.WriteFile("a/f", "f");
    server.WriteFile("a/b/g", "g");
    Open(server);
    server.ClearCommands();

    ClickRow("a");
    ClickButton("del");
    EXPECT_EQ(Actions(server), QStringList({"DELE /a/f 250", "DELE /a/b/g 250", "RMD /a/b 250", "RMD /a 250"}));
    // Each file is reached from the root; the folders' parents from where
    // the run started.
    const QStringList cwd = server.Commands().filter(QRegularExpression("^CWD "));
    EXPECT_TRUE(cwd.contains("CWD /a/b 250"));
}

// A server that takes a CWD without a folder for the root (pyftpdlib does)
// must not draw the walk's empty path parts out of the folder: the file
// deleted is the one in the folder, never its namesake in the root.
TEST_F(ServerDelete, DISABLED_EmptyPathPartsNeverLeadAFileDeleteToTheRoot) {
    FtpServer server(Kind::Pyftpdlib);
    server.WriteFile("a/f", "in a");
    server.WriteFile("f", "in the root");
    Open(server);

    ClickRow("a");
    ClickButton("del");
    EXPECT_TRUE(server.Exists("f"));
    EXPECT_FALSE(server.Exists("a"));
}

TEST_F(ServerDelete, OnlyDotDotSelectedDeletesNothingButReconnectsAndDropsGonePathsFromTheCombo) {
    FtpServer server(Kind::PyftpdlibBareCwdFails);
    server.MakeFolder("gone");
    server.MakeFolder("stays");
    Open(server);
    list().DoubleClickRow(RowOf("gone"));
    list().DoubleClickRow(RowOf(".."));
    list().DoubleClickRow(RowOf("stays"));
    list().DoubleClickRow(RowOf(".."));
    ASSERT_EQ(ComboItems(), QStringList({"/", "/gone", "/stays"}));
    QDir(server.root() + "/gone").removeRecursively();  // behind the program's back
    server.ClearCommands();
    const HINTERNET before = hConnection;
    boxAnswers.push_back(vbYes);

    ClickRow("..");
    PressKey(Qt::Key_Delete);
    EXPECT_TRUE(Actions(server).isEmpty());
    EXPECT_TRUE(LogText().isEmpty());
    EXPECT_NE(hConnection, before);
    EXPECT_EQ(ComboItems(), QStringList({"/", "/stays"}));
    EXPECT_EQ(GetServerDirectory(), "/");
}

TEST_F(ServerDelete, ACombosPathsBelowADeletedFolderGoWithIt) {
    FtpServer server(Kind::PyftpdlibBareCwdFails);
    server.MakeFolder("a/b");
    server.MakeFolder("c");
    Open(server);
    list().DoubleClickRow(RowOf("a"));
    list().DoubleClickRow(RowOf("b"));
    list().DoubleClickRow(RowOf(".."));
    list().DoubleClickRow(RowOf(".."));
    list().DoubleClickRow(RowOf("c"));
    list().DoubleClickRow(RowOf(".."));
    ASSERT_EQ(ComboItems(), QStringList({"/", "/a", "/a/b", "/c"}));

    ClickRow("a");
    ClickButton("del");
    EXPECT_EQ(ComboItems(), QStringList({"/", "/c"}));
    EXPECT_EQ(combo().Text(), "/");
    EXPECT_EQ(Rows(), QStringList({"..", "c"}));
}

TEST_F(ServerDelete, ARefusedFileIsARedLineTheWalkGoesOnAndItsFolderFailsToo) {
    FtpServer server(Kind::PyftpdlibBareCwdFails);
    server.WriteFile("d/locked.txt", "l");  // this server won't delete it
    server.WriteFile("d/x.txt", "x");
    Open(server);

    ClickRow("d");
    ClickButton("del");
    EXPECT_TRUE(server.Exists("d/locked.txt"));
    EXPECT_FALSE(server.Exists("d/x.txt"));
    const QStringList log = Log();
    ASSERT_EQ(log.size(), 6);
    for (int i = 0; i < 4; i += 2) {
        const bool locked = log[i] == Deleting("/d/locked.txt");
        EXPECT_EQ(log[i], Deleting(locked ? "/d/locked.txt" : "/d/x.txt"));
        EXPECT_EQ(log[i + 1], locked ? Failed() : Ok());
    }
    EXPECT_EQ(log[4], Deleting("/d"));
    EXPECT_EQ(log[5], Failed());
    EXPECT_EQ(Rows(), QStringList({"..", "d"}));
}

TEST_F(ServerDelete, AServerThatRefusesEveryWriteLeavesTheTreeWholeAndEveryStepRed) {
    FtpServer server(Kind::Vsftpd, /*readOnly=*/true);
    server.WriteFile("d/one.txt", "1");
    server.WriteFile("two.txt", "2");
    Open(server);

    ClickRow("d");
    ClickRow("two.txt", Qt::ControlModifier);
    ClickButton("del");
    EXPECT_TRUE(server.Exists("d/one.txt") && server.Exists("two.txt"));
    const QString here = server.serverRoot();
    EXPECT_EQ(Log(), QStringList({Deleting(here + "/two.txt"), Failed(), Deleting(here + "/d/one.txt"), Failed(),
                                  Deleting(here + "/d"), Failed()}));
}

TEST_F(ServerDelete, AReadOnlyFolderInsideIsWalkedThoughTheListShowsItAmongTheFiles) {
    FtpServer server(Kind::Vsftpd);
    server.WriteFile("p/ro/z.txt", "z");
    QFile::setPermissions(server.root() + "/p/ro", QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup |
                                                       QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther);
    Open(server);

    ClickRow("p");
    ClickButton("del");
    const QString here = server.serverRoot();
    EXPECT_EQ(Log(), QStringList({Deleting(here + "/p/ro//z.txt"), Ok(), Deleting(here + "/p/ro/"), Ok(),
                                  Deleting(here + "/p"), Ok()}));
    EXPECT_FALSE(server.Exists("p"));
}

TEST_F(ServerDelete, ThePopupAndTheFrameMenuDeleteWithoutAQuestionAndPruneTheCombo) {
    FtpServer server(Kind::PyftpdlibBareCwdFails);
    server.MakeFolder("one");
    server.MakeFolder("two");
    Open(server);
    list().DoubleClickRow(RowOf("one"));
    list().DoubleClickRow(RowOf(".."));
    list().DoubleClickRow(RowOf("two"));
    list().DoubleClickRow(RowOf(".."));

    ClickRow("one");
    frmPopUpfrmServer().mnuLoeschen->trigger();
    ClickRow("two");
    mdiMain().mnuMyServerLoeschen_Click();
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(server.Exists("one") || server.Exists("two"));
    EXPECT_EQ(ComboItems(), QStringList({"/"}));
    EXPECT_EQ(Rows(), QStringList({".."}));
}

TEST_F(ServerDelete, WithoutAConnectionTheToolbarRefusesAndTheDeleteKeyStillAsks) {
    ClickButton("del");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("FRMSERVER_NOCONNECTION"));
    EXPECT_EQ(boxes[0].flags, vbInformation);

    boxes.clear();
    boxAnswers.push_back(vbYes);
    PressKey(Qt::Key_Delete);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0].prompt, "Delete Selection?");
    // The run's reconnect finds an empty connection bar.
    EXPECT_EQ(boxes[1].prompt, GetLanguageText("MPUB_NOCONN1") + vbCrLf + GetLanguageText("MPUB_NOCONN2") + vbCrLf +
                                   GetLanguageText("MPUB_NOCONN3") + vbCrLf);
    EXPECT_EQ(hConnection, 0u);
}

TEST(ReplaceInString, ReplacesEveryFindIgnoringCaseDropsBlanksInFrontAndChangesTheTextInPlace) {
    QString s = "\\a\\b\\";
    EXPECT_EQ(ReplaceInString(s, "\\", "/"), "/a/b/");
    EXPECT_EQ(s, "/a/b/");
    QString blanks = "name  \\x \\y";
    EXPECT_EQ(ReplaceInString(blanks, "\\", "/"), "name/x/y");
    QString cased = "xAbyaBz";
    EXPECT_EQ(ReplaceInString(cased, "ab", "-"), "x-y-z");
    QString none = "plain";
    EXPECT_EQ(ReplaceInString(none, "\\", "/"), "plain");
    // The next search starts one past the find: "ab" in "abb" becomes "a"
    // and the "ab" that makes is not looked at again ...
    QString shorter = "abb";
    EXPECT_EQ(ReplaceInString(shorter, "ab", "a"), "ab");
    // ... but a longer replacement is searched again from its last character.
    QString longer = "abb";
    EXPECT_EQ(ReplaceInString(longer, "ab", "xa"), "xxa");
    QString removed = "a-b-c";
    EXPECT_EQ(ReplaceInString(removed, "-", ""), "abc");
    QString empty = "abc";
    EXPECT_EQ(ReplaceInString(empty, "", "x"), "abc");
}

}  // namespace
