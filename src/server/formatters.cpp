#include "server/formatters.h"

#include <cmath>
#include <cstdio>

QString GetExtension(const QString& sFileName) {
    const qsizetype dot = sFileName.lastIndexOf('.');
    return dot < 0 ? sFileName : sFileName.mid(dot + 1);
}

QString FormatSizeKB(int32_t lFileSizeLow) {
    long long kb = std::llrint(double(lFileSizeLow) / 1024.0);  // half to even
    if (kb == 0) kb = 1;
    char text[32];
    const int n = std::snprintf(text, sizeof text, "%lld KB", kb);
    return QString::fromLatin1(text, n);
}

// Day, month, hour and minute with a "0" in front of one digit; the year as
// it is. One buffer: a listing formats this for every entry.
QString FormatServerDate(const SYSTEMTIME& t) {
    char text[48];
    const int n = std::snprintf(text, sizeof text, "%02u.%02u.%u %02u:%02u", unsigned(t.wDay), unsigned(t.wMonth),
                                unsigned(t.wYear), unsigned(t.wHour), unsigned(t.wMinute));
    return QString::fromLatin1(text, n);
}

QString FormatAttributes(uint32_t a) {
    static const struct {
        uint32_t bit;
        char letter;
    } order[] = {{0x100, 'T'}, {0x1, 'R'}, {0x2, 'H'}, {0x4, 'S'},
                 {0x10, 'D'},  {0x80, 'N'}, {0x800, 'C'}, {0x20, 'A'}};
    QString s;
    for (const auto& o : order)
        if (a & o.bit) s += QLatin1Char(o.letter);
    return s;
}
