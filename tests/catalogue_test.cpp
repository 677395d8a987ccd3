// The message catalogue and the language dialog over the built lang.db and
// over small catalogues of the test's own.
#include "support/frame_fixture.h"

#include "frame/mPublic.h"
#include "frame/mdiMain.h"
#include "language/frmStart.h"
#include "language/mDataBase.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

namespace {

// Writes a catalogue: `languages` rows (table, display name) and per table
// its rows of key and text.
QString MakeCatalogue(const QString& path, const QList<QPair<QString, QString>>& languages,
                      const QList<QPair<QString, QList<QPair<QString, QString>>>>& tables) {
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "make");
        db.setDatabaseName(path);
        db.open();
        QSqlQuery q(db);
        q.exec("CREATE TABLE languages (id INTEGER PRIMARY KEY, tabelle TEXT, name TEXT)");
        int id = 1;
        for (const auto& l : languages) {
            q.prepare("INSERT INTO languages VALUES (?, ?, ?)");
            q.addBindValue(id++);
            q.addBindValue(l.first);
            q.addBindValue(l.second);
            q.exec();
        }
        for (const auto& t : tables) {
            q.exec(QString("CREATE TABLE %1 (key TEXT, inhalt TEXT)").arg(t.first));
            for (const auto& row : t.second) {
                q.prepare(QString("INSERT INTO %1 VALUES (?, ?)").arg(t.first));
                q.addBindValue(row.first);
                q.addBindValue(row.second);
                q.exec();
            }
        }
        db.close();
    }
    QSqlDatabase::removeDatabase("make");
    return path;
}

