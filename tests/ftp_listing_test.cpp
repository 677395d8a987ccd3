// Server listings as real servers send them, and the forms they don't.
#include "platform/ftp_listing.h"

#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

using ftp::NameEncoding;

// The corpus was captured at 2026-11-23 06:49 UTC (see its README).
const QDateTime kCaptured(QDate(2026, 11, 23), QTime(6, 50), Qt::UTC);

QByteArray Corpus(const char* name) {
    QFile f(QStringLiteral(FERRYDOCK_TEST_DATA "/listing/") + QLatin1String(name));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    return f.readAll();
}

QStringList Names(const std::vector<WIN32_FIND_DATA>& entries) {
    QStringList names;
    for (const auto& e : entries) names << e.cFileName;
    return names;
}

WIN32_FIND_DATA Entry(const std::vector<WIN32_FIND_DATA>& entries, const QString& name) {
    for (const auto& e : entries)
        if (e.cFileName == name) return e;
    ADD_FAILURE() << "no entry \"" << name.toStdString() << "\"";
    return {};
}

// "YYYY-MM-DD HH:MM:SS.mmm", read back through the platform's own split.
std::string When(const WIN32_FIND_DATA& e) {
    SYSTEMTIME st;
    if (!FileTimeToSystemTime(e.ftLastWriteTime, st)) return "invalid";
    return QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d.%03d", st.wYear, st.wMonth, st.wDay, st.wHour, st.wMinute,
                             st.wSecond, st.wMilliseconds)
        .toStdString();
}

uint64_t Size(const WIN32_FIND_DATA& e) { return (uint64_t(e.nFileSizeHigh) << 32) | e.nFileSizeLow; }

uint64_t Ticks(const FILETIME& ft) { return (uint64_t(ft.dwHighDateTime) << 32) | ft.dwLowDateTime; }

// One Unix line with the given date columns; the rest doesn't matter.
WIN32_FIND_DATA UnixDated(const char* dateColumns, const QDateTime& now) {
    const QByteArray line = QByteArray("-rw-r--r--    1 owner    group           5 ") + dateColumns + " probe\r\n";
    const auto entries = ftp::ParseList(line, NameEncoding::Utf8, now);
    if (entries.size() != 1) {
        ADD_FAILURE() << "not read: " << line.constData();
        return {};
    }
    return entries[0];
}

// --- LIST from pyftpdlib -----------------------------------------------

TEST(ListFromPyftpdlib, KeepsEveryNameAsSentInServerOrder) {
    const auto entries = ftp::ParseList(Corpus("pyftpdlib_list.txt"), NameEncoding::Utf8, kCaptured);
    // back\slash.txt is the one line left out.
    EXPECT_EQ(Names(entries),
              QStringList({"  two leading blanks.txt", ".hidden", "Grüße.txt", "a -> b.txt", "big3g.iso", "big5g.img",
                           "caf?.txt", "dangling", "empty.dat", "future.txt", "inner  double  blanks.txt", "june.txt",
                           "lastyear.txt", "link.txt", "locked", "nulldev", "numeric.txt", "old2001.txt", "pub",
                           "publink", "publink-slash", "readme.txt", "readonly.txt", "trailing blank ",
                           "with blanks.txt"}));
}

TEST(ListFromPyftpdlib, AttributesFollowTypeAndOwnerWriteBit) {
    const auto e = ftp::ParseList(Corpus("pyftpdlib_list.txt"), NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(Entry(e, "pub").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "locked").dwFileAttributes, 17u);
    EXPECT_EQ(Entry(e, "readme.txt").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "readonly.txt").dwFileAttributes, 129u);
    EXPECT_EQ(Entry(e, ".hidden").dwFileAttributes, 128u);  // no hidden bit on the server side
    EXPECT_EQ(Entry(e, "nulldev").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "a -> b.txt").dwFileAttributes, 128u);  // a plain file: the arrow is its name
}

TEST(ListFromPyftpdlib, LinksAreFilesUnlessTheTargetEndsInASlash) {
    const auto e = ftp::ParseList(Corpus("pyftpdlib_list.txt"), NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(Entry(e, "link.txt").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "publink").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "publink-slash").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "dangling").dwFileAttributes, 128u);
    // The size column of a link is the length of its target text.
    EXPECT_EQ(Size(Entry(e, "link.txt")), 10u);
    EXPECT_EQ(Size(Entry(e, "publink-slash")), 4u);
}

