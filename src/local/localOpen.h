// Opening the selected local file in its program, and a path's properties.
#pragma once

#include <QString>

// The selected row of the current folder in the program the desktop
// associates with it; without one, the question whether to choose one.
void OpenLocalFile();
// The desktop's properties of a file or folder.
void ShowLocalProperties(const QString& sFile);
