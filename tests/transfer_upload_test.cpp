// Transfer mode in combo and menu, ascii.dat and its dialog, and UploadFile
// against real servers: bytes, transfer type, verdict lines, failures.
#include "support/frame_fixture.h"
#include "support/ftp_server.h"

#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "shared/mPublic.h"
#include "transfer/asciiDat.h"
#include "transfer/frmASCIIListe.h"
#include "transfer/upload.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

namespace {

QByteArray Bytes(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : "<none>";
}
void Put(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(bytes);
}
QByteArray Random(int size) {
    QByteArray b(size, Qt::Uninitialized);
    QRandomGenerator::global()->fillRange(reinterpret_cast<quint32*>(b.data()), size / 4);
    for (int i = size / 4 * 4; i < size; ++i) b[i] = char(i);
    return b;
}

// ascii.dat on disk.
QString DatFile() {
    return localfs::ToPosix(AsciiDatPath());
}

// ascii.dat is the build's copy: whatever a test leaves there, a folder
// included, it is put back.
class Transfer : public StartedFrameTest {
protected:
    void SetUp() override {
        saved_ = Bytes(DatFile());
        StartedFrameTest::SetUp();
    }
    void TearDown() override {
        QDir(DatFile()).removeRecursively();
        Put(DatFile(), saved_);
        StartedFrameTest::TearDown();
    }
    // Connected, in the server's root, the watch on, in the given mode
    // (the log isn't empty, so the combo runs the menu's handlers).
    void ConnectTo(const FtpServer& s, int mode) {
        ASSERT_TRUE(Connect(s) && SetServerDirectory(s.serverRoot()));
        mdiMain().timIsConnected->SetEnabled(true);
        mdiMain().cboTransferMode->SetListIndex(mode);
    }
    QString Local(const QString& name, const QByteArray& content) {
        Put(dir_.path() + "/" + name, content);
        return localfs::ToWindows(dir_.path() + "/" + name);
    }
    // As the callers do: the name line, then the upload and its verdict.
    bool Send(QString local, QString remote, bool nested = false) {
        AppendLogLine(kBlack, remote);
        const bool ok = UploadFile(local, remote);
        const auto lines = LogLines();
        const size_t name = lines.size() - (nested ? 4 : 2);
        EXPECT_EQ(lines.at(name).text, remote);
        EXPECT_EQ(lines.at(name).colour, kBlack);
        EXPECT_EQ(lines.back().text, GetLanguageText(ok ? "MPUB_UPOK" : "MPUB_UPFAILED"));
        EXPECT_EQ(lines.back().colour, ok ? kGreen : kRed);
        EXPECT_TRUE(mdiMain().timIsConnected->Enabled());
        return ok;
    }
    QTemporaryDir dir_;
    QByteArray saved_;
};

TEST(AsciiDatReader, CommasQuotesBlanksAndLineEnds) {
    EXPECT_EQ(ReadFields("TXT,HTM\r\n  \"A,B\" , C\r\n\r\nLOG\r\n"), QStringList({"TXT", "HTM", "A,B", "C", "", "LOG"}));
    EXPECT_EQ(ReadFields("\"X\"Y,Z\n\"P\r\nQ\"\n\tR  \n   \n\"C,D"), QStringList({"X", "Z", "P\r\nQ", "R  ", "", "C,D"}));
    // A comma before a line end leaves an empty field, at the very end none.
    EXPECT_EQ(ReadFields("TXT,\r\nHTM,"), QStringList({"TXT", "", "HTM"}));
    EXPECT_EQ(ReadFields(""), QStringList());
}

TEST_F(Transfer, TheNameTestIsASubstringTestAndWithoutAListAPointMeansText) {
    ASSERT_TRUE(WriteAsciiDat({"TXT", "htm"}));
    EXPECT_EQ(Bytes(DatFile()), "TXT\r\nhtm\r\n");
    for (const char* name : {"A.TXT", "a.txt.bak", "a.txtold", "x.HTML", "archiv.txt.gz"}) EXPECT_TRUE(IsAsciiFile(name)) << name;
    for (const char* name : {"txt", "atxt", "a.tx", ""}) EXPECT_FALSE(IsAsciiFile(name)) << name;
    Put(DatFile(), "ZZZ\r\n\r\nJPG,PNG\r\n");  // the empty entry takes any point
    EXPECT_TRUE(IsAsciiFile("a.gif"));
    EXPECT_FALSE(IsAsciiFile("photo"));
    // Without a list that can be read, a point makes text; a name without
    // one goes binary, and the loop ends.
    ASSERT_TRUE(QFile::remove(DatFile()));
    EXPECT_FALSE(IsAsciiFile("nopoint"));
    EXPECT_TRUE(IsAsciiFile("a.bin"));
    ASSERT_TRUE(QDir().mkdir(DatFile()));
    EXPECT_TRUE(IsAsciiFile("photo.jpg"));
    EXPECT_FALSE(IsAsciiFile("README"));
}

TEST_F(Transfer, StartUpTicksNothingAndComboAndMenuKeepInStep) {
    auto& f = mdiMain();
    QAction* entry[] = {f.mnuVerbindungTransferASCII, f.mnuVerbindungTransferBINARY, f.mnuVerbindungTransferAUTO};
    auto state = [&] {
        return QString("%1 %2 %3%4%5").arg(lTransferMode).arg(f.cboTransferMode->ListIndex())
            .arg(int(entry[0]->isChecked())).arg(int(entry[1]->isChecked())).arg(int(entry[2]->isChecked()));
    };
    EXPECT_EQ(state(), "2 2 001");
    const QString log = LogText();
    const QString expected[] = {"1 0 100", "2 1 010", "2 2 001"};
    for (int from = 0; from < 3; ++from)
        for (int to = 0; to < 3; ++to) {
            entry[from]->trigger();
            f.cboTransferMode->SetListIndex(to);
            EXPECT_EQ(state(), expected[to]) << "combo " << from << to;
            entry[from]->trigger();
            entry[to]->trigger();
            EXPECT_EQ(state(), expected[to]) << "menu " << from << to;
        }
    EXPECT_EQ(LogText(), log);
    // A log of blanks is empty for the combo (mode 2, ticks stay); a line
    // end is not.
    frmTransferHistory().rtfTransferHistory->SetText("   ");
    f.cboTransferMode->SetListIndex(0);
    EXPECT_EQ(state(), "2 0 001");
    frmTransferHistory().rtfTransferHistory->SetText("\n");
    f.cboTransferMode->SetListIndex(1);
    EXPECT_EQ(state(), expected[1]);
}

TEST_F(Transfer, TheDialogAddsRemovesAndWritesOnlyOnTakeOver) {
    Put(DatFile(), "TXT\r\nhtm\r\nA,B\r\n");
    auto& dlg = frmASCIIListe();
    EXPECT_EQ(dlg.windowTitle(), GetLanguageText("FRMASCIILISTE_CAPTION"));
    // Upper case, then an exact comparison: "HTM" isn't the hand-kept "htm".
    inputAnswers = {"txt", "log", "htm", "", " .c,d"};
    for (int i = 0; i < 5; ++i) dlg.cmdAdd_Click();
    EXPECT_EQ(inputPrompts, std::vector<QString>(5, GetLanguageText("FRMASCIILISTE_NEWEXT")));
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("FRMASCIILISTE_ENTRYDA"));
    EXPECT_EQ(boxes[0].flags, 64);
    EXPECT_EQ(dlg.Entries(), QStringList({"TXT", "htm", "A", "B", "LOG", "HTM", " .C,D"}));
    dlg.lstASCIIList->setCurrentRow(-1);
    dlg.cmdRemove_Click();  // nothing selected, nothing asked
    dlg.lstASCIIList->setCurrentRow(1);
    boxAnswers = {vbNo, vbYes};
    dlg.cmdRemove_Click();
    dlg.cmdRemove_Click();
    ASSERT_EQ(boxes.size(), 3u);
    EXPECT_EQ(boxes[1].prompt, GetLanguageText("FRMASCIILISTE_ENTRYDEL1") + " htm " + GetLanguageText("FRMASCIILISTE_ENTRYDEL2"));
    EXPECT_EQ(boxes[1].flags, 4);
    EXPECT_EQ(dlg.Entries(), QStringList({"TXT", "A", "B", "LOG", "HTM", " .C,D"}));

