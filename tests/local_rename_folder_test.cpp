// The local list's popup, rename and new folder, on a real temporary folder
// with the boxes answered by the test.
#include "support/byte_paths.h"
#include "support/local_fixture.h"
#include "support/qt_print.h"

#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/frmPopUpfrmLocal.h"
#include "local/localRename.h"
#include "shared/mPublic.h"

#include <QApplication>
#include <QMenu>
#include <QTest>

namespace {

using LocalPopup = LocalFolderTest;
using LocalRename = LocalFolderTest;
using LocalNewFolder = LocalFolderTest;

const QChar kBlank(0xF020);  // a blank at a name's end, as the listing shows it

TEST_F(LocalPopup, TheRightButtonOpensTheMenuOverRowsAndEmptySpaceAndTheLeftDoesNot) {
    Make("a.txt");
    Go();
    auto& popup = frmPopUpfrmLocal();
    EXPECT_FALSE(popup.isVisible());  // a carrier, never shown
    const std::vector<std::pair<QAction*, const char*>> captions = {
        {popup.mnuUpload, "FRMPULOC_UPLOAD"},         {popup.mnuUploadAls, "FRMPULOC_UPLOADAS"},
        {popup.mnuOeffnen, "FRMPULOC_OPEN"},          {popup.mnuOeffnenMit, "FRMPULOC_OPENWITH"},
        {popup.mnuUmbenennen, "FRMPULOC_RENAME"},     {popup.mnuLoeschen, "FRMPULOC_DELETE"},
        {popup.mnuNeu->menuAction(), "FRMPULOC_NEW"}, {popup.mnuNeuVerzeichnis, "FRMPULOC_NEWFOLDER"},
        {popup.mnuAktualisieren, "FRMPULOC_REFRESH"}, {popup.mnuEigenschaften, "FRMPULOC_PROP"}};
    for (const auto& [entry, key] : captions) {
        EXPECT_EQ(entry->text(), GetLanguageText(key)) << key;
        EXPECT_TRUE(entry->isEnabled()) << key;
    }
    // The groups: upload | open | rename | delete | new | refresh | properties.
    int separators = 0;
    for (QAction* a : popup.mnu->actions()) separators += a->isSeparator();
    EXPECT_EQ(separators, 6);

    QTest::mouseClick(list().ViewArea(), Qt::LeftButton, {}, list().RowRect(1).center());
    Pump();
    EXPECT_FALSE(popup.mnu->isVisible());
    RightClickRow(1);
    EXPECT_TRUE(popup.mnu->isVisible());
    EXPECT_EQ(QApplication::activePopupWidget(), popup.mnu);
    EXPECT_EQ(popup.mnu->defaultAction(), popup.mnuUpload);
    // The next press of any button hides it first.
    QTest::mousePress(list().ViewArea(), Qt::LeftButton, {}, list().RowRect(1).center());
    Pump();
    EXPECT_FALSE(popup.mnu->isVisible());
    QTest::mouseRelease(list().ViewArea(), Qt::LeftButton, {}, list().RowRect(1).center());
    RightClick(QPoint(list().ViewArea()->width() - 5, list().ViewArea()->height() - 5));
    EXPECT_TRUE(popup.mnu->isVisible());
    popup.mnu->hide();
}

TEST_F(LocalPopup, RefreshFromThePopupUsesItsOwnReaderWithoutTheFolderLetter) {
    Folder("sub");
    Make("a.txt");
    Go();
    EXPECT_EQ(list().SubItem(Row("sub"), 4), "D");
    RightClickRow(1);
    Choose(frmPopUpfrmLocal().mnu, frmPopUpfrmLocal().mnuAktualisieren);
    EXPECT_EQ(Rows(), QStringList({"sub", "a.txt"}));
    EXPECT_EQ(list().SubItem(Row("sub"), 4), "");
    PressKey(Qt::Key_F5);
    EXPECT_EQ(list().SubItem(Row("sub"), 4), "D");
}

TEST_F(LocalRename, AFileGetsItsNewNameThroughACopyAndTheOldOneGoes) {
    Make("old.txt", "content");
    Make("other.txt");
    Folder("sub");
    Go();
    SelectOnly({Row("old.txt")});
    inputAnswers = {"New.TXT"};
    const size_t before = LogLines().size();
    RightClickRow(Row("old.txt"));
    Choose(frmPopUpfrmLocal().mnu, frmPopUpfrmLocal().mnuUmbenennen);

    ASSERT_EQ(inputPrompts.size(), 1u);
    EXPECT_EQ(inputPrompts[0], GetLanguageText("FRMPULOC_NEWNAME") + " old.txt ?");
    EXPECT_EQ(inputDefaults[0], "old.txt");
    const auto lines = LogFrom(before);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, GetLanguageText("FRMPULOC_RENAME2") + " old.txt");
    EXPECT_EQ(lines[0].colour, kBlack);
    EXPECT_EQ(lines[1].text, GetLanguageText("FRMPULOC_RENOK"));
    EXPECT_EQ(lines[1].colour, kGreen);
    EXPECT_EQ(OnDisk(), QList<QByteArray>({"New.TXT", "other.txt", "sub"}));
    EXPECT_EQ(bytepaths::Read(Root() + "/New.TXT"), "content");
    // The popup's reader filled the list: no folder letter.
    EXPECT_EQ(Rows(), QStringList({"sub", "New.TXT", "other.txt"}));
    EXPECT_EQ(list().SubItem(Row("sub"), 4), "");
}

