// Start-up, captions, the connection bar's checks and the ways out.
#include "support/frame_fixture.h"

#include "frame/frmStart.h"
#include "frame/mdiMain.h"
#include "language/frmTransferHistory.h"
#include "language/mDataBase.h"
#include "platform/controls/twips.h"
#include "server/frmServer.h"
#include "shared/mPublic.h"

#include <QApplication>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTest>
#include <QTimer>

namespace {

class FrameStart : public StartedFrameTest {};

TEST_F(FrameStart, WelcomeTextIsTheFirstAndOnlyContentInBlack) {
    const auto lines = LogLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, GetLanguageText("WELCOME1"));
    EXPECT_TRUE(lines[1].text.startsWith(GetLanguageText("WELCOME2") + " "));
    EXPECT_TRUE(lines[1].text.endsWith(" " + GetLanguageText("WELCOME4")));
    EXPECT_TRUE(lines[1].text.contains(" " + GetLanguageText("WELCOME3") + " "));
    for (const auto& l : lines) EXPECT_EQ(l.colour, kBlack);
    EXPECT_EQ(mdiMain().windowTitle(), "Ferrydock Release 1 Version 3");
}

TEST_F(FrameStart, ConnectionBarStartsWithItsDefaults) {
    auto& f = mdiMain();
    EXPECT_EQ(f.txtPort->Text(), "21");
    EXPECT_EQ(f.txtAddress->Text(), "");
    EXPECT_EQ(f.txtPassword->echoMode(), QLineEdit::Password);
    EXPECT_EQ(f.chkPassiveTransfer->Value(), 0);
    ASSERT_EQ(f.cboTransferMode->ListCount(), 3);
    EXPECT_EQ(f.cboTransferMode->ListIndex(), 2);
    EXPECT_EQ(f.cboTransferMode->List(2), GetLanguageText("OPT_AUTO"));
    EXPECT_EQ(lTransferMode, 2u);
    EXPECT_TRUE(f.mnuVerbindungTransferAUTO->isChecked());
    EXPECT_FALSE(f.mnuVerbindungTransferASCII->isChecked());
    EXPECT_TRUE(f.mnuVerbindungTransfertypAus->isChecked());
    EXPECT_EQ(hConnection, 0u);
    EXPECT_FALSE(f.timIsConnected->Enabled());
    EXPECT_EQ(f.timIsConnected->Interval(), 1000);
}

TEST_F(FrameStart, CaptionsComeFromTheCatalogueExceptTheFiveDesignCaptions) {
    auto& f = mdiMain();
    EXPECT_EQ(f.mnuFile->title(), GetLanguageText("Datei"));
    EXPECT_EQ(f.mnuVerbindung->title(), GetLanguageText("MY_CONNECTION"));
    EXPECT_EQ(f.mnuMyServerAktualisieren->text(), GetLanguageText("FRMPUSERVER_REFRESH"));
    EXPECT_EQ(f.lblAdresse->text(), GetLanguageText("LABEL_ADRESS"));
    EXPECT_EQ(f.fraTop->title(), GetLanguageText("MY_CONNECTION"));
    EXPECT_EQ(f.chkPassiveTransfer->text(), GetLanguageText("CHK_PASSIVE"));
    EXPECT_EQ(f.mnuFileExit->text(), "&Exit");
    EXPECT_EQ(f.mnuVerbindungVerbinden->text(), "&Verbinden");
    EXPECT_EQ(f.mniInfo->title(), "&?");
    EXPECT_EQ(f.mnuInfoWebHomepage->text(), "&Homepage");
    EXPECT_EQ(f.mnuInfoInfo->text(), "&Info");
    EXPECT_EQ(f.mnuVerbindungVerbinden->shortcut(), QKeySequence(Qt::Key_F4));
    EXPECT_EQ(f.mnuMyServerLoeschen->shortcut(), QKeySequence(Qt::SHIFT | Qt::Key_Delete));

    ASSERT_EQ(f.tlbConnect->ButtonCount(), 2);
    EXPECT_EQ(f.tlbConnect->Button(1)->key, "connect");
    EXPECT_EQ(f.tlbConnect->Button(1)->ToolTipText(), GetLanguageText("BUILD_CONNECTION"));
    EXPECT_EQ(f.tlbConnect->Button(2)->key, "ascii");
    EXPECT_EQ(f.tlbConnect->Button(2)->description, GetLanguageText("ASCII_LIST_SHOW"));
}

class FrameWithoutLanguage : public StartedFrameTest {
protected:
    QString LanguageTable() const override { return QString(); }
};

TEST_F(FrameWithoutLanguage, EveryCatalogueTextReadsAsHashesAndTheFrameStillWorks) {
    EXPECT_EQ(mdiMain().mnuFile->title(), kMissingText);
    EXPECT_EQ(mdiMain().lblPort->text(), kMissingText);
    EXPECT_EQ(LogLines().at(0).text, kMissingText);
    mdiMain().mnuVerbindungVerbinden_Click();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, kMissingText);
}

