// Lines, fields, numbers and dates as every listing family writes them.
#include "platform/ftp_listing_internal.h"

#include <limits>

namespace ftp::detail {

namespace {
constexpr int64_t kTicksPerSecond = 10'000'000;
constexpr int64_t kJulianDayOf1970 = 2440588;
constexpr int64_t kSecondsPerDay = 86400;
}  // namespace

bool Stamp::IsValid() const {
    return date.isValid() && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 61 &&
           millisecond >= 0 && millisecond < 1000;
}

int64_t Stamp::UnixSeconds() const {
    return (date.toJulianDay() - kJulianDayOf1970) * kSecondsPerDay + hour * 3600 + minute * 60 + second;
}

FILETIME Stamp::ToFileTime() const {
    const FILETIME whole = FileTimeFromUnix(UnixSeconds());
    uint64_t ticks = (uint64_t(whole.dwHighDateTime) << 32) | whole.dwLowDateTime;
    if (ticks != 0) ticks += uint64_t(millisecond) * (kTicksPerSecond / 1000);
    return FILETIME{uint32_t(ticks & 0xFFFFFFFF), uint32_t(ticks >> 32)};
}

Stamp Stamp::FromUnix(int64_t seconds) {
    // Floor division, so times before 1970 split the same way.
    int64_t days = seconds / kSecondsPerDay;
    int64_t rest = seconds % kSecondsPerDay;
    if (rest < 0) {
        rest += kSecondsPerDay;
        --days;
    }
    Stamp s;
    s.date = QDate::fromJulianDay(kJulianDayOf1970 + days);
    s.hour = int(rest / 3600);
    s.minute = int(rest / 60 % 60);
    s.second = int(rest % 60);
    return s;
}

Now::Now(const QDateTime& now) {
    const QDateTime utc = now.toUTC();
    limit = utc.toSecsSinceEpoch() + kSecondsPerDay;
    year = utc.date().year();
}

bool Lines::NextAny(QByteArrayView& line) {
    if (from_ >= body_.size()) return false;
    const void* nl = std::memchr(body_.data() + from_, '\n', size_t(body_.size() - from_));
    const qsizetype end = nl ? static_cast<const char*>(nl) - body_.data() : body_.size();
    line = body_.sliced(from_, end - from_);
    from_ = end + 1;
    if (line.endsWith('\r')) line.chop(1);
    return true;
}

bool Lines::Next(QByteArrayView& line) {
    while (NextAny(line))
        if (!line.trimmed().isEmpty()) return true;
    return false;
}

bool Lines::Peek(QByteArrayView& line) const {
    Lines copy = *this;
    return copy.NextAny(line);
}

Fields::Fields(QByteArrayView line) : line_(line) {
    const char* const data = line.data();
    const char* const end = data + line.size();
    const char* p = data;
    while (count_ < kMax) {
        while (p != end && *p == ' ') ++p;
        if (p == end) break;
        begin_[count_] = p - data;
        while (p != end && *p != ' ') ++p;
        end_[count_++] = p - data;
    }
}

bool IsDigits(QByteArrayView s) {
    if (s.isEmpty()) return false;
    for (char c : s)
        if (!IsDigit(c)) return false;
    return true;
}

bool EqualsNoCase(QByteArrayView s, QByteArrayView lowerAscii) {
    return s.size() == lowerAscii.size() && StartsNoCase(s, lowerAscii);
}

bool StartsNoCase(QByteArrayView s, QByteArrayView lowerAscii) {
    if (s.size() < lowerAscii.size()) return false;
    for (qsizetype i = 0; i < lowerAscii.size(); ++i)
        if (Lower(s[i]) != lowerAscii[i]) return false;
    return true;
}

int ToInt(QByteArrayView digits) {
    int n = 0;
    for (char c : digits) n = n * 10 + (c - '0');
    return n;
}

bool ReadNumber(QByteArrayView s, uint64_t& value) {
    if (!IsDigits(s)) return false;
    uint64_t v = 0;
    for (char c : s) {
        const unsigned d = unsigned(c - '0');
        if (v > (std::numeric_limits<uint64_t>::max() - d) / 10) return false;
        v = v * 10 + d;
    }
    value = v;
    return true;
}

bool ReadSize(QByteArrayView s, uint64_t& value) {
    if (ReadNumber(s, value)) return true;
    // Grouped: 1-3 digits, then groups of exactly three behind one separator.
    qsizetype lead = 0;
    while (lead < s.size() && IsDigit(s[lead])) ++lead;
    if (lead < 1 || lead > 3 || lead == s.size()) return false;
    const char sep = s[lead];
    if (sep != ',' && sep != '.' && sep != '\'') return false;
    if ((s.size() - lead) % 4 != 0) return false;
    uint64_t v = uint64_t(ToInt(s.first(lead)));
    for (qsizetype at = lead; at < s.size(); at += 4) {
        const QByteArrayView group = s.sliced(at + 1, 3);
        if (s[at] != sep || !IsDigits(group)) return false;
        if (v > (std::numeric_limits<uint64_t>::max() - 999) / 1000) return false;
        v = v * 1000 + uint64_t(ToInt(group));
    }
    value = v;
    return true;
}

QByteArrayView NameFrom(QByteArrayView line, qsizetype from, int blanks) {
    for (int i = 0; i < blanks && from < line.size() && line[from] == ' '; ++i) ++from;
    return from < line.size() ? line.sliced(from) : QByteArrayView();
}

int MonthOf(QByteArrayView name) {
    struct Name {
        QByteArrayView text;
        int month;
    };
    // The ASCII names first. German also as "Mär" in Latin-1 and UTF-8;
    // Russian in UTF-8, both the nominative and the genitive of May.
    static const Name kNames[] = {
        {"jan", 1},       {"feb", 2},       {"mar", 3},       {"apr", 4},        {"may", 5},        {"jun", 6},
        {"jul", 7},       {"aug", 8},       {"sep", 9},       {"oct", 10},       {"nov", 11},       {"dec", 12},
        {"mrz", 3},       {"mai", 5},       {"okt", 10},      {"dez", 12},       {"m\xe4r", 3},     {"m\xc4r", 3},
        {"m\xc3\xa4r", 3}, {"m\xc3\x84r", 3}, {"янв", 1},       {"фев", 2},        {"мар", 3},        {"апр", 4},
        {"май", 5},       {"мая", 5},       {"июн", 6},       {"июл", 7},        {"авг", 8},        {"сен", 9},
        {"окт", 10},      {"ноя", 11},      {"дек", 12},
    };
    if (name.endsWith('.')) name.chop(1);
    if (name.size() < 3 || name.size() > 6) return 0;
    // Most fields tested are owners, groups and sizes: turn them away on
    // their first letter.
    switch (Lower(name[0])) {
    case 'j': case 'f': case 'm': case 'a': case 's': case 'o': case 'n': case 'd': break;
    default:
        if (name[0] >= 0) return 0;  // not ASCII: Cyrillic
    }
    constexpr int kAsciiNames = 16;
    if (name.size() == 3 && name[0] > 0 && name[1] > 0 && name[2] > 0) {
        const char lower[3] = {Lower(name[0]), Lower(name[1]), Lower(name[2])};
        for (int i = 0; i < kAsciiNames; ++i)
            if (std::memcmp(lower, kNames[i].text.data(), 3) == 0) return kNames[i].month;
        return 0;
    }
    for (const Name& n : kNames)
        if (EqualsNoCase(name, n.text)) return n.month;
    return 0;
}

bool ReadClock(QByteArrayView f, Stamp& s) {
    QByteArrayView fraction;
    const qsizetype point = f.indexOf('.');
    if (point >= 0) {
        fraction = f.sliced(point + 1);
        f = f.first(point);
        if (!IsDigits(fraction)) return false;
    }
    int parts[3] = {};
    int count = 0;
    qsizetype from = 0;
    for (;;) {
        const qsizetype colon = f.indexOf(':', from);
        const QByteArrayView part = f.sliced(from, (colon < 0 ? f.size() : colon) - from);
        if (count == 3 || !IsDigits(part) || part.size() > 2) return false;
        parts[count++] = ToInt(part);
        if (colon < 0) break;
        from = colon + 1;
    }
    if (count < 2 || (!fraction.isEmpty() && count < 3)) return false;
    s.hour = parts[0];
    s.minute = parts[1];
    s.second = parts[2];
    s.millisecond = 0;
    for (qsizetype i = 0; i < 3; ++i) s.millisecond = s.millisecond * 10 + (i < fraction.size() ? fraction[i] - '0' : 0);
    return s.hour < 24 && s.minute < 60 && s.second < 61;
}

bool ApplyHalfDay(QByteArrayView half, Stamp& s) {
    const bool pm = EqualsNoCase(half, "pm");
    if (!pm && !EqualsNoCase(half, "am")) return false;
    if (s.hour < 1 || s.hour > 12) return false;
    if (s.hour == 12) s.hour = 0;
    if (pm) s.hour += 12;
    return true;
}

int FullYear(QByteArrayView digits) {
    const int y = ToInt(digits);
    if (digits.size() != 2) return y;
    return y + (y < 70 ? 2000 : 1900);
}

bool SplitDate(QByteArrayView f, QByteArrayView (&parts)[3], char& sep) {
    if (f.size() < 5 || f.size() > 10) return false;
    qsizetype at = 0;
    while (at < f.size() && IsDigit(f[at])) ++at;
    if (at == f.size()) return false;
    sep = f[at];
    if (sep != '-' && sep != '/' && sep != '.') return false;
    qsizetype from = 0;
    for (int i = 0; i < 3; ++i) {
        const qsizetype end = i < 2 ? f.indexOf(sep, from) : f.size();
        if (end < 0) return false;
        parts[i] = f.sliced(from, end - from);
        if (!IsDigits(parts[i]) || parts[i].size() > 4) return false;
        from = end + 1;
    }
    return true;
}

bool InferYear(int month, int day, Stamp& s, const Now& now) {
    // Eight years back reaches the next 29 February from anywhere; one ahead
    // covers a server whose clock or zone runs ahead of ours.
    for (int year = now.year + 1; year >= now.year - 8; --year) {
        s.date = QDate(year, month, day);
        if (s.IsValid() && s.UnixSeconds() <= now.limit) return true;
    }
    return false;
}

}  // namespace ftp::detail
