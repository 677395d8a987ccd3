// Local files through Windows-form paths on a case-sensitive disk.
#include "support/find_records.h"

#include "platform/localfs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using Stamp = decltype(stat::st_mtim);

class LocalFs : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(tmp_.isValid());
        root_ = QFileInfo(tmp_.path()).canonicalFilePath();
    }
    void TearDown() override {
        // A read-only folder could keep the temporary folder from going.
        chmod(QFile::encodeName(root_ + "/locked").constData(), 0755);
    }
    QString P(const QString& rel) const { return root_ + '/' + rel; }
    // The folder in Windows form, or a path below it.
    QString W(const QString& rel = QString()) const {
        const QString w = localfs::ToWindows(root_);
        return rel.isEmpty() ? w : w + '\\' + rel;
    }
    void Write(const QString& rel, const QByteArray& data = "x") {
        QDir().mkpath(QFileInfo(P(rel)).path());
        QFile f(P(rel));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(data);
    }
    QByteArray Read(const QString& rel) {
        QFile f(P(rel));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
    }
    QStringList OnDisk() const { return QDir(root_).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name); }

    QTemporaryDir tmp_;
    QString root_;
};

TEST_F(LocalFs, UpperCasedPathsFindTheirFiles) {
    Write("Sub/Report.txt", "12345");
    const QString up = W("Sub").toUpper();
    ASSERT_TRUE(up.startsWith("C:\\"));

    EXPECT_EQ(localfs::ToPosix(up + "\\REPORT.TXT"), P("Sub/Report.txt"));
    EXPECT_EQ(Names(ListLocal(up + "\\*.*")), QStringList({".", "..", "Report.txt"}));
    EXPECT_EQ(localfs::DirFile(up + "\\report.TXT"), "Report.txt");
    EXPECT_EQ(localfs::DirFolder(up), "Sub");
    EXPECT_EQ(localfs::DirFolder(up + "\\REPORT.TXT"), "");
    EXPECT_EQ(localfs::DirFile(up), "");
    EXPECT_EQ(localfs::FileLen(up + "\\REPORT.TXT"), 5);

    // Either separator, doubled and trailing ones, and ".." read lexically.
    QString slashed = up;
    slashed.replace('\\', '/');
    EXPECT_EQ(localfs::ToPosix(slashed + "//report.txt"), P("Sub/Report.txt"));
    EXPECT_EQ(localfs::ToPosix(up + "\\\\"), P("Sub"));
    EXPECT_EQ(localfs::ToPosix(up + "\\..\\SUB\\.\\report.txt"), P("Sub/Report.txt"));
    for (const char* rootForm : {"c:", "C:", "c:\\", "C:/", "c:\\..\\.."}) EXPECT_EQ(localfs::ToPosix(rootForm), "/") << rootForm;
}

TEST_F(LocalFs, CaseTwinsResolveToTheFirstInByteOrder) {
    Write("readme", "lower");
    Write("Readme", "capital");
    Write("rEADME", "mixed");
    // 'R' sorts before 'r' in bytes.
    EXPECT_EQ(localfs::ToPosix(W("README")), P("Readme"));
    // An exact match wins over any earlier twin.
    EXPECT_EQ(localfs::ToPosix(W("rEADME")), P("rEADME"));
    EXPECT_EQ(localfs::ToPosix(W("readme")), P("readme"));
    // Twins in the middle of a path, too.
    Write("Docs/a.txt");
    Write("docs/b.txt");
    EXPECT_EQ(localfs::ToPosix(W("DOCS\\B.TXT")), P("Docs/B.TXT"));
    EXPECT_EQ(localfs::ToPosix(W("docs\\B.TXT")), P("docs/b.txt"));
}

