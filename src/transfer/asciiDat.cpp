#include "transfer/asciiDat.h"

#include "frame/mPublic.h"

#include <QFile>
#include <QSaveFile>

QString AsciiDatPath() {
    return AppPathPosix() + QStringLiteral("/ascii.dat");
}

QStringList ReadFields(const QByteArray& text) {
    QStringList fields;
    const QString s = QString::fromLocal8Bit(text);
    qsizetype i = 0;
    const qsizetype n = s.size();
    while (i < n) {
        while (i < n && (s[i] == ' ' || s[i] == '\t')) ++i;
        QString field;
        if (i < n && s[i] == '"') {
            const qsizetype close = s.indexOf('"', i + 1);
            field = s.mid(i + 1, close < 0 ? -1 : close - i - 1);
            i = close < 0 ? n : close + 1;
            // Whatever follows the closing quote up to the delimiter is dropped.
            while (i < n && s[i] != ',' && s[i] != '\r' && s[i] != '\n') ++i;
        } else {
            while (i < n && s[i] != ',' && s[i] != '\r' && s[i] != '\n') field += s[i++];
        }
        fields << field;
        if (i < n && s[i] == ',') {
            ++i;
            // A comma at the very end of a line still ends an empty field.
            if (i >= n || s[i] == '\r' || s[i] == '\n') fields << QString();
        }
        if (i < n && s[i] == '\r') ++i;
        if (i < n && s[i] == '\n') ++i;
    }
    return fields;
}

QStringList ReadAsciiDat() {
    QFile f(AsciiDatPath());
    if (!f.open(QIODevice::ReadOnly)) return {};
    return ReadFields(f.readAll());
}

bool WriteAsciiDat(const QStringList& entries) {
    QSaveFile f(AsciiDatPath());
    if (!f.open(QIODevice::WriteOnly)) return false;
    for (const QString& e : entries) f.write((e + "\r\n").toLocal8Bit());
    return f.commit();
}
