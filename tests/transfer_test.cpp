// Transfer mode, the ASCII list and single uploads to real servers.
#include "support/frame_fixture.h"
#include "support/ftp_server.h"

#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "platform/wininet.h"
#include "transfer/asciiDat.h"
#include "transfer/frmASCIIListe.h"
#include "transfer/upload.h"
#include "language/frmTransferHistory.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

namespace {

QByteArray RandomBytes(int size) {
    QByteArray b(size, Qt::Uninitialized);
    auto* gen = QRandomGenerator::global();
    for (int i = 0; i < size; ++i) b[i] = char(gen->bounded(256));
    return b;
}

class Transfer : public FrameTest {
protected:
    void SetUp() override {
        FrameTest::SetUp();
        QFile f(AsciiDatPath());
        if (f.open(QIODevice::ReadOnly)) savedList_ = f.readAll();
        StartFrame();
    }
    void TearDown() override {
        QFile f(AsciiDatPath());
        if (f.open(QIODevice::WriteOnly)) f.write(savedList_);
        FrameTest::TearDown();
    }
    void ConnectTo(const FtpServer& s) {
        ASSERT_TRUE(Connect(s));
        ASSERT_TRUE(SetServerDirectory(s.serverRoot()));
    }
    QString Local(const QString& name, const QByteArray& content) {
        const QString path = dir_.path() + "/" + name;
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        f.write(content);
        return localfs::ToWindows(path);
    }
    bool Upload(QString local, QString remote) { return UploadFile(local, remote); }
    void Mode(int index) {
        // A line in the log first: an empty log only resets the mode.
        AppendLogLine(kBlack, "mode");
        mdiMain().cboTransferMode->SetListIndex(index);
    }
    QTemporaryDir dir_;
    QByteArray savedList_;
};

TEST_F(Transfer, UploadsAreByteIdenticalAroundEveryChunkBoundary) {
    for (auto kind : {FtpServer::Kind::Pyftpdlib, FtpServer::Kind::Vsftpd}) {
        FtpServer server(kind);
        ConnectTo(server);
        Mode(1);
        for (int size : {0, 254, 255, 256, 510, 1024 * 1024 + 7}) {
            const QByteArray content = RandomBytes(size);
            const QString name = QString("f%1.bin").arg(size);
            ASSERT_TRUE(Upload(Local(name, content), name)) << size;
            EXPECT_EQ(server.ReadFile(name), content) << size;
        }
        EXPECT_TRUE(mdiMain().timIsConnected->Enabled());
    }
}

TEST_F(Transfer, AsciiModeSendsCrLfAndEachServerStoresItsTextForm) {
    const QByteArray text = "one\ntwo\n\nthree";
    FtpServer raw(FtpServer::Kind::Vsftpd);  // stores what came on the wire
    ConnectTo(raw);
    Mode(0);
    EXPECT_EQ(lTransferMode, 1u);
    ASSERT_TRUE(Upload(Local("t.txt", text), "t.txt"));
    EXPECT_EQ(raw.ReadFile("t.txt"), "one\r\ntwo\r\n\r\nthree");
    Mode(1);
    ASSERT_TRUE(Upload(Local("t.txt", text), "b.txt"));
    EXPECT_EQ(raw.ReadFile("b.txt"), text);

    FtpServer converting(FtpServer::Kind::Pyftpdlib);  // turns CR LF back into LF
    ConnectTo(converting);
    Mode(0);
    ASSERT_TRUE(Upload(Local("t.txt", text), "t.txt"));
    EXPECT_EQ(converting.ReadFile("t.txt"), text);
}

TEST_F(Transfer, AutoDecidesByTheRemoteNameAndKeepsTheLastChoice) {
    ASSERT_TRUE(WriteAsciiDat({"TXT", "HTM"}));
    FtpServer server(FtpServer::Kind::Vsftpd);
    ConnectTo(server);
    Mode(2);
    const QString local = Local("plain", "a\nb\n");
    ASSERT_TRUE(Upload(local, "archiv.txt.gz"));
    EXPECT_EQ(server.ReadFile("archiv.txt.gz"), "a\r\nb\r\n");
    EXPECT_EQ(lTransferMode, 1u);
    ASSERT_TRUE(Upload(local, "README"));
    EXPECT_EQ(server.ReadFile("README"), "a\nb\n");
    EXPECT_EQ(lTransferMode, 2u);

    EXPECT_TRUE(IsAsciiFile("A.TXT"));
    EXPECT_TRUE(IsAsciiFile("a.txtold"));
    EXPECT_FALSE(IsAsciiFile("txt"));
    ASSERT_TRUE(WriteAsciiDat({"ZZZ", "", "HTM"}));
    EXPECT_TRUE(IsAsciiFile("any.bin"));  // the empty entry matches every point
    QFile::remove(AsciiDatPath());
    EXPECT_FALSE(IsAsciiFile("a.txt"));  // no list, no match, no hang
}

TEST_F(Transfer, RefusedStorGivesTheRedLineAndTheConnectionStaysUsable) {
    FtpServer server(FtpServer::Kind::Vsftpd, /*readOnly=*/true);
    ConnectTo(server);
    Mode(1);
    AppendLogLine(kBlack, "name line");
    EXPECT_FALSE(Upload(Local("x.bin", "data"), "x.bin"));
    const auto lines = LogLines();
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines.back().text, GetLanguageText("MPUB_UPFAILED"));
    EXPECT_EQ(lines.back().colour, kRed);
    EXPECT_TRUE(mdiMain().timIsConnected->Enabled());
    EXPECT_EQ(GetServerDirectory(), server.root());
    EXPECT_FALSE(QFile::exists(server.root() + "/x.bin"));
}

