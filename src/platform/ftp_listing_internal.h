// Shared pieces of the listing readers: what a reader finds in a line, the
// line and field splitting, and the number and date readers every family
// uses. Only the ftp_listing*.cpp files include this.
#pragma once

#include "platform/ftp_listing.h"

#include <QDate>
#include <array>
#include <cstring>

namespace ftp::detail {

// A wall-clock time as the server states it. Servers don't say which zone
// they mean, so the stated figures are taken as UTC and never shifted.
struct Stamp {
    QDate date;
    int hour = 0, minute = 0, second = 0, millisecond = 0;

    bool IsValid() const;
    int64_t UnixSeconds() const;
    FILETIME ToFileTime() const;
    static Stamp FromUnix(int64_t seconds);
};

// What a reader found in one line. The name is a view into the line; the
// caller checks and decodes it.
struct Listed {
    QByteArrayView name;
    bool folder = false;
    bool readOnly = false;
    uint64_t size = 0;
    Stamp when;  // left invalid: time 0
};

// What the year inference needs of `now`, worked out once a listing.
struct Now {
    int64_t limit;
    int year;
    explicit Now(const QDateTime& now);
};

// Lines end in CRLF or bare LF; blank lines carry nothing and are passed over.
class Lines {
public:
    explicit Lines(QByteArrayView body) : body_(body) {}
    bool Next(QByteArrayView& line);
    // The line right behind the last one, blank or not, without taking it.
    bool Peek(QByteArrayView& line) const;

private:
    bool NextAny(QByteArrayView& line);

    QByteArrayView body_;
    qsizetype from_ = 0;
};

// The blank-separated fields of a line as views, without allocating: a
// listing of many thousand lines is split without copying. Fields past
// kMax are not seen; every form has its columns well before that.
class Fields {
public:
    static constexpr int kMax = 24;
    explicit Fields(QByteArrayView line);
    int size() const { return count_; }
    QByteArrayView operator[](int i) const { return line_.sliced(begin_[i], end_[i] - begin_[i]); }
    qsizetype begin(int i) const { return begin_[i]; }
    qsizetype end(int i) const { return end_[i]; }  // just behind the field

private:
    QByteArrayView line_;
    int count_ = 0;
    // Only the first count_ are set: a listing splits every line, and
    // clearing the rest each time would cost more than the splitting.
    std::array<qsizetype, kMax> begin_;
    std::array<qsizetype, kMax> end_;
};

inline bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
inline char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}
inline bool Has(QByteArrayView s, char c) {
    return !s.isEmpty() && std::memchr(s.data(), c, size_t(s.size())) != nullptr;
}
bool IsDigits(QByteArrayView s);
bool EqualsNoCase(QByteArrayView s, QByteArrayView lowerAscii);
bool StartsNoCase(QByteArrayView s, QByteArrayView lowerAscii);
// Digits only, at most nine of them; callers check the count first.
int ToInt(QByteArrayView digits);
// Plain digits, without overflow.
bool ReadNumber(QByteArrayView s, uint64_t& value);
// Plain digits or digits grouped by thousands ("1,234,567", "1.234.567",
// "1'234'567"), one separator throughout.
bool ReadSize(QByteArrayView s, uint64_t& value);
// The rest of the line from `from` on, with at most `blanks` leading blanks
// taken off; further blanks belong to the name.
QByteArrayView NameFrom(QByteArrayView line, qsizetype from, int blanks);

// 1-12 for a month's name in English, German or Russian (as ls writes them
// in those languages), any ASCII case, with or without a closing point.
int MonthOf(QByteArrayView name);
// "HH:MM", "HH:MM:SS" or "HH:MM:SS.fraction" into the stamp's clock.
bool ReadClock(QByteArrayView f, Stamp& s);
// "07:04PM" and "07:04AM" (or the half given apart as "PM") into 0-23 hours.
bool ApplyHalfDay(QByteArrayView half, Stamp& s);
// Two-digit years below 70 are 20xx, others 19xx; longer ones stand.
int FullYear(QByteArrayView digits);
// Three numbers split by one of "-", "/" or "." as written; `sep` tells which.
bool SplitDate(QByteArrayView f, QByteArrayView (&parts)[3], char& sep);
// ls leaves the year out for recent dates: the latest year that puts the
// date at most a day past `now`.
bool InferYear(int month, int day, Stamp& s, const Now& now);

// One reader per family. Each looks at the line's shape first and gives up
// at once when it isn't its own.
bool ReadEplf(QByteArrayView line, const Now& now, Listed& out);
bool ReadUnix(QByteArrayView line, const Now& now, Listed& out);
bool ReadNetware(QByteArrayView line, const Now& now, Listed& out);
bool ReadDos(QByteArrayView line, const Now& now, Listed& out);
bool ReadOs2(QByteArrayView line, const Now& now, Listed& out);
bool ReadVxWorks(QByteArrayView line, const Now& now, Listed& out);
bool ReadAs400(QByteArrayView line, const Now& now, Listed& out);
bool ReadVms(QByteArrayView line, const Now& now, Listed& out);
// VMS writes a long name on a line of its own and the rest of the entry on
// the next.
bool IsVmsNameLine(QByteArrayView line);
bool ReadVmsWrapped(QByteArrayView nameLine, QByteArrayView detailLine, Listed& out);

// Room for the records of a body: real entry lines are 60 bytes and more,
// and a record is about 100 bytes, so a body of short junk lines can't make
// this reserve more than about one and a half times its own size.
inline size_t ExpectedEntries(QByteArrayView body) {
    return size_t(body.size() / 64);
}

// Checks the name (raw and decoded), decodes it and appends the record.
void Emit(const Listed& e, const NameDecoder& decode, std::vector<WIN32_FIND_DATA>& out);

}  // namespace ftp::detail
