// The four places where the program meets the user's desktop outside its
// own windows: message boxes, input boxes, program starts, the clipboard.
// Tests replace the handlers to answer boxes and watch what would start.
#pragma once

#include <QString>
#include <functional>

// Flags as the logic passes them, buttons plus an icon; answers.
constexpr int vbOKOnly = 0;
constexpr int vbYesNo = 4;
constexpr int vbCritical = 16;
constexpr int vbQuestion = 32;
constexpr int vbExclamation = 48;
constexpr int vbInformation = 64;
constexpr int vbOK = 1;
constexpr int vbYes = 6;
constexpr int vbNo = 7;

int MsgBox(const QString& prompt, int flags = 0, const QString& title = QString());
// Empty text for Cancel, as for an empty answer. xPos and yPos place the
// box's top left corner on the screen, in twips; without them the desktop
// places it.
constexpr int kBoxUnplaced = -2147483647 - 1;
QString InputBox(const QString& prompt, const QString& title = QString(),
                 const QString& defaultText = QString(), int xPos = kBoxUnplaced, int yPos = kBoxUnplaced);
// Starts `program` detached with a parameter string split at blanks (see
// ShellExecuteA in desktop.h for what a program and its pieces may be).
bool StartProgram(const QString& program, const QString& parameters);
void ClipboardClear();
// Ends the process at once, wherever it is called from.
void EndProgram();
void ClipboardSetText(const QString& text, int format);

namespace seams {

struct MessageBoxCall {
    QString prompt;
    int flags = 0;
    QString title;
};

struct InputBoxCall {
    QString prompt;
    QString title;
    QString defaultText;
    int xPos = kBoxUnplaced;
    int yPos = kBoxUnplaced;
};

using MsgBoxHandler = std::function<int(const MessageBoxCall&)>;
using InputBoxHandler = std::function<QString(const InputBoxCall&)>;
using StartHandler = std::function<bool(const QString& program, const QString& parameters)>;
using EndHandler = std::function<void()>;

// Each setter returns the previous handler; an empty handler restores the
// real desktop behaviour.
MsgBoxHandler SetMsgBoxHandler(MsgBoxHandler handler);
InputBoxHandler SetInputBoxHandler(InputBoxHandler handler);
StartHandler SetStartHandler(StartHandler handler);
EndHandler SetEndHandler(EndHandler handler);

}  // namespace seams
