// One local file to the server through a stream, in 255-byte chunks.
#pragma once

#include "platform/wintypes.h"

#include <QString>

extern HINTERNET hUploadFile;

// True when the remote name holds "." and an entry of ascii.dat anywhere,
// ignoring case.
bool IsAsciiFile(const QString& pFileName);

// Trims both names in place. Writes the verdict line (the caller wrote the
// name line before). True when the whole file went out.
bool UploadFile(QString& pLocalFile, QString& pRemoteFile);
