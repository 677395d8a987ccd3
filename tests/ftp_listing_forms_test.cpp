// Listings in the forms the test servers don't send, each beside the
// records a user should see for it; listings of mixed forms and listings
// that arrive in pieces; names handed to a decoder of the caller's own.
#include "platform/ftp_listing.h"

#include <QFile>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

using ftp::NameEncoding;

// The hand-written listings are read with the capture time of the corpus.
const QDateTime kCaptured(QDate(2026, 11, 23), QTime(6, 50), Qt::UTC);

QByteArray Corpus(const QString& name) {
    QFile f(QStringLiteral(FERRYDOCK_TEST_DATA "/listing/") + name);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name.toStdString();
    return f.readAll();
}

// "attributes<TAB>size<TAB>time<TAB>name", the layout of the .expected files.
QString Row(const WIN32_FIND_DATA& e) {
    const uint64_t size = (uint64_t(e.nFileSizeHigh) << 32) | e.nFileSizeLow;
    QString when = QStringLiteral("0");
    SYSTEMTIME st;
    if ((e.ftLastWriteTime.dwLowDateTime || e.ftLastWriteTime.dwHighDateTime) &&
        FileTimeToSystemTime(e.ftLastWriteTime, st))
        when = QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d.%03d", st.wYear, st.wMonth, st.wDay, st.wHour,
                                 st.wMinute, st.wSecond, st.wMilliseconds);
    return QStringLiteral("%1\t%2\t%3\t%4").arg(e.dwFileAttributes).arg(size).arg(when, e.cFileName);
}

QStringList Rows(const std::vector<WIN32_FIND_DATA>& entries) {
    QStringList rows;
    for (const auto& e : entries) rows << Row(e);
    return rows;
}

QStringList ExpectedRows(const QString& form) {
    QStringList rows;
    for (const QString& line : QString::fromUtf8(Corpus(form + ".expected")).split('\n'))
        if (!line.isEmpty() && !line.startsWith('#')) rows << line;
    return rows;
}

bool IsMlsd(const QString& form) {
    return form.startsWith(QLatin1String("mlsd"));
}

std::vector<WIN32_FIND_DATA> Parse(const QString& form, const QByteArray& body) {
    return IsMlsd(form) ? ftp::ParseMlsd(body, NameEncoding::Utf8) : ftp::ParseList(body, NameEncoding::Utf8, kCaptured);
}

const char* const kForms[] = {"unix_languages", "unix_columns", "dos_more", "eplf",    "vms",
                              "netware",        "os2",          "as400",    "vxworks", "mlsd_facts"};

// --- Every form, line by line ------------------------------------------

class ListingForm : public testing::TestWithParam<const char*> {};

TEST_P(ListingForm, EachReadableLineGivesTheRecordAUserExpects) {
    const QString form = QString::fromLatin1(GetParam());
    // Compared as text, so a failure shows the whole listing side by side.
    EXPECT_EQ(Rows(Parse(form, Corpus(form + ".txt"))).join('\n').toStdString(),
              ExpectedRows(form).join('\n').toStdString());
}

INSTANTIATE_TEST_SUITE_P(Corpus, ListingForm, testing::ValuesIn(kForms));

// --- Listings as they really arrive -----------------------------------

TEST(ListingMixedForms, EachLineIsReadInItsOwnForm) {
    QByteArray body;
    QStringList expected;
    for (const char* form : kForms) {
        if (IsMlsd(form)) continue;
        body += Corpus(QString::fromLatin1(form) + ".txt");
        expected += ExpectedRows(form);
    }
    for (const char* captured : {"pyftpdlib_list.txt", "iis_dos.txt", "unix_forms.txt"}) {
        const QByteArray part = Corpus(captured);
        body += part;
        expected += Rows(ftp::ParseList(part, NameEncoding::Utf8, kCaptured));
    }
    EXPECT_EQ(Rows(ftp::ParseList(body, NameEncoding::Utf8, kCaptured)), expected);
}

// The data connection delivers a listing in pieces of any size; the caller
// parses what is ready and keeps the rest for the next piece.
std::vector<WIN32_FIND_DATA> ParseInTwoPieces(const QByteArray& body, qsizetype cut) {
    std::vector<WIN32_FIND_DATA> all;
    QByteArray pending = body.left(cut);
    const qsizetype ready = ftp::ListReadyLength(pending);
    all = ftp::ParseList(pending.left(ready), NameEncoding::Utf8, kCaptured);
    pending = pending.mid(ready) + body.mid(cut);
    const auto rest = ftp::ParseList(pending, NameEncoding::Utf8, kCaptured);
    all.insert(all.end(), rest.begin(), rest.end());
    return all;
}