TEST_F(LocalRename, AnExistingTargetACancelAndAFolderChangeNothing) {
    Make("a.txt", "A");
    Make("b.txt", "B");
    Folder("keep");
    Go();
    // The same name in another case is the file itself: the copy refuses.
    for (const char* answer : {"b.txt", "A.TXT", ""}) {
        SelectOnly({Row("a.txt")});
        inputAnswers = {answer};
        const size_t before = LogLines().size();
        frmPopUpfrmLocal().mnuUmbenennen_Click();
        const auto lines = LogFrom(before);
        ASSERT_EQ(lines.size(), 2u) << answer;
        EXPECT_EQ(lines[1].text, GetLanguageText(*answer ? "FRMPULOC_RENFAILED" : "FRMPULOC_RENCANCEL"));
        EXPECT_EQ(lines[1].colour, kRed);
    }
    SelectOnly({Row("keep")});
    inputAnswers = {"moved"};
    frmPopUpfrmLocal().mnuUmbenennen_Click();
    EXPECT_EQ(LogLines().back().text, GetLanguageText("FRMPULOC_RENFAILED"));
    EXPECT_EQ(OnDisk(), QList<QByteArray>({"a.txt", "b.txt", "keep"}));
    EXPECT_EQ(bytepaths::Read(Root() + "/b.txt"), "B");
}

TEST_F(LocalRename, TwoRowsAskForOneUnlessOneOfThemIsTheLast) {
    Make("a.txt");
    Make("b.txt");
    Make("c.txt");
    Go();
    SelectOnly({1, 2});
    const size_t before = LogLines().size();
    frmPopUpfrmLocal().mnuUmbenennen_Click();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("FRMPOPLOC_ONEFILE"));
    EXPECT_EQ(boxes[0].flags, vbInformation);
    EXPECT_TRUE(inputPrompts.empty());
    EXPECT_EQ(LogLines().size(), before);

    // The last row isn't counted: the rename goes on with the current row.
    SelectOnly({1, 3});
    inputAnswers = {"z.txt"};
    frmPopUpfrmLocal().mnuUmbenennen_Click();
    EXPECT_EQ(boxes.size(), 1u);
    EXPECT_EQ(OnDisk(), QList<QByteArray>({"a.txt", "b.txt", "z.txt"}));
}

TEST_F(LocalRename, NamesOfZeroAndWithBlanksAtBothEndsAndOddBytesAreRenamed) {
    Make("0", "zero");
    Make(" both ", "blanks");
    Make("both", "plain");
    Make("caf\xe9", "latin");
    Go();
    const std::vector<std::pair<QByteArray, QString>> renames = {
        {"0", "zero.txt"}, {" both ", " still both "}, {"caf\xe9", QString::fromUtf8("café")}};
    for (const auto& [from, to] : renames) {
        SelectOnly({Row(from)});
        inputAnswers = {to};
        frmPopUpfrmLocal().mnuUmbenennen_Click();
        EXPECT_EQ(LogLines().back().text, GetLanguageText("FRMPULOC_RENOK")) << from.toStdString();
    }
    EXPECT_EQ(OnDisk(), QList<QByteArray>({" still both ", "both", "caf\xc3\xa9", "zero.txt"}));
    EXPECT_EQ(bytepaths::Read(Root() + "/ still both "), "blanks");
    EXPECT_EQ(bytepaths::Read(Root() + "/both"), "plain");
    EXPECT_TRUE(Rows().contains(kBlank + QString("still both") + kBlank));
}

