#include "server/serverRefresh.h"

// The listing comes with the server pane.
void RefreshServer(HINTERNET&) {}