TEST(ListFromPyftpdlib, SizesSplitIntoTwoWords) {
    const auto e = ftp::ParseList(Corpus("pyftpdlib_list.txt"), NameEncoding::Utf8, kCaptured);
    const auto g3 = Entry(e, "big3g.iso");
    EXPECT_EQ(g3.nFileSizeHigh, 0u);
    EXPECT_EQ(g3.nFileSizeLow, 3221225472u);
    const auto g5 = Entry(e, "big5g.img");
    EXPECT_EQ(g5.nFileSizeHigh, 1u);
    EXPECT_EQ(g5.nFileSizeLow, 1073741824u);
    EXPECT_EQ(Size(Entry(e, "empty.dat")), 0u);
    EXPECT_EQ(Size(Entry(e, "Grüße.txt")), 6u);
    // Folders keep the size the server states; a read-only one shows it.
    EXPECT_EQ(Size(Entry(e, "pub")), 4096u);
}

TEST(ListFromPyftpdlib, DatesWithAndWithoutYear) {
    const auto e = ftp::ParseList(Corpus("pyftpdlib_list.txt"), NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(When(Entry(e, "old2001.txt")), "2001-03-05 00:00:00.000");  // the year form has no clock
    EXPECT_EQ(When(Entry(e, "pub")), "2001-03-05 00:00:00.000");
    EXPECT_EQ(When(Entry(e, "lastyear.txt")), "2025-12-31 00:00:00.000");
    EXPECT_EQ(When(Entry(e, "june.txt")), "2026-06-15 10:30:00.000");
    EXPECT_EQ(When(Entry(e, "readme.txt")), "2026-11-23 06:48:00.000");
    // Hours ahead of the capture, but within a day: still this year.
    EXPECT_EQ(When(Entry(e, "future.txt")), "2026-11-23 18:00:00.000");
}

TEST(ListFromPyftpdlib, LineFeedsAloneReadTheSame) {
    QByteArray body = Corpus("pyftpdlib_list.txt");
    const auto crlf = ftp::ParseList(body, NameEncoding::Utf8, kCaptured);
    const auto lf = ftp::ParseList(body.replace("\r\n", "\n"), NameEncoding::Utf8, kCaptured);
    ASSERT_EQ(Names(lf), Names(crlf));
    for (size_t i = 0; i < lf.size(); ++i) {
        EXPECT_EQ(lf[i].dwFileAttributes, crlf[i].dwFileAttributes);
        EXPECT_EQ(Size(lf[i]), Size(crlf[i]));
        EXPECT_EQ(Ticks(lf[i].ftLastWriteTime), Ticks(crlf[i].ftLastWriteTime));
    }
}

// --- LIST from vsftpd --------------------------------------------------

TEST(ListFromVsftpd, DotEntriesStayAndNumericOwnersRead) {
    const auto e = ftp::ParseList(Corpus("vsftpd_list_a.txt"), NameEncoding::Latin1, kCaptured);
    const QStringList names = Names(e);
    ASSERT_GE(names.size(), 4);
    EXPECT_EQ(names.mid(0, 4), QStringList({"  two leading blanks.txt", ".", "..", ".hidden"}));
    EXPECT_EQ(Entry(e, ".").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "..").dwFileAttributes, 16u);
    EXPECT_EQ(When(Entry(e, ".")), "2001-03-05 00:00:00.000");
    EXPECT_EQ(Entry(e, "numeric.txt").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "locked").dwFileAttributes, 17u);
    EXPECT_FALSE(names.contains("back\\slash.txt"));
    EXPECT_EQ(Size(Entry(e, "big5g.img")), 5368709120u);
    // vsftpd gives a future date its year instead of a clock.
    EXPECT_EQ(When(Entry(e, "future.txt")), "2026-11-23 00:00:00.000");
}

TEST(ListFromVsftpd, PlainListHidesDotEntries) {
    const auto e = ftp::ParseList(Corpus("vsftpd_list.txt"), NameEncoding::Latin1, kCaptured);
    EXPECT_EQ(e.size(), 24u);  // 25 lines, back\slash.txt left out
    EXPECT_FALSE(Names(e).contains(".hidden"));
    EXPECT_FALSE(Names(e).contains("."));
}