TEST_F(LocalRename, TheFrameMenusFormRefreshesWithThePanesReader) {
    Folder("sub");
    Make("a.txt");
    Go();
    SelectOnly({Row("a.txt")});
    inputAnswers = {"b.txt"};
    RenameLocalSelection(RenameRefresh::Pane);
    EXPECT_EQ(Rows(), QStringList({"sub", "b.txt"}));
    EXPECT_EQ(list().SubItem(Row("sub"), 4), "D");
}

TEST_F(LocalNewFolder, TheButtonMakesTheFolderWhichShowsInTheListButNotYetInTheTree) {
    Folder("Parent");
    Folder("Parent/Old");
    Go("Parent");
    inputAnswers = {"Fresh"};
    const size_t before = LogLines().size();
    ClickTool("new");

    ASSERT_EQ(inputPrompts.size(), 1u);
    EXPECT_EQ(inputPrompts[0], GetLanguageText("FRMPULOC_DIRNAME"));
    EXPECT_EQ(inputDefaults[0], "");
    EXPECT_EQ(OnDisk("Parent"), QList<QByteArray>({"Fresh", "Old"}));
    // The parents are lowered in the path the log shows; the folder's own
    // name keeps its case.
    const QString folder = Win().toLower() + "\\Parent\\";
    const auto lines = LogFrom(before);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].text, GetLanguageText("FRMPUSERVER_DIRNEW1") + ' ' + folder + "Fresh " +
                                 GetLanguageText("FRMPUSERVER_DIRNEW2"));
    EXPECT_EQ(lines[1].text, GetLanguageText("FRMPULOC_GENOK"));
    EXPECT_EQ(lines[1].colour, kGreen);
    EXPECT_EQ(Rows(), QStringList({"Fresh", "Old"}));

    // The tree was read again from a root keyed "c:", down to the folder,
    // which is selected; its children weren't read.
    EXPECT_EQ(tree().Key(1), "c:");
    EXPECT_EQ(tree().Text(1), "c:");
    const int node = tree().IndexOf(folder.toLower());
    ASSERT_NE(node, 0);
    EXPECT_EQ(tree().SelectedIndex(), node);
    EXPECT_TRUE(tree().Expanded(node));
    EXPECT_EQ(tree().IndexOf(folder.toLower() + "fresh\\"), 0);
    EXPECT_EQ(frmLocal().CurrentFolder(), Win() + "\\Parent\\");
}

TEST_F(LocalNewFolder, ThePopupsEntryPutsItInTheTreeToo) {
    Folder("Parent");
    Go("Parent");
    inputAnswers = {"Fresh"};
    RightClick(QPoint(5, list().ViewArea()->height() - 5));
    auto& popup = frmPopUpfrmLocal();
    Choose(popup.mnu, popup.mnuNeu->menuAction());
    ASSERT_TRUE(popup.mnuNeu->isVisible());
    Choose(popup.mnuNeu, popup.mnuNeuVerzeichnis);
    EXPECT_EQ(OnDisk("Parent"), QList<QByteArray>({"Fresh"}));
    EXPECT_EQ(tree().Text(1), "C:");
    const QString key = Win().toLower() + "\\parent\\";
    EXPECT_EQ(tree().SelectedIndex(), tree().IndexOf(key));
    EXPECT_NE(tree().IndexOf(key + "fresh\\"), 0);
    EXPECT_EQ(Rows(), QStringList({"Fresh"}));
}

TEST_F(LocalNewFolder, AnExistingNameOfAFolderOrAFileAndACancelMakeNothing) {
    Folder("Taken");
    Make("file.txt");
    Go();
    for (const char* name : {"TAKEN", "File.Txt"}) {
        inputAnswers = {name};
        const size_t before = LogLines().size();
        frmLocal().NewLocalFolder();
        const auto lines = LogFrom(before);
        ASSERT_EQ(lines.size(), 2u);
        EXPECT_EQ(lines[1].text, GetLanguageText("FRMPULOC_GENFAIL"));
        EXPECT_EQ(lines[1].colour, kRed);
    }
    const size_t before = LogLines().size();
    inputAnswers = {""};
    frmLocal().NewLocalFolder();
    EXPECT_EQ(LogLines().size(), before);
    EXPECT_EQ(OnDisk(), QList<QByteArray>({"Taken", "file.txt"}));
}

}  // namespace
