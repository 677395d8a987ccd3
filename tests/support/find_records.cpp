#include "support/find_records.h"

#include "platform/localfs.h"
#include "platform/wininet.h"

#include <QTimeZone>
#include <gtest/gtest.h>

std::vector<WIN32_FIND_DATA> ListLocal(const QString& pathAndPattern) {
    std::vector<WIN32_FIND_DATA> out;
    WIN32_FIND_DATA fd;
    const HANDLE h = FindFirstFileA(pathAndPattern, fd);
    if (h == INVALID_HANDLE_VALUE) return out;
    do out.push_back(fd);
    while (FindNextFileA(h, fd));
    EXPECT_TRUE(FindClose(h));
    return out;
}

std::map<QString, WIN32_FIND_DATA> ListServer(HINTERNET hConnect) {
    std::map<QString, WIN32_FIND_DATA> out;
    WIN32_FIND_DATA d;
    const HINTERNET find = FtpFindFirstFileA(hConnect, "*.*", d, 0, 0);
    if (!find) return out;
    do out[d.cFileName] = d;
    while (InternetFindNextFileA(find, d));
    InternetCloseHandle(find);
    return out;
}

QStringList Names(const std::vector<WIN32_FIND_DATA>& entries) {
    QStringList names;
    for (const auto& e : entries) names << e.cFileName;
    return names;
}

WIN32_FIND_DATA Entry(const std::vector<WIN32_FIND_DATA>& entries, const QString& name) {
    for (const auto& e : entries)
        if (e.cFileName == name) return e;
    ADD_FAILURE() << "no entry " << name.toStdString();
    return {};
}

int64_t SizeOf(const WIN32_FIND_DATA& d) {
    return (int64_t(d.nFileSizeHigh) << 32) | d.nFileSizeLow;
}

QDateTime TimeOf(const WIN32_FIND_DATA& d) {
    SYSTEMTIME st;
    FileTimeToSystemTime(d.ftLastWriteTime, st);
    return QDateTime(QDate(st.wYear, st.wMonth, st.wDay), QTime(st.wHour, st.wMinute, st.wSecond), QTimeZone::utc());
}
