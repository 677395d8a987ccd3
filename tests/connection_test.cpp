// Connecting from the connection bar to real servers: both sequences, their
// log lines, boxes and states.
#include "support/frame_fixture.h"
#include "support/ftp_server.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/wininet.h"
#include "server/frmServer.h"
#include "shared/mPublic.h"

#include "language/frmTransferHistory.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>

namespace {

class Connect : public StartedFrameTest {
protected:
    static QString ClosedPort() {
        FtpServer s(FtpServer::Kind::Pyftpdlib);
        const QString p = s.portText();
        s.Stop();
        return p;
    }
};

TEST_F(Connect, FullConnectClearsTheLogAndTellsTheCourseInLines) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    FillBar(server);
    mdiMain().mnuVerbindungVerbinden_Click();
    ASSERT_NE(hConnection, 0u);
    EXPECT_EQ(hConnection, mdiMain().hMainConnection);
    EXPECT_TRUE(mdiMain().timIsConnected->Enabled());
    EXPECT_TRUE(boxes.empty());
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, GetLanguageText("CONNECT_WITH") + " 127.0.0.1 ...");
    EXPECT_EQ(lines[0].colour, kBlack);
    EXPECT_EQ(lines[1].text,
              GetLanguageText("CONNECTION_TO") + " 127.0.0.1 " + GetLanguageText("ESTABLSHED"));
    EXPECT_EQ(lines[1].colour, kGreen);
    // The connection stands at "/" whatever the server logged us into.
    EXPECT_EQ(GetServerDirectory(), "/");
    // The menu route leaves the four boxes disabled; any toolbar button
    // enables them again.
    EXPECT_FALSE(mdiMain().txtAddress->isEnabled());
    EXPECT_FALSE(mdiMain().txtPort->isEnabled());
    QTimer::singleShot(0, [] {
        if (QWidget* w = QApplication::activeModalWidget()) w->close();
    });
    mdiMain().tlbConnect->Press("ascii");
    EXPECT_TRUE(mdiMain().txtAddress->isEnabled());
    EXPECT_TRUE(mdiMain().txtPort->isEnabled());
}

TEST_F(Connect, QuickConnectLogsOnlyAfterSuccessAndEnablesThreeBoxes) {
    FtpServer server(FtpServer::Kind::Vsftpd);
    FillBar(server);
    mdiMain().QuickConnect();
    ASSERT_NE(hConnection, 0u);
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, GetLanguageText("CONNECT_WITH") + " 127.0.0.1 ...");
    EXPECT_EQ(lines[1].text,
              GetLanguageText("CONNECTION_WITH") + " 127.0.0.1 " + GetLanguageText("WAS_ESTABLISHT"));
    EXPECT_EQ(lines[1].colour, kGreen);
    EXPECT_TRUE(mdiMain().txtAddress->isEnabled());
    EXPECT_TRUE(mdiMain().txtPassword->isEnabled());
    EXPECT_EQ(GetServerDirectory(), "/");
}

TEST_F(Connect, ReturnInThePasswordBoxStartsTheQuickConnect) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    FillBar(server);
    mdiMain().txtPassword->SetFocus();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(mdiMain().txtPassword, &press);
    EXPECT_NE(hConnection, 0u);
}

TEST_F(Connect, UnreachableServerFailsWithTheRedLineAndTheExclamationBox) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    FillBar(server, ClosedPort());
    mdiMain().mnuVerbindungVerbinden_Click();
    EXPECT_EQ(hConnection, 0u);
    EXPECT_EQ(mdiMain().hMainConnection, 0u);
    EXPECT_FALSE(mdiMain().timIsConnected->Enabled());
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].flags, 48);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("NOT_ESTABLISHED") + vbCrLf + GetLanguageText("SPELLING") + vbCrLf +
                                   GetLanguageText("PROVIDER"));
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1].text, GetLanguageText("NOT_ESTABLISHED"));
    EXPECT_EQ(lines[1].colour, kRed);
    EXPECT_EQ(frmTransferHistory().rtfTransferHistory->SelColor(), kBlack);
}

TEST_F(Connect, PortsThatDontConvertFailLikeAnUnreachableServerAndHexPortsConnect) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    for (const QString port : {"ftp", "32768", "65000"}) {
        boxes.clear();
        FillBar(server, port);
        mdiMain().mnuVerbindungVerbinden_Click();
        EXPECT_EQ(hConnection, 0u) << port.toStdString();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_TRUE(boxes[0].prompt.startsWith(GetLanguageText("NOT_ESTABLISHED")));
    }
    // Return with an empty port box: the quick connect doesn't check it.
    boxes.clear();
    FillBar(server, "");
    mdiMain().QuickConnect();
    EXPECT_EQ(hConnection, 0u);
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("NO_CONNECTION") + vbCrLf + GetLanguageText("CHECK_PROVIDER"));
    EXPECT_EQ(boxes[0].flags, 48);
    // The quick connect writes nothing on failure: the log is empty.
    EXPECT_TRUE(LogLines().empty());

    FillBar(server, "&H" + QString::number(server.port(), 16).toUpper());
    mdiMain().QuickConnect();
    EXPECT_NE(hConnection, 0u);
}

