#include "shared/typeTexts.h"

QString GetExtension(const QString& sFileName) {
    const qsizetype dot = sFileName.lastIndexOf(u'.');
    return dot < 0 ? sFileName : sFileName.mid(dot + 1);
}

QString TypeTextAt(const QString& table, qsizetype pos, const QString& key) {
    const qsizetype start = pos + key.size() + 2;
    const qsizetype end = table.indexOf(u'|', start);
    return table.mid(start, end < 0 ? -1 : end - start);
}