    // Shown modally from the menu and the toolbar; cancel and Escape keep
    // the file, take-over writes it as it stands and closes.
    const auto run = [&](auto open, auto close) {
        frmASCIIListe.Unload();
        QTimer::singleShot(0, [&] {
            EXPECT_TRUE(frmASCIIListe().isModal() && frmASCIIListe().isVisible());
            frmASCIIListe().cmdAdd->click();
            close();
        });
        open();
        Pump();
        EXPECT_FALSE(frmASCIIListe.Exists());
    };
    inputAnswers = {"ini", "cfg", " .c,d"};
    run([] { mdiMain().mnuVerbindungASCIIListe->trigger(); }, [] { frmASCIIListe().cmdAbbrechen->click(); });
    run([] { mdiMain().tlbConnect->Press("ascii"); }, [] { frmASCIIListe().reject(); });
    EXPECT_EQ(Bytes(DatFile()), "TXT\r\nhtm\r\nA,B\r\n");
    run([] { mdiMain().tlbConnect->Press("ascii"); }, [] { frmASCIIListe().cmdUebernehmen->click(); });
    EXPECT_EQ(Bytes(DatFile()), "TXT\r\nhtm\r\nA\r\nB\r\n .C,D\r\n");
    EXPECT_EQ(frmASCIIListe().Entries(), QStringList({"TXT", "htm", "A", "B", ".C", "D"}));

