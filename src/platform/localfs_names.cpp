// Names on disk and the texts the logic gets for them. A POSIX name is any
// run of bytes; the text keeps every one of them: bytes that aren't UTF-8
// and the characters a Windows name can't hold (controls, \ : * ? " < > |,
// and blanks at either end, which the logic trims) become private-use
// stand-ins U+F000 + byte, as Wine does. Turning the text back gives the
// same bytes, so two names never share a text.
#include "platform/localfs_internal.h"

namespace localfs::detail {

namespace {

constexpr char32_t kStandIn = 0xF000;

bool Forbidden(unsigned char c) {
    switch (c) {
    case '\\': case ':': case '*': case '?': case '"': case '<': case '>': case '|': return true;
    default: return c < 0x20;
    }
}

// The characters NameText makes from single bytes; only these go back to
// single bytes, every other character is written as UTF-8.
bool IsStandIn(char32_t c) {
    if (c < kStandIn || c > kStandIn + 0xFF) return false;
    const char32_t b = c - kStandIn;
    return b >= 0x80 || b == ' ' || (b != 0 && Forbidden(static_cast<unsigned char>(b)));
}

bool Continuation(const QByteArray& b, qsizetype i, unsigned char low = 0x80, unsigned char high = 0xBF) {
    if (i >= b.size()) return false;
    const auto c = static_cast<unsigned char>(b[i]);
    return c >= low && c <= high;
}

// One well-formed UTF-8 sequence at i (no overlong forms, surrogates or
// values past U+10FFFF); its length, or 0.
int Sequence(const QByteArray& b, qsizetype i, char32_t& out) {
    const auto c = static_cast<unsigned char>(b[i]);
    auto at = [&](qsizetype k) { return char32_t(static_cast<unsigned char>(b[i + k]) & 0x3F); };
    if (c >= 0xC2 && c <= 0xDF && Continuation(b, i + 1)) {
        out = (char32_t(c & 0x1F) << 6) | at(1);
        return 2;
    }
    if (c >= 0xE0 && c <= 0xEF) {
        const unsigned char low = c == 0xE0 ? 0xA0 : 0x80, high = c == 0xED ? 0x9F : 0xBF;
        if (!Continuation(b, i + 1, low, high) || !Continuation(b, i + 2)) return 0;
        out = (char32_t(c & 0x0F) << 12) | (at(1) << 6) | at(2);
        return 3;
    }
    if (c >= 0xF0 && c <= 0xF4) {
        const unsigned char low = c == 0xF0 ? 0x90 : 0x80, high = c == 0xF4 ? 0x8F : 0xBF;
        if (!Continuation(b, i + 1, low, high) || !Continuation(b, i + 2) || !Continuation(b, i + 3)) return 0;
        out = (char32_t(c & 0x07) << 18) | (at(1) << 12) | (at(2) << 6) | at(3);
        return 4;
    }
    return 0;
}

void Append(QString& out, char32_t c) {
    const char32_t one[1] = {c};
    out += QString::fromUcs4(one, 1);
}

}  // namespace

QString NameText(const QByteArray& name) {
    QString out;
    out.reserve(name.size());
    qsizetype lead = 0, trail = name.size();
    while (lead < trail && name[lead] == ' ') ++lead;
    while (trail > lead && name[trail - 1] == ' ') --trail;
    for (qsizetype i = 0; i < name.size();) {
        const auto c = static_cast<unsigned char>(name[i]);
        if (c < 0x80) {
            const bool endBlank = c == ' ' && (i < lead || i >= trail);
            out += QChar(endBlank || Forbidden(c) ? char16_t(kStandIn + c) : char16_t(c));
            ++i;
            continue;
        }
        char32_t code = 0;
        const int length = Sequence(name, i, code);
        // A character of the stand-ins' own range is written byte by byte,
        // so it can't pass for a stand-in.
        if (length == 0 || (code >= kStandIn && code <= kStandIn + 0xFF)) {
            out += QChar(char16_t(kStandIn + c));
            ++i;
            continue;
        }
        Append(out, code);
        i += length;
    }
    return out;
}

QByteArray NameBytes(const QString& text) {
    QByteArray out;
    out.reserve(text.size());
    qsizetype runStart = 0;
    auto flush = [&](qsizetype end) {
        if (end > runStart) out += QStringView(text).mid(runStart, end - runStart).toUtf8();
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (!IsStandIn(c)) continue;
        flush(i);
        out += char(c - kStandIn);
        runStart = i + 1;
    }
    flush(text.size());
    return out;
}

}  // namespace localfs::detail
