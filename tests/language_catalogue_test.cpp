// The message catalogue as the build makes it, and the lookup over small
// catalogues of the test's own.
#include "language/mDataBase.h"
#include "platform/localfs.h"
#include "support/catalogue.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// Every key the program asks for, spelled as the forms and procedures spell
// them: misspellings included, "Datei" and "DATEI" both.
const QStringList kKeys = {
    "ASCII_LIST_SHOW", "AUS", "BUILD_CONNECTION", "CHECK_PROVIDER", "CHK_PASSIVE", "CONNECTION_CANCEL1",
    "CONNECTION_CANCEL2", "CONNECTION_TO", "CONNECTION_WITH", "CONNECT_WITH", "Datei", "EIN",
    "ENTER_ADRESS", "ENTER_HOST", "ENTER_PORT", "ESTABLSHED", "LABEL_ADRESS", "LABEL_MODUS",
    "LABEL_PASSWORD", "LABEL_PORT", "LABEL_USER", "MDIMAIN_WEBSITE", "MY_CONNECTION", "NOT_ESTABLISHED",
    "NO_CONNECTION", "OPT_ASCII", "OPT_AUTO", "OPT_BINARY", "PASSIVE_TRANSER_OFF", "PASSIVE_TRANSER_ON",
    "PROVIDER", "SPELLING", "TRANSFERMODUS", "WAS_ESTABLISHT", "WELCOME1", "WELCOME2", "WELCOME3",
    "WELCOME4",
    "DATEI", "FOLDER",
    "FRMLOCAL_ATTRIBUTE", "FRMLOCAL_BIG", "FRMLOCAL_CHANGED", "FRMLOCAL_DELETE", "FRMLOCAL_DETAIL",
    "FRMLOCAL_FILENAME", "FRMLOCAL_INSERTDEVICE", "FRMLOCAL_INTO", "FRMLOCAL_LIST", "FRMLOCAL_MYCOMPUTER",
    "FRMLOCAL_NEW", "FRMLOCAL_OPEN", "FRMLOCAL_PROP", "FRMLOCAL_REFRESH", "FRMLOCAL_SIZE", "FRMLOCAL_SMALL",
    "FRMLOCAL_TYP", "FRMLOCAL_UPLOAD",
    "FRMPOPLOC_ONEFILE", "FRMPULOC_BEGUP", "FRMPULOC_DELETE", "FRMPULOC_DIRNAME", "FRMPULOC_GENFAIL",
    "FRMPULOC_GENOK", "FRMPULOC_NEW", "FRMPULOC_NEWDIR1", "FRMPULOC_NEWDIR2", "FRMPULOC_NEWFOLDER",
    "FRMPULOC_NEWNAME", "FRMPULOC_NOCONN", "FRMPULOC_ONEFILE", "FRMPULOC_OPEN", "FRMPULOC_OPENWITH",
    "FRMPULOC_PROP", "FRMPULOC_REFRESH", "FRMPULOC_RENAME", "FRMPULOC_RENAME2", "FRMPULOC_RENCANCEL",
    "FRMPULOC_RENFAILED", "FRMPULOC_RENOK", "FRMPULOC_UPLOAD", "FRMPULOC_UPLOADAS",
    "FRMSERVER_ATTRIB", "FRMSERVER_BIG", "FRMSERVER_CHANGED", "FRMSERVER_DEL", "FRMSERVER_DETAIL",
    "FRMSERVER_DIRNAME", "FRMSERVER_DOWN", "FRMSERVER_DOWNFAILED", "FRMSERVER_DOWNOK", "FRMSERVER_FILENAME",
    "FRMSERVER_FRA", "FRMSERVER_GENFAIL", "FRMSERVER_GENOK", "FRMSERVER_LIST", "FRMSERVER_NEWDIR",
    "FRMSERVER_NEWDIR1", "FRMSERVER_NEWDIR2", "FRMSERVER_NOAPP1", "FRMSERVER_NOAPP2",
    "FRMSERVER_NOCONNECTION", "FRMSERVER_ONLYONEFILE", "FRMSERVER_OPEN", "FRMSERVER_OPENCANCEL",
    "FRMSERVER_OPENFILE", "FRMSERVER_OPENOK", "FRMSERVER_REFRESH", "FRMSERVER_SIZE", "FRMSERVER_SMALL",
    "FRMSERVER_STARTDOWN", "FRMSERVER_TYP", "FRMSERVER_UPPER",
    "FRMPUSERVER_DELETE", "FRMPUSERVER_DIRFAILED", "FRMPUSERVER_DIRNEW1", "FRMPUSERVER_DIRNEW2",
    "FRMPUSERVER_DIROK", "FRMPUSERVER_DOWNFAILED", "FRMPUSERVER_DOWNLOAD", "FRMPUSERVER_DOWNLOADAS",
    "FRMPUSERVER_DOWNOK", "FRMPUSERVER_DOWNSTART", "FRMPUSERVER_FOLDNAME", "FRMPUSERVER_NEW",
    "FRMPUSERVER_NEWFOLDER", "FRMPUSERVER_NEWNAME", "FRMPUSERVER_NOAPP1", "FRMPUSERVER_NOAPP2",
    "FRMPUSERVER_ONEFILE", "FRMPUSERVER_OPEN", "FRMPUSERVER_OPENCANCEL", "FRMPUSERVER_OPENDIA",
    "FRMPUSERVER_OPENOK", "FRMPUSERVER_OPENWITH", "FRMPUSERVER_REFRESH", "FRMPUSERVER_RENAME",
    "FRMPUSERVER_RENAMECANCEL", "FRMPUSERVER_RENAMEFAILED", "FRMPUSERVER_RENAMEOF", "FRMPUSERVER_RENAMEOK",
    "FRMPUSERVER_STARTDOWN",
    "FRMPU_TRANS_CLIP", "FRMPU_TRANS_DELETE", "FRMTH_FRACAPTION",
    "FRMUPAS_ACTION", "FRMUPAS_CANCEL", "FRMUPAS_CAPTION", "FRMUPAS_CHANGED", "FRMUPAS_NEWNAME",
    "FRMUPAS_OLDNAME", "FRMUPAS_SIZE", "FRMUPAS_TYP", "FRMUPAS_UPLOAD",
    "FRMDOWNLOADALS_ABBRECHEN", "FRMDOWNLOADALS_ACTION", "FRMDOWNLOADALS_CHANGED",
    "FRMDOWNLOADALS_DOWNLOAD", "FRMDOWNLOADALS_MECAPTION", "FRMDOWNLOADALS_NEWNAME",
    "FRMDOWNLOADALS_OLDNAME", "FRMDOWNLOADALS_SIZE", "FRMDOWNLOADALS_TYP",
    "FERMASCIILISTE_ADD", "FERMASCIILISTE_CANCEL", "FERMASCIILISTE_REMOVE", "FERMASCIILISTE_TAKE",
    "FRMASCIILISTE_ASCII_HELP", "FRMASCIILISTE_CAPTION", "FRMASCIILISTE_ENTRYDA", "FRMASCIILISTE_ENTRYDEL1",
    "FRMASCIILISTE_ENTRYDEL2", "FRMASCIILISTE_NEWEXT",
    "INFO_APPNAME", "INFO_CAPTION", "INFO_COPYRIGHT", "INFO_LEGAL", "INFO_MADE", "INFO_OK", "INFO_SYSINFO",
    "MPUB_FOLDER", "MPUB_NOAPP", "MPUB_NOCONN1", "MPUB_NOCONN2", "MPUB_NOCONN3", "MPUB_PROGSEL",
    "MPUB_UPFAILED", "MPUB_UPOK",
    "MDOWN_AN", "MDOWN_CREATEOK", "MDOWN_DOWNFAILED", "MDOWN_DOWNOK", "MDOWN_DOWNSTART", "MDOWN_FOLDNEW",
    "MDEL_DELFAILED", "MDEL_DELFILE", "MDEL_DELOK",
    "MSDEL_DELCANCEL", "MSDEL_DELETE", "MSDEL_DELETEIT1", "MSDEL_DELETEIT2", "MSDEL_DELSUCC",
    "MSDEL_FILEDEL1", "MSDEL_FILEDEL2", "MSDEL_FOLDDEL1", "MSDEL_FOLDDEL2", "MSDEL_WILLDELETE1",
};

