// DOS-style lines (IIS, Windows "dir") and OS/2's, which begin with the size.
#include "platform/ftp_listing_internal.h"

namespace ftp::detail {

namespace {

// "03-05-01", "03-05-2001", "2001-03-05", "03/05/2001" (month first, or
// day first when the first number can't be a month) and "05.03.2001"
// (day first, as European Windows writes it).
bool ReadDosDate(QByteArrayView f, QDate& date) {
    QByteArrayView p[3];
    char sep = 0;
    if (!SplitDate(f, p, sep)) return false;
    if (p[0].size() == 4) {
        if (sep == '.') return false;
        date = QDate(ToInt(p[0]), ToInt(p[1]), ToInt(p[2]));
        return date.isValid();
    }
    if (p[0].size() > 2 || p[1].size() > 2 || (p[2].size() != 2 && p[2].size() != 4)) return false;
    int month = ToInt(p[0]), day = ToInt(p[1]);
    if (sep == '.' || (sep == '/' && month > 12)) std::swap(month, day);
    date = QDate(FullYear(p[2]), month, day);
    return date.isValid();
}

}  // namespace

// IIS: "03-05-01  07:04AM       <DIR>          name" and
// "03-05-01  07:04AM                 1234 name"; Windows' own "dir" puts a
// blank before AM/PM and may group the size by thousands. Names start in a
// fixed column there; shorter forms separate them by blanks.
bool ReadDos(QByteArrayView line, const Now&, Listed& out) {
    if (line.isEmpty() || !IsDigit(line[0])) return false;
    const Fields f(line);
    if (f.size() < 4) return false;
    out = Listed{};
    if (!ReadDosDate(f[0], out.when.date)) return false;

    // The clock, with its half of the day glued on or apart.
    QByteArrayView clock = f[1];
    QByteArrayView half;
    int next = 2;
    if (clock.size() > 2 && !IsDigit(clock.back())) {
        half = clock.last(2);
        clock.chop(2);
    } else if (EqualsNoCase(f[2], "am") || EqualsNoCase(f[2], "pm")) {
        half = f[2];
        next = 3;
    }
    if (!ReadClock(clock, out.when)) return false;
    if (!half.isEmpty() && !ApplyHalfDay(half, out.when)) return false;
    if (next + 1 >= f.size()) return false;

    const QByteArrayView column = f[next];
    out.folder = column == "<DIR>";
    if (out.folder) {
        // IIS pads "<DIR>" with ten blanks; without that padding the blanks
        // are taken as a separator.
        const QByteArrayView rest = line.sliced(f.end(next));
        const bool padded = rest.size() > 10 && rest.first(10) == QByteArrayView("          ");
        out.name = NameFrom(line, f.end(next), padded ? 10 : int(rest.size()));
    } else {
        if (!ReadSize(column, out.size)) return false;
        out.name = NameFrom(line, f.end(next), 1);
    }
    return out.when.IsValid() && !out.name.isEmpty();
}

// OS/2: "     345      A          08-09-96   21:53  README.TXT" and
// "       0           DIR   12-31-97   13:47  LOGS". Between size and date
// stand the attributes; two blanks lead to the name.
bool ReadOs2(QByteArrayView line, const Now&, Listed& out) {
    const Fields f(line);
    if (f.size() < 4) return false;
    out = Listed{};
    if (!ReadNumber(f[0], out.size)) return false;
    int i = 1;
    for (; i < f.size() && i <= 3; ++i) {
        const QByteArrayView a = f[i];
        if (a == "DIR") {
            out.folder = true;
        } else if (!a.isEmpty() && !IsDigit(a[0])) {
            for (char c : a)
                if (!Has("ADHRS", c)) return false;
            if (Has(a, 'R')) out.readOnly = true;
        } else {
            break;
        }
    }
    QByteArrayView p[3];
    char sep = 0;
    if (i + 2 >= f.size() || !SplitDate(f[i], p, sep) || sep != '-' || p[0].size() != 2 || p[1].size() != 2)
        return false;
    out.when.date = QDate(FullYear(p[2]), ToInt(p[0]), ToInt(p[1]));
    if (!ReadClock(f[i + 1], out.when) || f[i + 1].size() != 5) return false;
    out.name = NameFrom(line, f.end(i + 1), 2);
    return out.when.IsValid() && !out.name.isEmpty();
}

}  // namespace ftp::detail
