// The FTP operations as the logic sees them. Every call is synchronous,
// never throws, and reports failure as 0 / false / empty.
#pragma once

#include "platform/wintypes.h"

HINTERNET InternetOpenA(const QString& agent, uint32_t accessType, const QString& proxy,
                        const QString& proxyBypass, uint32_t flags);

// Connects and logs in before it returns. The port 0 means the service's
// default port (21). dwFlags 0 gives active data connections,
// INTERNET_FLAG_PASSIVE passive ones.
HINTERNET InternetConnectA(HINTERNET hInternet, const QString& serverName, int16_t serverPort,
                           const QString& userName, const QString& password, uint32_t service,
                           uint32_t flags, uint32_t context);

bool InternetCloseHandle(HINTERNET handle);

// Non-zero on success; the path lands in currentDirectory. length is the
// caller's buffer size in and the path length out.
uint32_t FtpGetCurrentDirectoryA(HINTERNET hConnect, QString& currentDirectory, uint32_t& length);
bool FtpSetCurrentDirectoryA(HINTERNET hConnect, const QString& directory);

// Reads the whole listing of the current directory ("*.*" and "*" mean all)
// and hands out the first entry; 0 when the listing failed or is empty.
HINTERNET FtpFindFirstFileA(HINTERNET hConnect, const QString& searchFile, WIN32_FIND_DATA& findData,
                            uint32_t flags, uint32_t context);
bool InternetFindNextFileA(HINTERNET hFind, WIN32_FIND_DATA& findData);

// Opens a STOR (GENERIC_WRITE) stream; flags carry the transfer type.
HINTERNET FtpOpenFileA(HINTERNET hConnect, const QString& fileName, uint32_t access, uint32_t flags,
                       uint32_t context);
bool InternetWriteFile(HINTERNET hFile, const void* buffer, uint32_t numberOfBytesToWrite,
                       uint32_t& numberOfBytesWritten);

// Downloads into a temporary file beside `newFile` (a Windows-form local
// path) and renames it over the target only once the whole file arrived,
// so a failed transfer leaves an existing file untouched. With
// `failIfExists` an existing target makes the call fail at once.
bool FtpGetFileA(HINTERNET hConnect, const QString& remoteFile, const QString& newFile, bool failIfExists,
                 uint32_t flagsAndAttributes, uint32_t flags, uint32_t context);
bool FtpCreateDirectoryA(HINTERNET hConnect, const QString& directory);
bool FtpRemoveDirectoryA(HINTERNET hConnect, const QString& directory);
bool FtpDeleteFileA(HINTERNET hConnect, const QString& fileName);
bool FtpRenameFileA(HINTERNET hConnect, const QString& existingName, const QString& newName);