// Texts that only menus, buttons and frame captions show may carry an access
// key. Everything else lands in logs, boxes, tool tips, lists or combo items,
// where an ampersand would be printed as it stands.
const QSet<QString> kAccessKeyCaptions = {
    "Datei", "MY_CONNECTION", "TRANSFERMODUS", "CHK_PASSIVE", "EIN", "AUS", "MDIMAIN_WEBSITE",
    "FRMLOCAL_MYCOMPUTER", "FRMPULOC_UPLOAD", "FRMPULOC_UPLOADAS", "FRMPULOC_OPEN", "FRMPULOC_OPENWITH",
    "FRMPULOC_RENAME", "FRMPULOC_DELETE", "FRMPULOC_NEW", "FRMPULOC_NEWFOLDER", "FRMPULOC_REFRESH",
    "FRMPULOC_PROP", "FRMSERVER_FRA", "FRMPUSERVER_DOWNLOAD", "FRMPUSERVER_DOWNLOADAS", "FRMPUSERVER_OPENWITH",
    "FRMPUSERVER_RENAME", "FRMPUSERVER_DELETE", "FRMPUSERVER_NEW", "FRMPUSERVER_NEWFOLDER",
    "FRMPUSERVER_REFRESH", "FRMPU_TRANS_CLIP", "FRMPU_TRANS_DELETE", "FERMASCIILISTE_ADD",
    "FERMASCIILISTE_CANCEL", "FERMASCIILISTE_REMOVE", "FERMASCIILISTE_TAKE", "FRMUPAS_UPLOAD", "FRMUPAS_CANCEL",
    "FRMDOWNLOADALS_DOWNLOAD", "FRMDOWNLOADALS_ABBRECHEN", "INFO_OK", "INFO_SYSINFO"};

