// The language dialog: the built catalogue's languages, its three tabs as
// the user clicks them, OK and Abbrechen, and small catalogues of the
// test's own for the edges of the choice.
#include "support/catalogue.h"
#include "support/frame_fixture.h"

#include "frame/frmStart.h"
#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"

#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace {

class LanguageDialog : public FrameTest {
protected:
    QString LanguageTable() const override { return QString(); }
    void SetUp() override {
        FrameTest::SetUp();
        CloseLanguageDatabase();  // the dialog's load opens it
    }
    void TearDown() override {
        SetLanguageDatabasePath(QString());
        FrameTest::TearDown();
    }
    // A catalogue with these languages (table, display name), each table
    // holding "Datei" as "<name> file".
    void Use(const QList<QPair<QString, QString>>& languages) {
        QList<CatalogueLanguage> rows;
        QList<QPair<QString, CatalogueTexts>> tables;
        int id = 1;
        for (const auto& [table, name] : languages) {
            rows.append({id++, table, name});
            tables.append({table.trimmed(), {{"Datei", name + " file"}}});
        }
        const QString path = dir_.path() + "/lang.db";
        ASSERT_TRUE(MakeCatalogue(path, rows, tables));
        SetLanguageDatabasePath(localfs::ToWindows(path));
    }
    static void ClickTab(int index) {
        QTabBar* bar = frmStart().tabStart;
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }
    QTemporaryDir dir_;
};

TEST_F(LanguageDialog, OffersTheFourLanguagesWithTheThirdChosenAndOkOpensTheFrame) {
    auto& dlg = frmStart();
    ASSERT_EQ(dlg.cboSprache->ListCount(), 4);
    EXPECT_EQ(dlg.cboSprache->List(0), "Deutsch");
    EXPECT_EQ(dlg.cboSprache->ListIndex(), 2);
    EXPECT_EQ(dlg.cboSprache->Text(), "English");

    dlg.cboSprache->SetListIndex(0);
    dlg.cmdOk->click();
    Pump();
    EXPECT_EQ(sLanguageTable, "deutsch");
    EXPECT_TRUE(mdiMain.Exists());
    EXPECT_FALSE(frmStart.Exists());
    EXPECT_EQ(mdiMain().mnuMyComputer->title(), GetLanguageText("FRMLOCAL_MYCOMPUTER"));
}

TEST_F(LanguageDialog, EachTabShowsItsOwnPageAndAllThreeTabsShowWhole) {
    auto& dlg = frmStart();
    dlg.show();
    Pump();
    QTabBar* bar = dlg.tabStart;
    ASSERT_EQ(bar->count(), 3);
    for (int i = 0; i < bar->count(); ++i)
        EXPECT_TRUE(bar->rect().contains(bar->tabRect(i))) << "tab " << i << " is cut off";
    for (const QToolButton* arrow : bar->findChildren<QToolButton*>()) EXPECT_FALSE(arrow->isVisible());

    EXPECT_TRUE(dlg.picSprache->isVisible());
    ClickTab(1);
    EXPECT_TRUE(dlg.picLizenzvereinbarungen->isVisible());
    EXPECT_FALSE(dlg.picSprache->isVisible());
    EXPECT_FALSE(dlg.picInfo->isVisible());
    // The agreement fills its page rather than a corner of it.
    EXPECT_FALSE(dlg.rtfLizenzvereinbarungen->toPlainText().isEmpty());
    EXPECT_GT(dlg.rtfLizenzvereinbarungen->width(), dlg.picLizenzvereinbarungen->width() * 3 / 4);
    EXPECT_GT(dlg.rtfLizenzvereinbarungen->height(), dlg.picLizenzvereinbarungen->height() * 3 / 4);

    ClickTab(2);
    EXPECT_TRUE(dlg.picInfo->isVisible());
    EXPECT_FALSE(dlg.picLizenzvereinbarungen->isVisible());
    for (const QLabel* label : {dlg.Label5, dlg.Label6, dlg.Label7, dlg.Label8, dlg.Label9})
        EXPECT_TRUE(label->isVisible() && label->width() > 0) << label->text().toStdString();
    EXPECT_EQ(dlg.Label5->text(), "Ferrydock");

    ClickTab(0);
    EXPECT_TRUE(dlg.picSprache->isVisible());
    EXPECT_FALSE(dlg.picInfo->isVisible());
    // OK works on any tab, nothing to accept first.
    ClickTab(1);
    dlg.cmdOk->click();
    Pump();
    EXPECT_EQ(sLanguageTable, "english");
}

TEST_F(LanguageDialog, CancelEndsWithoutAFrame) {
    frmStart().cmdAbbrechen->click();
    Pump();
    EXPECT_EQ(endCalls, 1);
    EXPECT_FALSE(mdiMain.Exists());
}

TEST_F(LanguageDialog, TwoLanguagesOpenWithoutAChoiceAndOkLeavesEveryTextAsHashes) {
    Use({{"de", "Deutsch"}, {"en", "English"}});
    auto& dlg = frmStart();
    EXPECT_EQ(dlg.cboSprache->ListCount(), 2);
    EXPECT_EQ(dlg.cboSprache->ListIndex(), -1);
    dlg.cmdOk->click();
    Pump();
    EXPECT_EQ(sLanguageTable, "");
    EXPECT_EQ(mdiMain().mnuFile->title(), kMissingText);
}

TEST_F(LanguageDialog, TheThirdStandsChosenAndATableNameIsTrimmed) {
    Use({{"de", "Deutsch"}, {"fr", "Français"}, {"en   ", "English"}, {"en2", "English"}});
    auto& dlg = frmStart();
    EXPECT_EQ(dlg.cboSprache->Text(), "English");
    dlg.cmdOk->click();
    Pump();
    EXPECT_EQ(sLanguageTable, "en");  // the first of two equal names wins
    EXPECT_EQ(mdiMain().mnuFile->title(), "English file");
}

TEST_F(LanguageDialog, BeyondTheTwentiethALanguageCanBeListedButNotChosen) {
    QList<QPair<QString, QString>> languages;
    for (int i = 1; i <= 25; ++i) languages.append({QString("t%1").arg(i), QString("Language %1").arg(i)});
    Use(languages);
    auto& dlg = frmStart();
    EXPECT_EQ(dlg.cboSprache->ListCount(), 25);
    dlg.cboSprache->SetListIndex(19);
    dlg.cmdOk->click();
    Pump();
    EXPECT_EQ(sLanguageTable, "t20");
    frmStart().cboSprache->SetListIndex(21);
    sLanguageTable.clear();
    frmStart().cmdOk->click();
    Pump();
    EXPECT_EQ(sLanguageTable, "");
}

}  // namespace
