// The LIST reader's order of trying the families, and what every reader's
// find goes through before it becomes a record.
#include "platform/ftp_listing_internal.h"

namespace ftp {

namespace detail {

namespace {

using Reader = bool (*)(QByteArrayView line, const Now& now, Listed& out);

// Each reader rejects a line of another family on its first field or two,
// so the order costs little; it matters only where forms could overlap.
// Unix comes early because it is by far the most common. The forms that
// begin with a number (DOS's date, OS/2's and VxWorks' size) come before
// AS/400, whose first column is a free-form owner, and VMS, whose is a
// versioned name.
constexpr Reader kReaders[] = {ReadEplf, ReadUnix, ReadNetware, ReadDos, ReadOs2, ReadVxWorks, ReadAs400, ReadVms};

NameDecoder DecoderFor(NameEncoding enc) {
    if (enc == NameEncoding::Utf8) return [](QByteArrayView raw) { return QString::fromUtf8(raw); };
    return [](QByteArrayView raw) { return QString::fromLatin1(raw); };
}

}  // namespace

void Emit(const Listed& e, const NameDecoder& decode, std::vector<WIN32_FIND_DATA>& out) {
    // Raw bytes first: whatever a decoder makes of them, a name that holds
    // one of the three on the wire never becomes a record.
    if (e.name.isEmpty() || IsUnsafeRawName(e.name)) return;
    WIN32_FIND_DATA d;
    d.cFileName = decode(e.name);
    if (d.cFileName.isEmpty() || IsUnsafeName(d.cFileName)) return;
    d.dwFileAttributes = e.folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    if (e.readOnly) d.dwFileAttributes |= FILE_ATTRIBUTE_READONLY;
    d.nFileSizeLow = uint32_t(e.size & 0xFFFFFFFF);
    d.nFileSizeHigh = uint32_t(e.size >> 32);
    if (e.when.IsValid()) d.ftLastWriteTime = e.when.ToFileTime();
    out.push_back(std::move(d));
}

}  // namespace detail

bool IsUnsafeName(const QString& name) {
    for (const QChar c : name)
        if (c == u'/' || c == u'\\' || c == u'\0') return true;
    return false;
}

bool IsUnsafeRawName(QByteArrayView raw) {
    for (const char c : raw)
        if (c == '/' || c == '\\' || c == '\0') return true;
    return false;
}

std::vector<WIN32_FIND_DATA> ParseList(const QByteArray& body, const NameDecoder& decode, const QDateTime& now) {
    using namespace detail;
    std::vector<WIN32_FIND_DATA> out;
    out.reserve(ExpectedEntries(body));
    const Now clock(now);
    Lines lines(body);
    QByteArrayView line, next;
    Listed e;
    while (lines.Next(line)) {
        if (IsVmsNameLine(line)) {
            if (lines.Peek(next) && ReadVmsWrapped(line, next, e)) {
                lines.Next(next);
                Emit(e, decode, out);
            }
            continue;
        }
        for (const Reader read : kReaders) {
            if (read(line, clock, e)) {
                Emit(e, decode, out);
                break;
            }
        }
    }
    return out;
}

std::vector<WIN32_FIND_DATA> ParseList(const QByteArray& body, NameEncoding enc, const QDateTime& now) {
    return ParseList(body, detail::DecoderFor(enc), now);
}

std::vector<WIN32_FIND_DATA> ParseMlsd(const QByteArray& body, NameEncoding enc) {
    return ParseMlsd(body, detail::DecoderFor(enc));
}

qsizetype ListReadyLength(QByteArrayView received) {
    const qsizetype end = received.lastIndexOf('\n');
    if (end < 0) return 0;
    const qsizetype start = end == 0 ? 0 : received.lastIndexOf('\n', end - 1) + 1;
    QByteArrayView last = received.sliced(start, end - start);
    if (last.endsWith('\r')) last.chop(1);
    return detail::IsVmsNameLine(last) ? start : end + 1;
}

}  // namespace ftp
