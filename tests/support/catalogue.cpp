#include "support/catalogue.h"

#include <QSqlDatabase>
#include <QSqlQuery>

bool MakeCatalogue(const QString& path, const QList<CatalogueLanguage>& languages,
                   const QList<QPair<QString, CatalogueTexts>>& tables) {
    bool ok = true;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "makeCatalogue");
        db.setDatabaseName(path);
        ok = db.open();
        QSqlQuery q(db);
        ok = ok && q.exec("CREATE TABLE languages (id INTEGER, tabelle TEXT, name TEXT)");
        for (const auto& [id, table, name] : languages) {
            q.prepare("INSERT INTO languages VALUES (?, ?, ?)");
            q.addBindValue(id);
            q.addBindValue(table);
            q.addBindValue(name);
            ok = ok && q.exec();
        }
        for (const auto& [table, rows] : tables) {
            ok = ok && q.exec(QString("CREATE TABLE %1 (key TEXT, inhalt TEXT)").arg(table));
            for (const auto& [key, text] : rows) {
                q.prepare(QString("INSERT INTO %1 VALUES (?, ?)").arg(table));
                q.addBindValue(key);
                q.addBindValue(text);
                ok = ok && q.exec();
            }
        }
        db.close();
    }
    QSqlDatabase::removeDatabase("makeCatalogue");
    return ok;
}

QString BuiltCatalogue() {
    return QStringLiteral(FERRYDOCK_PROGRAM_DIR "/lang.db");
}
