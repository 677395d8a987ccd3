// Type names, icons, associated programs and the program's own pictures.
#include "platform/localfs.h"
#include "platform/shell.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMimeDatabase>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

QString TypeOf(const QString& path) {
    SHFILEINFO info;
    SHGetFileInfoA(path, 0, info, SHGFI_TYPENAME);
    return info.szTypeName;
}

QIcon IconOf(const QString& path, uint32_t flags) {
    SHFILEINFO info;
    SHGetFileInfoA(path, 0, info, flags);
    return info.hIcon;
}

const QList<QSize> kSmall{QSize(16, 16)};
const QList<QSize> kLarge{QSize(32, 32)};

}  // namespace

TEST(ShellTypes, GoByTheNameAloneAndIgnoreCase) {
    // Neither file exists: the logic asks about dummies, but the answer may
    // not depend on the disk.
    const QString lower = TypeOf("c:\\no\\such\\folder\\a.txt");
    EXPECT_FALSE(lower.isEmpty());
    EXPECT_EQ(TypeOf("b.TXT"), lower);
    EXPECT_EQ(TypeOf("c:/elsewhere/c.Txt"), lower);
    EXPECT_EQ(TypeOf("x.qzvkunknownext"), "");
    EXPECT_EQ(TypeOf("ends-in-a-point."), "");
    EXPECT_LE(TypeOf("a.txt").size(), 79);
}

TEST(ShellTypes, OnlyTheFlagsAskedForAreFilled) {
    SHFILEINFO info;
    EXPECT_TRUE(SHGetFileInfoA("c:\\a.txt", 0, info, SHGFI_TYPENAME));
    EXPECT_TRUE(info.hIcon.isNull());
    EXPECT_TRUE(SHGetFileInfoA("c:\\a.txt", 0, info, SHGFI_ICON));
    EXPECT_TRUE(info.szTypeName.isEmpty());
    EXPECT_FALSE(info.hIcon.isNull());
}

TEST(ShellIcons, SmallAndLargeHaveTheirOwnSize) {
    for (const QString name : {"a.txt", "b.pdf", "c.html", "d.qzvkunknownext", "noextension"}) {
        const QIcon small = IconOf("c:\\no\\such\\" + name, SHGFI_ICON | SHGFI_SMALLICON);
        const QIcon large = IconOf("c:\\no\\such\\" + name, SHGFI_ICON);
        ASSERT_FALSE(small.isNull()) << name.toStdString();
        ASSERT_FALSE(large.isNull()) << name.toStdString();
        EXPECT_EQ(small.availableSizes(), kSmall) << name.toStdString();
        EXPECT_EQ(large.availableSizes(), kLarge) << name.toStdString();
        EXPECT_EQ(small.pixmap(QSize(16, 16), 1.0).size(), QSize(16, 16));
        EXPECT_EQ(large.pixmap(QSize(32, 32), 1.0).size(), QSize(32, 32));
    }
}

TEST(ShellIcons, ABareMachineStillShowsPictures) {
    shell::EnsureIconTheme();
    const QString theme = QIcon::themeName();
    const QString fallback = QIcon::fallbackThemeName();
    const QStringList paths = QIcon::themeSearchPaths();
    QTemporaryDir empty;
    ASSERT_TRUE(empty.isValid());
    QIcon::setThemeSearchPaths({empty.path()});
    QIcon::setThemeName("no-such-theme");
    QIcon::setFallbackThemeName("no-such-theme");
    const QIcon file = IconOf("c:\\x\\a.txt", SHGFI_ICON | SHGFI_SMALLICON);
    const QIcon folder = IconOf(localfs::ToWindows(empty.path()), SHGFI_ICON);
    QIcon::setThemeSearchPaths(paths);
    QIcon::setThemeName(theme);
    QIcon::setFallbackThemeName(fallback);
    ASSERT_FALSE(file.isNull());
    EXPECT_EQ(file.availableSizes(), kSmall);
    EXPECT_EQ(file.pixmap(16).toImage(), shell::BundledIcon("file").pixmap(16).toImage());
    ASSERT_FALSE(folder.isNull());
    EXPECT_EQ(folder.pixmap(32).toImage(), shell::BundledIcon("folder").pixmap(32).toImage());
}

