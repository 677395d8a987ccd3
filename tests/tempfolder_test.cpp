// The temporary folder and the dummy files made in it: where they go, what
// they find there, and that nothing of the program's own stays behind.
#include "platform/localfs.h"
#include "platform/seams.h"
#include "platform/tempfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

mode_t ModeOf(const QString& posix) {
    struct stat st {};
    if (lstat(QFile::encodeName(posix).constData(), &st) != 0) return 0;
    return st.st_mode & 07777;
}

// A cache folder of the test's own, so the first place tried is a folder
// nobody else writes to.
class Dummies : public ::testing::Test {
protected:
    void SetUp() override {
        saved_ = qgetenv("XDG_CACHE_HOME");
        qputenv("XDG_CACHE_HOME", QFile::encodeName(cache_.path()));
        folder_ = cache_.path() + "/tempqorvn";
    }
    void TearDown() override {
        tempfolder::Release();
        qputenv("XDG_CACHE_HOME", saved_);
    }
    QStringList Entries() const { return QDir(folder_).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot); }
    QStringList Spares() const { return Entries().filter(".ferrydock-spare-"); }
    void Put(const QString& name, const QByteArray& content) const {
        QDir().mkpath(folder_);
        QFile f(folder_ + "/" + name);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(content);
    }
    static qint64 GonePid() {
        QProcess p;
        p.start("/bin/true", {});
        p.waitForFinished();
        return p.processId() > 0 ? p.processId() : 999999;
    }
    QTemporaryDir cache_;
    QByteArray saved_;
    QString folder_;
};

}  // namespace

TEST(TempFolder, CandidatesInTheirOrder) {
    const QStringList candidates = tempfolder::Candidates();
    ASSERT_GE(candidates.size(), 2);
    for (const QString& c : candidates) EXPECT_TRUE(c.endsWith("\\tempqorvn")) << c.toStdString();
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    QStringList expected;
    for (const QString& base : {cache, QString("/tmp"), QString("/var/tmp")})
        if (!base.isEmpty()) expected << localfs::ToWindows(QDir::cleanPath(base + "/tempqorvn"));
    expected.removeDuplicates();
    EXPECT_EQ(candidates, expected);
}

TEST(TempFolder, LinksAndStrangersArePassedOver) {
    QTemporaryDir base;
    ASSERT_TRUE(base.isValid());
    const QString fresh = base.path() + "/fresh";
    EXPECT_TRUE(tempfolder::IsSafe(localfs::ToWindows(fresh)));
    ASSERT_TRUE(QDir(base.path()).mkdir("ours"));
    EXPECT_TRUE(tempfolder::IsSafe(localfs::ToWindows(base.path() + "/ours")));

    const QString link = base.path() + "/link";
    ASSERT_EQ(symlink(QFile::encodeName(base.path() + "/ours").constData(), QFile::encodeName(link).constData()), 0);
    EXPECT_FALSE(tempfolder::IsSafe(localfs::ToWindows(link)));
    EXPECT_FALSE(tempfolder::Make(localfs::ToWindows(link)));
    const QString dangling = base.path() + "/dangling";
    ASSERT_EQ(symlink(QFile::encodeName(base.path() + "/target").constData(),
                      QFile::encodeName(dangling).constData()), 0);
    EXPECT_FALSE(tempfolder::Make(localfs::ToWindows(dangling)));
    EXPECT_FALSE(QFileInfo::exists(base.path() + "/target"));

    QFile plain(base.path() + "/plain");
    ASSERT_TRUE(plain.open(QIODevice::WriteOnly));
    plain.close();
    EXPECT_FALSE(tempfolder::Make(localfs::ToWindows(plain.fileName())));

    if (geteuid() == 0) {
        const QString theirs = base.path() + "/theirs";
        ASSERT_TRUE(QDir(base.path()).mkdir("theirs"));
        ASSERT_EQ(chown(QFile::encodeName(theirs).constData(), 65534, 65534), 0);
        EXPECT_FALSE(tempfolder::IsSafe(localfs::ToWindows(theirs)));
        EXPECT_FALSE(tempfolder::Make(localfs::ToWindows(theirs)));
    }
}

