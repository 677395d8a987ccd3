// The watch over the connection and the silent reconnect, against a real
// server that goes away and comes back.
#include "support/frame_fixture.h"
#include "support/ftp_server.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/wininet.h"
#include "shared/mPublic.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

namespace {

class Watch : public StartedFrameTest {
protected:
    void ConnectTo(const FtpServer& s) {
        ASSERT_TRUE(Connect(s));
    }
    // Lets the event loop run for real time, so the timer can tick.
    static void RunFor(int ms) {
        QElapsedTimer t;
        t.start();
        while (t.elapsed() < ms) {
            Pump(1);
            QThread::msleep(10);
        }
    }
    int Questions() const {
        const QString text = GetLanguageText("CONNECTION_CANCEL1") + vbCrLf + GetLanguageText("CONNECTION_CANCEL2");
        int n = 0;
        for (const auto& b : boxes)
            if (b.prompt == text && b.flags == 4) ++n;
        return n;
    }
    // Control connections the server holds open, as the system sees them.
    static int Sessions(const FtpServer& s) {
        QProcess ss;
        ss.start("ss", {"-Htn", "state", "established", QString("( sport = :%1 )").arg(s.port())});
        ss.waitForFinished(3000);
        return int(ss.readAllStandardOutput().split('\n').count() - 1);
    }
};

TEST_F(Watch, AsksOnceAtTheNextTickAfterTheServerWentAwayAndNoKeepsItOff) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    ConnectTo(server);
    RunFor(1300);
    EXPECT_EQ(Questions(), 0);  // polling a live connection asks nothing

    server.Stop();
    RunFor(1300);
    EXPECT_EQ(Questions(), 1);
    EXPECT_FALSE(mdiMain().timIsConnected->Enabled());
    RunFor(2200);
    EXPECT_EQ(Questions(), 1);
    EXPECT_NE(hConnection, 0u);  // stale, not cleared
}

TEST_F(Watch, YesReconnectsToWhateverTheBarNowHoldsAndLeavesThePanesAlone) {
    FtpServer first(FtpServer::Kind::Pyftpdlib);
    FtpServer second(FtpServer::Kind::Pyftpdlib);
    second.MakeFolder("only-on-second");
    ConnectTo(first);
    const HINTERNET old = hConnection;
    const QString log = LogText();
    mdiMain().txtPort->SetText(second.portText());
    first.Stop();
    boxAnswers.push_back(vbYes);
    RunFor(1300);
    ASSERT_EQ(Questions(), 1);
    ASSERT_NE(hConnection, 0u);
    EXPECT_NE(hConnection, old);
    EXPECT_EQ(GetServerDirectory(), "/");
    EXPECT_TRUE(SetServerDirectory("only-on-second"));
    EXPECT_FALSE(mdiMain().timIsConnected->Enabled());  // polling stays off
    EXPECT_EQ(LogText(), log);                          // nothing logged
    EXPECT_EQ(mdiMain().hMainConnection, old);          // the frame's pair keeps its value
}

TEST_F(Watch, AFailedConnectOverALiveOneLeavesTheTimerOnAndTheQuestionFollows) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    ConnectTo(server);
    FtpServer closed(FtpServer::Kind::Pyftpdlib);
    closed.Stop();
    mdiMain().txtPort->SetText(closed.portText());
    mdiMain().QuickConnect();
    EXPECT_EQ(hConnection, 0u);
    EXPECT_TRUE(mdiMain().timIsConnected->Enabled());
    const size_t before = boxes.size();  // the failure box itself
    RunFor(1300);
    EXPECT_EQ(Questions(), 1);
    EXPECT_EQ(boxes.size(), before + 1);
}

TEST_F(Watch, ARoutineReconnectClosesTheLiveConnectionFirst) {
    FtpServer server(FtpServer::Kind::Vsftpd);
    ConnectTo(server);
    const HINTERNET old = hConnection;
    ASSERT_EQ(Sessions(server), 1);
    Reinitialize_Internet();
    ASSERT_NE(hConnection, 0u);
    EXPECT_NE(hConnection, old);
    EXPECT_FALSE(Alive(old));
    RunFor(300);
    EXPECT_EQ(Sessions(server), 1);  // the server saw the old one go
    EXPECT_EQ(GetServerDirectory(), "/");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Watch, AFailedReconnectShowsTheThreeLineBoxAndLeavesNoConnection) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    ConnectTo(server);
    const HINTERNET old = hConnection;
    mdiMain().txtAddress->SetText(QString());
    Reinitialize_Internet();
    EXPECT_EQ(hConnection, 0u);
    EXPECT_FALSE(Alive(old));
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].flags, 48);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("MPUB_NOCONN1") + vbCrLf + GetLanguageText("MPUB_NOCONN2") + vbCrLf +
                                   GetLanguageText("MPUB_NOCONN3") + vbCrLf);
}

}  // namespace