// The second line of a Yes/No box: Yes must answer it.
const QStringList kQuestions = {"CONNECTION_CANCEL2", "FRMSERVER_NOAPP2", "FRMPUSERVER_NOAPP2", "MPUB_PROGSEL",
                                "MSDEL_DELETEIT2",    "MSDEL_FILEDEL2",   "MSDEL_FOLDDEL2",     "FRMASCIILISTE_ENTRYDEL2"};

// The catalogue and the chosen table are shared state; each test leaves
// them as it found them.
class LanguageCatalogue : public ::testing::Test {
protected:
    void SetUp() override { savedTable_ = sLanguageTable; }
    void TearDown() override {
        CloseLanguageDatabase();
        sLanguageTable = savedTable_;
    }
    // Opens the built catalogue and names its languages' tables.
    QStringList OpenBuilt() {
        OpenLanguageDatabase(localfs::ToWindows(BuiltCatalogue()));
        QStringList tables;
        for (const LanguageRow& row : ReadLanguages(30)) tables << row.tableName.trimmed();
        return tables;
    }
    QString savedTable_;
};

TEST_F(LanguageCatalogue, TheBuiltCatalogueOffersFourLanguagesWithEnglishThird) {
    OpenLanguageDatabase(localfs::ToWindows(BuiltCatalogue()));
    const auto rows = ReadLanguages(30);
    ASSERT_EQ(rows.size(), 4u);
    const QStringList tables = {"deutsch", "francais", "english", "espanol"};
    const QStringList names = {"Deutsch", "Français", "English", "Español"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(rows[size_t(i)].tableName, tables[i]);
        EXPECT_EQ(rows[size_t(i)].displayName, names[i]);
    }
    EXPECT_EQ(ReadLanguages(2).size(), 2u);
}

TEST_F(LanguageCatalogue, EveryKeyHasATextInEveryLanguage) {
    ASSERT_EQ(kKeys.size(), 207);
    ASSERT_EQ(QSet<QString>(kKeys.begin(), kKeys.end()).size(), 207);
    const QStringList tables = OpenBuilt();
    ASSERT_EQ(tables.size(), 4);
    for (const QString& table : tables) {
        sLanguageTable = table;
        for (const QString& key : kKeys) {
            const QString text = GetLanguageText(key);
            const std::string where = (table + " " + key).toStdString();
            EXPECT_NE(text, kMissingText) << where;
            EXPECT_FALSE(text.trimmed().isEmpty()) << where;
            EXPECT_FALSE(text.contains('\t') || text.contains('\n') || text.contains('\r')) << where;
            if (kAccessKeyCaptions.contains(key)) {
                EXPECT_LE(text.count('&'), 1) << where;
            } else {
                EXPECT_FALSE(text.contains('&')) << where;
            }
        }
        for (const QString& key : kQuestions) EXPECT_TRUE(GetLanguageText(key).endsWith('?')) << (table + " " + key).toStdString();
        // The menu caption and the type word of a file without extension.
        EXPECT_NE(GetLanguageText("Datei"), GetLanguageText("DATEI")) << table.toStdString();
    }
}

