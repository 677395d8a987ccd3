// VMS lines: "README.TXT;3   12/15   5-MAR-2001 07:04:09  [OWNER]  (RWED,RWED,RE,)",
// with a long name on a line of its own and the rest on the next.
#include "platform/ftp_listing_internal.h"

namespace ftp::detail {

namespace {

constexpr uint64_t kBlock = 512;

// A name with its version: "NAME.EXT;3".
bool IsVersionedName(QByteArrayView f) {
    const qsizetype semi = f.lastIndexOf(';');
    if (semi <= 0) return false;
    const QByteArrayView version = f.sliced(semi + 1);
    return IsDigits(version) && version.size() <= 5;
}

// "5-MAR-2001" or "05-MAR-2001".
bool ReadVmsDate(QByteArrayView f, QDate& date) {
    const qsizetype a = f.indexOf('-');
    const qsizetype b = a < 0 ? -1 : f.indexOf('-', a + 1);
    if (a < 1 || a > 2 || b != a + 4) return false;
    const QByteArrayView day = f.first(a), year = f.sliced(b + 1);
    const int month = MonthOf(f.sliced(a + 1, 3));
    if (!IsDigits(day) || !IsDigits(year) || (year.size() != 4 && year.size() != 2) || month == 0) return false;
    date = QDate(FullYear(year), month, ToInt(day));
    return date.isValid();
}

// Blocks used, or "used/allocated"; the used ones are what the file holds.
bool ReadBlocks(QByteArrayView f, uint64_t& bytes) {
    const qsizetype slash = f.indexOf('/');
    uint64_t used = 0, allocated = 0;
    if (slash >= 0 && !ReadNumber(f.sliced(slash + 1), allocated)) return false;
    if (!ReadNumber(slash >= 0 ? f.first(slash) : f, used) || used > (UINT64_MAX / kBlock)) return false;
    bytes = used * kBlock;
    return true;
}

// The protection "(system,owner,group,world)": read-only when the owner
// may not write.
bool OwnerMayNotWrite(QByteArrayView f) {
    if (f.size() < 2 || f.front() != '(' || f.back() != ')') return false;
    const qsizetype comma = f.indexOf(',');
    if (comma < 0) return false;
    const qsizetype next = f.indexOf(',', comma + 1);
    const QByteArrayView owner = f.sliced(comma + 1, (next < 0 ? f.size() - 1 : next) - comma - 1);
    return !Has(owner, 'W');
}

// The columns behind the name, from field `from` on.
bool ReadDetails(QByteArrayView name, const Fields& f, int from, Listed& out) {
    if (f.size() < from + 3) return false;
    out = Listed{};
    if (!ReadBlocks(f[from], out.size) || !ReadVmsDate(f[from + 1], out.when.date) ||
        !ReadClock(f[from + 2], out.when))
        return false;
    for (int i = from + 3; i < f.size(); ++i)
        if (f[i].startsWith('(')) out.readOnly = OwnerMayNotWrite(f[i]);

    // Folders are files "NAME.DIR;1"; CWD wants "NAME". Files keep their
    // version, so every version stays an entry of its own and a download
    // fetches the very one listed.
    const QByteArrayView base = name.first(name.lastIndexOf(';'));
    if (base.size() > 4 && EqualsNoCase(base.last(4), ".dir")) {
        out.folder = true;
        out.name = base.chopped(4);
    } else {
        out.name = name;
    }
    return out.when.IsValid();
}

}  // namespace

bool IsVmsNameLine(QByteArrayView line) {
    if (line.isEmpty() || line[0] == ' ') return false;
    const Fields f(line);
    return f.size() == 1 && IsVersionedName(f[0]);
}

bool ReadVms(QByteArrayView line, const Now&, Listed& out) {
    if (line.isEmpty() || line[0] == ' ') return false;
    const Fields f(line);
    return f.size() >= 4 && IsVersionedName(f[0]) && ReadDetails(f[0], f, 1, out);
}

bool ReadVmsWrapped(QByteArrayView nameLine, QByteArrayView detailLine, Listed& out) {
    if (detailLine.isEmpty() || detailLine[0] != ' ') return false;
    const Fields name(nameLine);
    const Fields f(detailLine);
    return name.size() == 1 && ReadDetails(name[0], f, 0, out);
}

}  // namespace ftp::detail
