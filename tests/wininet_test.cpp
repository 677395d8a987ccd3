// The FTP operations against real servers: pyftpdlib (MLSD, UTF-8) and
// vsftpd (LIST), in active mode unless a test says otherwise.
#include "support/find_records.h"
#include "support/ftp_server.h"

#include "platform/localfs.h"
#include "platform/wininet.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QThread>
#include <QTimeZone>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace {

using Kind = FtpServer::Kind;

QByteArray RandomBytes(int size) {
    QByteArray b(size, Qt::Uninitialized);
    auto* gen = QRandomGenerator::global();
    for (int i = 0; i < size; ++i) b[i] = char(gen->bounded(256));
    return b;
}

HINTERNET Connect(const FtpServer& server, uint32_t flags = 0, const QString& user = QString(),
                  const QString& password = QString()) {
    const HINTERNET session = InternetOpenA("wininet test", 0, "", "", 0);
    return InternetConnectA(session, "127.0.0.1", int16_t(server.port()), user.isNull() ? server.user() : user,
                            password.isNull() ? server.password() : password, INTERNET_SERVICE_FTP, flags, 0);
}

QString Pwd(HINTERNET h) {
    QString dir;
    uint32_t length = 1024;
    return FtpGetCurrentDirectoryA(h, dir, length) ? dir : QString();
}

// Uploads the way the program does: 255-byte writes, then a tail write of
// what is left, zero bytes included.
bool Upload(HINTERNET h, const QString& name, const QByteArray& content, uint32_t type = FTP_TRANSFER_TYPE_BINARY) {
    const HINTERNET file = FtpOpenFileA(h, name, GENERIC_WRITE, type, 0);
    if (!file) return false;
    uint32_t written = 0;
    qsizetype at = 0;
    for (; at + 255 <= content.size(); at += 255)
        if (!InternetWriteFile(file, content.constData() + at, 255, written)) return false;
    if (!InternetWriteFile(file, content.constData() + at, uint32_t(content.size() - at), written)) return false;
    InternetCloseHandle(file);
    return true;
}

// Control connections the server still holds open on its port, read from
// the kernel's table: its side of a connection we closed goes away only
// once the server has noticed.
int ServerSideConnections(int port) {
    QFile f("/proc/net/tcp");
    if (!f.open(QIODevice::ReadOnly)) return -1;
    const QByteArray local = QByteArray(":") + QByteArray::number(port, 16).toUpper().rightJustified(4, '0');
    int n = 0;
    for (const QByteArray& line : f.readAll().split('\n')) {
        const QList<QByteArray> cols = line.simplified().split(' ');
        if (cols.size() > 3 && cols[1].endsWith(local) && (cols[3] == "01" || cols[3] == "08")) ++n;
    }
    return n;
}

bool WaitFor(const std::function<bool()>& done, int ms = 3000) {
    QElapsedTimer t;
    t.start();
    while (!done()) {
        if (t.elapsed() > ms) return false;
        QThread::msleep(20);
    }
    return true;
}

std::string KindName(const testing::TestParamInfo<Kind>& info) {
    return info.param == Kind::Vsftpd ? "vsftpd" : "pyftpdlib";
}

class OnBoth : public testing::TestWithParam<Kind> {
protected:
    FtpServer server{GetParam()};
    // Path of a file below the root as a session names it.
    QString Remote(const QString& relative) const {
        return server.serverRoot() == "/" ? "/" + relative : server.serverRoot() + "/" + relative;
    }
};

INSTANTIATE_TEST_SUITE_P(Servers, OnBoth, testing::Values(Kind::Pyftpdlib, Kind::Vsftpd), KindName);

// --- Connecting -------------------------------------------------------------