TEST(NameEncoding, Latin1KeepsEveryByteAndUtf8DecodesUtf8) {
    const QByteArray body = Corpus("vsftpd_list.txt");
    const auto latin1 = Names(ftp::ParseList(body, NameEncoding::Latin1, kCaptured));
    const auto utf8 = Names(ftp::ParseList(body, NameEncoding::Utf8, kCaptured));

    EXPECT_TRUE(latin1.contains(QStringLiteral("café.txt")));
    EXPECT_TRUE(utf8.contains(QStringLiteral("Grüße.txt")));
    // The UTF-8 name seen as Latin-1 turns back into the very bytes sent, so
    // a later command names the same file.
    const QByteArray sent = QByteArray("Gr\xc3\xbc\xc3\x9f" "e.txt");
    ASSERT_TRUE(latin1.contains(QString::fromLatin1(sent)));
    EXPECT_EQ(latin1[latin1.indexOf(QString::fromLatin1(sent))].toLatin1(), sent);
    EXPECT_TRUE(body.contains("caf\xe9.txt"));
    EXPECT_TRUE(utf8.contains(QStringLiteral("caf\uFFFD.txt")));
}

// --- Unix forms the servers above don't produce -------------------------

TEST(ListUnixForms, ReadsEveryColumnLayout) {
    const auto e = ftp::ParseList(Corpus("unix_forms.txt"), NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(Names(e), QStringList({"numeric owner", "no-group.txt", "no-link-count.txt", "null", "sda", "fifo",
                                     "docs", "latest", "with-acl.txt", "selinux", "with-seconds.txt",
                                     "four-gib.bin"}));
    EXPECT_EQ(Entry(e, "numeric owner").dwFileAttributes, 16u);
    EXPECT_EQ(Size(Entry(e, "numeric owner")), 4096u);
    EXPECT_EQ(Size(Entry(e, "no-group.txt")), 1234u);
    EXPECT_EQ(Size(Entry(e, "no-link-count.txt")), 77u);
    EXPECT_EQ(Size(Entry(e, "with-acl.txt")), 10u);
    EXPECT_EQ(Entry(e, "selinux").dwFileAttributes, 17u);
    EXPECT_EQ(Entry(e, "four-gib.bin").nFileSizeHigh, 1u);
    EXPECT_EQ(Entry(e, "four-gib.bin").nFileSizeLow, 0u);
    EXPECT_EQ(When(Entry(e, "no-group.txt")), "2001-03-05 00:00:00.000");
    EXPECT_EQ(When(Entry(e, "with-seconds.txt")), "2026-03-05 07:04:09.000");
}

TEST(ListUnixForms, DeviceNumbersAreNoSize) {
    const auto e = ftp::ParseList(Corpus("unix_forms.txt"), NameEncoding::Utf8, kCaptured);
    for (const char* name : {"null", "sda", "fifo"}) {
        EXPECT_EQ(Entry(e, name).dwFileAttributes, 128u) << name;
        EXPECT_EQ(Size(Entry(e, name)), 0u) << name;
        EXPECT_EQ(When(Entry(e, name)), "2001-03-05 00:00:00.000") << name;
    }
}

TEST(ListUnixForms, LinkNameIsThePartBeforeTheArrow) {
    const auto e = ftp::ParseList(Corpus("unix_forms.txt"), NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(Entry(e, "docs").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "latest").dwFileAttributes, 128u);
    const auto odd = ftp::ParseList("lrwxrwxrwx 1 o g 3 Mar  5  2001  my link  -> a b/\n", NameEncoding::Utf8, kCaptured);
    ASSERT_EQ(odd.size(), 1u);
    EXPECT_EQ(odd[0].cFileName, " my link ");
    EXPECT_EQ(odd[0].dwFileAttributes, 16u);
}

TEST(ListUnixForms, UnreadableLinesAreSkippedNotGuessed) {
    const QByteArray body =
        "total 12\r\n"
        "\r\n"
        "-rw-r--r-- 1 o g 5 Foo  5  2001 bad-month\r\n"
        "-rw-r--r-- 1 o g 5 Mar 32  2001 bad-day\r\n"
        "-rw-r--r-- 1 o g 5 Mar  5 25:00 bad-hour\r\n"
        "-rw-r--r-- 1 o g 5 Mar  5 07:04\r\n"
        "Xrw-r--r-- 1 o g 5 Mar  5  2001 bad-type\r\n"
        "-rw-r--r-- 1 o g 5 Mar  5  2001 good\r\n";
    EXPECT_EQ(Names(ftp::ParseList(body, NameEncoding::Utf8, kCaptured)), QStringList({"good"}));
}

// --- The year of dates given without one -------------------------------

TEST(YearInference, AroundNewYear) {
    const QDateTime morning(QDate(2027, 1, 1), QTime(10, 0), Qt::UTC);
    EXPECT_EQ(When(UnixDated("Dec 31 23:00", morning)), "2026-12-31 23:00:00.000");
    EXPECT_EQ(When(UnixDated("Jan  1 09:59", morning)), "2027-01-01 09:59:00.000");
    EXPECT_EQ(When(UnixDated("Jan  1 12:00", morning)), "2027-01-01 12:00:00.000");
    // Exactly a day ahead still counts as this year; a minute more doesn't.
    EXPECT_EQ(When(UnixDated("Jan  2 10:00", morning)), "2027-01-02 10:00:00.000");
    EXPECT_EQ(When(UnixDated("Jan  2 10:01", morning)), "2026-01-02 10:01:00.000");
    EXPECT_EQ(When(UnixDated("Dec 30 08:00", morning)), "2026-12-30 08:00:00.000");

    // Late on New Year's Eve a server a zone ahead already writes January.
    const QDateTime eve(QDate(2026, 12, 31), QTime(23, 30), Qt::UTC);
    EXPECT_EQ(When(UnixDated("Jan  1 00:10", eve)), "2027-01-01 00:10:00.000");
    EXPECT_EQ(When(UnixDated("Dec 31 23:59", eve)), "2026-12-31 23:59:00.000");
    EXPECT_EQ(When(UnixDated("Feb  3 12:00", eve)), "2026-02-03 12:00:00.000");
}

TEST(YearInference, LeapDayGoesBackToALeapYear) {
    const QDateTime now(QDate(2027, 1, 1), QTime(10, 0), Qt::UTC);
    EXPECT_EQ(When(UnixDated("Feb 29 12:00", now)), "2024-02-29 12:00:00.000");
    const QDateTime inLeapYear(QDate(2028, 3, 1), QTime(0, 0), Qt::UTC);
    EXPECT_EQ(When(UnixDated("Feb 29 12:00", inLeapYear)), "2028-02-29 12:00:00.000");
}

TEST(YearInference, NowInAnotherZoneMeansTheSameInstant) {
    // 01:00 at UTC+2 on 1 January is 23:00 UTC on 31 December.
    const QDateTime east(QDate(2027, 1, 1), QTime(1, 0), Qt::OffsetFromUTC, 2 * 3600);
    EXPECT_EQ(When(UnixDated("Jan  1 23:00", east)), "2027-01-01 23:00:00.000");
    EXPECT_EQ(When(UnixDated("Jan  1 23:01", east)), "2026-01-01 23:01:00.000");
}

// --- DOS / IIS ---------------------------------------------------------

TEST(ListDos, IisLayout) {
    const auto e = ftp::ParseList(Corpus("iis_dos.txt"), NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(Names(e), QStringList({"pub", "  two leading blanks", "report.txt", "name with blanks.txt",
                                     "midnight.txt", "noon3g.iso", "nineties.txt", "four digit year",
                                     "twentyfour.txt"}));
    const auto pub = Entry(e, "pub");
    EXPECT_EQ(pub.dwFileAttributes, 16u);
    EXPECT_EQ(Size(pub), 0u);
    EXPECT_EQ(When(pub), "2001-03-05 07:04:00.000");
    EXPECT_EQ(Entry(e, "  two leading blanks").dwFileAttributes, 16u);

    const auto report = Entry(e, "report.txt");
    EXPECT_EQ(report.dwFileAttributes, 128u);
    EXPECT_EQ(Size(report), 1234u);
    EXPECT_EQ(When(report), "2022-12-24 23:15:00.000");
    EXPECT_EQ(Size(Entry(e, "name with blanks.txt")), 1234u);
    EXPECT_EQ(When(Entry(e, "name with blanks.txt")), "2022-12-24 23:15:00.000");
}

TEST(ListDos, ClockAndCentury) {
    const auto e = ftp::ParseList(Corpus("iis_dos.txt"), NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(When(Entry(e, "midnight.txt")), "2000-01-01 00:00:00.000");
    EXPECT_EQ(When(Entry(e, "noon3g.iso")), "2000-01-01 12:30:00.000");
    EXPECT_EQ(When(Entry(e, "nineties.txt")), "1999-07-04 13:02:00.000");
    EXPECT_EQ(When(Entry(e, "four digit year")), "2023-10-15 21:05:00.000");
    EXPECT_EQ(When(Entry(e, "twentyfour.txt")), "2001-03-05 19:04:00.000");
    EXPECT_EQ(Entry(e, "noon3g.iso").nFileSizeHigh, 0u);
    EXPECT_EQ(Entry(e, "noon3g.iso").nFileSizeLow, 3221225472u);
}

// --- MLSD --------------------------------------------------------------

TEST(MlsdFromPyftpdlib, FactsGiveTypeSizeAndExactTime) {
    const auto e = ftp::ParseMlsd(Corpus("pyftpdlib_mlsd.txt"), NameEncoding::Utf8);
    EXPECT_EQ(e.size(), 24u);  // 25 lines (no dangling link), back\slash.txt left out
    EXPECT_FALSE(Names(e).contains("back\\slash.txt"));
    const auto pub = Entry(e, "pub");
    EXPECT_EQ(pub.dwFileAttributes, 16u);
    EXPECT_EQ(Size(pub), 4096u);
    EXPECT_EQ(When(pub), "2001-03-05 07:04:00.000");
    EXPECT_EQ(Ticks(pub.ftLastWriteTime), 126282494400000000u);
    EXPECT_EQ(When(Entry(e, "future.txt")), "2026-11-23 18:00:00.000");
    EXPECT_EQ(When(Entry(e, "lastyear.txt")), "2025-12-31 23:59:00.000");
    EXPECT_EQ(Entry(e, "big3g.iso").nFileSizeLow, 3221225472u);
    EXPECT_EQ(Entry(e, "big3g.iso").nFileSizeHigh, 0u);
    EXPECT_EQ(Entry(e, "big5g.img").nFileSizeHigh, 1u);
    EXPECT_EQ(Entry(e, "big5g.img").nFileSizeLow, 1073741824u);
    EXPECT_EQ(Entry(e, "  two leading blanks.txt").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "trailing blank ").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "a -> b.txt").dwFileAttributes, 128u);
    // pyftpdlib follows links, so the type fact already tells the target's kind.
    EXPECT_EQ(Entry(e, "publink").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "link.txt").dwFileAttributes, 128u);
}

