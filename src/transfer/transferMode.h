// The transfer mode, ASCII, binary or AUTO, as the connection bar's combo and
// the menu's three entries show it. AUTO is only the combo's index 2; the
// mode handed to the transfers is lTransferMode.
#pragma once

#include "platform/controls/ComboBox.h"

#include <QAction>

struct TransferModeControls {
    controls::ComboBox* combo = nullptr;
    QAction* ascii = nullptr;
    QAction* binary = nullptr;
    QAction* automatic = nullptr;
};

// The combo's click. While the log is empty (the frame's own load) the
// choice only resets the mode; otherwise the menu entry of the index runs.
void TransferModeComboClick(const TransferModeControls& c);
// The menu entries: the mode, the ticks, and the combo's index, whose click
// then runs the same entry again without a further click.
void TransferModeASCII(const TransferModeControls& c);
void TransferModeBINARY(const TransferModeControls& c);
void TransferModeAUTO(const TransferModeControls& c);
