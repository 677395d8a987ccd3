// The message catalogue: every text the user reads, by key, from lang.db.
#pragma once

#include <QString>
#include <vector>

// The chosen language's table, trimmed; empty until the language dialog's
// OK (texts then read as the hashes).
extern QString sLanguageTable;

// lang.db in the program folder (Windows form), unless another file was
// named (tests bring catalogues of their own).
QString LanguageDatabasePath();
void SetLanguageDatabasePath(const QString& path);

// Opens cnnLanguage read-only on `path` (lang.db in the program folder).
// A missing or unreadable file is not reported; lookups then give "########".
void OpenLanguageDatabase(const QString& path);
void CloseLanguageDatabase();

struct LanguageRow {
    QString tableName;    // column 1 of `languages`, as stored (untrimmed)
    QString displayName;  // column 2
};
// "SELECT * FROM languages;" in table order, at most maxRecords rows;
// empty when the database is not open.
std::vector<LanguageRow> ReadLanguages(int maxRecords);

// The account's name, trimmed; "unbekannt" when the system doesn't say.
QString GetUserNameText();

// The text of sKey in the table named by sLanguageTable; "########" for a
// missing key, an empty text or any failure.
QString GetLanguageText(const QString& sKey);
// Keys are the program's own ASCII literals.
inline QString GetLanguageText(const char* sKey) {
    return GetLanguageText(QString::fromLatin1(sKey));
}

inline const QString kMissingText = QStringLiteral("########");