TEST(MlsdFromPyftpdlib, ReadOnlyFromPermWithoutMode) {
    // The login may write everything here, whatever the mode bits say.
    const auto all = ftp::ParseMlsd(Corpus("pyftpdlib_mlsd.txt"), NameEncoding::Utf8);
    EXPECT_EQ(Entry(all, "locked").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(all, "readonly.txt").dwFileAttributes, 128u);
    // Anonymous may only read: perm=r for files, perm=el for folders.
    const auto anon = ftp::ParseMlsd(Corpus("pyftpdlib_mlsd_anonymous.txt"), NameEncoding::Utf8);
    EXPECT_EQ(Entry(anon, "readme.txt").dwFileAttributes, 129u);
    EXPECT_EQ(Entry(anon, "pub").dwFileAttributes, 17u);
}

TEST(MlsdFromPyftpdlib, UnixModeOutranksPerm) {
    // unix.mode arrives as "0o555" from this server.
    const auto e = ftp::ParseMlsd(Corpus("pyftpdlib_mlsd_unixmode.txt"), NameEncoding::Utf8);
    EXPECT_EQ(Entry(e, "locked").dwFileAttributes, 17u);
    EXPECT_EQ(Entry(e, "readonly.txt").dwFileAttributes, 129u);
    EXPECT_EQ(Entry(e, "pub").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "readme.txt").dwFileAttributes, 128u);
}