TEST_F(Transfer, AMissingLocalFileGoesAsAnEmptyOneAndTheLinesComeInOrder) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    ConnectTo(server);
    Mode(1);
    frmTransferHistory().rtfTransferHistory->SetText(QString());
    AppendLogLine(kBlack, "upload of nothing");
    QString local = "  " + localfs::ToWindows(dir_.path() + "/missing.bin") + " ";
    QString remote = " gone.bin  ";
    EXPECT_TRUE(UploadFile(local, remote));
    EXPECT_EQ(remote, "gone.bin");  // trimmed in place
    EXPECT_FALSE(local.endsWith(' '));
    EXPECT_TRUE(QFile::exists(server.root() + "/gone.bin"));
    EXPECT_EQ(server.ReadFile("gone.bin"), "");
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].colour, kBlack);
    EXPECT_EQ(lines[1].text, GetLanguageText("MPUB_UPOK"));
    EXPECT_EQ(lines[1].colour, kGreen);

    // Empty names log nothing and fail.
    QString empty = "   ";
    EXPECT_FALSE(UploadFile(local, empty));
    EXPECT_EQ(LogLines().size(), 2u);
}

TEST(AsciiDat, FieldsFollowTheFormattedInputRules) {
    EXPECT_EQ(ReadFields("TXT,HTM\r\n  \"A,B\" , C\r\n\r\nLOG\r\n"),
              QStringList({"TXT", "HTM", "A,B", "C", "", "LOG"}));
    EXPECT_EQ(ReadFields("TXT\r\nHTML\r\n"), QStringList({"TXT", "HTML"}));
    EXPECT_EQ(ReadFields(""), QStringList());
}

TEST_F(Transfer, TheDialogAddsRemovesAndKeepsTheListOnlyOnTakeOver) {
    ASSERT_TRUE(WriteAsciiDat({"TXT", "htm"}));
    auto& dlg = frmASCIIListe();
    EXPECT_EQ(dlg.windowTitle(), GetLanguageText("FRMASCIILISTE_CAPTION"));
    ASSERT_EQ(dlg.Entries(), QStringList({"TXT", "htm"}));

    inputAnswers = {"txt", "log", "htm", ""};
    dlg.cmdAdd_Click();  // "TXT" exists already
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("FRMASCIILISTE_ENTRYDA"));
    EXPECT_EQ(boxes[0].flags, 64);
    dlg.cmdAdd_Click();
    dlg.cmdAdd_Click();  // "HTM" is not the hand-kept "htm"
    dlg.cmdAdd_Click();  // cancelled
    EXPECT_EQ(dlg.Entries(), QStringList({"TXT", "htm", "LOG", "HTM"}));
    EXPECT_EQ(inputPrompts.at(0), GetLanguageText("FRMASCIILISTE_NEWEXT"));

    dlg.lstASCIIList->setCurrentRow(0);
    boxAnswers = {vbNo, vbYes};
    dlg.cmdRemove_Click();
    EXPECT_EQ(dlg.Entries().size(), 4);
    EXPECT_EQ(boxes.back().prompt, GetLanguageText("FRMASCIILISTE_ENTRYDEL1") + " TXT " +
                                       GetLanguageText("FRMASCIILISTE_ENTRYDEL2"));
    EXPECT_EQ(boxes.back().flags, 4);
    dlg.cmdRemove_Click();
    EXPECT_EQ(dlg.Entries(), QStringList({"htm", "LOG", "HTM"}));

    dlg.cmdAbbrechen_Click();
    Pump();
    EXPECT_EQ(ReadAsciiDat(), QStringList({"TXT", "htm"}));

    inputAnswers = {"md"};
    frmASCIIListe().cmdAdd_Click();
    frmASCIIListe().cmdUebernehmen_Click();
    Pump();
    EXPECT_FALSE(frmASCIIListe.Exists());
    QFile f(AsciiDatPath());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), "TXT\r\nhtm\r\nMD\r\n");
}

TEST_F(Transfer, ComboAndMenuGiveTheSameModeAndTicks) {
    auto& f = mdiMain();
    Mode(0);
    EXPECT_EQ(lTransferMode, 1u);
    EXPECT_TRUE(f.mnuVerbindungTransferASCII->isChecked());
    EXPECT_FALSE(f.mnuVerbindungTransferAUTO->isChecked());
    f.mnuVerbindungTransferBINARY->trigger();
    EXPECT_EQ(lTransferMode, 2u);
    EXPECT_EQ(f.cboTransferMode->ListIndex(), 1);
    EXPECT_TRUE(f.mnuVerbindungTransferBINARY->isChecked());
    EXPECT_FALSE(f.mnuVerbindungTransferASCII->isChecked());
    f.mnuVerbindungTransferAUTO->trigger();
    EXPECT_EQ(f.cboTransferMode->ListIndex(), 2);
    EXPECT_TRUE(f.mnuVerbindungTransferAUTO->isChecked());
    // With an empty log the combo only resets the mode.
    frmTransferHistory().rtfTransferHistory->SetText(QString());
    f.cboTransferMode->SetListIndex(0);
    EXPECT_EQ(lTransferMode, 2u);
    EXPECT_TRUE(f.mnuVerbindungTransferAUTO->isChecked());
}

}  // namespace
