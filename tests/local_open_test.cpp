// Opening local files in their program, the open-with choice and the
// properties, from the pane's toolbar and popup. Program starts are
// recorded; the associations and the session bus are the test's own.
#include "support/byte_paths.h"
#include "support/desktop_env.h"
#include "support/local_fixture.h"
#include "support/qt_print.h"

#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "local/frmPopUpfrmLocal.h"
#include "platform/localfs.h"
#include "shared/mPublic.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QTest>
#include <QPushButton>
#include <sys/stat.h>

namespace {

using testdesktop::WaitFor;

const bool kDesktop = testdesktop::Install();

QDialog* ShownDialog(const QString& name) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == name && w->isVisible()) return qobject_cast<QDialog*>(w);
    return nullptr;
}

class LocalOpen : public LocalFolderTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(kDesktop);
        LocalFolderTest::SetUp();
    }
    void TearDown() override {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (qobject_cast<QDialog*>(w)) delete w;
        LocalFolderTest::TearDown();
    }
    static QString Viewer() { return localfs::ToWindows(testdesktop::ViewerExecutable()); }
};

TEST_F(LocalOpen, AFileStartsItsProgramWithThePathUnquoted) {
    Make("my notes.txt");
    Make("plain.txt");
    Go();
    SelectOnly({Row("my notes.txt")});
    ClickTool("open");
    ASSERT_EQ(started.size(), 1u);
    EXPECT_EQ(started[0].first, Viewer());
    // The path goes as it stands: with its blank it reaches the program in
    // two pieces.
    EXPECT_EQ(started[0].second, Win() + "\\my notes.txt");
    EXPECT_TRUE(boxes.empty());

    SelectOnly({Row("plain.txt")});
    RightClickRow(Row("plain.txt"));
    Choose(frmPopUpfrmLocal().mnu, frmPopUpfrmLocal().mnuOeffnen);
    ASSERT_EQ(started.size(), 2u);
    EXPECT_EQ(started[1], std::make_pair(Viewer(), Win() + "\\plain.txt"));
}

TEST_F(LocalOpen, AProgramFileAsksWhetherToChooseAProgramInstead) {
    Make("tool", "#!/bin/sh\nexit 0\n");
    ::chmod((Root() + "/tool").constData(), 0755);
    Go();
    SelectOnly({Row("tool")});
    boxAnswers = {vbNo};
    ClickTool("open");
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].prompt, GetLanguageText("MPUB_NOAPP") + "\r\n" + GetLanguageText("MPUB_PROGSEL"));
    EXPECT_EQ(boxes[0].flags, vbYesNo);
    EXPECT_TRUE(boxes[0].title.isEmpty());
    EXPECT_TRUE(started.empty());
    EXPECT_EQ(ShownDialog("dlgOpenWith"), nullptr);

    boxAnswers = {vbYes};
    ClickTool("open");
    QDialog* d = ShownDialog("dlgOpenWith");
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d->windowTitle(), GetLanguageText("SHELL_OPENWITH_TITLE") + " tool");
    EXPECT_TRUE(started.empty());
}

TEST_F(LocalOpen, OpenWithFromThePopupOffersTheRegisteredProgramsAndStartsTheChoice) {
    Make("read me.txt");
    Go();
    SelectOnly({Row("read me.txt")});
    RightClickRow(Row("read me.txt"));
    Choose(frmPopUpfrmLocal().mnu, frmPopUpfrmLocal().mnuOeffnenMit);
    QDialog* d = ShownDialog("dlgOpenWith");
    ASSERT_NE(d, nullptr);
    auto* programs = d->findChild<QListWidget*>("lstPrograms");
    ASSERT_GE(programs->count(), 1);
    EXPECT_EQ(programs->item(0)->text(), testdesktop::ViewerName());
    auto* ok = d->findChild<QPushButton*>("cmdOK");
    EXPECT_EQ(ok->text(), GetLanguageText("SHELL_OK"));
    QTest::mouseClick(ok, Qt::LeftButton);
    ASSERT_EQ(started.size(), 1u);
    EXPECT_EQ(started[0], std::make_pair(testdesktop::ViewerId(), "\"" + Win() + "\\read me.txt\""));
}

TEST_F(LocalOpen, PropertiesGoToTheFileManagerWhenOneAnswersOnTheBus) {
    testdesktop::PrivateBus bus;
    ASSERT_TRUE(bus.StartFileManager());
    bus.Use();
    Make("r\xe9port.txt");
    Go();
    SelectOnly({Row("r\xe9port.txt")});
    ClickTool("prop");
    ASSERT_TRUE(WaitFor([&] { return !bus.Calls().isEmpty(); }));
    EXPECT_EQ(bus.Calls(), QStringList{"ShowItemProperties file://" +
                                       QString::fromLatin1((Root() + "/r\xe9port.txt").toPercentEncoding("/"))});
    WaitFor([] { return false; }, 300);
    EXPECT_EQ(ShownDialog("dlgProperties"), nullptr);
}

TEST_F(LocalOpen, WithoutAFileManagerTheProgramsOwnDialogShowsThePropertiesInTheUsersLanguage) {
    Make("notes.txt", "12345");
    Folder("sub");
    Folder("sub/empty");
    Go();
    SelectOnly({Row("notes.txt")});
    RightClickRow(Row("notes.txt"));
    Choose(frmPopUpfrmLocal().mnu, frmPopUpfrmLocal().mnuEigenschaften);
    QDialog* d = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (d = ShownDialog("dlgProperties")) != nullptr; }));
    EXPECT_EQ(d->windowTitle(), GetLanguageText("SHELL_PROP_TITLE") + " notes.txt");
    EXPECT_EQ(d->findChild<QLabel*>("valFolder")->text(), Win());
    EXPECT_EQ(d->findChild<QLabel*>("valSize")->text(), "5 " + GetLanguageText("SHELL_PROP_BYTES"));
    delete d;

    // Without a row the folder's own.
    Go("sub/empty");
    ASSERT_EQ(list().Count(), 0);
    ClickTool("prop");
    ASSERT_TRUE(WaitFor([&] { return (d = ShownDialog("dlgProperties")) != nullptr; }));
    EXPECT_EQ(d->findChild<QLabel*>("valName")->text(), "empty");
    EXPECT_EQ(d->findChild<QLabel*>("valContents")->text(), "0 " + GetLanguageText("SHELL_PROP_ITEMS"));
}

TEST_F(LocalOpen, AnOddNameReachesTheProgramAsItsBytes) {
    Make("caf\xe9\\x:y.txt", "odd");
    Go();
    SelectOnly({Row("caf\xe9\\x:y.txt")});
    seams::SetStartHandler({});  // the test's viewer really starts
    ClickTool("open");
    QByteArray args;
    ASSERT_TRUE(WaitFor([&] { return !(args = testdesktop::ViewerArguments()).isEmpty(); }));
    EXPECT_EQ(args, Root() + "/caf\xe9\\x:y.txt\n");
}

}  // namespace
