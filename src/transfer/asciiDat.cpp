#include "transfer/asciiDat.h"

#include "frame/mPublic.h"
#include "platform/localfs.h"
#include "platform/programdata.h"

#include <QFile>
#include <QSaveFile>

QString AsciiDatPath() {
    return localfs::ToPosix(programdata::AsciiDat());
}

namespace {
bool IsLineEnd(QChar c) {
    return c == '\r' || c == '\n';
}
}  // namespace

QStringList ReadFields(const QByteArray& text) {
    QStringList fields;
    const QString s = QString::fromLocal8Bit(text);
    const qsizetype n = s.size();
    qsizetype i = 0;
    // Each pass is one read: the loop asks for the end first, like the
    // classic loop over the file does.
    while (i < n) {
        while (i < n && (s[i] == ' ' || s[i] == '\t')) ++i;
        QString field;
        if (i < n && s[i] == '"') {
            const qsizetype close = s.indexOf('"', i + 1);
            field = s.mid(i + 1, close < 0 ? -1 : close - i - 1);
            i = close < 0 ? n : close + 1;
            while (i < n && s[i] != ',' && !IsLineEnd(s[i])) ++i;
        } else {
            const qsizetype start = i;
            while (i < n && s[i] != ',' && !IsLineEnd(s[i])) ++i;
            field = s.mid(start, i - start);
        }
        fields << field;
        // The delimiter goes with the field: a comma, or one line end.
        if (i < n && s[i] == ',') {
            ++i;
        } else {
            if (i < n && s[i] == '\r') ++i;
            if (i < n && s[i] == '\n') ++i;
        }
    }
    return fields;
}

QStringList ReadAsciiDat() {
    // A missing list is no list: the classic loop over a missing file never
    // ended, this one has nothing to read.
    QFile f(AsciiDatPath());
    if (!f.open(QIODevice::ReadOnly)) return {};
    return ReadFields(f.readAll());
}

bool WriteAsciiDat(const QStringList& entries) {
    QByteArray bytes;
    for (const QString& e : entries) bytes += e.toLocal8Bit() + "\r\n";
    // Through a temporary beside it, so a failed write keeps the old list;
    // a read-only ascii.dat is refused as the classic open refused it.
    QSaveFile f(AsciiDatPath());
    f.setDirectWriteFallback(true);
    if (!f.open(QIODevice::WriteOnly)) return false;
    f.write(bytes);
    return f.commit();
}
