// Deleting the selected rows of the local list through the shell: one
// question, then each path and all below it for good, logged, with the
// frame's bar, and the list filled again by this module's own reader.
#pragma once

#include <QString>

void DeleteLocalSelection();
// The list's refill after a delete: the pane's reader compares
// case-sensitively and orders the attribute letters T R H D S N C A.
void RefreshAfterDelete(QString& pPath);
