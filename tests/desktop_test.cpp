// The desktop's shell for local files: program starts with the bytes of the
// paths handed over, the program of a file, deleting a tree, the properties
// over the session bus or in a dialog of the program's own, and the
// open-with choice. The associations and the bus are the tests' own.
#include "support/byte_paths.h"
#include "support/desktop_env.h"
#include "support/qt_print.h"

#include "platform/desktop.h"
#include "platform/localfs.h"
#include "platform/localfs_internal.h"
#include "platform/seams.h"
#include "platform/shell.h"

#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using testdesktop::WaitFor;

const bool kDesktop = testdesktop::Install();
const QString kOpenAs = "rundll32.exe shell32.dll, OpenAs_RunDLL ";

QDialog* ShownDialog(const QString& name) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == name && w->isVisible()) return qobject_cast<QDialog*>(w);
    return nullptr;
}

QString Field(QDialog* d, const char* name) {
    const auto* label = d->findChild<QLabel*>(name);
    return label ? label->text() : "<none>";
}

class Desktop : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(kDesktop);
        ASSERT_TRUE(tmp_.isValid());
        root_ = QFile::encodeName(QFileInfo(tmp_.path()).canonicalFilePath());
        Record();
    }
    void TearDown() override {
        seams::SetStartHandler({});
        for (QWidget* w : QApplication::topLevelWidgets())
            if (qobject_cast<QDialog*>(w)) delete w;
        bytepaths::EmptyFolder(root_);
    }
    // Starts are noted, not made.
    void Record() {
        seams::SetStartHandler([this](const QString& program, const QString& parameters) {
            started_.emplace_back(program, parameters);
            return true;
        });
    }
    // The Windows form of a name in the folder, as its listing gives it.
    QString W(const QByteArray& name = {}) const {
        const QString w = localfs::ToWindows(QFile::decodeName(root_));
        return name.isEmpty() ? w : w + '\\' + localfs::detail::NameText(name);
    }
    QTemporaryDir tmp_;
    QByteArray root_;
    std::vector<std::pair<QString, QString>> started_;
};

TEST_F(Desktop, AProgramStartsWithTheBytesOfTheWindowsPathsItIsHanded) {
    ASSERT_TRUE(bytepaths::Write(root_, "caf\xe9\\x:y.txt", "odd"));
    seams::SetStartHandler({});
    const QString viewer = localfs::ToWindows(testdesktop::ViewerExecutable());
    ASSERT_GT(ShellExecuteA(nullptr, "open", viewer, W("caf\xe9\\x:y.txt") + " plain", "", SW_SHOWNORMAL), 32);
    QByteArray args;
    ASSERT_TRUE(WaitFor([&] { return !(args = testdesktop::ViewerArguments()).isEmpty(); }));
    EXPECT_EQ(args, root_ + "/caf\xe9\\x:y.txt\nplain\n");

    // Split at blanks like a Windows command line: an unquoted path with a
    // blank arrives in two pieces, a quoted one whole.
    ASSERT_TRUE(StartProgram(viewer, W("my file.txt") + " \"" + W("my file.txt") + "\""));
    ASSERT_TRUE(WaitFor([&] { return !(args = testdesktop::ViewerArguments()).isEmpty(); }));
    EXPECT_EQ(args, root_ + "/my\nfile.txt\n" + root_ + "/my file.txt\n");
}

TEST_F(Desktop, ShellExecuteOpensByStartingTheProgramAndKnowsNoOtherVerb) {
    EXPECT_GT(ShellExecuteA(nullptr, "open", "c:\\usr\\bin\\viewer", "c:\\a b.txt", "", SW_SHOWNORMAL), 32);
    EXPECT_LE(ShellExecuteA(nullptr, "print", "c:\\usr\\bin\\viewer", "c:\\a.txt", "", SW_SHOWNORMAL), 32);
    EXPECT_LE(ShellExecuteA(nullptr, "open", "", "c:\\a.txt", "", SW_SHOWNORMAL), 32);
    ASSERT_EQ(started_.size(), 1u);
    EXPECT_EQ(started_[0], std::make_pair(QString("c:\\usr\\bin\\viewer"), QString("c:\\a b.txt")));
}

