// The program's own pictures, compiled in from data/pictures, so a bare
// machine shows them without any icon theme.
#include "platform/shell.h"

#include <QFile>
#include <QHash>
#include <QPixmap>

// The resources live in a static library: nothing would pull their object
// file in unless something names it, so name it here, outside any namespace.
static void LoadPictureResources() {
    static const bool loaded = [] {
        Q_INIT_RESOURCE(resources);
        return true;
    }();
    (void)loaded;
}

namespace shell {

QIcon BundledIcon(const QString& name) {
    LoadPictureResources();
    static QHash<QString, QIcon> cache;
    const auto it = cache.constFind(name);
    if (it != cache.constEnd()) return *it;
    QIcon icon;
    const QString whole = QStringLiteral(":/pictures/%1.png").arg(name);
    if (QFile::exists(whole)) {
        icon.addPixmap(QPixmap(whole));
    } else {
        for (int size : {16, 32}) {
            const QString file = QStringLiteral(":/pictures/%1-%2.png").arg(name).arg(size);
            if (QFile::exists(file)) icon.addPixmap(QPixmap(file));
        }
    }
    cache.insert(name, icon);
    return icon;
}

}  // namespace shell
