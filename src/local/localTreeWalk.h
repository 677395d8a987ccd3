// The tree has no way of adding a single node: after a new folder or a
// delete it is read again from the drive down to the current folder.
#pragma once

#include <QString>
#include <QStringList>

// Whose reading of a folder's children a walk uses: the pane's own or the
// popup's copy.
enum class TreeReader { Pane, Popup };

// The folder path behind its first three characters, split at "\": the
// trailing "\" gives a blank last part, a drive's root no parts at all.
QStringList FolderParts(const QString& folder);

// Steps down the first `count` parts of the folder from its drive and reads
// the children of each node on the way that hasn't had them read.
void ReadTreeDownTo(const QString& folder, qsizetype count, TreeReader reader);

// The tree anew from the folder's drive (root key "c:", without the
// backslash; the popup writes its text in upper case), read down to the
// folder: the popup's walk goes one part further, into the folder itself.
void RebuildTreeTo(const QString& folder, TreeReader reader);
