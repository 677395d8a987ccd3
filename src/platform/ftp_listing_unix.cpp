// Unix "ls -l" lines in the languages and date styles servers use, and
// NetWare's lines, which share their dates.
#include "platform/ftp_listing_internal.h"

namespace ftp::detail {

namespace {

// "rwxr-xr-x" behind a type letter; ACL marks ("+", ".") may follow.
// Tested on every line of a listing, so without any search.
bool IsModeField(QByteArrayView f) {
    if (f.size() < 10) return false;
    switch (f[0]) {
    case '-': case 'd': case 'l': case 'c': case 'b': case 'p': case 's': case 'D': break;
    default: return false;
    }
    for (int i = 1; i < 10; ++i) {
        switch (f[i]) {
        case '-': case 'r': case 'w': case 'x': case 's': case 'S': case 't': case 'T': case 'l': case 'L': break;
        default: return false;
        }
    }
    return true;
}

// The column before a date: a size (perhaps grouped by thousands), a
// device's "major," or "major,minor", or a group glued to its size when
// the column was too narrow ("staff123456").
bool IsSizeColumn(QByteArrayView f) {
    return !f.isEmpty() && (IsDigit(f.back()) || (f.back() == ',' && f.size() > 1 && IsDigit(f[f.size() - 2])));
}

uint64_t SizeOf(QByteArrayView f) {
    uint64_t size = 0;
    if (ReadSize(f, size)) return size;
    // Glued to the group: the digits at its end.
    qsizetype start = f.size();
    while (start > 0 && IsDigit(f[start - 1])) --start;
    if (start == 0 || start == f.size() || Has(f.first(start), ',')) return 0;
    return ReadNumber(f.sliced(start), size) ? size : 0;
}

bool IsDay(QByteArrayView f, int& day) {
    if (f.endsWith('.')) f.chop(1);
    if (!IsDigits(f) || f.size() > 2) return false;
    day = ToInt(f);
    return day >= 1 && day <= 31;
}

// A time (the year left out) or a four-digit year (the clock left out).
bool ReadTimeOrYear(QByteArrayView f, int month, int day, const Now& now, Stamp& s) {
    if (Has(f, ':')) return ReadClock(f, s) && InferYear(month, day, s, now);
    if (!IsDigits(f) || f.size() != 4) return false;
    s.date = QDate(ToInt(f), month, day);
    return s.IsValid();
}

bool IsZone(QByteArrayView f) {
    return f.size() == 5 && (f[0] == '+' || f[0] == '-') && IsDigits(f.sliced(1));
}

struct DateAt {
    int last = 0;    // index of the date's last field
    int blanks = 1;  // blanks between it and the name
    Stamp when;
};

// The date that begins at field i, in any of the forms ls writes:
// "Mar  5  2001" / "Mar  5 07:04" (any language), "5. Mär 2001",
// "2001-03-05 07:04[:09[.frac]] [+zone]", "2001-03-05" and "03-05 07:04".
bool DateAtField(const Fields& f, int i, const Now& now, DateAt& d) {
    const int n = f.size();
    const QByteArrayView first = f[i];
    int day = 0, month = 0;
    d = DateAt{};
    if (i + 2 < n && (month = MonthOf(first)) != 0 && IsDay(f[i + 1], day) && !f[i + 1].endsWith('.')) {
        d.last = i + 2;
        return ReadTimeOrYear(f[i + 2], month, day, now, d.when);
    }
    if (i + 2 < n && IsDay(first, day) && (month = MonthOf(f[i + 1])) != 0) {
        d.last = i + 2;
        return ReadTimeOrYear(f[i + 2], month, day, now, d.when);
    }
    QByteArrayView parts[3];
    char sep = 0;
    if (first.size() == 10 && SplitDate(first, parts, sep) && sep == '-' && parts[0].size() == 4) {
        d.when.date = QDate(ToInt(parts[0]), ToInt(parts[1]), ToInt(parts[2]));
        if (i + 1 < n && Has(f[i + 1], ':')) {
            d.last = i + 1;
            if (!ReadClock(f[i + 1], d.when)) return false;
            // full-iso adds the zone; the figures stay as written.
            if (i + 3 < n && IsZone(f[i + 2])) d.last = i + 2;
        } else {
            // ls pads the date alone to the width of "MM-DD HH:MM".
            d.last = i;
            d.blanks = 2;
        }
        return d.when.IsValid();
    }
    if (first.size() == 5 && first[2] == '-' && IsDigits(first.first(2)) && IsDigits(first.sliced(3)) && i + 1 < n &&
        Has(f[i + 1], ':')) {
        d.last = i + 1;
        return ReadClock(f[i + 1], d.when) && InferYear(ToInt(first.first(2)), ToInt(first.sliced(3)), d.when, now);
    }
    return false;
}

}  // namespace

// "drwxr-xr-x 2 owner group 4096 Mar  5  2001 name". The date is found
// first and everything else is read from there, so numeric owners, a
// missing group or a missing link count don't disturb the columns.
bool ReadUnix(QByteArrayView line, const Now& now, Listed& out) {
    const Fields f(line);
    if (f.size() < 5 || !IsModeField(f[0])) return false;
    const char type = f[0][0];

    // Mode, owner and size come before the date, link count and group
    // usually too: it begins at field 3 to 5. An owner named like a month
    // with a group of 1-31 ("may 12 4096 Mar 5 2001") looks like a date
    // further left, so the rightmost there counts. Failing that, one right
    // behind the mode (no owner), then the first further right (an owner
    // with blanks). The mode itself never ends like a size, so the date
    // can't begin at field 1.
    DateAt chosen;
    const auto dateAt = [&](int i) {
        return i + 1 < f.size() && IsSizeColumn(f[i - 1]) && DateAtField(f, i, now, chosen);
    };
    int at = 0;
    for (int i = 5; i >= 2 && at == 0; --i)
        if (dateAt(i)) at = i;
    for (int i = 6; i + 1 < f.size() && at == 0; ++i)
        if (dateAt(i)) at = i;
    if (at == 0) return false;

    // One blank separates the time or year from the name; any further
    // blanks belong to the name.
    QByteArrayView name = NameFrom(line, f.end(chosen.last), chosen.blanks);
    out = Listed{};
    out.folder = type == 'd';
    if (type == 'l') {
        // "name -> target": a link counts as a folder only when the server
        // marks its target as one with a trailing slash.
        const qsizetype arrow = name.indexOf(" -> ");
        if (arrow >= 0) {
            out.folder = name.endsWith('/');
            name = name.first(arrow);
        }
    }
    out.name = name;
    out.readOnly = f[0][2] != 'w';
    // The size column as stated, folders included; device numbers aren't one.
    if (type != 'c' && type != 'b') out.size = SizeOf(f[at - 1]);
    out.when = chosen.when;
    return !name.isEmpty();
}

// "d [RWCEAFMS] owner 512 Jan 16 18:53    name": the rights are the
// user's own; without W the entry is read-only. Names begin after the
// blanks that pad the date column.
bool ReadNetware(QByteArrayView line, const Now& now, Listed& out) {
    if (line.size() < 4 || (line[0] != 'd' && line[0] != '-') || line[1] != ' ' || line[2] != '[') return false;
    const Fields f(line);
    if (f.size() < 8) return false;
    const QByteArrayView rights = f[1];
    if (rights.size() < 10 || rights.size() > 11 || !rights.endsWith(']')) return false;
    for (char c : rights.sliced(1, rights.size() - 2))
        if (!Has("-RWCEAFMS", c)) return false;
    uint64_t size = 0;
    int day = 0;
    const int month = MonthOf(f[4]);
    if (!ReadNumber(f[3], size) || month == 0 || !IsDay(f[5], day)) return false;
    out = Listed{};
    if (!ReadTimeOrYear(f[6], month, day, now, out.when)) return false;
    out.name = NameFrom(line, f.end(6), int(line.size()));
    out.folder = line[0] == 'd';
    out.readOnly = !Has(rights, 'W');
    out.size = size;
    return !out.name.isEmpty();
}

}  // namespace ftp::detail
