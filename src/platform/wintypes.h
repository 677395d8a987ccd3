// Plain records and constants the logic shares with the platform layer.
#pragma once

#include <QString>
#include <cstdint>

using HINTERNET = uint32_t;  // 0 means none

struct FILETIME {
    uint32_t dwLowDateTime = 0;
    uint32_t dwHighDateTime = 0;
};

struct SYSTEMTIME {
    uint16_t wYear = 0;
    uint16_t wMonth = 0;
    uint16_t wDayOfWeek = 0;
    uint16_t wDay = 0;
    uint16_t wHour = 0;
    uint16_t wMinute = 0;
    uint16_t wSecond = 0;
    uint16_t wMilliseconds = 0;
};

// One entry of a local or server listing. The name is already cut at its
// first NUL; the logic never sees the fixed-length field.
struct WIN32_FIND_DATA {
    uint32_t dwFileAttributes = 0;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    uint32_t nFileSizeHigh = 0;
    uint32_t nFileSizeLow = 0;
    QString cFileName;
    QString cAlternateFileName;
};

constexpr uint32_t FILE_ATTRIBUTE_READONLY = 0x1;
constexpr uint32_t FILE_ATTRIBUTE_HIDDEN = 0x2;
constexpr uint32_t FILE_ATTRIBUTE_SYSTEM = 0x4;
constexpr uint32_t FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr uint32_t FILE_ATTRIBUTE_ARCHIVE = 0x20;
constexpr uint32_t FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr uint32_t FILE_ATTRIBUTE_TEMPORARY = 0x100;
constexpr uint32_t FILE_ATTRIBUTE_COMPRESSED = 0x800;

constexpr uint32_t INTERNET_FLAG_PASSIVE = 0x8000000;
constexpr uint32_t INTERNET_SERVICE_FTP = 1;
constexpr uint32_t GENERIC_READ = 0x80000000;
constexpr uint32_t GENERIC_WRITE = 0x40000000;
constexpr uint32_t FTP_TRANSFER_TYPE_ASCII = 1;
constexpr uint32_t FTP_TRANSFER_TYPE_BINARY = 2;

// Splits a FILETIME (100 ns steps since 1601-01-01) into its parts.
// Fails (false) only for values beyond the year 30827.
bool FileTimeToSystemTime(const FILETIME& ft, SYSTEMTIME& st);

// Unix seconds to FILETIME, shared by the local and the server listings.
FILETIME FileTimeFromUnix(int64_t secondsSinceEpoch);
