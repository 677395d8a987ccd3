// Renaming a server entry and making a server folder against real
// servers: the guards, the input box, the log lines and the refreshes of
// each copy.
#include "support/server_pane.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/controls/twips.h"
#include "serverops/frmPopUpfrmServer.h"
#include "shared/mPublic.h"

#include <cmath>

namespace {

using Kind = FtpServer::Kind;

class ServerNames : public ServerPaneTest {
protected:
    static QString Text(const char* key) { return GetLanguageText(key); }
    // The input box stands a little left of and above the screen's middle.
    static void ExpectPlaced(const seams::InputBoxCall& call) {
        EXPECT_EQ(call.xPos, int(std::nearbyint(ScreenWidth() / 2.0)) - 1000);
        EXPECT_EQ(call.yPos, int(std::nearbyint(ScreenHeight() / 2.0)) - 1500);
        EXPECT_EQ(call.title, "");  // the program's title
    }
    static void PopupRename() { frmPopUpfrmServer().mnuUmbenennen->trigger(); }
    static void PopupNewFolder() { frmPopUpfrmServer().mnuNeuVerzeichnis->trigger(); }
};

TEST_F(ServerNames, RenameWithTwoRowsSelectedShowsTheMessageAndChangesNothing) {
    FtpServer server(Kind::Pyftpdlib);
    server.WriteFile("x.txt", "x");
    server.WriteFile("y.txt", "y");
    ConnectInRoot(server);

    ClickRow("x.txt");
    ClickRow("y.txt", Qt::ControlModifier);
    mdiMain().mnuMyServerUmbenennen_Click();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, Text("FRMPUSERVER_ONEFILE"));
    EXPECT_EQ(boxes[0].flags, vbInformation);
    EXPECT_TRUE(inputBoxes.empty());
    EXPECT_TRUE(LogText().isEmpty());
    EXPECT_TRUE(server.Exists("x.txt") && server.Exists("y.txt"));
}

TEST_F(ServerNames, ACancelledRenameLeavesTwoLinesAndARenamedFileOrFolderShowsAfterTheRefresh) {
    FtpServer server(Kind::Pyftpdlib);
    server.WriteFile("x.txt", "x");
    server.MakeFolder("dir");
    ConnectInRoot(server);

    ClickRow("x.txt");
    PopupRename();  // Cancel
    ASSERT_EQ(inputBoxes.size(), 1u);
    EXPECT_EQ(inputBoxes[0].prompt, Text("FRMPUSERVER_NEWNAME") + " x.txt ?");
    EXPECT_EQ(inputBoxes[0].defaultText, "x.txt");
    ExpectPlaced(inputBoxes[0]);
    EXPECT_EQ(ColouredLog(), QStringList({Text("FRMPUSERVER_RENAMEOF") + " x.txt|black",
                                          Text("FRMPUSERVER_RENAMECANCEL") + "|red"}));

    frmTransferHistory().rtfTransferHistory->SetText("");
    inputAnswers = {"z.txt", "folder"};
    ClickRow("x.txt");
    mdiMain().mnuMyServerUmbenennen_Click();
    EXPECT_EQ(ColouredLog(), QStringList({Text("FRMPUSERVER_RENAMEOF") + " x.txt|black",
                                          Text("FRMPUSERVER_RENAMEOK") + "|green"}));
    EXPECT_EQ(server.ReadFile("z.txt"), "x");
    EXPECT_GT(RowOf("z.txt"), 0);
    EXPECT_EQ(RowOf("x.txt"), 0);

    ClickRow("dir");
    PopupRename();
    EXPECT_TRUE(server.Exists("folder") && !server.Exists("dir"));
    EXPECT_EQ(Rows(), QStringList({"..", "folder", "z.txt"}));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ServerNames, ARefusedRenameIsOneRedLineAndTheListIsNotReadAgain) {
    FtpServer server(Kind::Pyftpdlib);
    server.WriteFile("locked.txt", "l");  // this server won't rename it
    ConnectInRoot(server);
    const int refreshes = list().RefreshCount();

    inputAnswers = {"free.txt"};
    ClickRow("locked.txt");
    PopupRename();
    EXPECT_EQ(ColouredLog(), QStringList({Text("FRMPUSERVER_RENAMEOF") + " locked.txt|black",
                                          Text("FRMPUSERVER_RENAMEFAILED") + "|red"}));
    EXPECT_TRUE(server.Exists("locked.txt"));
    EXPECT_EQ(list().RefreshCount(), refreshes);
}