TEST_F(LocalFs, MissingComponentsKeepTheCaseGiven) {
    const QString up = W().toUpper();
    EXPECT_EQ(localfs::ToPosix(up + "\\NewDir\\File.TXT"), P("NewDir/File.TXT"));
    ASSERT_TRUE(localfs::MkDir(up + "\\NewDir"));
    EXPECT_FALSE(localfs::MkDir(up + "\\newdir"));  // exists, whatever the case
    ASSERT_TRUE(localfs::MkDir(up + "\\NEWDIR\\Inner"));
    EXPECT_EQ(OnDisk(), QStringList({"NewDir"}));
    EXPECT_TRUE(QFileInfo(P("NewDir/Inner")).isDir());
    EXPECT_FALSE(localfs::MkDir(up + "\\Absent\\Child"));  // no parents made
}

TEST_F(LocalFs, FailedFindsGiveTheInvalidHandleAndAZeroedRecord) {
    Write("only.doc");
    WIN32_FIND_DATA fd;
    fd.cFileName = "stale";
    fd.dwFileAttributes = 16;
    EXPECT_EQ(FindFirstFileA(W("missing\\*.*"), fd), INVALID_HANDLE_VALUE);
    EXPECT_EQ(fd.cFileName, "");
    EXPECT_EQ(fd.dwFileAttributes, 0u);
    EXPECT_EQ(FindFirstFileA(W("only.doc\\*.*"), fd), INVALID_HANDLE_VALUE);  // a file is no folder
    EXPECT_EQ(FindFirstFileA(W("*.txt"), fd), INVALID_HANDLE_VALUE);        // nothing matches
    EXPECT_EQ(FindFirstFileA(W() + "\\", fd), INVALID_HANDLE_VALUE);        // no pattern
    if (!localfs::DriveExists("y:")) {
        EXPECT_EQ(FindFirstFileA("y:\\*.*", fd), INVALID_HANDLE_VALUE);
        EXPECT_EQ(localfs::ToPosix("y:\\x"), "");
        EXPECT_FALSE(localfs::MkDir("y:\\x"));
    }
}

TEST_F(LocalFs, DotEntriesComeFirstExceptInTheRoot) {
    Write("b.txt");
    Write("A.txt");
    QDir().mkdir(P("c"));
    const auto entries = ListLocal(W("*.*"));
    EXPECT_EQ(Names(entries), QStringList({".", "..", "A.txt", "b.txt", "c"}));  // then by name, ignoring case
    EXPECT_EQ(entries[0].dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);  // folders, not hidden
    EXPECT_EQ(entries[1].dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);

    const QStringList top = Names(ListLocal("c:\\*.*"));
    EXPECT_FALSE(top.contains(".")) << top.join(' ').toStdString();
    EXPECT_FALSE(top.contains(".."));
    EXPECT_TRUE(top.contains("tmp"));
    EXPECT_EQ(Names(ListLocal("C:*")), top);
}

TEST_F(LocalFs, PatternsMatchIgnoringCase) {
    for (const char* name : {"a.txt", "B.TXT", "c.doc", "notes.txt.bak", "x.Txt2"}) Write(name);
    EXPECT_EQ(Names(ListLocal(W("*.TXT"))), QStringList({"a.txt", "B.TXT"}));
    EXPECT_EQ(Names(ListLocal(W("?.doc"))), QStringList({"c.doc"}));
    EXPECT_EQ(Names(ListLocal(W("*.txt*"))), QStringList({"a.txt", "B.TXT", "notes.txt.bak", "x.Txt2"}));
    EXPECT_EQ(Names(ListLocal(W("C.DOC"))), QStringList({"c.doc"}));
    EXPECT_EQ(ListLocal(W("*")).size(), 7u);
    EXPECT_EQ(localfs::DirFile(W("*.doc")), "c.doc");
    EXPECT_EQ(localfs::DirFile(W("*.zip")), "");
}