TEST_F(Desktop, TheProgramOfAFileIsItsTypesDefaultApplicationAndAProgramFileIsItsOwn) {
    const QString viewer = localfs::ToWindows(testdesktop::ViewerExecutable());
    EXPECT_EQ(FindExecutableA(W("notes.txt")), viewer);  // by name: the file needn't exist
    EXPECT_EQ(FindExecutableA("C:\\ELSEWHERE\\NOTES.TXT"), viewer);
    // A script or a binary with its executable bit is a program; a text that
    // merely has the bit (as on a volume marking everything) isn't.
    ASSERT_TRUE(bytepaths::Write(root_, "tool.txt", "#!/bin/sh\necho\n"));
    ASSERT_TRUE(bytepaths::Write(root_, "marked.txt", "just text\n"));
    for (const char* name : {"tool.txt", "marked.txt"}) ::chmod((root_ + '/' + name).constData(), 0755);
    EXPECT_EQ(FindExecutableA(W("tool.txt").toUpper()), W("tool.txt").toUpper());
    EXPECT_EQ(FindExecutableA(W("marked.txt")), viewer);
    EXPECT_EQ(FindExecutableA(""), "");
}

TEST_F(Desktop, DeleteTakesTheWholeTreeForGoodButNothingALinkPointsTo) {
    ASSERT_EQ(::mkdir((root_ + "/tree").constData(), 0755), 0);
    ASSERT_EQ(::mkdir((root_ + "/tree/deep \xff").constData(), 0755), 0);
    ASSERT_EQ(::mkdir((root_ + "/outside").constData(), 0755), 0);
    ASSERT_TRUE(bytepaths::Write(root_ + "/tree/deep \xff", "a\\b", "x"));
    ASSERT_TRUE(bytepaths::Write(root_ + "/outside", "kept", "kept"));
    ASSERT_EQ(::symlink((root_ + "/outside").constData(), (root_ + "/tree/link").constData()), 0);
    ASSERT_EQ(::symlink((root_ + "/outside").constData(), (root_ + "/alias").constData()), 0);
    ASSERT_TRUE(bytepaths::Write(root_, "single", "x"));

    SHFILEOPSTRUCT op;
    op.wFunc = FO_DELETE;
    op.fFlags = FOF_NOCONFIRMATION | FOF_SIMPLEPROGRESS;
    op.pFrom = W("TREE");
    EXPECT_EQ(SHFileOperationA(op), 0);
    op.pFrom = W("single");
    EXPECT_EQ(SHFileOperationA(op), 0);
    op.pFrom = W("alias");  // a link to a folder goes as a link
    EXPECT_EQ(SHFileOperationA(op), 0);
    EXPECT_EQ(bytepaths::Names(root_), QList<QByteArray>{"outside"});
    EXPECT_EQ(bytepaths::Read(root_ + "/outside/kept"), "kept");

    op.pFrom = W("missing");
    EXPECT_NE(SHFileOperationA(op), 0);
    op.pFrom = "y:\\nowhere";
    EXPECT_NE(SHFileOperationA(op), 0);
}

TEST_F(Desktop, PropertiesGoToTheFileManagerOnTheSessionBusWithTheFilesBytes) {
    testdesktop::PrivateBus bus;
    ASSERT_TRUE(bus.Running());
    ASSERT_TRUE(bus.StartFileManager());
    bus.Use();
    ASSERT_TRUE(bytepaths::Write(root_, "r\xe9sum\xc3\xa9 #1.txt", "x"));
    SHELLEXECUTEINFO info;
    info.cbSize = 60;
    info.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_NOCLOSEPROCESS | SEE_MASK_FLAG_NO_UI;
    info.lpVerb = "properties";
    info.lpFile = W("r\xe9sum\xc3\xa9 #1.txt");
    EXPECT_TRUE(ShellExecuteEx(info));
    ASSERT_TRUE(WaitFor([&] { return !bus.Calls().isEmpty(); }));
    const QString expected =
        "file://" + QString::fromLatin1((root_ + "/r\xe9sum\xc3\xa9 #1.txt").toPercentEncoding("/"));
    EXPECT_EQ(bus.Calls(), QStringList{"ShowItemProperties " + expected});
    // The file manager answered: no dialog of our own.
    WaitFor([] { return false; }, 300);
    EXPECT_EQ(ShownDialog("dlgProperties"), nullptr);
}