TEST_F(LanguageCatalogue, EveryKeyTheSourceAsksForHasATextInEveryLanguage) {
    QSet<QString> asked;
    const QRegularExpression call(R"re(GetLanguageText\(\s*(?:QStringLiteral\(\s*)?"([^"\\]+)")re");
    QDirIterator it(QStringLiteral(FERRYDOCK_SOURCE_DIR "/src"), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile f(it.next());
        ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << f.fileName().toStdString();
        const QString text = QString::fromUtf8(f.readAll());
        for (auto m = call.globalMatch(text); m.hasNext();) asked << m.next().captured(1);
    }
    const QStringList tables = OpenBuilt();
    ASSERT_EQ(tables.size(), 4);
    for (const QString& table : tables) {
        sLanguageTable = table;
        for (const QString& key : asked) {
            const QString text = GetLanguageText(key);
            EXPECT_NE(text, kMissingText) << (table + " " + key).toStdString();
            EXPECT_FALSE(text.trimmed().isEmpty()) << (table + " " + key).toStdString();
        }
    }
}

TEST_F(LanguageCatalogue, LookupsGiveTheStoredTextOrTheHashes) {
    QTemporaryDir dir;
    const QString path = dir.path() + "/c.db";
    ASSERT_TRUE(MakeCatalogue(path, {{1, "eins", "Eins"}, {2, "zwei", "Zwei"}},
                  {{"eins", {{"A", "text A"}, {"BLANKS", "  x  "}, {"EMPTY", ""}, {"NULL", QVariant()},
                             {"Datei", "menu"}, {"DATEI", "type"}}},
                   {"zwei", {{"ONLY2", "y"}}}}));
    OpenLanguageDatabase(localfs::ToWindows(path));
    sLanguageTable = "eins";
    EXPECT_EQ(GetLanguageText("A"), "text A");
    EXPECT_EQ(GetLanguageText("BLANKS"), "  x  ");
    EXPECT_EQ(GetLanguageText("EMPTY"), kMissingText);
    EXPECT_EQ(GetLanguageText("NULL"), kMissingText);
    EXPECT_EQ(GetLanguageText("MISSING"), kMissingText);
    EXPECT_EQ(GetLanguageText("a"), kMissingText);      // keys compare exactly
    EXPECT_EQ(GetLanguageText("ONLY2"), kMissingText);  // no other language stands in
    EXPECT_EQ(GetLanguageText("A"), "text A");          // a failed lookup leaves nothing behind
    EXPECT_EQ(GetLanguageText("Datei"), "menu");
    EXPECT_EQ(GetLanguageText("DATEI"), "type");
    sLanguageTable = "drei";
    EXPECT_EQ(GetLanguageText("A"), kMissingText);
    sLanguageTable.clear();
    EXPECT_EQ(GetLanguageText("A"), kMissingText);
    sLanguageTable = "eins";
    CloseLanguageDatabase();
    EXPECT_EQ(GetLanguageText("A"), kMissingText);
    EXPECT_TRUE(ReadLanguages(30).empty());
    OpenLanguageDatabase(localfs::ToWindows(path));
    EXPECT_EQ(GetLanguageText("A"), "text A");
}

TEST_F(LanguageCatalogue, AMissingFileStaysMissingAndEveryTextIsHashes) {
    QTemporaryDir dir;
    const QString path = dir.path() + "/lang.db";
    OpenLanguageDatabase(localfs::ToWindows(path));
    sLanguageTable = "english";
    EXPECT_EQ(GetLanguageText("Datei"), kMissingText);
    EXPECT_TRUE(ReadLanguages(30).empty());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(LanguageCatalogue, TheCatalogueIsOpenedReadOnly) {
    QTemporaryDir dir;
    const QString path = dir.path() + "/c.db";
    ASSERT_TRUE(MakeCatalogue(path, {{1, "eins", "Eins"}}, {{"eins", {{"A", "a"}}}}));
    OpenLanguageDatabase(localfs::ToWindows(path));
    QSqlQuery q(QSqlDatabase::database("cnnLanguage"));
    EXPECT_FALSE(q.exec("DELETE FROM eins"));
    sLanguageTable = "eins";
    EXPECT_EQ(GetLanguageText("A"), "a");
}

TEST_F(LanguageCatalogue, LanguagesComeInTableOrderUntrimmedAndUpToTheLimit) {
    QTemporaryDir dir;
    const QString path = dir.path() + "/c.db";
    ASSERT_TRUE(MakeCatalogue(path, {{3, "de", "Deutsch"}, {1, "en   ", "English"}, {2, "fr", "Français"}}, {}));
    OpenLanguageDatabase(localfs::ToWindows(path));
    const auto rows = ReadLanguages(30);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].tableName, "de");
    EXPECT_EQ(rows[1].tableName, "en   ");
    EXPECT_EQ(rows[1].displayName, "English");
    EXPECT_EQ(rows[2].displayName, "Français");
    const auto two = ReadLanguages(2);
    ASSERT_EQ(two.size(), 2u);
    EXPECT_EQ(two[1].displayName, "English");
}

}  // namespace
