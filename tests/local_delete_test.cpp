// Deleting local rows: the Delete key, the toolbar's button and the popup's
// entry, one question, the log, the frame's bar, and what is left of tree,
// combo and list afterwards.
#include "support/byte_paths.h"
#include "support/local_fixture.h"
#include "support/qt_print.h"

#include "frame/mdiMain.h"
#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/frmPopUpfrmLocal.h"
#include "shared/mPublic.h"

#include <QMenu>

namespace {

using LocalDelete = LocalFolderTest;

const QChar kBlank(0xF020);

TEST_F(LocalDelete, TheKeyAsksOnceForAFileAndDeletesItForGood) {
    Make("a.txt");
    Make("b.txt");
    Go();
    SelectOnly({Row("a.txt")});
    boxAnswers = {vbYes};
    const size_t before = LogLines().size();
    PressKey(Qt::Key_Delete);

    const QString path = Win() + "\\a.txt";
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt,
              GetLanguageText("MSDEL_DELETEIT1") + ' ' + path + ' ' + GetLanguageText("MSDEL_DELETEIT2"));
    EXPECT_EQ(boxes[0].flags, vbYesNo);
    const auto lines = LogFrom(before);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, GetLanguageText("MSDEL_DELETE") + ' ' + path);
    EXPECT_EQ(lines[0].colour, kBlack);
    EXPECT_EQ(lines[1].text, GetLanguageText("MSDEL_DELSUCC"));
    EXPECT_EQ(lines[1].colour, kGreen);
    EXPECT_EQ(OnDisk(), QList<QByteArray>{"b.txt"});
    EXPECT_EQ(Rows(), QStringList{"b.txt"});
    auto& bar = *mdiMain().pgbBottom;
    EXPECT_EQ(bar.Min(), 1);
    EXPECT_EQ(bar.Max(), 10);
    EXPECT_EQ(bar.Value(), 1);
    EXPECT_EQ(MousePointer(), vbDefault);
}

TEST_F(LocalDelete, NoKeepsTheRowAndAPathWithoutAPointIsAskedAboutAsAFolder) {
    Folder("tree");
    Folder("tree/deep");
    Make("tree/deep/file.txt");
    Folder("dotted.d");
    Go();
    SelectOnly({Row("tree")});
    boxAnswers = {vbNo};
    PressKey(Qt::Key_Delete);
    EXPECT_EQ(boxes.back().prompt, GetLanguageText("MSDEL_FOLDDEL1") + ' ' + Win() + "\\tree " +
                                       GetLanguageText("MSDEL_FOLDDEL2"));
    EXPECT_EQ(LogLines().back().text, GetLanguageText("MSDEL_DELCANCEL"));
    EXPECT_EQ(LogLines().back().colour, kRed);
    EXPECT_EQ(OnDisk(), QList<QByteArray>({"dotted.d", "tree"}));

    // Yes takes the folder with all below it; a folder with a point in its
    // name is asked about as a file.
    boxAnswers = {vbYes};
    PressKey(Qt::Key_Delete);
    SelectOnly({Row("dotted.d")});
    boxAnswers = {vbYes};
    PressKey(Qt::Key_Delete);
    EXPECT_TRUE(boxes.back().prompt.startsWith(GetLanguageText("MSDEL_DELETEIT1")));
    EXPECT_TRUE(OnDisk().isEmpty());
    // After the key's delete the tree still shows the folders.
    EXPECT_NE(tree().IndexOf(Win().toLower() + "\\tree\\"), 0);
}

