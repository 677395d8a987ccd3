// Renaming one entry of the server's current directory, for the frame
// menu and the pane's popup alike.
#pragma once

#include <QString>

// Refuses two or more selected rows with a box; otherwise asks for the new
// name of the selected item, trimmed of blanks, and renames it. No guard:
// the menu tests the connection first.
void RenameServerEntry();

bool RenameServerFile(const QString& sOld, const QString& sNew);
