#include "language/mDataBase.h"

#include "platform/account.h"
#include "platform/database.h"
#include "platform/localfs.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

QString sLanguageTable;

namespace {
const QString kConnection = QStringLiteral("cnnLanguage");

QSqlDatabase Connection() {
    return QSqlDatabase::contains(kConnection) ? QSqlDatabase::database(kConnection, false) : QSqlDatabase();
}

QString& DatabasePathOverride() {
    static QString path;
    return path;
}
}  // namespace

QString GetUserNameText() {
    QString name;
    if (!GetUserNameA(name)) return QStringLiteral("unbekannt");
    return name.trimmed();
}

QString LanguageDatabasePath() {
    return DatabasePathOverride().isEmpty() ? localfs::ProgramFolder() + QStringLiteral("\\lang.db")
                                            : DatabasePathOverride();
}

void SetLanguageDatabasePath(const QString& path) {
    DatabasePathOverride() = path;
}

void OpenLanguageDatabase(const QString& path) {
    // A missing or unreadable file is not reported: every text then reads
    // as the hashes.
    OpenDatabaseReadOnly(kConnection, path);
}

void CloseLanguageDatabase() {
    CloseDatabase(kConnection);
}

std::vector<LanguageRow> ReadLanguages(int maxRecords) {
    std::vector<LanguageRow> rows;
    QSqlDatabase db = Connection();
    if (!db.isOpen()) return rows;
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("SELECT * FROM languages ORDER BY rowid;"))) return rows;
    while (q.next() && int(rows.size()) < maxRecords)
        rows.push_back({q.value(1).toString(), q.value(2).toString()});
    return rows;
}

QString GetLanguageText(const QString& sKey) {
    // Kept: every lookup asks for the user's name and nothing reads it.
    const QString sUserName = GetUserNameText();
    (void)sUserName;
    QSqlDatabase db = Connection();
    if (!db.isOpen() || sLanguageTable.isEmpty()) return kMissingText;
    QSqlQuery q(db);
    // Kept: the key goes into the statement as it stands; keys are the
    // program's own literals.
    if (!q.exec(QStringLiteral("SELECT inhalt FROM ") + sLanguageTable + QStringLiteral(" WHERE key = '") + sKey +
                QStringLiteral("'")) ||
        !q.next())
        return kMissingText;
    const QString text = q.value(0).toString();
    return text.isEmpty() ? kMissingText : text;
}