QSet<QString> KeysAskedForInTheCode() {
    QSet<QString> keys;
    const QRegularExpression call("GetLanguageText\\(\"([^\"]+)\"\\)");
    QDirIterator it(QStringLiteral(FERRYDOCK_SOURCE_DIR) + "/src", {"*.cpp", "*.h"}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile f(it.next());
        f.open(QIODevice::ReadOnly);
        const QString text = QString::fromUtf8(f.readAll());
        for (auto m = call.globalMatch(text); m.hasNext();) keys << m.next().captured(1);
    }
    // Keys the code names in tables rather than in calls.
    const QRegularExpression quoted("\"((?:FRM|MPUB_|MDOWN_|MDEL_|MSDEL_|INFO_|FERM)[A-Z0-9_]+)\"");
    QDirIterator again(QStringLiteral(FERRYDOCK_SOURCE_DIR) + "/src", {"*.cpp"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (again.hasNext()) {
        QFile f(again.next());
        f.open(QIODevice::ReadOnly);
        const QString text = QString::fromUtf8(f.readAll());
        for (auto m = quoted.globalMatch(text); m.hasNext();) keys << m.next().captured(1);
    }
    return keys;
}

class Catalogue : public FrameTest {};

TEST_F(Catalogue, EveryKeyTheCodeAsksForHasATextInEveryLanguage) {
    const QSet<QString> keys = KeysAskedForInTheCode();
    ASSERT_GT(keys.size(), 100);
    const auto languages = ReadLanguages(30);
    ASSERT_EQ(languages.size(), 4u);
    for (const LanguageRow& language : languages) {
        sLanguageTable = language.tableName.trimmed();
        for (const QString& key : keys)
            EXPECT_NE(GetLanguageText(key), kMissingText) << key.toStdString() << " in " << sLanguageTable.toStdString();
    }
}

TEST_F(Catalogue, AllFourLanguagesHoldTheSameKeysAndDateiIsNotDATEI) {
    QSet<QString> first;
    for (const LanguageRow& language : ReadLanguages(30)) {
        QSqlQuery q(QSqlDatabase::database("cnnLanguage"));
        ASSERT_TRUE(q.exec("SELECT key, inhalt FROM " + language.tableName));
        QSet<QString> keys;
        while (q.next()) {
            keys << q.value(0).toString();
            EXPECT_FALSE(q.value(1).toString().isEmpty()) << q.value(0).toString().toStdString();
        }
        EXPECT_GE(keys.size(), 207);
        if (first.isEmpty()) first = keys;
        EXPECT_EQ(keys, first) << language.tableName.toStdString();
    }
    sLanguageTable = "deutsch";
    EXPECT_NE(GetLanguageText("Datei"), GetLanguageText("DATEI"));
}

TEST_F(Catalogue, EveryFailureGivesTheHashesAndTextsComeBackAsStored) {
    QTemporaryDir dir;
    const QString path = MakeCatalogue(dir.path() + "/c.db", {{"eins", "Eins"}, {"zwei", "Zwei"}},
                                       {{"eins", {{"A", "text A"}, {"EMPTY", ""}, {"BLANKS", "  x  "}}},
                                        {"zwei", {{"ONLY2", "y"}}}});
    OpenLanguageDatabase(path);
    sLanguageTable = "eins";
    EXPECT_EQ(GetLanguageText("A"), "text A");
    EXPECT_EQ(GetLanguageText("BLANKS"), "  x  ");
    EXPECT_EQ(GetLanguageText("EMPTY"), kMissingText);
    EXPECT_EQ(GetLanguageText("MISSING"), kMissingText);
    EXPECT_EQ(GetLanguageText("ONLY2"), kMissingText);  // no other language stands in
    EXPECT_EQ(GetLanguageText("A"), "text A");           // nothing is left pending
    sLanguageTable = "nope";
    EXPECT_EQ(GetLanguageText("A"), kMissingText);
    sLanguageTable.clear();
    EXPECT_EQ(GetLanguageText("A"), kMissingText);
    sLanguageTable = "eins";
    CloseLanguageDatabase();
    EXPECT_EQ(GetLanguageText("A"), kMissingText);
    OpenLanguageDatabase(dir.path() + "/missing.db");
    EXPECT_EQ(GetLanguageText("A"), kMissingText);
    EXPECT_FALSE(QFile::exists(dir.path() + "/missing.db"));
}

class LanguageChoice : public FrameTest {
protected:
    QString LanguageTable() const override { return QString(); }
    void TearDown() override {
        SetLanguageDatabasePath(QString());
        FrameTest::TearDown();
    }
    void Use(const QList<QPair<QString, QString>>& languages) {
        QList<QPair<QString, QList<QPair<QString, QString>>>> tables;
        for (const auto& l : languages) tables.append({l.first.trimmed(), {{"Datei", l.second + " file"}}});
        SetLanguageDatabasePath(MakeCatalogue(dir_.path() + "/lang.db", languages, tables));
        CloseLanguageDatabase();
    }
    QTemporaryDir dir_;
};

TEST_F(LanguageChoice, TwoLanguagesOpenWithoutAChoiceAndOkLeavesEveryTextAsHashes) {
    Use({{"de", "Deutsch"}, {"en", "English"}});
    auto& dlg = frmStart();
    EXPECT_EQ(dlg.cboSprache->ListCount(), 2);
    EXPECT_EQ(dlg.cboSprache->ListIndex(), -1);
    dlg.cmdOk_Click();
    Pump();
    EXPECT_EQ(sLanguageTable, "");
    EXPECT_EQ(mdiMain().mnuFile->title(), kMissingText);
}

TEST_F(LanguageChoice, TheThirdStandsChosenAndATableNameIsTrimmed) {
    Use({{"de", "Deutsch"}, {"fr", "Français"}, {"en   ", "English"}, {"en2", "English"}});
    auto& dlg = frmStart();
    EXPECT_EQ(dlg.cboSprache->Text(), "English");
    dlg.cmdOk_Click();
    Pump();
    EXPECT_EQ(sLanguageTable, "en");  // the first of two equal names wins
    EXPECT_EQ(mdiMain().mnuFile->title(), "English file");
}

TEST_F(LanguageChoice, BeyondTheTwentiethALanguageCanBeListedButNotChosen) {
    QList<QPair<QString, QString>> languages;
    for (int i = 1; i <= 25; ++i) languages.append({QString("t%1").arg(i), QString("Language %1").arg(i)});
    Use(languages);
    auto& dlg = frmStart();
    EXPECT_EQ(dlg.cboSprache->ListCount(), 25);
    dlg.cboSprache->SetListIndex(19);
    dlg.cmdOk_Click();
    Pump();
    EXPECT_EQ(sLanguageTable, "t20");
    frmStart().cboSprache->SetListIndex(21);
    sLanguageTable.clear();
    frmStart().cmdOk_Click();
    Pump();
    EXPECT_EQ(sLanguageTable, "");
}

}  // namespace
