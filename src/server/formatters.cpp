#include "server/formatters.h"

#include <cmath>

QString GetExtension(const QString& sFileName) {
    const qsizetype dot = sFileName.lastIndexOf('.');
    return dot < 0 ? sFileName : sFileName.mid(dot + 1);
}

QString FormatSizeKB(int32_t lFileSizeLow) {
    long long kb = std::llrint(double(lFileSizeLow) / 1024.0);  // half to even
    if (kb == 0) kb = 1;
    return QString::number(kb) + " KB";
}

namespace {
QString Two(int v) {
    return v < 10 ? "0" + QString::number(v) : QString::number(v);
}
}  // namespace

QString FormatServerDate(const SYSTEMTIME& t) {
    return Two(t.wDay) + "." + Two(t.wMonth) + "." + QString::number(t.wYear) + " " + Two(t.wHour) + ":" +
           Two(t.wMinute);
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