TEST_F(LocalFs, HandlesAreSmallNumbersClosedOnce) {
    Write("one");
    WIN32_FIND_DATA a, b;
    const HANDLE h1 = FindFirstFileA(W("*.*"), a);
    const HANDLE h2 = FindFirstFileA(W("*.*"), b);
    ASSERT_GT(h1, 0);
    ASSERT_GT(h2, 0);
    EXPECT_NE(h1, h2);
    EXPECT_LT(h2, 1000);
    // Each listing keeps its own place.
    ASSERT_TRUE(FindNextFileA(h1, a));
    ASSERT_TRUE(FindNextFileA(h1, a));
    EXPECT_EQ(a.cFileName, "one");
    EXPECT_FALSE(FindNextFileA(h1, a));
    EXPECT_EQ(a.cFileName, "one");  // untouched at the end
    ASSERT_TRUE(FindNextFileA(h2, b));
    EXPECT_EQ(b.cFileName, "..");

    EXPECT_TRUE(FindClose(h1));
    EXPECT_FALSE(FindClose(h1));
    EXPECT_FALSE(FindNextFileA(h1, a));
    EXPECT_FALSE(FindClose(INVALID_HANDLE_VALUE));
    EXPECT_FALSE(FindNextFileA(INVALID_HANDLE_VALUE, a));
    EXPECT_FALSE(FindClose(0));
    EXPECT_TRUE(FindClose(h2));
}

TEST_F(LocalFs, AttributesFollowModeNameAndLinkTarget) {
    Write("plain", "abc");
    Write("locked.txt");
    Write(".profile");
    QDir().mkdir(P("folder"));
    QDir().mkdir(P(".cache"));
    QDir().mkdir(P("locked"));
    chmod(QFile::encodeName(P("locked.txt")).constData(), 0444);
    chmod(QFile::encodeName(P("locked")).constData(), 0555);
    ASSERT_EQ(symlink("folder", QFile::encodeName(P("to-folder")).constData()), 0);
    ASSERT_EQ(symlink("plain", QFile::encodeName(P("to-plain")).constData()), 0);
    ASSERT_EQ(symlink("nowhere", QFile::encodeName(P("dangling")).constData()), 0);

    const auto e = ListLocal(W("*.*"));
    EXPECT_EQ(Entry(e, "plain").dwFileAttributes, 32u);
    EXPECT_EQ(Entry(e, "locked.txt").dwFileAttributes, 33u);
    EXPECT_EQ(Entry(e, ".profile").dwFileAttributes, 34u);
    EXPECT_EQ(Entry(e, "folder").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, ".cache").dwFileAttributes, 18u);
    EXPECT_EQ(Entry(e, "locked").dwFileAttributes, 17u);
    EXPECT_EQ(Entry(e, "to-folder").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "to-plain").dwFileAttributes, 32u);
    EXPECT_EQ(Entry(e, "to-plain").nFileSizeLow, 3u);  // the target's size
    EXPECT_EQ(Entry(e, "dangling").dwFileAttributes, 32u);
    EXPECT_EQ(Entry(e, "dangling").nFileSizeLow, 0u);

    // The lookups agree with the listing.
    EXPECT_EQ(localfs::DirFolder(W("TO-FOLDER")), "to-folder");
    EXPECT_EQ(localfs::DirFile(W("DANGLING")), "dangling");
}

TEST_F(LocalFs, SizesSplitIntoHighAndLowWords) {
    Write("empty", "");
    Write("sparse", "");
    const int64_t fiveGiB = int64_t(5) << 30;
    ASSERT_EQ(truncate(QFile::encodeName(P("sparse")).constData(), fiveGiB), 0);
    Write("dir/x", "123456");

    const auto e = ListLocal(W("*.*"));
    EXPECT_EQ(Entry(e, "empty").nFileSizeHigh, 0u);
    EXPECT_EQ(Entry(e, "empty").nFileSizeLow, 0u);
    EXPECT_EQ(Entry(e, "sparse").nFileSizeHigh, 1u);
    EXPECT_EQ(Entry(e, "sparse").nFileSizeLow, 0x40000000u);
    EXPECT_EQ(Entry(e, "dir").nFileSizeLow, 0u);  // folders have no size
    EXPECT_EQ(localfs::FileLen(W("SPARSE")), fiveGiB);
    EXPECT_EQ(localfs::FileLen(W("empty")), 0);
    EXPECT_EQ(localfs::FileLen(W("dir")), -1);
    EXPECT_EQ(localfs::FileLen(W("absent")), -1);
}