TEST(Mlsd, SkipsOwnAndParentFolderAndReadsOtherServersFacts) {
    const QByteArray body =
        "type=cdir;modify=20010305070400;perm=el; .\n"
        "type=pdir;modify=20010305070400;perm=el; ..\n"
        "Type=DIR;Modify=20010305070400.123;Perm=el; Sub\n"
        "type=OS.unix=slink:/srv/pub/;modify=20010305070400; to-folder\n"
        "type=OS.unix=slink:/srv/notes.txt;size=9; to-file\n"
        "type=OS.unix=symlink;size=9; unknown-link\n"
        "type=OS.unix=chr-1/3;size=0; null\n"
        "type=file;size=12;unix.mode=0644;perm=r; mode-says-writable\n"
        "type=file;size=12;unix.mode=bogus;perm=r; mode-unreadable\n"
        "type=file;size=12; no-perm\n"
        "type=file;size=1;modify=20010305070400.5; half-second\n"
        "type=file;size=1;modify=20010231070400; bad-date\n"
        "no-blank-no-name\n"
        "type=file;size=1; \n";
    const auto e = ftp::ParseMlsd(body, NameEncoding::Utf8);
    EXPECT_EQ(Names(e), QStringList({"Sub", "to-folder", "to-file", "unknown-link", "null", "mode-says-writable",
                                     "mode-unreadable", "no-perm", "half-second", "bad-date"}));
    EXPECT_EQ(Entry(e, "Sub").dwFileAttributes, 17u);
    EXPECT_EQ(When(Entry(e, "Sub")), "2001-03-05 07:04:00.123");
    EXPECT_EQ(Entry(e, "to-folder").dwFileAttributes, 16u);
    EXPECT_EQ(Entry(e, "to-file").dwFileAttributes, 128u);
    EXPECT_EQ(Size(Entry(e, "to-file")), 9u);
    EXPECT_EQ(Entry(e, "unknown-link").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "null").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "mode-says-writable").dwFileAttributes, 128u);
    EXPECT_EQ(Entry(e, "mode-unreadable").dwFileAttributes, 129u);
    EXPECT_EQ(Entry(e, "no-perm").dwFileAttributes, 128u);
    EXPECT_EQ(When(Entry(e, "half-second")), "2001-03-05 07:04:00.500");
    EXPECT_EQ(Ticks(Entry(e, "bad-date").ftLastWriteTime), 0u);
}

