// Global state of the program and the procedures every subsystem shares.
#pragma once

#include "platform/controls/colors.h"
#include "platform/wintypes.h"

#include <QString>
#include <optional>

// Connection handles. hConnection is the one every server operation uses;
// non-zero means connected.
extern HINTERNET hConnection;
extern HINTERNET hInternetReconnect;
extern uint32_t lConnectFlags;
extern uint32_t lTransferMode;  // 1 ASCII, 2 binary

// The folder the program runs from (the executable's), without trailing
// separator, in Windows form ("c:\opt\ferrydock").
QString AppPath();

// Log writing: caret to the end; one line in a colour; one line in the
// colour that stands at the end, black again after it.
void MoveLogCaretToEnd();
void AppendLogLine(uint32_t lColour, const QString& sText);
void AppendLogText(const QString& sText);

constexpr uint32_t kBlack = RGB(0, 0, 0);
constexpr uint32_t kGreen = RGB(0, 200, 0);
constexpr uint32_t kRed = RGB(200, 0, 0);
constexpr uint32_t kBlue = RGB(0, 0, 200);
inline const QString vbCrLf = QStringLiteral("\r\n");

// The server's place: the only record of where the connection stands.
QString GetServerDirectory();
bool SetServerDirectory(const QString& sPath);

// The silent reconnect that walks and the watch use: a new session and a
// new hConnection from the connection bar's texts as they stand, at "/".
// A failure shows its box and leaves hConnection 0.
void Reinitialize_Internet();
bool ReopenConnection(const QString& sServer, const QString& sPort, const QString& sUser,
                      const QString& sPassword);

// A folder made in the server's current directory, the name as given.
bool CreateServerDirectory(const QString& sName);

// Replaces every sFind (ignoring case) in sText in place and returns it.
// Kept: blanks in front of each find are dropped, and the next search
// starts one past the find, or on the last character of a longer
// replacement (so a longer sReplace must not end in sFind, or the search
// finds it again forever). An empty sFind replaces nothing.
QString ReplaceInString(QString& sText, const QString& sFind, const QString& sReplace);

// A port text as a 16-bit integer conversion of text reads it: decimal,
// "&H" hexadecimal or "&O" octal; nothing for letters, empty text or values
// outside -32768..32767.
std::optional<int16_t> PortToInteger(const QString& sPort);

// Trim: blanks only; tabs and line ends stay.
QString TrimBlanks(const QString& s);
// UCase: each character to its upper case, one for one ("ß" stays).
QString UCase(const QString& s);

// The program the desktop associates with a file, as a Windows-form path;
// "" when there is none, or when the file is a program itself.
QString FindAssociatedProgram(const QString& sFile);

// One turn of the event loop.
void DoEvents();

// Screen.MousePointer: the hourglass while long work runs, the default after.
constexpr int vbDefault = 0;
constexpr int vbHourglass = 11;
void SetMousePointer(int value);
int MousePointer();

