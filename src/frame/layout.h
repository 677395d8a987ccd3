// The arithmetic that places the three panes and the log in the frame.
#pragma once

// Classic assignment of a division result to a whole number: half to even.
int VbRound(double value);

void LayoutLocalPane();
void LayoutServerPane();
void LayoutArrowBar();
void LayoutTransferHistory();

// Top of the local pane's folder tree, in twips: the server list stands
// level with it.
int LocalContentTop();