TEST_P(OnBoth, ConnectLogsInAndTheDirectoryCanBeReadAndChanged) {
    server.MakeFolder("sub/deeper");
    const HINTERNET h = Connect(server);
    ASSERT_NE(h, 0u);
    EXPECT_EQ(Pwd(h), server.serverRoot());

    EXPECT_TRUE(FtpSetCurrentDirectoryA(h, "sub"));
    EXPECT_EQ(Pwd(h), Remote("sub"));
    EXPECT_TRUE(FtpSetCurrentDirectoryA(h, "deeper"));
    EXPECT_TRUE(FtpSetCurrentDirectoryA(h, ".."));
    EXPECT_EQ(Pwd(h), Remote("sub"));
    EXPECT_FALSE(FtpSetCurrentDirectoryA(h, "missing"));
    EXPECT_EQ(Pwd(h), Remote("sub")) << "a refused CWD leaves the dialogue in step";

    // The caller's buffer size bounds the answer.
    QString dir = "untouched";
    uint32_t length = uint32_t(Remote("sub").size());
    EXPECT_EQ(FtpGetCurrentDirectoryA(h, dir, length), 0u);
    EXPECT_EQ(dir, "untouched");
    length = 1024;
    EXPECT_NE(FtpGetCurrentDirectoryA(h, dir, length), 0u);
    EXPECT_EQ(length, uint32_t(dir.size()));
}

TEST_P(OnBoth, ASecondConnectLeavesTheFirstUsableAndClosingIsSeenByTheServer) {
    const HINTERNET session = InternetOpenA("agent", 0, "", "", 0);
    const auto connect = [&] {
        return InternetConnectA(session, "127.0.0.1", int16_t(server.port()), server.user(), server.password(), 1,
                                0, 0);
    };
    const HINTERNET first = connect();
    const HINTERNET second = connect();
    ASSERT_NE(first, 0u);
    ASSERT_NE(second, 0u);
    EXPECT_NE(first, second);
    EXPECT_TRUE(WaitFor([&] { return ServerSideConnections(server.port()) == 2; }));

    // Closing the session leaves the connections made from it alone.
    EXPECT_TRUE(InternetCloseHandle(session));
    EXPECT_EQ(Pwd(first), server.serverRoot());
    EXPECT_TRUE(FtpSetCurrentDirectoryA(second, ".."));

    EXPECT_TRUE(InternetCloseHandle(first));
    EXPECT_TRUE(WaitFor([&] { return ServerSideConnections(server.port()) == 1; }))
        << "the server still holds the closed connection";
    EXPECT_EQ(Pwd(first), "");
    EXPECT_FALSE(InternetCloseHandle(first));
    EXPECT_NE(Pwd(second), "");
}

TEST(Connect, RefusalsGiveZero) {
    // vsftpd refuses a login at once (pyftpdlib waits 3 s): any user but
    // anonymous is refused.
    FtpServer server(Kind::Vsftpd);
    const HINTERNET session = InternetOpenA("agent", 0, "", "", 0);
    ASSERT_NE(session, 0u);
    const int16_t port = int16_t(server.port());
    const QString user = server.user(), password = server.password();

    EXPECT_EQ(InternetConnectA(session, "127.0.0.1", port, "test", "wrong", 1, 0, 0), 0u);
    EXPECT_EQ(InternetConnectA(session, "127.0.0.1", port, "", "", 1, 0, 0), 0u)
        << "an empty user goes empty, not as anonymous";
    EXPECT_EQ(InternetConnectA(session, "127.0.0.1", port, user, password, 3, 0, 0), 0u) << "only FTP";
    EXPECT_EQ(InternetConnectA(0, "127.0.0.1", port, user, password, 1, 0, 0), 0u);
    EXPECT_EQ(InternetConnectA(12345678, "127.0.0.1", port, user, password, 1, 0, 0), 0u);
    // The session is still good for a proper login after all that.
    EXPECT_NE(InternetConnectA(session, "127.0.0.1", port, user, password, 1, 0, 0), 0u);

    // A port nobody listens on answers at once.
    int closed = 0;
    {
        QTcpServer probe;
        ASSERT_TRUE(probe.listen(QHostAddress::LocalHost, 0));
        closed = probe.serverPort();
    }
    QElapsedTimer t;
    t.start();
    EXPECT_EQ(InternetConnectA(session, "127.0.0.1", int16_t(closed), user, password, 1, 0, 0), 0u);
    EXPECT_LT(t.elapsed(), 2000);

    EXPECT_FALSE(InternetCloseHandle(0));
    EXPECT_FALSE(InternetCloseHandle(0x7fffffff));
}