TEST(Mlsd, NameEncodingApplies) {
    const QByteArray body = "type=file;size=1; caf\xe9.txt\r\ntype=file;size=1; Gr\xc3\xbc\xc3\x9f" "e.txt\r\n";
    EXPECT_EQ(Names(ftp::ParseMlsd(body, NameEncoding::Latin1)),
              QStringList({QStringLiteral("café.txt"), QString::fromLatin1("Gr\xc3\xbc\xc3\x9f" "e.txt")}));
    EXPECT_EQ(Names(ftp::ParseMlsd(body, NameEncoding::Utf8)),
              QStringList({QStringLiteral("caf\uFFFD.txt"), QStringLiteral("Grüße.txt")}));
}

// --- Names that would leave the chosen folder --------------------------

TEST(UnsafeNames, RecognisedByAnyOfTheThreeCharacters) {
    EXPECT_TRUE(ftp::IsUnsafeName("a/b"));
    EXPECT_TRUE(ftp::IsUnsafeName("..\\up"));
    EXPECT_TRUE(ftp::IsUnsafeName(QString("nul") + QChar(0) + "x"));
    EXPECT_TRUE(ftp::IsUnsafeName("/"));
    EXPECT_FALSE(ftp::IsUnsafeName(".."));
    EXPECT_FALSE(ftp::IsUnsafeName("a -> b.txt"));
    EXPECT_FALSE(ftp::IsUnsafeName("Grüße.txt"));
}

