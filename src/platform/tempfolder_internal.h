// What the shell module asks of the temporary folder. Not for the logic.
#pragma once

#include <QByteArray>
#include <QString>

namespace tempfolder::detail {

// The POSIX path of a dummy in the held folder, so asking the shell about it
// needn't resolve the Windows form again; "" for any other path.
QByteArray HeldPosix(const QString& windowsPath);

}  // namespace tempfolder::detail
