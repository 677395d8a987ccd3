// One local file to the server through a stream, in 255-byte chunks.
#pragma once

#include "platform/wintypes.h"

#include <QString>

// The stream of the upload under way; stays as it was after a close or a
// failure, and a nested upload overwrites it.
extern HINTERNET hUploadFile;

// True when "." and an entry of ascii.dat occur anywhere in the name,
// ignoring case (TXT matches a.txt, a.txt.bak and a.txtold). Reads the list
// afresh; without a readable list a name with a point is true.
bool IsAsciiFile(const QString& pFileName);

// Trims both names in place and sends the local file under the remote name
// (relative to the server's current directory). In AUTO mode the remote
// name decides lTransferMode, which keeps that value. The caller writes the
// name line; this writes the verdict line. True when the whole file went out.
bool UploadFile(QString& pLocalFile, QString& pRemoteFile);
