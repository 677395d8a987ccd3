#include "platform/programdata.h"

#include "platform/localfs.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <unistd.h>

namespace {

const QString kFileName = QStringLiteral("ascii.dat");

// Missing folders are made private, as the base-directory rules ask of
// anything made under the data home.
bool MakePrivatePath(const QString& path) {
    const QFileInfo info(path);
    if (info.isDir()) return true;
    const QString parent = info.path();
    if (parent == path || !MakePrivatePath(parent)) return false;
    return QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner) || QFileInfo(path).isDir();
}

// A copy through a temporary beside the target: a second program starting
// at the same moment never reads half a list.
void Seed(const QString& from, const QString& to) {
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly)) return;  // nothing to seed: the list starts empty
    QSaveFile target(to);
    if (!target.open(QIODevice::WriteOnly)) return;
    target.write(source.readAll());
    target.commit();
}

}  // namespace

QString programdata::AsciiDat() {
    const QString folder = QDir::cleanPath(QCoreApplication::applicationDirPath());
    const QString own = localfs::ToWindows(folder) + QLatin1Char('\\') + kFileName;
    // access() and not the mode bits: it answers for this user, and a
    // read-only mount refuses even root.
    if (::access(QFile::encodeName(folder).constData(), W_OK) == 0) return own;

    const QString dataHome = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (dataHome.isEmpty()) return own;
    const QString userFolder = dataHome + QStringLiteral("/ferrydock");
    if (!MakePrivatePath(userFolder)) return own;
    const QString copy = localfs::ToWindows(userFolder) + QLatin1Char('\\') + kFileName;
    const QString copyPosix = localfs::ToPosix(copy);
    if (!QFileInfo::exists(copyPosix)) Seed(localfs::ToPosix(own), copyPosix);
    return copy;
}