TEST(UnsafeNames, DroppedFromEveryForm) {
    const QByteArray nul("type=file;size=1; a\0b\r\n", 23);
    const QByteArray mlsd = QByteArray("type=file;size=1; ../x\r\ntype=dir; sub\\dir\r\ntype=file;size=1; ok\r\n") + nul;
    EXPECT_EQ(Names(ftp::ParseMlsd(mlsd, NameEncoding::Utf8)), QStringList({"ok"}));
    EXPECT_EQ(Names(ftp::ParseMlsd(mlsd, NameEncoding::Latin1)), QStringList({"ok"}));

    const auto unixNames = Names(ftp::ParseList(Corpus("unix_forms.txt"), NameEncoding::Latin1, kCaptured));
    for (const QString& n : unixNames) EXPECT_FALSE(ftp::IsUnsafeName(n)) << n.toStdString();
    EXPECT_FALSE(unixNames.contains("passwd"));

    const auto dos = Names(ftp::ParseList(Corpus("iis_dos.txt"), NameEncoding::Latin1, kCaptured));
    for (const QString& n : dos) EXPECT_FALSE(n.contains("escape")) << n.toStdString();

    // A link whose own name is harmless but whose target isn't stays.
    const auto link = ftp::ParseList("lrwxrwxrwx 1 o g 3 Mar  5  2001 up -> ../../etc\n", NameEncoding::Utf8, kCaptured);
    EXPECT_EQ(Names(link), QStringList({"up"}));
}

// --- File times --------------------------------------------------------

TEST(FileTimes, SplitLikeWindows) {
    SYSTEMTIME st;
    ASSERT_TRUE(FileTimeToSystemTime(FILETIME{}, st));
    EXPECT_EQ(st.wYear, 1601);
    EXPECT_EQ(st.wMonth, 1);
    EXPECT_EQ(st.wDay, 1);
    EXPECT_EQ(st.wDayOfWeek, 1);  // a Monday
    EXPECT_EQ(st.wHour + st.wMinute + st.wSecond + st.wMilliseconds, 0);

    // 5 March 2001, 07:04, a Monday.
    const uint64_t march = 126282494400000000u;
    ASSERT_TRUE(FileTimeToSystemTime(FILETIME{uint32_t(march), uint32_t(march >> 32)}, st));
    EXPECT_EQ(st.wYear, 2001);
    EXPECT_EQ(st.wMonth, 3);
    EXPECT_EQ(st.wDay, 5);
    EXPECT_EQ(st.wDayOfWeek, 1);
    EXPECT_EQ(st.wHour, 7);
    EXPECT_EQ(st.wMinute, 4);
    EXPECT_EQ(st.wSecond, 0);
    EXPECT_EQ(st.wMilliseconds, 0);

    // 29 February 2000, 12:34:56.789, a Tuesday.
    const uint64_t leap = 125963012967890000u;
    ASSERT_TRUE(FileTimeToSystemTime(FILETIME{uint32_t(leap), uint32_t(leap >> 32)}, st));
    EXPECT_EQ(st.wYear, 2000);
    EXPECT_EQ(st.wMonth, 2);
    EXPECT_EQ(st.wDay, 29);
    EXPECT_EQ(st.wDayOfWeek, 2);
    EXPECT_EQ(st.wHour, 12);
    EXPECT_EQ(st.wMinute, 34);
    EXPECT_EQ(st.wSecond, 56);
    EXPECT_EQ(st.wMilliseconds, 789);
}

TEST(FileTimes, LimitsOfTheRange) {
    SYSTEMTIME st;
    ASSERT_TRUE(FileTimeToSystemTime(FILETIME{0xFFFFFFFF, 0x7FFFFFFF}, st));
    EXPECT_EQ(st.wYear, 30828);
    EXPECT_EQ(st.wMonth, 9);
    EXPECT_EQ(st.wDay, 14);
    EXPECT_EQ(st.wHour, 2);
    EXPECT_EQ(st.wMinute, 48);
    EXPECT_EQ(st.wSecond, 5);
    EXPECT_EQ(st.wMilliseconds, 477);
    EXPECT_FALSE(FileTimeToSystemTime(FILETIME{0, 0x80000000}, st));
}

TEST(FileTimes, FromUnixSeconds) {
    EXPECT_EQ(Ticks(FileTimeFromUnix(0)), 116444736000000000u);
    EXPECT_EQ(Ticks(FileTimeFromUnix(983775840)), 126282494400000000u);  // 2001-03-05 07:04 UTC
    EXPECT_EQ(Ticks(FileTimeFromUnix(-11644473600)), 0u);
    EXPECT_EQ(Ticks(FileTimeFromUnix(-11644473601)), 0u);
    EXPECT_EQ(Ticks(FileTimeFromUnix(INT64_MAX)), 0x7FFFFFFFFFFFFFFFu);
}

}  // namespace
