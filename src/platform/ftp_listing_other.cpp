// The rarer families: EPLF, AS/400 and VxWorks.
#include "platform/ftp_listing_internal.h"

namespace ftp::detail {

namespace {

// Unix seconds up to the end of year 9999; beyond it no date is read.
constexpr uint64_t kLastSecond = 253402300799;

// VxWorks: "MAR-05-2001".
bool ReadMonthFirstDate(QByteArrayView f, QDate& date) {
    if (f.size() != 11 || f[3] != '-' || f[6] != '-') return false;
    const int month = MonthOf(f.first(3));
    const QByteArrayView day = f.sliced(4, 2), year = f.sliced(7);
    if (month == 0 || !IsDigits(day) || !IsDigits(year)) return false;
    date = QDate(ToInt(year), month, ToInt(day));
    return date.isValid();
}

// AS/400 writes the date as the system is set up: "02/23/00" (month
// first, day first when the first can't be a month), "23.02.00",
// "2000-02-23" or "00/02/23"-style with a four-digit year first.
bool ReadAs400Date(QByteArrayView f, QDate& date) {
    QByteArrayView p[3];
    char sep = 0;
    if (!SplitDate(f, p, sep)) return false;
    if (p[0].size() == 4) {
        date = QDate(ToInt(p[0]), ToInt(p[1]), ToInt(p[2]));
        return date.isValid();
    }
    if (p[0].size() > 2 || p[1].size() > 2 || (p[2].size() != 2 && p[2].size() != 4)) return false;
    int month = ToInt(p[0]), day = ToInt(p[1]);
    if (sep == '.' || month > 12) std::swap(month, day);
    date = QDate(FullYear(p[2]), month, day);
    return date.isValid();
}

}  // namespace

// EPLF: "+i8388621.48594,m825718503,r,s280,\tdjb.html". Facts end in
// commas; "/" marks a folder, "s" the size, "m" the time in Unix seconds
// (UTC), "up" the permissions in octal. The name is all behind the tab.
bool ReadEplf(QByteArrayView line, const Now&, Listed& out) {
    if (line.size() < 3 || line[0] != '+') return false;
    const qsizetype tab = line.indexOf('\t');
    if (tab < 0) return false;
    out = Listed{};
    QByteArrayView facts = line.sliced(1, tab - 1);
    while (!facts.isEmpty()) {
        const qsizetype comma = facts.indexOf(',');
        const QByteArrayView fact = facts.first(comma < 0 ? facts.size() : comma);
        facts = comma < 0 ? QByteArrayView() : facts.sliced(comma + 1);
        if (fact.isEmpty()) continue;
        uint64_t n = 0;
        switch (fact[0]) {
        case '/': out.folder = true; break;
        case 's':
            if (ReadNumber(fact.sliced(1), n)) out.size = n;
            break;
        case 'm':
            if (ReadNumber(fact.sliced(1), n) && n <= kLastSecond) out.when = Stamp::FromUnix(int64_t(n));
            break;
        case 'u':
            if (fact.size() > 2 && fact[1] == 'p') {
                bool octal = true;
                for (char c : fact.sliced(2)) octal = octal && c >= '0' && c <= '7';
                // The owner's write bit is the second digit from the right.
                if (octal && fact.size() >= 5) out.readOnly = ((fact[fact.size() - 3] - '0') & 2) == 0;
            }
            break;
        default: break;
        }
    }
    out.name = line.sliced(tab + 1);
    return !out.name.isEmpty();
}

// AS/400: "QSYS    77824 02/23/00 15:09:55 *DIR       QSYS/". Libraries,
// folders, directories and database files (which hold members) are
// folders; their names carry a closing slash that isn't part of them.
bool ReadAs400(QByteArrayView line, const Now&, Listed& out) {
    if (line.isEmpty() || line[0] == ' ') return false;
    const Fields f(line);
    if (f.size() < 6 || !f[4].startsWith('*') || f[4].size() < 2) return false;
    out = Listed{};
    if (!ReadNumber(f[1], out.size) || !ReadAs400Date(f[2], out.when.date) || !ReadClock(f[3], out.when))
        return false;
    const QByteArrayView type = f[4];
    QByteArrayView name = NameFrom(line, f.end(4), int(line.size()));
    out.folder = type == "*DIR" || type == "*LIB" || type == "*FLR" || type == "*FILE";
    if (name.endsWith('/')) {
        out.folder = true;
        name.chop(1);
    }
    out.name = name;
    return out.when.IsValid() && !name.isEmpty();
}

// VxWorks: "   12345    MAR-05-2001  07:04:09   name" with "<DIR>" behind
// the padded name of a folder. The padding isn't part of the name.
bool ReadVxWorks(QByteArrayView line, const Now&, Listed& out) {
    const Fields f(line);
    if (f.size() < 4) return false;
    out = Listed{};
    if (!ReadNumber(f[0], out.size) || !ReadMonthFirstDate(f[1], out.when.date) || !ReadClock(f[2], out.when))
        return false;
    QByteArrayView name = NameFrom(line, f.end(2), int(line.size()));
    if (name.endsWith(" <DIR>")) {
        out.folder = true;
        name.chop(6);
    }
    while (name.endsWith(' ')) name.chop(1);
    out.name = name;
    return out.when.IsValid() && !name.isEmpty();
}

}  // namespace ftp::detail
