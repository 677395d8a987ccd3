// Catalogues of a test's own, written as the build writes lang.db.
#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QVariant>
#include <tuple>

// One row of `languages`: id, table name, display name. The table has no
// primary key, so its order is the order of the rows given.
using CatalogueLanguage = std::tuple<int, QString, QString>;
// Key and text (a null QVariant for a NULL text) of one language's table.
using CatalogueTexts = QList<QPair<QString, QVariant>>;

// Writes the file at `path` (POSIX form); false when it couldn't.
bool MakeCatalogue(const QString& path, const QList<CatalogueLanguage>& languages,
                   const QList<QPair<QString, CatalogueTexts>>& tables);

// The catalogue the build made beside the program, POSIX form.
QString BuiltCatalogue();