TEST(ListingInPieces, SameRecordsWhereverTheDataBreaks) {
    for (const char* form : {"vms", "unix_columns", "dos_more"}) {
        const QByteArray body = Corpus(QString::fromLatin1(form) + ".txt");
        const QStringList whole = Rows(ftp::ParseList(body, NameEncoding::Utf8, kCaptured));
        for (qsizetype cut = 0; cut <= body.size(); ++cut)
            ASSERT_EQ(Rows(ParseInTwoPieces(body, cut)), whole) << form << " cut at " << cut;
    }
}

TEST(ListingInPieces, OnlyALastLoneVmsNameWaitsForMore) {
    EXPECT_EQ(ftp::ListReadyLength("no line end yet"), 0);
    EXPECT_EQ(ftp::ListReadyLength("a\r\nb"), 3);
    EXPECT_EQ(ftp::ListReadyLength("A.TXT;1  1/1  5-MAR-2001 07:04:00\r\nLONG.TXT;1\r\n"), 35);
    EXPECT_EQ(ftp::ListReadyLength("LONG.TXT;1\n"), 0);
    EXPECT_EQ(ftp::ListReadyLength("total 1\nname with;1 blank\n"), 26);
}

// --- Names through the caller's decoder -------------------------------

TEST(ListingNameDecoder, GetsTheRawBytesAndItsTextIsTheName) {
    QList<QByteArray> seen;
    // Legible whatever the bytes: valid UTF-8 as such, anything else byte
    // for byte, the way a connection that round-trips names would.
    const ftp::NameDecoder decode = [&](QByteArrayView raw) {
        seen << raw.toByteArray();
        const QString utf8 = QString::fromUtf8(raw);
        return utf8.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(raw) : utf8;
    };
    const QByteArray list = "-rw-r--r-- 1 o g 5 Mar  5  2001 caf\xe9.txt\r\n"
                            "-rw-r--r-- 1 o g 5 Mar  5  2001 Gr\xc3\xbc\xc3\x9f" "e.txt\r\n";
    EXPECT_EQ(Rows(ftp::ParseList(list, decode, kCaptured)),
              QStringList({QStringLiteral("128\t5\t2001-03-05 00:00:00.000\tcafé.txt"),
                           QStringLiteral("128\t5\t2001-03-05 00:00:00.000\tGrüße.txt")}));
    EXPECT_EQ(seen, QList<QByteArray>({"caf\xe9.txt", "Gr\xc3\xbc\xc3\x9f" "e.txt"}));

    seen.clear();
    const auto mlsd = ftp::ParseMlsd("type=file;size=1; caf\xe9 .txt\r\n", decode);
    ASSERT_EQ(mlsd.size(), 1u);
    EXPECT_EQ(mlsd[0].cFileName, QStringLiteral("café .txt"));
    EXPECT_EQ(seen, QList<QByteArray>({"caf\xe9 .txt"}));
}

TEST(ListingNameDecoder, UnsafeNamesDroppedWhateverTheDecoderMakesOfThem) {
    // One decoder hides the separators, another makes one out of "%".
    const ftp::NameDecoder hiding = [](QByteArrayView raw) {
        return QString::fromLatin1(raw).replace('/', '_').replace('\\', '_').replace(QChar(0), '_');
    };
    const ftp::NameDecoder making = [](QByteArrayView raw) { return QString::fromLatin1(raw).replace('%', '/'); };
    QByteArray list;
    for (const QByteArray& name : {QByteArray("a/b"), QByteArray("a\\b"), QByteArray("a\0b", 3), QByteArray("a%b"),
                                   QByteArray("ok")})
        list += "-rw-r--r-- 1 o g 5 Mar  5  2001 " + name + "\n";
    const auto names = [](const std::vector<WIN32_FIND_DATA>& v) {
        QStringList n;
        for (const auto& e : v) n << e.cFileName;
        return n;
    };
    EXPECT_EQ(names(ftp::ParseList(list, hiding, kCaptured)), QStringList({"a%b", "ok"}));
    EXPECT_EQ(names(ftp::ParseList(list, making, kCaptured)), QStringList({"ok"}));
    EXPECT_EQ(names(ftp::ParseMlsd("type=file; a/b\ntype=file; a%b\ntype=file; ok\n", hiding)),
              QStringList({"a%b", "ok"}));

    EXPECT_TRUE(ftp::IsUnsafeRawName("a/b"));
    EXPECT_TRUE(ftp::IsUnsafeRawName("a\\b"));
    EXPECT_TRUE(ftp::IsUnsafeRawName(QByteArrayView("a\0b", 3)));
    EXPECT_FALSE(ftp::IsUnsafeRawName("caf\xe9"));
}

}  // namespace
