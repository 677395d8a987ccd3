#include "language/mDataBase.h"

#include "frame/mPublic.h"

#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

namespace {
const QString kConnection = QStringLiteral("cnnLanguage");

QSqlDatabase Connection() {
    return QSqlDatabase::contains(kConnection) ? QSqlDatabase::database(kConnection, false) : QSqlDatabase();
}
}  // namespace

namespace {
QString& DatabasePathOverride() {
    static QString path;
    return path;
}
}  // namespace

QString LanguageDatabasePath() {
    return DatabasePathOverride().isEmpty() ? AppPathPosix() + QStringLiteral("/lang.db") : DatabasePathOverride();
}

void SetLanguageDatabasePath(const QString& path) {
    DatabasePathOverride() = path;
}

void OpenLanguageDatabase(const QString& path) {
    CloseLanguageDatabase();
    // A missing file must not be created: the catalogue then stays closed.
    if (!QFileInfo(path).isFile()) return;
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), kConnection);
    db.setDatabaseName(path);
    db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    db.open();
}

void CloseLanguageDatabase() {
    if (!QSqlDatabase::contains(kConnection)) return;
    {
        QSqlDatabase db = QSqlDatabase::database(kConnection, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(kConnection);
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
    (void)GetUserNameText();  // every lookup asks for it; nothing reads it
    QSqlDatabase db = Connection();
    if (!db.isOpen() || sLanguageTable.isEmpty()) return kMissingText;
    QSqlQuery q(db);
    // The key goes in as it stands: keys are the program's own literals.
    if (!q.exec(QStringLiteral("SELECT inhalt FROM ") + sLanguageTable + QStringLiteral(" WHERE key = '") + sKey +
                QStringLiteral("'")) ||
        !q.next())
        return kMissingText;
    const QString text = q.value(0).toString();
    return text.isEmpty() ? kMissingText : text;
}
