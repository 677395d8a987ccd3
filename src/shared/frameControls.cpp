#include "shared/frameControls.h"

FrameControls& Frame() {
    static FrameControls controls;
    return controls;
}
