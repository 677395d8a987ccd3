// Every name on disk has a text of its own that finds exactly its bytes
// again; the directory query and the make-folder call over upper-cased
// Windows-form paths.
#include "support/byte_paths.h"

#include "platform/fileio.h"
#include "platform/localfs.h"
#include "platform/localfs_internal.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>

using localfs::detail::NameBytes;
using localfs::detail::NameText;

namespace {

// Names a POSIX folder may hold that a Windows name couldn't, or that
// decode badly: Latin-1 bytes, a lone continuation byte, a backslash, a
// colon and the rest of the forbidden set, blanks at the ends, a control
// character, a stand-in's own character as real UTF-8, an overlong slash, an
// encoded surrogate.
const QList<QByteArray> kOddNames = {
    "caf\xe9.txt",      "caf\xc3\xa9.txt",  "\x80",         "back\\slash",   "a:b",   "what?*<>|\"",
    " both ends ",      "   ",              "tab\there",    "\xef\x81\x9c",  "x\xc0\xafy", "\xed\xa0\x80",
    "trailing ",        " leading",         "\xf0\x9f\x98\x80 smile",
};

class Names : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(tmp_.isValid());
        root_ = QFile::encodeName(QFileInfo(tmp_.path()).canonicalFilePath());
    }
    void TearDown() override { bytepaths::EmptyFolder(root_); }
    QString W(const QString& rel = QString()) const {
        const QString w = localfs::ToWindows(QFile::decodeName(root_));
        return rel.isEmpty() ? w : w + '\\' + rel;
    }
    void Write(const QByteArray& name, const QByteArray& content) const {
        ASSERT_TRUE(bytepaths::Write(root_, name, content)) << name.toStdString();
    }
    QList<QByteArray> OnDisk() const { return bytepaths::Names(root_); }
    QStringList Listed() const {
        QStringList out;
        WIN32_FIND_DATA data;
        const HANDLE h = FindFirstFileA(W("*.*"), data);
        if (h == INVALID_HANDLE_VALUE) return out;
        do
            if (data.cFileName != "." && data.cFileName != "..") out << data.cFileName;
        while (FindNextFileA(h, data));
        FindClose(h);
        return out;
    }
    QTemporaryDir tmp_;
    QByteArray root_;
};

TEST(NameTexts, EveryNameComesBackAsItsBytesAndNoTwoShareAText) {
    QSet<QString> texts;
    for (const QByteArray& name : kOddNames) {
        const QString text = NameText(name);
        EXPECT_EQ(NameBytes(text), name) << name.toHex().toStdString();
        EXPECT_FALSE(texts.contains(text)) << name.toHex().toStdString();
        texts.insert(text);
    }
    // Random bytes, any length, no NUL or slash: always the same bytes back.
    QRandomGenerator random(1234);
    for (int i = 0; i < 20000; ++i) {
        QByteArray name(1 + int(random.bounded(12)), '\0');
        for (char& c : name) {
            do c = char(random.bounded(256));
            while (c == 0 || c == '/');
        }
        ASSERT_EQ(NameBytes(NameText(name)), name) << name.toHex().toStdString();
    }
}

TEST(NameTexts, PlainNamesStayAsTheyAreAndOddOnesGetStandIns) {
    EXPECT_EQ(NameText("Report 2024.txt"), "Report 2024.txt");
    EXPECT_EQ(NameText("caf\xc3\xa9"), QString::fromUtf8("café"));
    // Valid UTF-8 and the same letter as a Latin-1 byte differ.
    EXPECT_EQ(NameText("caf\xe9"), QString("caf") + QChar(0xF0E9));
    EXPECT_EQ(NameText("a\\b:c"), QString("a") + QChar(0xF05C) + "b" + QChar(0xF03A) + "c");
    EXPECT_EQ(NameText(" x y "), QChar(0xF020) + QString("x y") + QChar(0xF020));
    // The logic's trimming leaves such a text whole.
    EXPECT_EQ(NameText("  ").trimmed().size(), 2);
    // A typed text takes the bytes it reads as: blanks are blanks.
    EXPECT_EQ(NameBytes(" new "), " new ");
    EXPECT_EQ(NameBytes(QString::fromUtf8("é")), "\xc3\xa9");
}