TEST_F(FrameStart, EmptyOrBlankAddressIsRefusedDifferentlyByTheTwoConnects) {
    auto& f = mdiMain();
    f.txtAddress->SetText("   ");
    f.mnuVerbindungVerbinden_Click();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("ENTER_ADRESS"));
    EXPECT_EQ(boxes[0].flags, 16);
    EXPECT_TRUE(f.txtAddress->isEnabled());

    f.QuickConnect();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[1].prompt, GetLanguageText("ENTER_HOST"));
    EXPECT_EQ(boxes[1].flags, 64);

    f.txtAddress->SetText("127.0.0.1");
    f.txtPort->SetText(" ");
    f.mnuVerbindungVerbinden_Click();
    ASSERT_EQ(boxes.size(), 3u);
    EXPECT_EQ(boxes[2].prompt, GetLanguageText("ENTER_PORT"));
    EXPECT_EQ(boxes[2].flags, 16);
    // Nothing was touched: the welcome text still stands.
    EXPECT_EQ(LogLines().at(0).text, GetLanguageText("WELCOME1"));
}

TEST_F(FrameStart, PassiveBoxWritesBlueLinesAndTheOnLineLandsAtTheCaret) {
    auto& f = mdiMain();
    auto& log = *frmTransferHistory().rtfTransferHistory;
    log.SetSelStart(0);  // as a click at the very start
    f.chkPassiveTransfer->click();
    EXPECT_EQ(lConnectFlags, INTERNET_FLAG_PASSIVE);
    auto lines = LogLines();
    EXPECT_EQ(lines.front().text, GetLanguageText("PASSIVE_TRANSER_ON"));
    EXPECT_EQ(lines.front().colour, kBlue);

    f.chkPassiveTransfer->click();
    EXPECT_EQ(lConnectFlags, 0u);
    lines = LogLines();
    EXPECT_EQ(lines.back().text, GetLanguageText("PASSIVE_TRANSER_OFF"));
    EXPECT_EQ(lines.back().colour, kBlue);
    EXPECT_EQ(log.SelColor(), kBlack);
}

// --- The connection bar as the user meets it -------------------------------

TEST_F(FrameStart, ThePasswordShowsAsStars) {
    auto& f = mdiMain();
    f.txtPassword->SetText("secret");
    EXPECT_EQ(f.txtPassword->displayText(), "******");
    EXPECT_EQ(f.txtPassword->Text(), "secret");
}

TEST_F(FrameStart, TabGoesThroughTheBarAndEachBoxLightsUpWithItsTextSelected) {
    auto& f = mdiMain();
    f.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
    f.txtAddress->SetFocus();
    Pump();
    f.txtUserID->SetText("anonymous");
    f.txtPassword->SetText("guest");
    ASSERT_TRUE(f.txtAddress->hasFocus());
    EXPECT_EQ(f.txtAddress->BackColor(), RGB(255, 255, 192));
    QTest::keyClicks(f.txtAddress, "ftp.example");

    const auto tab = [] {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        Pump(1);
        return QApplication::focusWidget();
    };
    EXPECT_EQ(tab(), f.txtUserID);
    EXPECT_EQ(f.txtAddress->Text(), "ftp.example");
    EXPECT_EQ(f.txtAddress->BackColor(), RGB(255, 255, 255));
    EXPECT_EQ(f.txtUserID->BackColor(), RGB(255, 255, 192));
    EXPECT_EQ(f.txtUserID->selectedText(), "anonymous");
    EXPECT_EQ(tab(), f.txtPassword);
    EXPECT_EQ(f.txtPassword->selectionLength(), 5);
    EXPECT_EQ(f.txtUserID->BackColor(), RGB(255, 255, 255));
    EXPECT_EQ(tab(), f.txtPort);
    EXPECT_EQ(f.txtPort->selectedText(), "21");
    EXPECT_EQ(f.txtPort->BackColor(), RGB(255, 255, 192));
    EXPECT_EQ(tab(), f.chkPassiveTransfer);
    EXPECT_EQ(f.txtPort->BackColor(), RGB(255, 255, 255));
    EXPECT_EQ(tab(), f.cboTransferMode);

    // A click into the address box lights it up and selects its text too.
    QTest::mouseClick(f.txtAddress, Qt::LeftButton, {}, QPoint(5, 5));
    Pump();
    EXPECT_TRUE(f.txtAddress->hasFocus());
    EXPECT_EQ(f.txtAddress->BackColor(), RGB(255, 255, 192));
    EXPECT_EQ(f.txtAddress->selectedText(), "ftp.example");
}

