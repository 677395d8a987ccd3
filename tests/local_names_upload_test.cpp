// Local files whose names no Windows name could be (a backslash, bytes that
// aren't UTF-8, blanks at both ends) show as rows of their own and go to a
// real server byte for byte.
#include "support/ftp_server.h"
#include "support/local_fixture.h"
#include "support/qt_print.h"

#include "language/mDataBase.h"
#include "local/frmLocal.h"
#include "shared/mPublic.h"
#include "transfer/upload.h"

#include <QRandomGenerator>
#include <QSet>

namespace {

const QList<QByteArray> kNames = {"back\\slash.bin", "caf\xe9.bin", "caf\xc3\xa9.bin", " both ends ", "both ends",
                                  "colon:star*.bin"};

class LocalNamesUpload : public LocalFolderTest, public ::testing::WithParamInterface<FtpServer::Kind> {};

QByteArray Content(int seed) {
    QRandomGenerator random{quint32(seed)};
    QByteArray data(300 + seed * 97, '\0');
    for (char& c : data) c = char(random.bounded(256));
    return data + QByteArray("\r\n\0end", 6);
}

TEST_P(LocalNamesUpload, OddNamesAreDistinctRowsAndUploadByteForByte) {
    for (qsizetype i = 0; i < kNames.size(); ++i) Make(kNames[i], Content(int(i)));
    Go();
    const QStringList rows = Rows();
    ASSERT_EQ(rows.size(), kNames.size());
    EXPECT_EQ(QSet<QString>(rows.begin(), rows.end()).size(), kNames.size());

    FtpServer server(GetParam());
    ASSERT_TRUE(Connect(server) && SetServerDirectory(server.serverRoot()));
    lTransferMode = FTP_TRANSFER_TYPE_BINARY;
    const QString folder = frmLocal().CurrentFolder();
    for (qsizetype i = 0; i < kNames.size(); ++i) {
        SCOPED_TRACE(kNames[i].toStdString());
        const int row = Row(kNames[i]);
        ASSERT_NE(row, 0);
        QString local = folder + list().Text(row);
        QString remote = "file" + QString::number(i);
        ASSERT_TRUE(UploadFile(local, remote));
        EXPECT_EQ(LogLines().back().colour, kGreen);
        EXPECT_EQ(server.ReadFile(remote), Content(int(i)));
    }
}

INSTANTIATE_TEST_SUITE_P(Servers, LocalNamesUpload,
                         ::testing::Values(FtpServer::Kind::Pyftpdlib, FtpServer::Kind::Vsftpd),
                         [](const auto& info) {
                             return std::string(info.param == FtpServer::Kind::Vsftpd ? "vsftpd" : "pyftpdlib");
                         });

}  // namespace