TEST_F(Connect, EachConnectEmptiesTheServerListBeforeItTries) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.WriteFile("a.txt", "a");
    auto& list = *frmServer().lsvServer;
    for (const bool full : {false, true}) {
        ASSERT_TRUE(FrameTest::Connect(server, full));
        ASSERT_NE(RowOf(list, "a.txt"), 0);
        // The attempt that fails leaves the list empty, not the old rows.
        FillBar(server, ClosedPort());
        if (full)
            mdiMain().mnuVerbindungVerbinden_Click();
        else
            mdiMain().QuickConnect();
        EXPECT_EQ(hConnection, 0u);
        EXPECT_EQ(list.Count(), 0) << (full ? "full" : "quick");
        mdiMain().tlbConnect_ButtonClick(QString());  // the boxes back on
    }
}

TEST_F(Connect, ASecondConnectLeavesTheFirstConnectionOpenBesideIt) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    FillBar(server);
    mdiMain().QuickConnect();
    const HINTERNET first = hConnection;
    ASSERT_NE(first, 0u);
    mdiMain().QuickConnect();
    ASSERT_NE(hConnection, 0u);
    EXPECT_NE(hConnection, first);
    EXPECT_TRUE(Alive(first));
    EXPECT_TRUE(Alive(hConnection));

    // A failing third connect leaves hConnection at 0 with the first two open.
    const HINTERNET second = hConnection;
    mdiMain().txtPort->SetText(ClosedPort());
    mdiMain().QuickConnect();
    EXPECT_EQ(hConnection, 0u);
    EXPECT_TRUE(Alive(second));
    EXPECT_TRUE(mdiMain().timIsConnected->Enabled());
    InternetCloseHandle(first);
    InternetCloseHandle(second);
}

TEST_F(Connect, PassiveBoxIsANoticeOnlyAndTheConnectionIsMadeWithFlagsZero) {
    FtpServer server(FtpServer::Kind::Vsftpd);
    FillBar(server);
    mdiMain().chkPassiveTransfer->click();
    ASSERT_EQ(lConnectFlags, INTERNET_FLAG_PASSIVE);
    mdiMain().mnuVerbindungVerbinden_Click();
    ASSERT_NE(hConnection, 0u);
    EXPECT_EQ(lConnectFlags, 0u);
    EXPECT_EQ(mdiMain().chkPassiveTransfer->Value(), 1);
    // The blue line went with the cleared log.
    EXPECT_FALSE(LogText().contains(GetLanguageText("PASSIVE_TRANSER_ON")));
}

TEST_F(Connect, ExitClosesTheConnectionTheServerSees) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    FillBar(server);
    mdiMain().QuickConnect();
    const HINTERNET h = hConnection;
    ASSERT_TRUE(Alive(h));
    mdiMain().mnuFileExit->trigger();
    Pump();
    EXPECT_EQ(endCalls, 1);
    EXPECT_FALSE(Alive(h));
    EXPECT_EQ(hConnection, h);  // closed, never cleared
}

TEST_F(Connect, BothSequencesWorkOnBothServersAndAnUnknownHostFails) {
    FtpServer vs(FtpServer::Kind::Vsftpd);
    FillBar(vs);
    mdiMain().mnuVerbindungVerbinden_Click();
    EXPECT_NE(hConnection, 0u);
    FtpServer py(FtpServer::Kind::Pyftpdlib);
    FillBar(py);
    mdiMain().QuickConnect();
    EXPECT_NE(hConnection, 0u);
    EXPECT_TRUE(boxes.empty());

    FillBar(py);
    mdiMain().txtAddress->SetText("no-such-host.invalid");
    mdiMain().QuickConnect();
    EXPECT_EQ(hConnection, 0u);
    mdiMain().mnuVerbindungVerbinden_Click();
    EXPECT_EQ(hConnection, 0u);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[1].flags, 48);
}

TEST_F(Connect, TheServersPlaceIsReadAndChangedByPath) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    server.MakeFolder("docs/old");
    FillBar(server);
    mdiMain().QuickConnect();
    EXPECT_TRUE(SetServerDirectory("docs/old"));
    EXPECT_EQ(GetServerDirectory(), "/docs/old");
    EXPECT_FALSE(SetServerDirectory("missing"));
    EXPECT_EQ(GetServerDirectory(), "/docs/old");
    // Without a connection there is no place and no way to change it.
    hConnection = 0;
    EXPECT_EQ(GetServerDirectory(), "");
    EXPECT_FALSE(SetServerDirectory("/"));
}

}  // namespace