    // No file: an empty list; a folder in its place: closed without a word.
    frmASCIIListe.Unload();
    ASSERT_TRUE(QFile::remove(DatFile()) && QDir().mkdir(DatFile()));
    EXPECT_EQ(frmASCIIListe().Entries(), QStringList());
    frmASCIIListe().cmdUebernehmen_Click();
    Pump();
    EXPECT_FALSE(frmASCIIListe.Exists());
    EXPECT_EQ(boxes.size(), 3u);
}

TEST_F(Transfer, EverySizeArrivesWholeWithTheWatchOffBetweenChunks) {
    for (auto kind : {FtpServer::Kind::Pyftpdlib, FtpServer::Kind::Vsftpd}) {
        FtpServer server(kind);
        ConnectTo(server, 1);
        for (int size : {0, 254, 255, 256, 510, 1024 * 1024 + 7}) {
            const QByteArray content = Random(size);
            int watch = -1;  // seen by a turn of the event loop inside the upload
            QTimer::singleShot(0, [&] { watch = mdiMain().timIsConnected->Enabled(); });
            ASSERT_TRUE(Send(Local("f.bin", content), "f.bin")) << size;
            EXPECT_EQ(server.ReadFile("f.bin"), content) << size;
            EXPECT_EQ(watch, size >= 255 ? 0 : -1) << size;
            Pump(1);
        }
    }
}

TEST_F(Transfer, TheModeOrInAutoTheRemoteNameChoosesTheType) {
    const QByteArray text = "one\ntwo\n\nthree";
    const QByteArray wire = "one\r\ntwo\r\n\r\nthree";
    FtpServer converting(FtpServer::Kind::Pyftpdlib);  // stores its own line ends
    ConnectTo(converting, 0);
    ASSERT_TRUE(Send(Local("t.txt", text), "t.txt"));
    EXPECT_EQ(converting.ReadFile("t.txt"), text);

    FtpServer raw(FtpServer::Kind::Vsftpd);  // stores what came on the wire
    ConnectTo(raw, 0);
    ASSERT_TRUE(WriteAsciiDat({""}));  // would match any point, if asked
    ASSERT_TRUE(Send(Local("t.txt", text), "noext"));
    EXPECT_EQ(raw.ReadFile("noext"), wire);
    mdiMain().cboTransferMode->SetListIndex(1);
    ASSERT_TRUE(Send(Local("t.txt", text), "b.txt"));
    EXPECT_EQ(raw.ReadFile("b.txt"), text);

    ASSERT_TRUE(WriteAsciiDat({"TXT", "HTM"}));
    mdiMain().cboTransferMode->SetListIndex(2);
    ASSERT_TRUE(Send(Local("t.txt", text), "archiv.txt.gz"));
    EXPECT_EQ(raw.ReadFile("archiv.txt.gz"), wire);
    EXPECT_EQ(lTransferMode, 1u);  // kept after the upload
    ASSERT_TRUE(Send(Local("t.txt", text), "README"));
    EXPECT_EQ(raw.ReadFile("README"), text);
    EXPECT_EQ(lTransferMode, 2u);
}

