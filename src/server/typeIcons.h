// Type text and pictures of a name that exists only on the server, found
// by asking the shell about an empty file of that name in the program's
// temporary folder.
#pragma once

#include "platform/wintypes.h"

#include <QHash>
#include <QIcon>
#include <QString>

// Keys of the two pictures every read seeds: the folder's, and the
// unknown file's, which no row names.
inline const QString kFolderPicture = QStringLiteral("zdirectoryx");
inline const QString kUnknownPicture = QStringLiteral("zunbekannty");
// The frame's fixed pictures (imgDir), 1-based.
constexpr int kSmallFolder = 1;
constexpr int kLargeFolder = 2;
constexpr int kSmallUnknown = 3;
constexpr int kLargeUnknown = 4;

// Full Windows-form path of a new (or existing) file of that name in the
// temporary folder; "" when no location would take it.
QString CreateDummyFile(const QString& sFileName);
// Deletes a dummy file again; a missing one is no error.
void RemoveDummyFile(const QString& sPath);

// One directory read's memory of extensions and their type texts.
class TypeCache {
public:
    TypeCache() = default;
    // Ends the read: the temporary folder keeps no file of it.
    ~TypeCache();
    TypeCache(const TypeCache&) = delete;
    TypeCache& operator=(const TypeCache&) = delete;

    // Starts a read: empties the cache, binds and seeds the image lists.
    void BeginRead();
    // The type-and-image step for one entry: type text and image key.
    // `following` marks every entry after the first.
    void Step(const QString& sName, bool following, QString& sType, QString& sKey);

    QString sTypeCache;
    int32_t lIconNumber = 0;

private:
    // Position of "|key=" in sTypeCache, the first as a text search finds it.
    qsizetype CachePos(const QString& sKey) const;
    void Append(const QString& sKey, const QString& sType);

    // Where each pair starts, so that a folder of thousands of names doesn't
    // search the growing text once per entry. Only trusted while every pair
    // is plain (no "|" or "=" in key or text); otherwise the text is searched.
    struct Pair {
        qsizetype pos;
        QString type;
    };
    QHash<QString, Pair> pairAt_;
    bool plain_ = true;
};
