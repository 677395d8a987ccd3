#include "server/formatters.h"

#include <cmath>

namespace {
// Digits written straight into the text: a listing formats a size and a
// date for every entry, and a general formatter costs more than the rest.
char16_t* PutNumber(char16_t* out, unsigned long long n, int minDigits) {
    char16_t digits[24];
    int count = 0;
    do {
        digits[count++] = char16_t(u'0' + n % 10);
        n /= 10;
    } while (n != 0);
    while (count < minDigits) digits[count++] = u'0';
    while (count > 0) *out++ = digits[--count];
    return out;
}

QString Finish(const char16_t* begin, const char16_t* end) {
    return QString(reinterpret_cast<const QChar*>(begin), end - begin);
}
}  // namespace

QString FormatSizeKB(int32_t lFileSizeLow) {
    long long kb = std::llrint(double(lFileSizeLow) / 1024.0);  // half to even
    if (kb == 0) kb = 1;
    char16_t text[32];
    char16_t* p = text;
    if (kb < 0) *p++ = u'-';
    const auto magnitude = static_cast<unsigned long long>(kb);
    p = PutNumber(p, kb < 0 ? 0ULL - magnitude : magnitude, 1);
    *p++ = u' ';
    *p++ = u'K';
    *p++ = u'B';
    return Finish(text, p);
}

// Day, month, hour and minute with a "0" in front of one digit; the year as
// it is.
QString FormatServerDate(const SYSTEMTIME& t) {
    char16_t text[48];
    char16_t* p = PutNumber(text, t.wDay, 2);
    *p++ = u'.';
    p = PutNumber(p, t.wMonth, 2);
    *p++ = u'.';
    p = PutNumber(p, t.wYear, 1);
    *p++ = u' ';
    p = PutNumber(p, t.wHour, 2);
    *p++ = u':';
    p = PutNumber(p, t.wMinute, 2);
    return Finish(text, p);
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
