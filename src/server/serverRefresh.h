// Filling the server pane from the server's current folder.
#pragma once

#include "platform/wintypes.h"

// The public refresh: rows, then the combo of visited paths.
void RefreshServer(HINTERNET& hConnection);

// The rows alone. With `stopAtFolderLimit` the fill ends with an empty list
// at the first folder beyond the table's 10,001 rows (the combo's own
// refresh); otherwise those folders are left out and the rest goes on.
// False when the fill stopped.
bool FillServerRows(HINTERNET& hConnection, bool stopAtFolderLimit);

// Makes sure `path` is in cboServer (exact comparison) and selects it; the
// selection raises the combo's click when it changes. `known` skips the
// adding when the caller found it already.
void SelectServerPath(const QString& path, bool known = false);

constexpr int kFolderTableRows = 10001;