TEST_F(LocalDelete, SeveralRowsAreCountedInTheQuestionAndEachIsLoggedWithTheBarRunning) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) Make(name);
    Go();
    SelectOnly({1, 3});
    boxAnswers = {vbNo};
    size_t before = LogLines().size();
    PressKey(Qt::Key_Delete);
    EXPECT_EQ(boxes.back().prompt,
              GetLanguageText("MSDEL_FILEDEL1") + " 2 " + GetLanguageText("MSDEL_FILEDEL2"));
    auto lines = LogFrom(before);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, QString::fromUtf8("Aktion: Beginne mit löschen"));
    EXPECT_EQ(lines[1].colour, kRed);
    EXPECT_EQ(OnDisk().size(), 3);

    boxAnswers = {vbYes};
    before = LogLines().size();
    PressKey(Qt::Key_Delete);
    lines = LogFrom(before);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[1].text, GetLanguageText("MSDEL_WILLDELETE1") + ' ' + Win() + "\\a.txt");
    EXPECT_EQ(lines[2].colour, kGreen);
    EXPECT_EQ(lines[3].text, GetLanguageText("MSDEL_WILLDELETE1") + ' ' + Win() + "\\c.txt");
    EXPECT_EQ(lines[4].text, GetLanguageText("MSDEL_DELSUCC"));
    EXPECT_EQ(OnDisk(), QList<QByteArray>{"b.txt"});
    auto& bar = *mdiMain().pgbBottom;
    EXPECT_EQ(bar.Max(), 2);
    EXPECT_EQ(bar.Value(), bar.Min());
}

TEST_F(LocalDelete, AFileNamedZeroStaysThoughTheLogSaysItWentAndBlanksAtTheEndsCount) {
    Make("0");
    Make(" both ");
    Make("both");
    Folder("00");
    Go();
    for (const QByteArray& name : {QByteArray("0"), QByteArray(" both "), QByteArray("00")}) {
        SelectOnly({Row(name)});
        boxAnswers = {vbYes};
        PressKey(Qt::Key_Delete);
        EXPECT_EQ(LogLines().back().text, GetLanguageText("MSDEL_DELSUCC")) << name.toStdString();
    }
    // Only a file whose name reads as 0 is spared; a folder "00" isn't.
    EXPECT_EQ(OnDisk(), QList<QByteArray>({"0", "both"}));
    EXPECT_EQ(Rows(), QStringList({"0", "both"}));
    EXPECT_FALSE(Rows().contains(kBlank + QString("both") + kBlank));
}

TEST_F(LocalDelete, TheButtonRebuildsTheTreeAndDropsGoneFoldersFromTheCombo) {
    Folder("Keep");
    Folder("Gone");
    Folder("Gone/inner");
    Go("Gone");
    Go();
    const QString gone = Win().toLower() + "\\gone";
    auto& combo = *frmLocal().cboLocal;
    bool listed = false;
    for (int i = 0; i < combo.ListCount(); ++i) listed = listed || combo.List(i) == gone;
    ASSERT_TRUE(listed);

    SelectOnly({Row("Gone")});
    boxAnswers = {vbYes};
    ClickTool("del");
    EXPECT_EQ(OnDisk(), QList<QByteArray>{"Keep"});
    // The tree anew: root "c:" without the backslash, down to the current
    // folder, which is selected, with what is left below it.
    EXPECT_EQ(tree().Key(1), "c:");
    const int node = tree().IndexOf(Win().toLower() + '\\');
    ASSERT_NE(node, 0);
    EXPECT_EQ(tree().SelectedIndex(), node);
    EXPECT_NE(tree().IndexOf(Win().toLower() + "\\keep\\"), 0);
    EXPECT_EQ(tree().IndexOf(gone + '\\'), 0);
    for (int i = 0; i < combo.ListCount(); ++i) EXPECT_NE(combo.List(i), gone);
    // The delete's own reader: the folder letter before the system one.
    EXPECT_EQ(list().SubItem(Row("Keep"), 4), "D");
}

TEST_F(LocalDelete, NoFromThePopupStillRebuildsTheTreeAndNoRowsMeanNoQuestion) {
    Folder("sub");
    Make("a.txt");
    Go();
    SelectOnly({Row("a.txt")});
    boxAnswers = {vbNo};
    RightClickRow(Row("a.txt"));
    Choose(frmPopUpfrmLocal().mnu, frmPopUpfrmLocal().mnuLoeschen);
    EXPECT_EQ(boxes.size(), 1u);
    EXPECT_EQ(tree().Key(1), "c:");
    EXPECT_EQ(OnDisk().size(), 2);

    Go("sub");
    ASSERT_EQ(list().Count(), 0);
    const size_t before = LogLines().size();
    PressKey(Qt::Key_Delete);
    ClickTool("del");
    EXPECT_EQ(boxes.size(), 1u);
    EXPECT_EQ(LogLines().size(), before);
}

}  // namespace