TEST_F(Names, EveryOddNameIsListedDistinctlyAndReachedByItsText) {
    for (const QByteArray& name : kOddNames) Write(name, "content of " + name);
    const QStringList listed = Listed();
    ASSERT_EQ(listed.size(), kOddNames.size());
    EXPECT_EQ(QSet<QString>(listed.begin(), listed.end()).size(), kOddNames.size());

    for (const QString& text : listed) {
        const QByteArray bytes = NameBytes(text);
        SCOPED_TRACE(bytes.toHex().toStdString());
        QByteArray content;
        ASSERT_TRUE(ReadWholeFile(W(text), content));
        EXPECT_EQ(content, "content of " + bytes);
        BinaryFile file(W(text));
        EXPECT_EQ(file.LOF(), content.size());
        EXPECT_EQ(localfs::FileLen(W(text)), content.size());
        EXPECT_EQ(localfs::Dir(W(text)), text);
    }
}

TEST_F(Names, OddNamesAreCopiedMovedAndDeletedByTheirTexts) {
    for (const QByteArray& name : kOddNames) Write(name, name);
    int n = 0;
    for (const QString& text : Listed()) {
        const QByteArray bytes = NameBytes(text);
        SCOPED_TRACE(bytes.toHex().toStdString());
        const QString copy = "copy" + QString::number(++n);
        ASSERT_TRUE(CopyFileA(W(text), W(copy), true));
        ASSERT_TRUE(localfs::Kill(W(text)));
        EXPECT_FALSE(OnDisk().contains(bytes));
        // And back under the odd name, by its text.
        ASSERT_TRUE(MoveFileA(W(copy), W(text)));
    }
    EXPECT_EQ(OnDisk(), [] {
        QList<QByteArray> names = kOddNames;
        std::sort(names.begin(), names.end());
        return names;
    }());
}

TEST_F(Names, UpperCasedTextsFindTheirNamesAndANewNameKeepsTheBytesTyped) {
    Write("caf\xc3\xa9 \xe9.txt", "x");
    const QString text = Listed().value(0);
    EXPECT_EQ(localfs::Dir(W(text.toUpper())), text);
    // Blanks typed at the ends are blanks on disk; their text shows them as
    // stand-ins.
    ASSERT_TRUE(CopyFileA(W(text), W(" new "), true));
    EXPECT_TRUE(OnDisk().contains(" new "));
    EXPECT_TRUE(Listed().contains(QChar(0xF020) + QString("new") + QChar(0xF020)));
    // A NUL in a typed name reaches nothing.
    EXPECT_FALSE(CopyFileA(W(text), W(QString("cut") + QChar(0) + "off"), true));
    EXPECT_FALSE(OnDisk().contains("cut"));
}

TEST_F(Names, WindowsPathsOfOddFoldersRoundTrip) {
    ASSERT_EQ(::mkdir((root_ + "/dir\\with:odd \xff").constData(), 0755), 0);
    Write("dir\\with:odd \xff/inner.txt", "deep");
    const QString folder = Listed().value(0);
    EXPECT_FALSE(folder.contains('\\'));
    QByteArray content;
    EXPECT_TRUE(ReadWholeFile(W(folder) + "\\INNER.TXT", content));
    EXPECT_EQ(content, "deep");
    EXPECT_EQ(localfs::detail::WindowsOf(root_ + "/dir\\with:odd \xff").section('\\', -1), folder);
}

