// Qt texts in failure messages as text, not as arrays of 2-byte objects.
#pragma once

#include <QString>
#include <QStringList>
#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

inline void PrintTo(const QStringList& list, std::ostream* os) {
    *os << '{';
    for (qsizetype i = 0; i < list.size(); ++i) *os << (i ? ", \"" : "\"") << list[i].toStdString() << '"';
    *os << '}';
}