// The bar at the frame's start size, in each language of the catalogue.
class BarInEveryLanguage : public StartedFrameTest, public ::testing::WithParamInterface<const char*> {
protected:
    QString LanguageTable() const override { return QString::fromLatin1(GetParam()); }
    // Whether the text shows whole in the line edit, without scrolling.
    static bool ShowsWhole(QLineEdit* box, const QString& text) {
        box->setText(text);
        box->setCursorPosition(0);
        const int start = box->inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
        box->setCursorPosition(int(text.size()));
        const int end = box->inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
        return end - start == box->fontMetrics().horizontalAdvance(text) && end < box->width();
    }
    static int ItemRoom(const QComboBox* combo) {
        QStyleOptionComboBox opt;
        opt.initFrom(combo);
        opt.rect = combo->rect();
        return combo->style()->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxEditField, combo).width();
    }
};

INSTANTIATE_TEST_SUITE_P(Catalogue, BarInEveryLanguage, ::testing::Values("deutsch", "francais", "english", "espanol"));

TEST_P(BarInEveryLanguage, EveryCaptionShowsWholeAndTheModeBoxLiesInTheWindow) {
    auto& f = mdiMain();
    for (const QLabel* label : {f.lblAdresse, f.lblBenutzer, f.lblPasswort, f.lblPort, f.lblModus}) {
        EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width()) << label->text().toStdString();
        EXPECT_LE(label->fontMetrics().height(), label->height()) << label->text().toStdString();
    }
    EXPECT_LE(f.chkPassiveTransfer->sizeHint().width(), f.chkPassiveTransfer->width());
    EXPECT_TRUE(ShowsWhole(f.txtPort, "2121")) << "a four-digit port";
    for (int i = 0; i < f.cboTransferMode->ListCount(); ++i)
        EXPECT_LE(f.cboTransferMode->fontMetrics().horizontalAdvance(f.cboTransferMode->List(i)),
                  ItemRoom(f.cboTransferMode))
            << f.cboTransferMode->List(i).toStdString();
    // The controls keep their design places.
    EXPECT_EQ(controls::LeftOf(f.txtPort), 8940 / 15 * 15);
    EXPECT_EQ(controls::LeftOf(f.cboTransferMode), 14310 / 15 * 15);
    // The whole bar within the frame, the mode box within the bar.
    const QRect mode(f.cboTransferMode->mapTo(&f, QPoint(0, 0)), f.cboTransferMode->size());
    EXPECT_LE(mode.right(), f.width());
    EXPECT_LE(f.cboTransferMode->geometry().right(), f.fraTop->contentsRect().right());
    EXPECT_LE(f.fraTop->mapTo(&f, QPoint(f.fraTop->width(), 0)).x(), f.width());
}

TEST(PortToInteger, ReadsPortsAsA16BitSignedInteger) {
    EXPECT_EQ(PortToInteger("21"), 21);
    EXPECT_EQ(PortToInteger(" 2121 "), 2121);
    EXPECT_EQ(PortToInteger("32767"), 32767);
    EXPECT_EQ(PortToInteger("21.5"), 22);
    EXPECT_EQ(PortToInteger("22.5"), 22);
    EXPECT_FALSE(PortToInteger("32768"));
    EXPECT_FALSE(PortToInteger("65535"));
    EXPECT_FALSE(PortToInteger("ftp"));
    EXPECT_FALSE(PortToInteger(""));
    // Hexadecimal and octal forms; up to 16 bits they are the bit pattern.
    EXPECT_EQ(PortToInteger("&H15"), 21);
    EXPECT_EQ(PortToInteger(" &h7fff "), 32767);
    EXPECT_EQ(PortToInteger("&HFFFF"), -1);
    EXPECT_EQ(PortToInteger("&H8000"), -32768);
    EXPECT_EQ(PortToInteger("&O25"), 21);
    EXPECT_EQ(PortToInteger("&HFFFFFFFF"), -1);
    EXPECT_FALSE(PortToInteger("&H10000"));
    EXPECT_FALSE(PortToInteger("&H"));
    EXPECT_FALSE(PortToInteger("&HXY"));
    EXPECT_FALSE(PortToInteger("&O8"));
    EXPECT_FALSE(PortToInteger("&21"));
}

TEST_F(FrameStart, ExitByTheMenuEndsTheProgramAndUnloadsTheForms) {
    mdiMain().mnuFileExit->trigger();
    Pump();
    EXPECT_EQ(endCalls, 1);
    EXPECT_FALSE(mdiMain.Exists());
    EXPECT_FALSE(frmServer.Exists());
    // The catalogue is closed with the frame.
    EXPECT_EQ(GetLanguageText("WELCOME1"), kMissingText);
}

TEST_F(FrameStart, ClosingTheWindowTakesTheSameWayOut) {
    mdiMain().close();
    Pump();
    EXPECT_EQ(endCalls, 1);
    EXPECT_FALSE(mdiMain.Exists());
}

}  // namespace