// The directory query with its attribute masks, as the download walk and
// the new-folder command use it.
TEST_F(Names, DirFindsFoldersOnlyWithTheFolderBitAndHiddenOnesOnlyWithTheHiddenBit) {
    ASSERT_EQ(::mkdir((root_ + "/Home").constData(), 0755), 0);
    ASSERT_EQ(::mkdir((root_ + "/Home/User").constData(), 0755), 0);
    ASSERT_EQ(::mkdir((root_ + "/.cache").constData(), 0755), 0);
    Write("file.txt", "x");
    Write(".hidden", "x");
    const QString up = W().toUpper();

    EXPECT_EQ(localfs::Dir(up + "\\HOME\\USER", localfs::vbDirectory), "User");
    EXPECT_EQ(localfs::Dir(up + "\\HOME\\USER"), "");  // a folder needs the bit
    EXPECT_EQ(localfs::Dir(up + "\\FILE.TXT", localfs::vbDirectory), "file.txt");  // files always count
    EXPECT_EQ(localfs::Dir(up + "\\FILE.TXT"), "file.txt");
    EXPECT_EQ(localfs::Dir(up + "\\.HIDDEN"), "");
    EXPECT_EQ(localfs::Dir(up + "\\.HIDDEN", localfs::vbHidden), ".hidden");
    EXPECT_EQ(localfs::Dir(up + "\\.CACHE", localfs::vbDirectory), "");
    EXPECT_EQ(localfs::Dir(up + "\\.CACHE", localfs::vbDirectory | localfs::vbHidden), ".cache");
    for (int ignored : {localfs::vbReadOnly, localfs::vbArchive, localfs::vbAlias, localfs::vbVolume})
        EXPECT_EQ(localfs::Dir(up + "\\FILE.TXT", ignored), "file.txt");
    EXPECT_EQ(localfs::Dir(up + "\\MISSING", localfs::vbDirectory), "");
    EXPECT_EQ(localfs::Dir(up + "\\MISSING\\USER", localfs::vbDirectory), "");

    // A folder's own path with "\" lists it: "." first; patterns match.
    EXPECT_EQ(localfs::Dir(up + "\\HOME\\", localfs::vbDirectory), ".");
    EXPECT_EQ(localfs::Dir(up + "\\HOME\\"), "");
    EXPECT_EQ(localfs::Dir(up + "\\*.TXT"), "file.txt");
    EXPECT_EQ(localfs::Dir(up + "\\H*", localfs::vbDirectory), "Home");
    EXPECT_EQ(localfs::Dir("c:\\", localfs::vbDirectory).isEmpty(), false);
}

TEST_F(Names, MkDirThroughAnUpperCasedPathMakesTheFolderInTheCaseGiven) {
    ASSERT_EQ(::mkdir((root_ + "/Home").constData(), 0755), 0);
    ASSERT_EQ(::mkdir((root_ + "/Home/User").constData(), 0755), 0);
    const QString up = W().toUpper() + "\\HOME\\USER";
    ASSERT_EQ(localfs::Dir(up + "\\New Folder", localfs::vbDirectory), "");
    ASSERT_TRUE(localfs::MkDir(up + "\\New Folder"));
    EXPECT_TRUE(QFileInfo(QFile::decodeName(root_) + "/Home/User/New Folder").isDir());
    EXPECT_EQ(localfs::Dir(up + "\\NEW FOLDER", localfs::vbDirectory), "New Folder");
    EXPECT_FALSE(localfs::MkDir(up + "\\new folder"));  // there, whatever the case
    // The walk's make-folder for a deeper level whose parent is missing fails.
    EXPECT_FALSE(localfs::MkDir(up + "\\Absent\\Sub"));
    // A trailing "\" and forward slashes reach the same folder.
    EXPECT_TRUE(localfs::MkDir(up + "/New Folder/Sub\\"));
    EXPECT_TRUE(QFileInfo(QFile::decodeName(root_) + "/Home/User/New Folder/Sub").isDir());
}

}  // namespace