// --- Listings ---------------------------------------------------------------

TEST_P(OnBoth, FindListsTheTreeWithAttributesSizesAndTimes) {
    server.MakeFolder("docs");
    server.WriteFile("docs/inner.txt", "inside");
    server.WriteFile("a.txt", QByteArray(1536, 'a'));
    server.WriteFile("empty.bin", QByteArray());
    server.WriteFile("locked.txt", "x");
    QFile::setPermissions(server.root() + "/locked.txt", QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    server.WriteFile("back\\slash.txt", "sneaky");
    {
        // Sparse: over 4 GiB, so the high size word counts.
        QFile big(server.root() + "/big.iso");
        ASSERT_TRUE(big.open(QIODevice::WriteOnly) && big.resize(5LL * 1024 * 1024 * 1024 + 3));
    }
    // Recent, so a LIST line carries the time of day; the seconds only
    // survive in MLSD.
    const QDateTime stamp(QDate::currentDate().addDays(-10), QTime(7, 4, 31), QTimeZone::utc());
    {
        QFile f(server.root() + "/a.txt");
        ASSERT_TRUE(f.open(QIODevice::ReadWrite) && f.setFileTime(stamp, QFileDevice::FileModificationTime));
    }

    const HINTERNET h = Connect(server);
    ASSERT_NE(h, 0u);
    const auto entries = ListServer(h);
    std::vector<QString> names;
    for (const auto& [name, d] : entries) names.push_back(name);
    EXPECT_EQ(names, (std::vector<QString>{"a.txt", "big.iso", "docs", "empty.bin", "locked.txt"}))
        << "the name with a backslash is dropped, nothing else";
    if (entries.size() != 5) return;

    EXPECT_EQ(entries.at("docs").dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
    EXPECT_EQ(entries.at("a.txt").dwFileAttributes, FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(entries.at("locked.txt").dwFileAttributes, FILE_ATTRIBUTE_NORMAL | FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(SizeOf(entries.at("a.txt")), 1536);
    EXPECT_EQ(SizeOf(entries.at("empty.bin")), 0);
    EXPECT_EQ(entries.at("big.iso").nFileSizeHigh, 1u);
    EXPECT_EQ(entries.at("big.iso").nFileSizeLow, 1024u * 1024 * 1024 + 3);
    const bool mlsd = GetParam() == Kind::Pyftpdlib;
    EXPECT_EQ(TimeOf(entries.at("a.txt")), mlsd ? stamp : stamp.addSecs(-31));

    // A second find is fine while the first handle is still open, and the
    // listing follows the directory.
    WIN32_FIND_DATA d;
    const HINTERNET open = FtpFindFirstFileA(h, "*", d, 0, 0);
    EXPECT_NE(open, 0u);
    ASSERT_TRUE(FtpSetCurrentDirectoryA(h, "docs"));
    const HINTERNET inner = FtpFindFirstFileA(h, "*.*", d, 0, 0);
    ASSERT_NE(inner, 0u);
    EXPECT_EQ(d.cFileName, "inner.txt");
    EXPECT_EQ(SizeOf(d), 6);
    EXPECT_FALSE(InternetFindNextFileA(inner, d));
    EXPECT_TRUE(InternetCloseHandle(inner));
    EXPECT_TRUE(InternetCloseHandle(open));
    EXPECT_FALSE(InternetFindNextFileA(inner, d));
}

TEST_P(OnBoth, AnEmptyFolderFindsNothingAndTheConnectionGoesOn) {
    server.MakeFolder("void");
    const HINTERNET h = Connect(server);
    ASSERT_TRUE(FtpSetCurrentDirectoryA(h, "void"));
    WIN32_FIND_DATA d;
    EXPECT_EQ(FtpFindFirstFileA(h, "*.*", d, 0, 0), 0u);
    EXPECT_EQ(Pwd(h), Remote("void"));
    EXPECT_EQ(FtpFindFirstFileA(0, "*.*", d, 0, 0), 0u);
}

TEST_P(OnBoth, ALongListingArrivesWholeWhateverItsPiecesAre) {
    // Lines are parsed as the data arrives, so many of them are cut between
    // two reads of the socket; not one may be lost or split.
    server.MakeFolder("many");
    std::set<QString> wanted;
    for (int i = 0; i < 3000; ++i) {
        const QString name =
            QString("entry %1 with a name long enough to fill the lines.dat").arg(i, 5, 10, QChar('0'));
        server.WriteFile("many/" + name, QByteArray(i % 7, 'x'));
        wanted.insert(name);
    }
    const HINTERNET h = Connect(server);
    ASSERT_TRUE(FtpSetCurrentDirectoryA(h, "many"));
    std::set<QString> seen;
    for (const auto& [name, d] : ListServer(h)) {
        seen.insert(name);
        EXPECT_EQ(SizeOf(d), name.mid(6, 5).toInt() % 7) << qPrintable(name);
    }
    EXPECT_EQ(seen, wanted);
}

TEST(Find, ListingsThatNameDotAndDotDotKeepThem) {
    FtpServer server(Kind::PyftpdlibWithDots);
    server.WriteFile("one.txt", "1");
    const HINTERNET h = Connect(server);
    std::vector<QString> names;
    for (const auto& [name, d] : ListServer(h)) names.push_back(name);
    EXPECT_EQ(names, (std::vector<QString>{".", "..", "one.txt"}));
}

// --- Uploads ----------------------------------------------------------------

TEST_P(OnBoth, PassiveUploadsAndListingsWork) {
    const HINTERNET h = Connect(server, INTERNET_FLAG_PASSIVE);
    ASSERT_NE(h, 0u);
    const QByteArray content = RandomBytes(70000);
    ASSERT_TRUE(Upload(h, "passive.bin", content));
    EXPECT_EQ(server.ReadFile("passive.bin"), content);
    EXPECT_EQ(ListServer(h).count("passive.bin"), 1u);
}

TEST_P(OnBoth, AsciiUploadsSendCrLfAndTheServerStoresItsTextForm) {
    // A CR LF split across two writes must not gain a second CR.
    QByteArray text = QByteArray(254, 'x') + "\r\n" + "bare\nmixed\r\nend\n";
    const HINTERNET h = Connect(server);
    ASSERT_TRUE(Upload(h, "text.txt", text, FTP_TRANSFER_TYPE_ASCII));
    const QByteArray stored = server.ReadFile("text.txt");
    if (GetParam() == Kind::Pyftpdlib) {
        // pyftpdlib turns the wire's CR LF into the local LF.
        EXPECT_EQ(stored, QByteArray(254, 'x') + "\nbare\nmixed\nend\n");
    } else {
        // vsftpd stores the wire form (ascii_upload_enable is off).
        EXPECT_EQ(stored, QByteArray(254, 'x') + "\r\nbare\r\nmixed\r\nend\r\n");
    }
    // Binary after ASCII on the same connection goes as it is.
    ASSERT_TRUE(Upload(h, "raw.txt", "a\nb\n"));
    EXPECT_EQ(server.ReadFile("raw.txt"), "a\nb\n");
}

TEST_P(OnBoth, NonAsciiNamesRoundTrip) {
    const QString name = QString::fromUtf8("Grüße – 日本.txt");
    const HINTERNET h = Connect(server);
    ASSERT_TRUE(Upload(h, name, "hello"));
    EXPECT_TRUE(QFile::exists(server.root() + "/" + name)) << "stored under its UTF-8 name";
    EXPECT_EQ(ListServer(h).count(name), 1u);
}

TEST_P(OnBoth, CommandsWhileAStreamIsOpenFinishItFirst) {
    const HINTERNET h = Connect(server);
    const HINTERNET file = FtpOpenFileA(h, "open.bin", GENERIC_WRITE, FTP_TRANSFER_TYPE_BINARY, 0);
    ASSERT_NE(file, 0u);
    uint32_t written = 0;
    EXPECT_TRUE(InternetWriteFile(file, "abc", 3, written));
    EXPECT_EQ(written, 3u);
    EXPECT_TRUE(InternetWriteFile(file, "", 0, written)) << "a zero-byte write on a healthy stream";
    EXPECT_EQ(Pwd(h), server.serverRoot());
    EXPECT_EQ(server.ReadFile("open.bin"), "abc");
    EXPECT_FALSE(InternetWriteFile(file, "d", 1, written)) << "the stream has ended";
    EXPECT_EQ(ListServer(h).count("open.bin"), 1u);
}

TEST(Upload, RefusedStorGivesZeroAndTheConnectionStaysUsable) {
    FtpServer server(Kind::Pyftpdlib);
    const HINTERNET h = Connect(server, 0, FtpServer::readOnlyUser(), "secret");
    ASSERT_NE(h, 0u);
    EXPECT_EQ(FtpOpenFileA(h, "no.bin", GENERIC_WRITE, FTP_TRANSFER_TYPE_BINARY, 0), 0u);
    EXPECT_EQ(Pwd(h), "/");
    EXPECT_FALSE(QFile::exists(server.root() + "/no.bin"));
}

TEST_P(OnBoth, AServerThatGoesAwayFailsTheWritesAndNothingHangs) {
    const HINTERNET h = Connect(server);
    const HINTERNET file = FtpOpenFileA(h, "cut.bin", GENERIC_WRITE, FTP_TRANSFER_TYPE_BINARY, 0);
    ASSERT_NE(file, 0u);
    uint32_t written = 0;
    const QByteArray chunk(255, 'c');
    EXPECT_TRUE(InternetWriteFile(file, chunk.constData(), 255, written));
    server.Stop();

    QElapsedTimer t;
    t.start();
    bool failed = false;
    // Small writes only fill the buffer; the broken connection must show by
    // the time a buffer's worth goes out.
    for (int i = 0; i < 1000 && !failed; ++i) failed = !InternetWriteFile(file, chunk.constData(), 255, written);
    EXPECT_TRUE(failed);
    EXPECT_FALSE(InternetWriteFile(file, "", 0, written)) << "a dead stream stays dead";
    EXPECT_EQ(Pwd(h), "");
    EXPECT_EQ(Pwd(h), "") << "and again, without a signal ending the process";
    EXPECT_EQ(FtpOpenFileA(h, "again.bin", GENERIC_WRITE, 2, 0), 0u);
    EXPECT_LT(t.elapsed(), 5000);

    // The same port serves again, and a new connection works.
    ASSERT_TRUE(server.Restart());
    const HINTERNET fresh = Connect(server);
    ASSERT_NE(fresh, 0u);
    EXPECT_EQ(Pwd(fresh), server.serverRoot());
}

TEST(Upload, ActiveTransfersFallBackToPassiveWhenTheServerRefusesPort) {
    FtpServer server(Kind::PyftpdlibPassiveOnly);
    server.WriteFile("there.txt", "x");
    const HINTERNET h = Connect(server);
    ASSERT_NE(h, 0u);
    EXPECT_EQ(ListServer(h).count("there.txt"), 1u);
    const QByteArray content = RandomBytes(1000);
    ASSERT_TRUE(Upload(h, "fallback.bin", content));
    EXPECT_EQ(server.ReadFile("fallback.bin"), content);
    // A refused STOR is not retried into success.
    EXPECT_EQ(FtpOpenFileA(h, "missing/dir.bin", GENERIC_WRITE, 2, 0), 0u);
    EXPECT_EQ(Pwd(h), "/");
}

// --- Downloads and folder operations -----------------------------------------

class Local : public testing::Test {
protected:
    QTemporaryDir dir;
    QString Windows(const QString& name) const { return localfs::ToWindows(dir.path() + "/" + name); }
    QByteArray Read(const QString& name) const {
        QFile f(dir.path() + "/" + name);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
    }
    void Write(const QString& name, const QByteArray& content) const {
        QFile f(dir.path() + "/" + name);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(content);
    }
};

TEST_F(Local, DownloadsReplaceTheTargetOnlyWhenTheWholeFileArrived) {
    FtpServer server(Kind::Pyftpdlib);
    const QByteArray content = RandomBytes(300000);
    server.WriteFile("get.bin", content);
    server.WriteFile("text.txt", "one\ntwo\n");
    const HINTERNET h = Connect(server);
    ASSERT_NE(h, 0u);

    EXPECT_TRUE(FtpGetFileA(h, "get.bin", Windows("get.bin"), false, 0, FTP_TRANSFER_TYPE_BINARY, 0));
    EXPECT_EQ(Read("get.bin"), content);

    Write("kept.bin", "old");
    EXPECT_FALSE(FtpGetFileA(h, "get.bin", Windows("kept.bin"), true, 0, FTP_TRANSFER_TYPE_BINARY, 0));
    EXPECT_EQ(Read("kept.bin"), "old");
    EXPECT_FALSE(FtpGetFileA(h, "missing.bin", Windows("kept.bin"), false, 0, FTP_TRANSFER_TYPE_BINARY, 0));
    EXPECT_EQ(Read("kept.bin"), "old");
    EXPECT_TRUE(FtpGetFileA(h, "get.bin", Windows("kept.bin"), false, 0, FTP_TRANSFER_TYPE_BINARY, 0));
    EXPECT_EQ(Read("kept.bin"), content);

    // Text comes in CR LF form and lands in the local LF form.
    EXPECT_TRUE(FtpGetFileA(h, "text.txt", Windows("text.txt"), false, 0, FTP_TRANSFER_TYPE_ASCII, 0));
    EXPECT_EQ(Read("text.txt"), "one\ntwo\n");

    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 3) << "no temporary file is left";
    EXPECT_EQ(Pwd(h), "/");
}

TEST(FolderOperations, MakeRenameDeleteAndRemove) {
    FtpServer server(Kind::Vsftpd);
    const HINTERNET h = Connect(server);
    ASSERT_NE(h, 0u);
    EXPECT_TRUE(FtpCreateDirectoryA(h, "made"));
    EXPECT_TRUE(QFileInfo(server.root() + "/made").isDir());
    EXPECT_FALSE(FtpCreateDirectoryA(h, "made"));

    server.WriteFile("made/f.txt", "f");
    EXPECT_FALSE(FtpRemoveDirectoryA(h, "made")) << "not empty";
    EXPECT_TRUE(FtpRenameFileA(h, "made/f.txt", "made/g.txt"));
    EXPECT_EQ(server.ReadFile("made/g.txt"), "f");
    EXPECT_FALSE(FtpRenameFileA(h, "made/none.txt", "made/h.txt"));
    EXPECT_TRUE(FtpDeleteFileA(h, "made/g.txt"));
    EXPECT_FALSE(FtpDeleteFileA(h, "made/g.txt"));
    EXPECT_TRUE(FtpRemoveDirectoryA(h, "made"));
    EXPECT_FALSE(QFileInfo::exists(server.root() + "/made"));
    EXPECT_EQ(Pwd(h), server.serverRoot());
}

}  // namespace