TEST(TempFolder, MadeForTheOwnerAlone) {
    QTemporaryDir base;
    ASSERT_TRUE(base.isValid());
    const mode_t oldMask = umask(0);  // whatever the umask, the folder is 0700
    const QString folder = base.path() + "/tempqorvn";
    const bool made = tempfolder::Make(localfs::ToWindows(folder));
    umask(oldMask);
    ASSERT_TRUE(made);
    EXPECT_EQ(ModeOf(folder), 0700u);
    // Made again: still fine. One of ours left too open is closed.
    ASSERT_EQ(chmod(QFile::encodeName(folder).constData(), 0755), 0);
    EXPECT_TRUE(tempfolder::Make(localfs::ToWindows(folder)));
    EXPECT_EQ(ModeOf(folder), 0700u);
}

TEST_F(Dummies, GoIntoTheFirstPlaceAndLeaveNothingOnceLetGo) {
    ASSERT_EQ(tempfolder::Candidates().value(0), localfs::ToWindows(folder_));
    const QString dummy = tempfolder::MakeDummy("report.txt");
    EXPECT_EQ(dummy, localfs::ToWindows(folder_) + "\\report.txt");
    EXPECT_TRUE(QFileInfo(folder_ + "/report.txt").isFile());
    EXPECT_EQ(QFileInfo(folder_ + "/report.txt").size(), 0);
    // The spare stands beside the dummies while the folder is held.
    EXPECT_EQ(Spares(), QStringList{".ferrydock-spare-" + QString::number(QCoreApplication::applicationPid())});
    tempfolder::RemoveDummy(dummy);
    EXPECT_FALSE(QFileInfo::exists(folder_ + "/report.txt"));
    tempfolder::Release();
    EXPECT_TRUE(Entries().isEmpty());

    // Names that can't be file names make nothing.
    for (const QString name : {"", ".", "..", "a/b", "a\\b"}) EXPECT_EQ(tempfolder::MakeDummy(name), "");
}

TEST_F(Dummies, FindAFileOfTheSameNameInAnyCaseAndLeaveItAsItIs) {
    Put("Readme.TXT", "kept");
    const QString dummy = tempfolder::MakeDummy("README.txt");
    ASSERT_FALSE(dummy.isEmpty());
    EXPECT_EQ(Entries().filter("readme", Qt::CaseInsensitive), QStringList{"Readme.TXT"}) << "no second file";
    QFile f(folder_ + "/Readme.TXT");
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), "kept");
    f.close();
    // The dummy step deletes what it found, as it would its own.
    tempfolder::RemoveDummy(dummy);
    EXPECT_FALSE(QFileInfo::exists(folder_ + "/Readme.TXT"));
}

TEST_F(Dummies, SparesOfProcessesThatAreGoneGoAtTheNextStart) {
    const QString gone = ".ferrydock-spare-" + QString::number(GonePid());
    const QString living = ".ferrydock-spare-" + QString::number(getppid());
    Put(gone, "");
    Put(living, "");
    Put("opened.txt", "a server file someone opened");
    tempfolder::RemoveStale();
    EXPECT_EQ(Entries(), (QStringList{living, "opened.txt"}));
}

TEST_F(Dummies, TheSpareGoesWhenTheProgramEnds) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // Ended by returning, and ended at once from inside a read.
    EXPECT_EXIT(
        {
            tempfolder::MakeDummy("a.txt");
            std::exit(0);
        },
        ::testing::ExitedWithCode(0), "");
    EXPECT_EXIT(
        {
            seams::SetEndHandler({});
            tempfolder::MakeDummy("b.txt");
            EndProgram();
            std::abort();  // not reached: the end is at once
        },
        ::testing::ExitedWithCode(0), "");
    EXPECT_TRUE(Spares().isEmpty()) << Spares().join(' ').toStdString();
}