TEST(ShellIcons, AThemeOfOtherSizesIsFittedToTheAskedOne) {
    shell::EnsureIconTheme();
    const QString theme = QIcon::themeName();
    const QStringList paths = QIcon::themeSearchPaths();
    QTemporaryDir root;
    ASSERT_TRUE(root.isValid());
    ASSERT_TRUE(QDir(root.path()).mkpath("tiny/16x16/mimetypes"));
    QFile index(root.path() + "/tiny/index.theme");
    ASSERT_TRUE(index.open(QIODevice::WriteOnly));
    index.write("[Icon Theme]\nName=tiny\nDirectories=16x16/mimetypes\n\n"
                "[16x16/mimetypes]\nSize=16\nType=Fixed\nContext=MimeTypes\n");
    index.close();
    QImage red(16, 16, QImage::Format_ARGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(root.path() + "/tiny/16x16/mimetypes/text-plain.png"));
    QIcon::setThemeSearchPaths({root.path()});
    QIcon::setThemeName("tiny");
    const QIcon small = IconOf("c:\\x\\a.txt", SHGFI_ICON | SHGFI_SMALLICON);
    const QIcon large = IconOf("c:\\x\\a.txt", SHGFI_ICON);
    QIcon::setThemeSearchPaths(paths);
    QIcon::setThemeName(theme);
    EXPECT_EQ(small.availableSizes(), kSmall);
    EXPECT_EQ(large.availableSizes(), kLarge);
    EXPECT_EQ(small.pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    EXPECT_EQ(large.pixmap(32).toImage().pixelColor(16, 16), QColor(Qt::red));
}

TEST(ShellTypes, AFolderGivesTheFolderTypeAndIcon) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    ASSERT_TRUE(QDir(dir.path()).mkdir("Sub.txt"));
    const QString folderType = QMimeDatabase().mimeTypeForName("inode/directory").comment();
    ASSERT_FALSE(folderType.isEmpty());
    // A folder named like a file is still a folder, also when the logic
    // upper-cases the path.
    const QString windows = localfs::ToWindows(dir.path() + "/Sub.txt");
    EXPECT_EQ(TypeOf(windows), folderType);
    EXPECT_EQ(TypeOf(windows.toUpper()), folderType);
    EXPECT_EQ(IconOf(windows, SHGFI_ICON | SHGFI_SMALLICON).availableSizes(), kSmall);
    // The folder attribute alone says folder, without a look at the disk.
    SHFILEINFO info;
    SHGetFileInfoA("c:\\no\\such\\x.txt", 16, info, SHGFI_TYPENAME);
    EXPECT_EQ(info.szTypeName, folderType);
}

TEST(ShellTypes, AnEmptyPathGivesNothing) {
    SHFILEINFO info;
    info.szTypeName = "stale";
    info.hIcon = shell::BundledIcon("file");
    EXPECT_FALSE(SHGetFileInfoA("", 0, info, SHGFI_TYPENAME | SHGFI_ICON));
    EXPECT_TRUE(info.szTypeName.isEmpty());
    EXPECT_TRUE(info.hIcon.isNull());
}

TEST(ShellPictures, EveryPictureIsThereInBothSizes) {
    for (const char* name : {"connect", "ascii-list", "upload", "download", "delete", "open", "new-folder",
                             "up", "refresh", "properties", "view-large", "view-small", "view-list",
                             "view-details", "drive", "drive-root", "folder", "folder-open", "file",
                             "unknown", "app"}) {
        const QIcon icon = shell::BundledIcon(name);
        ASSERT_FALSE(icon.isNull()) << name;
        EXPECT_EQ(icon.availableSizes(), (QList<QSize>{QSize(16, 16), QSize(32, 32)})) << name;
    }
    const QIcon banner = shell::BundledIcon("start-banner");
    ASSERT_FALSE(banner.isNull());
    EXPECT_EQ(banner.availableSizes(), QList<QSize>{QSize(160, 300)});
    EXPECT_TRUE(shell::BundledIcon("no-such-picture").isNull());
    // Pictures that mean different things look different.
    EXPECT_NE(shell::BundledIcon("upload").pixmap(16).toImage(),
              shell::BundledIcon("download").pixmap(16).toImage());
}

TEST(ShellPrograms, TheProgramOfAPageIsAnExecutableOrNothing) {
    const QString program = FindExecutableA("c:\\somewhere\\index.html");
    if (!program.isEmpty()) {
        // A Windows-form path, like every path the logic sees.
        EXPECT_TRUE(program.startsWith("c:\\")) << program.toStdString();
        const QFileInfo exe(localfs::ToPosix(program));
        EXPECT_TRUE(exe.isAbsolute()) << program.toStdString();
        EXPECT_TRUE(exe.isFile() && exe.isExecutable()) << program.toStdString();
    }
    // By type: any other page, of any case, gets the same program.
    EXPECT_EQ(FindExecutableA("c:\\other\\PAGE.HTML"), program);
    EXPECT_EQ(FindExecutableA(""), "");
}