TEST_F(ServerNames, TheMenuCopiesAskForAConnectionFirstAndThePopupsDoNot) {
    frmTransferHistory().rtfTransferHistory->SetText("");
    mdiMain().mnuMyServerUmbenennen_Click();
    mdiMain().mnuMyServerNeuOrdner_Click();
    mdiMain().mnuMyServerLoeschen_Click();
    ASSERT_EQ(boxes.size(), 3u);
    for (const auto& box : boxes) {
        EXPECT_EQ(box.prompt, Text("FRMSERVER_NOCONNECTION"));
        EXPECT_EQ(box.flags, vbInformation);
    }
    EXPECT_TRUE(inputBoxes.empty());
    EXPECT_TRUE(LogText().isEmpty());

    // The popup's copies go on: an empty list has no row to rename, and a
    // cancelled new folder leaves nothing behind.
    PopupNewFolder();
    PopupRename();
    ASSERT_EQ(inputBoxes.size(), 2u);
    EXPECT_EQ(inputBoxes[0].prompt, Text("FRMPUSERVER_FOLDNAME"));
    EXPECT_EQ(ColouredLog(), QStringList({Text("FRMPUSERVER_RENAMEOF") + " |black",
                                          Text("FRMPUSERVER_RENAMECANCEL") + "|red"}));
}

TEST_F(ServerNames, TheToolbarsNewFolderReconnectsBeforeAskingAlsoWhenCancelled) {
    FtpServer server(Kind::Pyftpdlib);
    ConnectInRoot(server);
    const HINTERNET before = hConnection;
    HINTERNET whenAsked = 0;
    seams::SetInputBoxHandler([&](const seams::InputBoxCall& call) {
        inputBoxes.push_back(call);
        whenAsked = hConnection;
        return QString();
    });

    ClickButton("new");
    ASSERT_EQ(inputBoxes.size(), 1u);
    EXPECT_EQ(inputBoxes[0].prompt, Text("FRMSERVER_DIRNAME"));
    EXPECT_EQ(inputBoxes[0].defaultText, "");
    ExpectPlaced(inputBoxes[0]);
    EXPECT_NE(whenAsked, before);
    EXPECT_NE(whenAsked, 0u);
    EXPECT_TRUE(LogText().isEmpty());
    EXPECT_TRUE(boxes.empty());
}

TEST_F(ServerNames, TheToolbarsNewFolderIsMadeInTheRootWhereTheReconnectLeftTheConnection) {
    FtpServer server(Kind::Pyftpdlib);
    server.MakeFolder("sub");
    ConnectInRoot(server);
    list().DoubleClickRow(RowOf("sub"));
    ASSERT_EQ(GetServerDirectory(), "/sub");

    inputAnswers = {"made"};
    ClickButton("new");
    EXPECT_EQ(ColouredLog(), QStringList({Text("FRMSERVER_NEWDIR1") + " made " + Text("FRMSERVER_NEWDIR2") + "|black",
                                          Text("FRMSERVER_GENOK") + "|green"}));
    EXPECT_TRUE(server.Exists("made"));
    EXPECT_FALSE(server.Exists("sub/made"));
    EXPECT_EQ(combo().Text(), "/");
    EXPECT_EQ(Rows().size(), 3);
    EXPECT_GT(RowOf("made"), 0);

    // A name that is there already: red, and no new read of the list.
    frmTransferHistory().rtfTransferHistory->SetText("");
    const int refreshes = list().RefreshCount();
    inputAnswers = {"made"};
    ClickButton("new");
    EXPECT_EQ(ColouredLog().value(1), Text("FRMSERVER_GENFAIL") + "|red");
    EXPECT_EQ(list().RefreshCount(), refreshes);
}

class ServerNewFolderOnBoth : public ServerNames, public ::testing::WithParamInterface<Kind> {};

TEST_P(ServerNewFolderOnBoth, TheMenusNewFolderIsMadeWhereThePaneStandsAndAnExistingNameFails) {
    FtpServer server(GetParam());
    server.MakeFolder("old");
    ConnectInRoot(server);
    const HINTERNET connection = hConnection;

    inputAnswers = {"new one"};
    mdiMain().mnuMyServerNeuOrdner_Click();
    EXPECT_EQ(inputBoxes.at(0).prompt, Text("FRMPUSERVER_FOLDNAME"));
    ExpectPlaced(inputBoxes[0]);
    EXPECT_EQ(ColouredLog(), QStringList({Text("FRMPUSERVER_DIRNEW1") + " new one " + Text("FRMPUSERVER_DIRNEW2") +
                                              "|black",
                                          Text("FRMPUSERVER_DIROK") + "|green"}));
    EXPECT_TRUE(server.Exists("new one"));
    EXPECT_GT(RowOf("new one"), 0);
    EXPECT_EQ(hConnection, connection);  // no reconnect in these copies

    frmTransferHistory().rtfTransferHistory->SetText("");
    const int refreshes = list().RefreshCount();
    inputAnswers = {"old"};
    PopupNewFolder();
    EXPECT_EQ(ColouredLog(), QStringList({Text("FRMPUSERVER_DIRNEW1") + " old " + Text("FRMPUSERVER_DIRNEW2") +
                                              "|black",
                                          Text("FRMPUSERVER_DIRFAILED") + "|red"}));
    EXPECT_EQ(list().RefreshCount(), refreshes);
}

INSTANTIATE_TEST_SUITE_P(Servers, ServerNewFolderOnBoth, ::testing::Values(Kind::Pyftpdlib, Kind::Vsftpd),
                         [](const auto& info) { return info.param == Kind::Vsftpd ? "vsftpd" : "pyftpdlib"; });

}  // namespace
