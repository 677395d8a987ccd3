#include "platform/ftp_listing.h"

#include <QDate>
#include <QList>
#include <QRegularExpression>
#include <cstring>

namespace ftp {

namespace {

constexpr int64_t kTicksPerSecond = 10'000'000;
constexpr int64_t kJulianDayOf1970 = 2440588;

QString Decode(QByteArrayView bytes, NameEncoding enc) {
    return enc == NameEncoding::Utf8 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

bool Has(QByteArrayView s, char c) {
    return !s.isEmpty() && std::memchr(s.data(), c, size_t(s.size())) != nullptr;
}

bool IsDigits(QByteArrayView s) {
    if (s.isEmpty()) return false;
    for (char c : s)
        if (c < '0' || c > '9') return false;
    return true;
}

// A wall-clock time as the server states it. Servers don't say which zone
// they mean, so the stated figures are taken as UTC and never shifted.
struct Stamp {
    QDate date;
    int hour = 0, minute = 0, second = 0, millisecond = 0;

    bool IsValid() const {
        return date.isValid() && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
               second < 61 && millisecond >= 0 && millisecond < 1000;
    }
    int64_t UnixSeconds() const {
        return (date.toJulianDay() - kJulianDayOf1970) * 86400 + hour * 3600 + minute * 60 + second;
    }
    FILETIME ToFileTime() const {
        const FILETIME whole = FileTimeFromUnix(UnixSeconds());
        uint64_t ticks = (uint64_t(whole.dwHighDateTime) << 32) | whole.dwLowDateTime;
        if (ticks != 0) ticks += uint64_t(millisecond) * (kTicksPerSecond / 1000);
        return FILETIME{uint32_t(ticks & 0xFFFFFFFF), uint32_t(ticks >> 32)};
    }
};

void SetSize(WIN32_FIND_DATA& d, uint64_t size) {
    d.nFileSizeLow = uint32_t(size & 0xFFFFFFFF);
    d.nFileSizeHigh = uint32_t(size >> 32);
}

// CRLF or bare LF; blank lines carry nothing.
template <class F>
void ForEachLine(const QByteArray& body, F&& f) {
    const QByteArrayView all(body);
    qsizetype from = 0;
    while (from < all.size()) {
        const void* nl = std::memchr(all.data() + from, '\n', size_t(all.size() - from));
        const qsizetype end = nl ? static_cast<const char*>(nl) - all.data() : all.size();
        QByteArrayView line = all.sliced(from, end - from);
        from = end + 1;
        if (line.endsWith('\r')) line.chop(1);
        if (!line.trimmed().isEmpty()) f(line);
    }
}

int MonthOf(QByteArrayView m) {
    static const char* const names[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                        "jul", "aug", "sep", "oct", "nov", "dec"};
    if (m.size() != 3) return 0;
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; };
    for (int i = 0; i < 12; ++i)
        if (lower(m[0]) == names[i][0] && lower(m[1]) == names[i][1] && lower(m[2]) == names[i][2]) return i + 1;
    return 0;
}

// Views into the line: a listing of many thousand lines is split into
// fields without copying them.
struct Field {
    QByteArrayView text;
    qsizetype end = 0;  // index just behind the field in the line
};

std::vector<Field> FieldsOf(QByteArrayView line) {
    std::vector<Field> out;
    out.reserve(12);
    qsizetype pos = 0;
    while (pos < line.size()) {
        while (pos < line.size() && line[pos] == ' ') ++pos;
        const qsizetype begin = pos;
        while (pos < line.size() && line[pos] != ' ') ++pos;
        if (pos > begin) out.push_back(Field{line.sliced(begin, pos - begin), pos});
    }
    return out;
}

// "rwxr-xr-x" behind a type letter; ACL marks ("+", ".") may follow.
bool IsModeField(QByteArrayView f) {
    if (f.size() < 10 || !Has("-dlcbpsD", f[0])) return false;
    for (int i = 1; i < 10; ++i)
        if (!Has("-rwxsStTlL", f[i])) return false;
    return true;
}

int ToInt(QByteArrayView digits) {
    int n = 0;
    for (char c : digits) n = n * 10 + (c - '0');
    return n;
}

// "HH:MM" or "HH:MM:SS".
bool ReadClock(QByteArrayView f, Stamp& s) {
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
    if (count < 2) return false;
    s.hour = parts[0];
    s.minute = parts[1];
    s.second = parts[2];
    return true;
}

// What the year inference needs of `now`, worked out once a listing.
struct Now {
    int64_t limit;
    int year;
    explicit Now(const QDateTime& now) {
        const QDateTime utc = now.toUTC();
        limit = utc.toSecsSinceEpoch() + 86400;
        year = utc.date().year();
    }
};

// ls leaves the year out for recent dates. The latest year that doesn't put
// the date more than a day past `now` is meant; the day of slack covers
// servers whose clock or zone runs ahead of ours.
bool InferYear(int month, int day, Stamp& s, const Now& now) {
    // Eight years back reaches the next 29 February from anywhere.
    for (int year = now.year + 1; year >= now.year - 8; --year) {
        s.date = QDate(year, month, day);
        if (s.IsValid() && s.UnixSeconds() <= now.limit) return true;
    }
    return false;
}

// "drwxr-xr-x 2 owner group 4096 Mar  5  2001 name". The date is found
// first and everything else is read from there, so numeric owners, a
// missing group or a missing link count don't disturb the columns.
bool ParseUnix(QByteArrayView line, NameEncoding enc, const Now& now, WIN32_FIND_DATA& out) {
    const std::vector<Field> f = FieldsOf(line);
    if (f.size() < 5 || !IsModeField(f[0].text)) return false;
    const char type = f[0].text[0];

    size_t m = 0;
    Stamp when;
    int month = 0, day = 0;
    for (size_t i = 2; i + 2 < f.size(); ++i) {
        // Size before the month; devices give "major, minor" or "major,minor".
        when = Stamp{};
        const QByteArrayView before = f[i - 1].text;
        if (!IsDigits(before) && !Has(before, ',')) continue;
        month = MonthOf(f[i].text);
        if (!month || !IsDigits(f[i + 1].text) || f[i + 1].text.size() > 2) continue;
        day = ToInt(f[i + 1].text);
        if (day < 1 || day > 31) continue;
        const QByteArrayView third = f[i + 2].text;
        if (Has(third, ':')) {
            if (!ReadClock(third, when)) continue;
        } else if (!IsDigits(third) || third.size() != 4) {
            continue;
        }
        m = i;
        break;
    }
    if (m == 0) return false;

    // Exactly one blank separates the time or year from the name; any
    // further blanks belong to the name.
    const qsizetype nameStart = f[m + 2].end + 1;
    if (nameStart >= line.size()) return false;
    QByteArrayView name = line.sliced(nameStart);

    const QByteArrayView third = f[m + 2].text;
    if (Has(third, ':')) {
        if (!InferYear(month, day, when, now)) return false;
    } else {
        when.date = QDate(ToInt(third), month, day);
        if (!when.IsValid()) return false;
    }

    bool folder = type == 'd';
    if (type == 'l') {
        // "name -> target": a link counts as a folder only when the server
        // marks its target as one with a trailing slash.
        const qsizetype arrow = name.indexOf(" -> ");
        if (arrow >= 0) {
            folder = name.endsWith('/');
            name = name.first(arrow);
        }
    }
    if (name.isEmpty()) return false;

    out = WIN32_FIND_DATA{};
    out.cFileName = Decode(name, enc);
    out.dwFileAttributes = folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    if (f[0].text[2] != 'w') out.dwFileAttributes |= FILE_ATTRIBUTE_READONLY;
    // The size column as stated, folders included; device numbers aren't one.
    if (type != 'c' && type != 'b' && IsDigits(f[m - 1].text)) SetSize(out, f[m - 1].text.toULongLong());
    out.ftLastWriteTime = when.ToFileTime();
    return true;
}

// IIS: "03-05-01  07:04AM       <DIR>          name" and
// "03-05-01  07:04AM                 1234 name". Names start in a fixed
// column there; shorter forms separate them by blanks.
bool ParseDos(const QByteArray& line, NameEncoding enc, WIN32_FIND_DATA& out) {
    static const QRegularExpression re(QStringLiteral(
        "^(\\d{1,2})-(\\d{1,2})-(\\d{4}|\\d{2}) +(\\d{1,2}):(\\d{2}) *([AaPp][Mm])? +(<DIR>|\\d+) (.*)$"));
    // Latin-1 maps byte for byte, so offsets in the match are byte offsets.
    const auto match = re.match(QString::fromLatin1(line));
    if (!match.hasMatch()) return false;

    Stamp when;
    int year = match.captured(3).toInt();
    if (match.captured(3).size() == 2) year += year < 70 ? 2000 : 1900;
    when.date = QDate(year, match.captured(1).toInt(), match.captured(2).toInt());
    when.hour = match.captured(4).toInt();
    when.minute = match.captured(5).toInt();
    const QString half = match.captured(6).toUpper();
    if (!half.isEmpty()) {
        if (when.hour < 1 || when.hour > 12) return false;
        if (when.hour == 12) when.hour = 0;
        if (half == QLatin1String("PM")) when.hour += 12;
    }
    if (!when.IsValid()) return false;

    const bool folder = match.captured(7) == QLatin1String("<DIR>");
    QByteArray name = line.mid(match.capturedStart(8));
    if (folder) {
        // IIS pads "<DIR>" with ten blanks; without that padding the blanks
        // are taken as a separator.
        if (name.startsWith(QByteArray(9, ' ')))
            name.remove(0, 9);
        else
            while (name.startsWith(' ')) name.remove(0, 1);
    }
    if (name.isEmpty()) return false;

    out = WIN32_FIND_DATA{};
    out.cFileName = Decode(name, enc);
    out.dwFileAttributes = folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    if (!folder) SetSize(out, match.captured(7).toULongLong());
    out.ftLastWriteTime = when.ToFileTime();
    return true;
}

// modify=YYYYMMDDHHMMSS with an optional fraction of a second.
bool ReadMlsdTime(const QByteArray& v, Stamp& s) {
    if (v.size() < 14 || !IsDigits(v.left(14))) return false;
    s.date = QDate(v.left(4).toInt(), v.mid(4, 2).toInt(), v.mid(6, 2).toInt());
    s.hour = v.mid(8, 2).toInt();
    s.minute = v.mid(10, 2).toInt();
    s.second = v.mid(12, 2).toInt();
    if (v.size() > 15 && v[14] == '.') {
        const QByteArray frac = (v.mid(15, 3) + "00").left(3);
        if (IsDigits(frac)) s.millisecond = frac.toInt();
    }
    return s.IsValid();
}

// unix.mode as octal; some servers write it with a "0o" prefix.
bool ReadMode(QByteArray v, unsigned& mode) {
    if (v.startsWith("0o") || v.startsWith("0O")) v.remove(0, 2);
    bool ok = false;
    mode = v.toUInt(&ok, 8);
    return ok && !v.isEmpty();
}

}  // namespace

bool IsUnsafeName(const QString& name) {
    return name.contains(QLatin1Char('/')) || name.contains(QLatin1Char('\\')) || name.contains(QChar(0));
}

std::vector<WIN32_FIND_DATA> ParseMlsd(const QByteArray& body, NameEncoding enc) {
    std::vector<WIN32_FIND_DATA> out;
    ForEachLine(body, [&](QByteArrayView view) {
        const QByteArray line = view.toByteArray();
        // "fact=value;fact=value; name": the name begins behind the first blank.
        const qsizetype space = line.indexOf(' ');
        if (space < 0) return;
        const QByteArray name = line.mid(space + 1);
        if (name.isEmpty()) return;

        QByteArray type, perm, modeText;
        uint64_t size = 0;
        Stamp when;
        bool hasTime = false;
        for (const QByteArray& fact : line.left(space).split(';')) {
            const qsizetype eq = fact.indexOf('=');
            if (eq <= 0) continue;
            const QByteArray key = fact.left(eq).toLower();
            const QByteArray value = fact.mid(eq + 1);
            if (key == "type")
                type = value.toLower();
            else if (key == "size" && IsDigits(value))
                size = value.toULongLong();
            else if (key == "perm")
                perm = value.toLower();
            else if (key == "unix.mode")
                modeText = value;
            else if (key == "modify")
                hasTime = ReadMlsdTime(value, when);
        }
        if (type == "cdir" || type == "pdir") return;

        WIN32_FIND_DATA d;
        d.cFileName = Decode(name, enc);
        if (IsUnsafeName(d.cFileName)) return;
        // Servers that report links rather than follow them say
        // "OS.unix=slink:target" or "OS.unix=symlink"; as in LIST, only a
        // target ending in "/" is taken for a folder. Unknown types are files.
        bool folder = type == "dir";
        if (type.startsWith("os.unix=slink") || type.startsWith("os.unix=symlink")) folder = type.endsWith('/');
        d.dwFileAttributes = folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
        SetSize(d, size);
        if (hasTime) d.ftLastWriteTime = when.ToFileTime();

        // The mode says what the owner may do; without it the perm fact says
        // what this login may do (write a file, create in a folder).
        unsigned mode = 0;
        bool readOnly;
        if (ReadMode(modeText, mode))
            readOnly = !(mode & 0200);
        else
            readOnly = !perm.isEmpty() && !perm.contains(folder ? 'c' : 'w');
        if (readOnly) d.dwFileAttributes |= FILE_ATTRIBUTE_READONLY;
        out.push_back(std::move(d));
    });
    return out;
}

std::vector<WIN32_FIND_DATA> ParseList(const QByteArray& body, NameEncoding enc, const QDateTime& now) {
    std::vector<WIN32_FIND_DATA> out;
    const Now clock(now);
    ForEachLine(body, [&](QByteArrayView line) {
        WIN32_FIND_DATA d;
        if (!ParseUnix(line, enc, clock, d) && !ParseDos(line.toByteArray(), enc, d)) return;
        if (IsUnsafeName(d.cFileName)) return;
        out.push_back(std::move(d));
    });
    return out;
}

}  // namespace ftp