TEST_F(Desktop, WithoutAFileManagerTheOwnDialogShowsTheFacts) {
    ASSERT_TRUE(bytepaths::Write(root_, "notes.txt", "hello"));
    ::chmod((root_ + "/notes.txt").constData(), 0640);
    ASSERT_EQ(::mkdir((root_ + "/box").constData(), 0755), 0);
    ASSERT_TRUE(bytepaths::Write(root_ + "/box", "one", ""));
    ASSERT_TRUE(bytepaths::Write(root_ + "/box", "two", ""));

    // A bus without a file manager, then no bus at all.
    testdesktop::PrivateBus bus;
    ASSERT_TRUE(bus.Running());
    bus.Use();
    desktop::DialogTexts texts;
    texts.propertiesTitle = "Eigenschaften von";
    texts.items = "Einträge";
    texts.close = "Schließen";
    desktop::SetDialogTexts(texts);
    SHELLEXECUTEINFO info;
    info.lpVerb = "properties";
    info.lpFile = W("NOTES.TXT");
    EXPECT_TRUE(ShellExecuteEx(info));
    QDialog* d = nullptr;
    ASSERT_TRUE(WaitFor([&] { return (d = ShownDialog("dlgProperties")) != nullptr; }));
    EXPECT_EQ(d->windowTitle(), "Eigenschaften von notes.txt");
    EXPECT_EQ(Field(d, "valName"), "notes.txt");
    EXPECT_EQ(Field(d, "valFolder"), W());
    EXPECT_EQ(Field(d, "valType"), GetShellTypeName(W("notes.txt")));
    EXPECT_TRUE(Field(d, "valSize").startsWith("5 ")) << Field(d, "valSize").toStdString();
    EXPECT_EQ(Field(d, "valPermissions"), "rw-r----- (640)");
    EXPECT_FALSE(Field(d, "valModified").isEmpty());
    EXPECT_FALSE(Field(d, "valOwner").isEmpty());
    QPushButton* close = d->findChild<QPushButton*>("cmdClose");
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->text(), "Schließen");
    QTest::mouseClick(close, Qt::LeftButton);
    EXPECT_TRUE(WaitFor([] { return ShownDialog("dlgProperties") == nullptr; }));

    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    info.lpFile = W("box");
    EXPECT_TRUE(ShellExecuteEx(info));
    ASSERT_TRUE(WaitFor([&] { return (d = ShownDialog("dlgProperties")) != nullptr; }));
    EXPECT_EQ(Field(d, "valContents"), "2 Einträge");
    EXPECT_EQ(Field(d, "valSize"), "<none>");

    // Nothing there, nothing shown.
    info.lpFile = W("missing");
    EXPECT_FALSE(ShellExecuteEx(info));
}

TEST_F(Desktop, OpenWithListsTheRegisteredApplicationsAndStartsTheChoiceWithTheFile) {
    const QString file = W("my notes.txt");
    EXPECT_EQ(Shell(kOpenAs + file, vbMinimizedFocus), 1);
    QDialog* d = ShownDialog("dlgOpenWith");
    ASSERT_NE(d, nullptr);
    auto* programs = d->findChild<QListWidget*>("lstPrograms");
    ASSERT_NE(programs, nullptr);
    ASSERT_GE(programs->count(), 1);
    EXPECT_EQ(programs->item(0)->text(), testdesktop::ViewerName());  // the default first, chosen
    EXPECT_EQ(programs->currentRow(), 0);
    QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    ASSERT_EQ(started_.size(), 1u);
    EXPECT_EQ(started_[0], std::make_pair(testdesktop::ViewerId(), "\"" + file + "\""));
    EXPECT_TRUE(WaitFor([] { return ShownDialog("dlgOpenWith") == nullptr; }));

    // Any other program, typed: it goes before the list's choice.
    Shell(kOpenAs + file, vbMinimizedFocus);
    d = ShownDialog("dlgOpenWith");
    ASSERT_NE(d, nullptr);
    QTest::keyClicks(d->findChild<QLineEdit*>("txtProgram"), "c:\\opt\\tool\\run");
    QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    ASSERT_EQ(started_.size(), 2u);
    EXPECT_EQ(started_[1], std::make_pair(QString("c:\\opt\\tool\\run"), "\"" + file + "\""));

    // Cancel starts nothing.
    Shell(kOpenAs + file, vbMinimizedFocus);
    d = ShownDialog("dlgOpenWith");
    ASSERT_NE(d, nullptr);
    QTest::mouseClick(d->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    EXPECT_EQ(started_.size(), 2u);
    EXPECT_TRUE(WaitFor([] { return ShownDialog("dlgOpenWith") == nullptr; }));
}

TEST_F(Desktop, TheChosenApplicationGetsTheFilesBytes) {
    ASSERT_TRUE(bytepaths::Write(root_, "na\xefve \\ notes.txt", "x"));
    seams::SetStartHandler({});
    EXPECT_TRUE(StartProgram(testdesktop::ViewerId(), "\"" + W("na\xefve \\ notes.txt") + "\""));
    QByteArray args;
    ASSERT_TRUE(WaitFor([&] { return !(args = testdesktop::ViewerArguments()).isEmpty(); }));
    EXPECT_EQ(args, root_ + "/na\xefve \\ notes.txt\n");
}

}  // namespace
