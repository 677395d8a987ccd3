// Any bytes as a LIST or MLSD body, on both kinds of connection and through
// a decoder of the caller's own. Beyond not crashing, what every listing
// must give: no name that could leave the chosen folder, only the four
// attribute values, and the same records when the body arrives in pieces.
#include "platform/ftp_listing.h"

#include <QString>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

const QDateTime kNow(QDate(2026, 11, 23), QTime(6, 50), Qt::UTC);

void Fail(const char* what) {
    std::fprintf(stderr, "listing fuzz: %s\n", what);
    std::abort();
}

void Check(const std::vector<WIN32_FIND_DATA>& entries) {
    for (const WIN32_FIND_DATA& e : entries) {
        if (e.cFileName.isEmpty()) Fail("empty name");
        if (ftp::IsUnsafeName(e.cFileName)) Fail("unsafe name");
        const uint32_t a = e.dwFileAttributes;
        if (a != 16 && a != 17 && a != 128 && a != 129) Fail("attributes");
    }
}

bool Same(const std::vector<WIN32_FIND_DATA>& a, const std::vector<WIN32_FIND_DATA>& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i].cFileName != b[i].cFileName || a[i].dwFileAttributes != b[i].dwFileAttributes ||
            a[i].nFileSizeLow != b[i].nFileSizeLow || a[i].nFileSizeHigh != b[i].nFileSizeHigh ||
            a[i].ftLastWriteTime.dwLowDateTime != b[i].ftLastWriteTime.dwLowDateTime ||
            a[i].ftLastWriteTime.dwHighDateTime != b[i].ftLastWriteTime.dwHighDateTime)
            return false;
    }
    return true;
}

// Invalid UTF-8 shown byte for byte, the way a round-tripping connection would.
QString Legible(QByteArrayView raw) {
    const QString utf8 = QString::fromUtf8(raw);
    return utf8.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(raw) : utf8;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray body = QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));

    const auto list = ftp::ParseList(body, ftp::NameEncoding::Utf8, kNow);
    Check(list);
    Check(ftp::ParseList(body, ftp::NameEncoding::Latin1, kNow));
    Check(ftp::ParseList(body, Legible, kNow));
    Check(ftp::ParseMlsd(body, ftp::NameEncoding::Utf8));
    Check(ftp::ParseMlsd(body, ftp::NameEncoding::Latin1));
    Check(ftp::ParseMlsd(body, Legible));

    // As the data connection might cut it: what is ready now, the rest later.
    const qsizetype cut = size == 0 ? 0 : qsizetype(data[0] * size / 256);
    const QByteArray first = body.left(cut);
    const qsizetype ready = ftp::ListReadyLength(first);
    if (ready < 0 || ready > first.size()) Fail("ready length out of range");
    auto pieces = ftp::ParseList(first.left(ready), ftp::NameEncoding::Utf8, kNow);
    const auto rest = ftp::ParseList(first.mid(ready) + body.mid(cut), ftp::NameEncoding::Utf8, kNow);
    pieces.insert(pieces.end(), rest.begin(), rest.end());
    if (!Same(pieces, list)) Fail("a listing in two pieces reads differently");
    return 0;
}
