// Files whose names are bytes, not text: made, listed and removed with the
// system's own calls, since Qt's file classes see names as UTF-8 text.
#pragma once

#include <QByteArray>
#include <QList>

namespace bytepaths {

// Writes `content` to folder/name (the file made or emptied first).
bool Write(const QByteArray& folder, const QByteArray& name, const QByteArray& content);
QByteArray Read(const QByteArray& path);
// The names in a folder, sorted, without "." and "..".
QList<QByteArray> Names(const QByteArray& folder);
// Everything below `folder` (the folder itself stays).
void EmptyFolder(const QByteArray& folder);

}  // namespace bytepaths
