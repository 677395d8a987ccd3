// Filling the server pane from the server's current folder.
#pragma once

#include "platform/wintypes.h"

#include <QString>

// The public refresh: rows, then the combo of visited paths.
void RefreshServer(HINTERNET& hConnection);

// The rows alone (steps shared by every refresh). `stopOnFailure` is the
// combo's own refresh, which has no error handler of its own: the first
// statement that fails (a folder beyond the table's 10,001 rows, a row whose
// picture key the image lists don't hold) ends the fill where it stands.
// Otherwise that statement is skipped and the fill goes on. False when the
// fill stopped.
bool FillServerRows(HINTERNET& hConnection, bool stopOnFailure);

// Makes sure `path` is in cboServer (exact comparison) and selects it; the
// selection raises the combo's click when it changes. `known` skips the
// adding when the caller found it already.
void SelectServerPath(const QString& path, bool known = false);

constexpr int kFolderTableRows = 10001;