TEST_F(LocalFs, WriteTimeIsTheModificationTimeInUtc) {
    Write("dated");
    const Stamp times[2] = {{0, UTIME_OMIT}, {1614834367, 250'000'000}};  // 2021-03-04 05:06:07.25 UTC
    ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(P("dated")).constData(), times, 0), 0);

    SYSTEMTIME st;
    ASSERT_TRUE(FileTimeToSystemTime(Entry(ListLocal(W("*.*")), "dated").ftLastWriteTime, st));
    EXPECT_EQ(st.wYear, 2021);
    EXPECT_EQ(st.wMonth, 3);
    EXPECT_EQ(st.wDay, 4);
    EXPECT_EQ(st.wHour, 5);
    EXPECT_EQ(st.wMinute, 6);
    EXPECT_EQ(st.wSecond, 7);
    EXPECT_EQ(st.wMilliseconds, 250);
}

TEST_F(LocalFs, DrivesStartWithTheRoot) {
    const QStringList drives = localfs::DriveList();
    ASSERT_FALSE(drives.isEmpty());
    EXPECT_EQ(drives[0], "c: [/]");
    for (int i = 1; i < drives.size(); ++i) {
        EXPECT_EQ(drives[i].left(5), QString(QChar('c' + i)) + ": [/");
        const QString root = drives[i].mid(4).chopped(1);
        EXPECT_EQ(localfs::DriveRoot(drives[i]), root);
        EXPECT_EQ(localfs::ToWindows(root + "/x"), drives[i].left(2) + "\\x");
    }
    for (const char* d : {"c:", "C:", "c:\\", "c: [/]"}) EXPECT_TRUE(localfs::DriveExists(d)) << d;
    for (const char* d : {"", "c", "1:", "a:", "b:"}) EXPECT_FALSE(localfs::DriveExists(d)) << d;
    EXPECT_EQ(localfs::DriveRoot("C:"), "/");

    EXPECT_EQ(localfs::ToWindows("/"), "c:\\");
    EXPECT_EQ(localfs::ToWindows("/home/x"), "c:\\home\\x");
    EXPECT_EQ(localfs::ToWindows("/home//x/../y/"), "c:\\home\\y\\");
    EXPECT_EQ(localfs::ToPosix(localfs::ToWindows(root_)), root_);
}

TEST(LocalFsDrives, MountTableGivesMediaVolumesInMountPointOrder) {
    const QByteArray table =
        "/dev/sda1 / ext4 rw 0 0\n"
        "proc /proc proc rw 0 0\n"
        "/dev/fake2 /run/media/ann/STICK vfat rw 0 0\n"
        "/dev/fake1 /media/usb vfat rw 0 0\n"
        "server:/x /mnt/my\\040share nfs rw 0 0\n"
        "/dev/fake1 /media/usb vfat rw 0 0\n"
        "/dev/sda2 /home ext4 rw 0 0\n"
        "tmpfs /mntx tmpfs rw 0 0\n";
    EXPECT_EQ(localfs::ExtraDriveRoots(table), QStringList({"/media/usb", "/mnt/my share", "/run/media/ann/STICK"}));
    EXPECT_TRUE(localfs::ExtraDriveRoots("").isEmpty());
}

