// The language dialog over small catalogues of the test's own.
#include "support/frame_fixture.h"

#include "shared/mPublic.h"
#include "frame/mdiMain.h"
#include "frame/frmStart.h"
#include "language/mDataBase.h"
#include "platform/localfs.h"

#include <QFile>
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
        SetLanguageDatabasePath(localfs::ToWindows(MakeCatalogue(dir_.path() + "/lang.db", languages, tables)));
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
