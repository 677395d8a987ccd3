// A desktop of the tests' own: associations from a temporary data folder and
// a private session bus, so no test starts or shows anything of the
// machine's.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

class QProcess;
class QTemporaryDir;

namespace testdesktop {

// Points the desktop's folders at a temporary tree holding one registered
// application, "ferrydock-test-viewer.desktop" (the default for text/plain),
// and the session bus at an address where no bus listens. Call before the
// first look at the desktop's associations, from a static initializer.
bool Install();
// The fake application's id, its executable (POSIX) and its name.
QString ViewerId();
QString ViewerExecutable();
QString ViewerName();
// What the viewer was last started with, its arguments one a line (taken
// away once read); empty before it ran.
QByteArray ViewerArguments();

// Turns the event loop until the condition holds; false after `ms`.
bool WaitFor(const std::function<bool()>& condition, int ms = 10000);

// A session bus of the test's own (no services it could start) with, on
// request, a stand-in file manager that notes each call in a file.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    bool Running() const { return !address_.isEmpty(); }
    QString Address() const { return address_; }
    // Makes this bus the session bus of the process (until destroyed).
    void Use();
    bool StartFileManager();
    // The calls the file manager got: "ShowItemProperties file:///...".
    QStringList Calls() const;

private:
    std::unique_ptr<QTemporaryDir> dir_;
    std::unique_ptr<QProcess> daemon_;
    std::unique_ptr<QProcess> fileManager_;
    QString address_;
    QByteArray previous_;
    bool used_ = false;
};

}  // namespace testdesktop
