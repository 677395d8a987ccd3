#include "platform/ftp_listing.h"

#include <QDate>
#include <QRegularExpression>
#include <QStringList>

namespace ftp {

namespace {

QString Decode(const QByteArray& bytes, NameEncoding enc) {
    return enc == NameEncoding::Utf8 ? QString::fromUtf8(bytes) : QString::fromLatin1(bytes);
}

FILETIME ToFileTime(const QDateTime& utc) {
    return FileTimeFromUnix(utc.toSecsSinceEpoch());
}

void SetSize(WIN32_FIND_DATA& d, uint64_t size) {
    d.nFileSizeLow = uint32_t(size & 0xFFFFFFFF);
    d.nFileSizeHigh = uint32_t(size >> 32);
}

QList<QByteArray> Lines(const QByteArray& body) {
    QList<QByteArray> out;
    for (QByteArray line : body.split('\n')) {
        if (line.endsWith('\r')) line.chop(1);
        if (!line.trimmed().isEmpty()) out << line;
    }
    return out;
}

int MonthOf(const QByteArray& m) {
    static const char* names[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                  "jul", "aug", "sep", "oct", "nov", "dec"};
    const QByteArray l = m.toLower();
    for (int i = 0; i < 12; ++i)
        if (l == names[i]) return i + 1;
    return 0;
}

// Skips `count` blank-separated fields from `pos`; the position after them.
qsizetype SkipFields(const QByteArray& line, qsizetype pos, int count) {
    for (int i = 0; i < count; ++i) {
        while (pos < line.size() && line[pos] == ' ') ++pos;
        while (pos < line.size() && line[pos] != ' ') ++pos;
    }
    return pos;
}

QList<QByteArray> Fields(const QByteArray& line) {
    QList<QByteArray> out;
    for (const QByteArray& f : line.split(' '))
        if (!f.isEmpty()) out << f;
    return out;
}

// "drwxr-xr-x 2 owner group 4096 Mar  5  2001 name": the month field is
// found first, so a missing group or numeric owners don't matter.
bool ParseUnix(const QByteArray& line, NameEncoding enc, const QDateTime& now, WIN32_FIND_DATA& out) {
    if (line.size() < 10 || !QByteArray("-dlcbps").contains(line[0])) return false;
    const QList<QByteArray> f = Fields(line);
    int monthField = -1;
    for (int i = 3; i + 2 < f.size(); ++i) {
        if (MonthOf(f[i]) && f[i + 1].size() <= 2 && f[i + 1].toInt() >= 1 &&
            (f[i + 2].contains(':') || f[i + 2].size() == 4)) {
            monthField = i;
            break;
        }
    }
    if (monthField < 0) return false;
    const char type = line[0];
    // The name is everything after the time or year field, blanks kept.
    qsizetype pos = SkipFields(line, 0, monthField + 3);
    if (pos >= line.size()) return false;
    QByteArray name = line.mid(pos + 1);
    bool linkToFolder = false;
    if (type == 'l') {
        const qsizetype arrow = name.indexOf(" -> ");
        if (arrow >= 0) {
            linkToFolder = name.endsWith('/');
            name = name.left(arrow);
        }
    }
    if (name.isEmpty()) return false;

    out = WIN32_FIND_DATA{};
    out.cFileName = Decode(name, enc);
    const bool folder = type == 'd' || linkToFolder;
    out.dwFileAttributes = folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    if (line.size() > 2 && line[2] != 'w') out.dwFileAttributes |= FILE_ATTRIBUTE_READONLY;
    // Device files give "major, minor" where the size would be.
    const QByteArray sizeField = f[monthField - 1];
    if (!sizeField.endsWith(',') && !(monthField >= 2 && f[monthField - 2].endsWith(',')))
        SetSize(out, sizeField.toULongLong());

    const int month = MonthOf(f[monthField]);
    const int day = f[monthField + 1].toInt();
    const QByteArray third = f[monthField + 2];
    QDateTime when;
    if (third.contains(':')) {
        const QTime t(third.left(third.indexOf(':')).toInt(), third.mid(third.indexOf(':') + 1).toInt());
        // The latest year that doesn't put the date more than a day ahead.
        int year = now.date().year() + 1;
        do {
            when = QDateTime(QDate(year, month, day), t, Qt::UTC);
            --year;
        } while ((!when.isValid() || when > now.addDays(1)) && year > now.date().year() - 9);
    } else {
        when = QDateTime(QDate(third.toInt(), month, day), QTime(0, 0), Qt::UTC);
    }
    if (when.isValid()) out.ftLastWriteTime = ToFileTime(when);
    return true;
}

// "03-05-01  07:04AM       <DIR>          name" and "... 1234 name".
bool ParseDos(const QByteArray& line, NameEncoding enc, WIN32_FIND_DATA& out) {
    static const QRegularExpression re(
        QStringLiteral("^(\\d{2})-(\\d{2})-(\\d{2,4})\\s+(\\d{1,2}):(\\d{2})\\s*([AaPp][Mm])?\\s+(<DIR>|\\d+)\\s(.+)$"));
    const QString text = QString::fromLatin1(line);
    const auto m = re.match(text);
    if (!m.hasMatch()) return false;
    int year = m.captured(3).toInt();
    if (m.captured(3).size() == 2) year += year < 70 ? 2000 : 1900;
    int hour = m.captured(4).toInt();
    const QString ampm = m.captured(6).toUpper();
    if (ampm == QLatin1String("PM") && hour < 12) hour += 12;
    if (ampm == QLatin1String("AM") && hour == 12) hour = 0;
    out = WIN32_FIND_DATA{};
    // The name's bytes, not the Latin-1 view used for matching.
    const qsizetype nameStart = line.size() - m.captured(8).toLatin1().size();
    out.cFileName = Decode(line.mid(nameStart), enc);
    if (m.captured(7) == QLatin1String("<DIR>")) {
        out.dwFileAttributes = FILE_ATTRIBUTE_DIRECTORY;
    } else {
        out.dwFileAttributes = FILE_ATTRIBUTE_NORMAL;
        SetSize(out, m.captured(7).toULongLong());
    }
    const QDateTime when(QDate(year, m.captured(1).toInt(), m.captured(2).toInt()), QTime(hour, m.captured(5).toInt()),
                         Qt::UTC);
    if (when.isValid()) out.ftLastWriteTime = ToFileTime(when);
    return true;
}

}  // namespace

bool IsUnsafeName(const QString& name) {
    return name.contains('/') || name.contains('\\') || name.contains(QChar(0));
}

std::vector<WIN32_FIND_DATA> ParseMlsd(const QByteArray& body, NameEncoding enc) {
    std::vector<WIN32_FIND_DATA> out;
    for (const QByteArray& line : Lines(body)) {
        const qsizetype space = line.indexOf(' ');
        if (space < 0) continue;
        const QByteArray name = line.mid(space + 1);
        WIN32_FIND_DATA d;
        d.cFileName = Decode(name, enc);
        QByteArray type, perm, mode;
        for (const QByteArray& fact : line.left(space).split(';')) {
            const qsizetype eq = fact.indexOf('=');
            if (eq < 0) continue;
            const QByteArray key = fact.left(eq).toLower(), value = fact.mid(eq + 1);
            if (key == "type") type = value.toLower();
            else if (key == "size") SetSize(d, value.toULongLong());
            else if (key == "perm") perm = value.toLower();
            else if (key == "unix.mode") mode = value;
            else if (key == "modify") {
                const QDateTime t = QDateTime::fromString(QString::fromLatin1(value.left(14)), QStringLiteral("yyyyMMddHHmmss"));
                if (t.isValid()) d.ftLastWriteTime = ToFileTime(QDateTime(t.date(), t.time(), Qt::UTC));
            }
        }
        if (type == "cdir" || type == "pdir" || name.isEmpty() || IsUnsafeName(d.cFileName)) continue;
        const bool folder = type == "dir";
        d.dwFileAttributes = folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
        if (folder) SetSize(d, 0);
        bool readOnly;
        if (!mode.isEmpty())
            readOnly = !(mode.toUInt(nullptr, 8) & 0200);
        else
            readOnly = !perm.isEmpty() && !perm.contains(folder ? 'c' : 'w');
        if (readOnly) d.dwFileAttributes |= FILE_ATTRIBUTE_READONLY;
        out.push_back(std::move(d));
    }
    return out;
}

std::vector<WIN32_FIND_DATA> ParseList(const QByteArray& body, NameEncoding enc, const QDateTime& now) {
    std::vector<WIN32_FIND_DATA> out;
    for (const QByteArray& line : Lines(body)) {
        WIN32_FIND_DATA d;
        if (!ParseUnix(line, enc, now, d) && !ParseDos(line, enc, d)) continue;
        if (IsUnsafeName(d.cFileName)) continue;
        out.push_back(std::move(d));
    }
    return out;
}

}  // namespace ftp
