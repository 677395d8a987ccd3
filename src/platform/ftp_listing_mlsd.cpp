// MLSD: "fact=value;fact=value; name", one entry a line.
#include "platform/ftp_listing_internal.h"

namespace ftp::detail {

namespace {

// modify=YYYYMMDDHHMMSS with an optional fraction of a second.
bool ReadModify(QByteArrayView v, Stamp& s) {
    s = Stamp{};
    if (v.size() < 14 || !IsDigits(v.first(14))) return false;
    s.date = QDate(ToInt(v.first(4)), ToInt(v.sliced(4, 2)), ToInt(v.sliced(6, 2)));
    s.hour = ToInt(v.sliced(8, 2));
    s.minute = ToInt(v.sliced(10, 2));
    s.second = ToInt(v.sliced(12, 2));
    if (v.size() > 15 && v[14] == '.') {
        const QByteArrayView frac = v.sliced(15, std::min<qsizetype>(3, v.size() - 15));
        if (IsDigits(frac))
            for (qsizetype i = 0; i < 3; ++i) s.millisecond = s.millisecond * 10 + (i < frac.size() ? frac[i] - '0' : 0);
    }
    return s.IsValid();
}

// unix.mode as octal; some servers write it with a "0o" prefix.
bool ReadMode(QByteArrayView v, unsigned& mode) {
    if (StartsNoCase(v, "0o")) v = v.sliced(2);
    if (v.isEmpty() || v.size() > 7) return false;
    mode = 0;
    for (char c : v) {
        if (c < '0' || c > '7') return false;
        mode = mode * 8 + unsigned(c - '0');
    }
    return true;
}

// Where the facts end and the name begins. The facts run to the first
// "; " (values may hold blanks, never a ";"); a line that begins with the
// blank has none. Servers that leave out the last ";" are read up to the
// first blank.
qsizetype NameStart(QByteArrayView line, QByteArrayView& facts) {
    if (line.startsWith(' ')) {
        facts = {};
        return 1;
    }
    qsizetype end = line.indexOf("; ");
    if (end >= 0) {
        facts = line.first(end);
        return end + 2;
    }
    end = line.indexOf(' ');
    if (end < 0) return -1;
    facts = line.first(end);
    return end + 1;
}

// One line into `out`; false for lines without a name and for the
// folder's own and parent entries.
bool ReadMlsdLine(QByteArrayView line, Listed& out) {
    QByteArrayView facts;
    const qsizetype start = NameStart(line, facts);
    if (start < 0 || start >= line.size()) return false;

    out = Listed{};
    out.name = line.sliced(start);
    QByteArrayView type, perm, modeText;
    uint64_t size = 0, sizd = 0;
    bool hasSize = false, hasSizd = false;
    while (!facts.isEmpty()) {
        const qsizetype semi = facts.indexOf(';');
        const QByteArrayView fact = facts.first(semi < 0 ? facts.size() : semi);
        facts = semi < 0 ? QByteArrayView() : facts.sliced(semi + 1);
        const qsizetype eq = fact.indexOf('=');
        if (eq <= 0) continue;
        const QByteArrayView key = fact.first(eq), value = fact.sliced(eq + 1);
        if (EqualsNoCase(key, "type"))
            type = value;
        else if (EqualsNoCase(key, "size"))
            hasSize = ReadNumber(value, size);
        else if (EqualsNoCase(key, "sizd"))
            hasSizd = ReadNumber(value, sizd);
        else if (EqualsNoCase(key, "perm"))
            perm = value;
        else if (EqualsNoCase(key, "unix.mode"))
            modeText = value;
        else if (EqualsNoCase(key, "modify") && !ReadModify(value, out.when))
            out.when = Stamp{};  // a missing or impossible time gives 0
    }
    if (EqualsNoCase(type, "cdir") || EqualsNoCase(type, "pdir")) return false;

    // Servers that report links rather than follow them say
    // "OS.unix=slink:target" or "OS.unix=symlink"; as in LIST, only a
    // target ending in "/" is taken for a folder. Unknown types are files.
    out.folder = EqualsNoCase(type, "dir");
    if (StartsNoCase(type, "os.unix=slink") || StartsNoCase(type, "os.unix=symlink")) out.folder = type.endsWith('/');
    // sizd is a folder's own size, where the server tells it apart.
    out.size = out.folder && hasSizd ? sizd : hasSize ? size : hasSizd ? sizd : 0;

    // The mode says what the owner may do; without it the perm fact says
    // what this login may do (write a file, create in a folder).
    unsigned mode = 0;
    if (ReadMode(modeText, mode)) {
        out.readOnly = !(mode & 0200);
    } else if (!perm.isEmpty()) {
        const char needed = out.folder ? 'c' : 'w';
        out.readOnly = !Has(perm, needed) && !Has(perm, char(needed - 'a' + 'A'));
    }
    return true;
}

}  // namespace

}  // namespace ftp::detail

namespace ftp {

std::vector<WIN32_FIND_DATA> ParseMlsd(const QByteArray& body, const NameDecoder& decode) {
    std::vector<WIN32_FIND_DATA> out;
    out.reserve(detail::ExpectedEntries(body));
    detail::Lines lines(body);
    QByteArrayView line;
    detail::Listed e;
    while (lines.Next(line))
        if (detail::ReadMlsdLine(line, e)) detail::Emit(e, decode, out);
    return out;
}

}  // namespace ftp
