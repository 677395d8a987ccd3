// The controls of the main frame that the subsystems under it use, without
// the whole frame. The frame puts them here when it is made; they are null
// while there is no frame, and then what would use them does nothing.
#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Timer.h"

#include <QPointer>

struct FrameControls {
    // The server pane's pictures: shell icons by key, and the four fixed
    // folder and unknown-file pictures.
    QPointer<controls::ImageList> imgListLarge;
    QPointer<controls::ImageList> imgListSmall;
    QPointer<controls::ImageList> imgDir;
    // The transfer mode's combo (ListIndex 2 is AUTO) and the watch timer.
    QPointer<controls::ComboBox> cboTransferMode;
    QPointer<controls::Timer> timIsConnected;
    // The bar at the frame's foot.
    QPointer<controls::ProgressBar> pgbBottom;
};

FrameControls& Frame();
