#include "platform/database.h"

#include "platform/localfs.h"

#include <QFileInfo>
#include <QSqlDatabase>

bool OpenDatabaseReadOnly(const QString& connection, const QString& windowsPath) {
    CloseDatabase(connection);
    const QString posix = localfs::ToPosix(windowsPath);
    // A missing file must not be created: the catalogue then stays closed.
    if (posix.isEmpty() || !QFileInfo(posix).isFile()) return false;
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
    db.setDatabaseName(posix);
    db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    return db.open();
}

void CloseDatabase(const QString& connection) {
    if (!QSqlDatabase::contains(connection)) return;
    {
        QSqlDatabase db = QSqlDatabase::database(connection, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(connection);
}
