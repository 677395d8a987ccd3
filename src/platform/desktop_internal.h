// The parts of the desktop module: the program start, the applications of a
// type, the file manager on the bus and the program's own dialogs. Not for
// the logic.
#pragma once

#include "platform/desktop.h"

#include <QByteArray>
#include <QIcon>
#include <QStringList>
#include <functional>
#include <vector>

namespace desktop::detail {

// Splits like a Windows command line: blanks separate, quotes group.
QStringList SplitParameters(const QString& parameters);
// The argument bytes for a program: a piece that is a Windows-form absolute
// path becomes the POSIX path of the same bytes, any other piece the bytes
// of its text.
QByteArray ArgumentBytes(const QString& piece);
// The real start behind the start seam: detached, the program as a
// Windows-form path or a name on the PATH, or a registered application's id
// (its desktop file's name) that gets the pieces as files.
bool StartDetached(const QString& program, const QString& parameters);

struct Application {
    QString id;  // the desktop file's name, such as "org.gnome.gedit.desktop"
    QString name;
    QIcon icon;
};
// The applications registered for the type of a file name, the default
// first.
std::vector<Application> ApplicationsFor(const QByteArray& posixName);

// Asks the session bus's file manager to show the properties of a path;
// calls `none` (later, or at once without a bus) when no file manager
// answers.
void ShowItemPropertiesOverBus(const QByteArray& posix, std::function<void()> none);

const DialogTexts& Texts();
// The program's own dialogs, shown without waiting, over `owner`'s window.
// False when there is nothing to show (the path doesn't exist).
bool ShowPropertiesDialog(QWidget* owner, const QString& windowsPath);
void ShowOpenWithDialog(QWidget* owner, const QString& windowsPath);

}  // namespace desktop::detail
