// Handing a local file to the desktop's open-with choice, which both panes'
// open commands fall back to.
#pragma once

#include <QString>

// The desktop's dialogs of the program's own take their words from the
// catalogue; called before either is asked for.
void HandDialogTextsToDesktop();

// The open-with choice for the file: the program chosen there starts with
// it. The path goes as it stands, unquoted.
void OpenLocalFileWith(const QString& sFile);
