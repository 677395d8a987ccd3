// Turns data/lang.tsv into lang.db: table `languages` (id, tabelle, name)
// and one table per language with the columns `key` and `inhalt`.
//
// lang.tsv: a first line "key<TAB>table=Display<TAB>..." naming the
// languages in table order, then one line per key with one text per
// language. Lines starting with "#" and empty lines are skipped.
#include <QCoreApplication>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTextStream>
#include <cstdio>

static int fail(const QString& why) {
    std::fprintf(stderr, "langdb-build: %s\n", qPrintable(why));
    return 1;
}

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 3) return fail("usage: langdb-build lang.tsv lang.db");
    QFile in(QString::fromLocal8Bit(argv[1]));
    if (!in.open(QIODevice::ReadOnly)) return fail("cannot read " + in.fileName());
    const QString out = QString::fromLocal8Bit(argv[2]);
    QFile::remove(out);

    QTextStream ts(&in);
    ts.setEncoding(QStringConverter::Utf8);
    QStringList tables;
    QStringList names;
    QList<QStringList> rows;
    int lineNo = 0;
    while (!ts.atEnd()) {
        const QString line = ts.readLine();
        ++lineNo;
        if (line.isEmpty() || line.startsWith('#')) continue;
        const QStringList cells = line.split('\t');
        if (tables.isEmpty()) {
            for (int i = 1; i < cells.size(); ++i) {
                const auto parts = cells[i].split('=');
                if (parts.size() != 2) return fail(QString("bad header cell %1").arg(cells[i]));
                tables << parts[0];
                names << parts[1];
            }
            continue;
        }
        if (cells.size() != tables.size() + 1)
            return fail(QString("line %1: %2 cells, expected %3").arg(lineNo).arg(cells.size()).arg(tables.size() + 1));
        rows << cells;
    }

    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "build");
        db.setDatabaseName(out);
        if (!db.open()) return fail(db.lastError().text());
        QSqlQuery q(db);
        db.transaction();
        q.exec("CREATE TABLE languages (id INTEGER PRIMARY KEY, tabelle TEXT, name TEXT)");
        for (int i = 0; i < tables.size(); ++i) {
            q.prepare("INSERT INTO languages (id, tabelle, name) VALUES (?, ?, ?)");
            q.addBindValue(i + 1);
            q.addBindValue(tables[i]);
            q.addBindValue(names[i]);
            if (!q.exec()) return fail(q.lastError().text());
            // Keys compare exactly: "Datei" and "DATEI" are two rows.
            if (!q.exec(QString("CREATE TABLE %1 (key TEXT PRIMARY KEY, inhalt TEXT)").arg(tables[i])))
                return fail(q.lastError().text());
            for (const QStringList& row : rows) {
                q.prepare(QString("INSERT INTO %1 (key, inhalt) VALUES (?, ?)").arg(tables[i]));
                q.addBindValue(row[0]);
                q.addBindValue(row[i + 1]);
                if (!q.exec()) return fail(QString("%1: %2").arg(row[0], q.lastError().text()));
            }
        }
        db.commit();
        db.close();
    }
    QSqlDatabase::removeDatabase("build");
    return 0;
}