TEST_F(LocalFs, CopyMoveAndDelete) {
    Write("src.txt", "source");
    Write("taken.txt", "old");
    const Stamp times[2] = {{0, UTIME_OMIT}, {1000000000, 0}};
    utimensat(AT_FDCWD, QFile::encodeName(P("src.txt")).constData(), times, 0);

    // Failing if the target exists leaves it alone, whatever its case.
    EXPECT_FALSE(CopyFileA(W("SRC.TXT"), W("TAKEN.TXT"), true));
    EXPECT_EQ(Read("taken.txt"), "old");
    ASSERT_TRUE(CopyFileA(W("SRC.TXT"), W("Copy.txt"), true));
    EXPECT_EQ(Read("Copy.txt"), "source");
    EXPECT_EQ(QFileInfo(P("Copy.txt")).lastModified().toSecsSinceEpoch(), 1000000000);
    ASSERT_TRUE(CopyFileA(W("src.txt"), W("taken.txt"), false));
    EXPECT_EQ(Read("taken.txt"), "source");
    EXPECT_FALSE(CopyFileA(W("src.txt"), W("SRC.txt"), false));  // onto itself
    QDir().mkdir(P("folder"));
    EXPECT_FALSE(CopyFileA(W("folder"), W("folder2"), true));
    EXPECT_FALSE(CopyFileA(W("src.txt"), W("folder"), false));
    EXPECT_FALSE(CopyFileA(W("absent"), W("new"), true));
    EXPECT_EQ(OnDisk(), QStringList({"Copy.txt", "folder", "src.txt", "taken.txt"}));  // no leftovers

    // A rename may change the case of the same entry, never replace another.
    ASSERT_TRUE(MoveFileA(W("copy.txt"), W("COPY.TXT")));
    EXPECT_FALSE(MoveFileA(W("COPY.TXT"), W("Taken.txt")));
    ASSERT_TRUE(MoveFileA(W("FOLDER"), W("Moved")));
    EXPECT_EQ(OnDisk(), QStringList({"COPY.TXT", "Moved", "src.txt", "taken.txt"}));

    Write("Moved/inner");
    ASSERT_EQ(symlink("Moved", QFile::encodeName(P("link")).constData()), 0);
    EXPECT_FALSE(localfs::Kill(W("moved")));
    EXPECT_FALSE(localfs::Kill(W("LINK")));
    EXPECT_FALSE(localfs::RmDir(W("moved")));  // not empty
    EXPECT_FALSE(localfs::RmDir(W("src.txt")));
    EXPECT_TRUE(localfs::RmDir(W("LINK")));  // the link goes, the folder stays
    EXPECT_TRUE(QFileInfo::exists(P("Moved/inner")));
    EXPECT_TRUE(localfs::Kill(W("MOVED\\INNER")));
    EXPECT_TRUE(localfs::RmDir(W("moved")));
    EXPECT_TRUE(localfs::Kill(W("copy.txt")));
    EXPECT_FALSE(localfs::Kill(W("copy.txt")));
    EXPECT_FALSE(localfs::RmDir("c:\\"));
    EXPECT_EQ(OnDisk(), QStringList({"src.txt", "taken.txt"}));
}

TEST_F(LocalFs, CurrentDirectoryIsReadAndSetInWindowsForm) {
    const QString saved = QDir::currentPath();
    Write("Sub/f");
    ASSERT_TRUE(localfs::ChDir(W("SUB").toUpper()));
    EXPECT_EQ(localfs::CurDir(), W("Sub"));
    // Paths without a drive start from here.
    EXPECT_EQ(localfs::ToPosix("F"), P("Sub/f"));
    EXPECT_EQ(localfs::ToPosix("..\\sub"), P("Sub"));
    EXPECT_EQ(localfs::ToPosix("c:F"), P("Sub/f"));
    EXPECT_EQ(localfs::ToPosix("\\tmp"), "/tmp");
    EXPECT_EQ(Names(ListLocal("*")), QStringList({".", "..", "f"}));
    EXPECT_EQ(localfs::ToWindows("f"), W("Sub\\f"));
    EXPECT_FALSE(localfs::ChDir(W("absent")));
    EXPECT_EQ(localfs::CurDir(), W("Sub"));
    QDir::setCurrent(saved);
}

TEST_F(LocalFs, LargeFolderIsListedWhole) {
    constexpr int kFiles = 10000;
    for (int i = 0; i < kFiles; ++i) {
        const int fd = open(QFile::encodeName(P(QString("f%1.dat").arg(i, 5, 10, QChar('0')))).constData(),
                            O_CREAT | O_WRONLY, 0644);
        ASSERT_GE(fd, 0);
        close(fd);
    }
    // Its speed is bench_local_listing's.
    const auto entries = ListLocal(W("*.*"));
    ASSERT_EQ(entries.size(), size_t(kFiles + 2));
    EXPECT_EQ(entries[2].cFileName, "f00000.dat");
    EXPECT_EQ(entries.back().cFileName, "f09999.dat");
}

}  // namespace
