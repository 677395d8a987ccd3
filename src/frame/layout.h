// The arithmetic that places the three panes and the log in the frame; the
// only place that knows more than one pane's geometry.
#pragma once

// Assignment of a division result to a whole number: halves to even.
int VbRound(double value);

void LayoutLocalPane();
void LayoutServerPane();
void LayoutArrowBar();
void LayoutTransferHistory();

// The frame's load: the three upper panes loaded, placed and shown, the four
// layouts, then the log loaded, placed and shown. From here on a resize of
// either pane lays out the others.
void LoadPanes();
