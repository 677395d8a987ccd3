// Filling the server pane from the server's current folder.
#pragma once

#include "platform/wintypes.h"

void RefreshServer(HINTERNET& hConnection);
