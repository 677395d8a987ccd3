#include "transfer/asciiDat.h"

#include "platform/fileio.h"
#include "platform/programdata.h"
#include "shared/mPublic.h"

QString AsciiDatPath() {
    return programdata::AsciiDat();
}

namespace {
bool IsLineEnd(QChar c) {
    return c == u'\r' || c == u'\n';
}
}  // namespace

QStringList ReadFields(const QByteArray& text) {
    QStringList fields;
    const QString s = QString::fromLocal8Bit(text);
    const qsizetype n = s.size();
    qsizetype i = 0;
    // Each pass is one read: the loop asks for the end first, as a loop
    // over the file does.
    while (i < n) {
        while (i < n && (s[i] == u' ' || s[i] == u'\t')) ++i;
        QString field;
        if (i < n && s[i] == u'"') {
            const qsizetype close = s.indexOf(u'"', i + 1);
            field = s.mid(i + 1, close < 0 ? -1 : close - i - 1);
            i = close < 0 ? n : close + 1;
            while (i < n && s[i] != u',' && !IsLineEnd(s[i])) ++i;
        } else {
            const qsizetype start = i;
            while (i < n && s[i] != u',' && !IsLineEnd(s[i])) ++i;
            field = s.mid(start, i - start);
        }
        fields << field;
        // The delimiter goes with the field: a comma, or one line end.
        if (i < n && s[i] == u',') {
            ++i;
        } else {
            if (i < n && s[i] == u'\r') ++i;
            if (i < n && s[i] == u'\n') ++i;
        }
    }
    return fields;
}

bool ReadAsciiDat(QStringList& entries) {
    QByteArray text;
    entries.clear();
    if (!ReadWholeFile(AsciiDatPath(), text)) return false;
    entries = ReadFields(text);
    return true;
}

bool WriteAsciiDat(const QStringList& entries) {
    QByteArray bytes;
    for (const QString& e : entries) bytes += e.toLocal8Bit() + "\r\n";
    return ReplaceWholeFile(AsciiDatPath(), bytes);
}