TEST_F(Transfer, RefusedStorMissingLocalFileAndBlankNames) {
    FtpServer refusing(FtpServer::Kind::Vsftpd, /*readOnly=*/true);
    ConnectTo(refusing, 1);
    EXPECT_FALSE(Send(Local("x.bin", Random(600)), "x.bin"));
    EXPECT_EQ(hUploadFile, 0u);
    EXPECT_FALSE(QFile::exists(refusing.root() + "/x.bin"));
    EXPECT_EQ(GetServerDirectory(), refusing.root());  // the dialogue goes on

    // The server file is made before the local one is looked at.
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    ConnectTo(server, 1);
    QString local = "  " + localfs::ToWindows(dir_.path() + "/missing.bin") + " ", remote = " gone.bin  ";
    AppendLogLine(kBlack, "gone.bin");
    EXPECT_TRUE(UploadFile(local, remote));
    EXPECT_EQ(remote, "gone.bin");  // trimmed in place
    EXPECT_EQ(local, localfs::ToWindows(dir_.path() + "/missing.bin"));
    EXPECT_EQ(LogLines().back().colour, kGreen);
    EXPECT_TRUE(QFile::exists(server.root() + "/gone.bin"));
    EXPECT_TRUE(Send(localfs::ToWindows(dir_.path()), "dir.bin"));  // a folder reads as nothing
    EXPECT_EQ(server.ReadFile("dir.bin"), "");

    const size_t lines = LogLines().size();
    QString blank = "   ";
    EXPECT_FALSE(UploadFile(local, blank));
    EXPECT_FALSE(UploadFile(blank, remote));
    EXPECT_EQ(LogLines().size(), lines);
    EXPECT_TRUE(mdiMain().timIsConnected->Enabled());
}

TEST_F(Transfer, FailedWritesLeaveTheStreamAndANestedUploadTakesItOver) {
    FtpServer server(FtpServer::Kind::Pyftpdlib);
    ConnectTo(server, 1);
    const QByteArray inner = Random(1000);
    HINTERNET innerHandle = 0;
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(Send(Local("inner.bin", inner), "inner.bin"));
        innerHandle = hUploadFile;
    });
    // The outer upload goes on with the inner one's closed stream.
    EXPECT_FALSE(Send(Local("outer.bin", Random(256 * 1024)), "outer.bin", /*nested=*/true));
    EXPECT_EQ(server.ReadFile("inner.bin"), inner);
    EXPECT_EQ(hUploadFile, innerHandle);

    FtpServer dying(FtpServer::Kind::Vsftpd);
    ConnectTo(dying, 1);
    QTimer::singleShot(0, [&] { dying.Stop(); });
    EXPECT_FALSE(Send(Local("big.bin", Random(4 * 1024 * 1024)), "big.bin"));
    EXPECT_NE(hUploadFile, 0u);  // neither closed nor reset
}

TEST_F(Transfer, EndingTheProgramDuringAnUploadEndsTheProcessThere) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    FtpServer server(FtpServer::Kind::Vsftpd);
    ConnectTo(server, 1);
    const QString local = Local("long.bin", Random(255 * 40));
    // The frame's window closed from inside one of the upload's event turns:
    // the frame unloads in a later turn, and with it the process ends.
    EXPECT_EXIT(
        {
            seams::SetEndHandler({});
            QTimer::singleShot(0, [] { mdiMain().close(); });
            QString from = local;
            QString to = QStringLiteral("long.bin");
            UploadFile(from, to);
            std::exit(3);  // the upload went on
        },
        ::testing::ExitedWithCode(0), "");
}

}  // namespace
