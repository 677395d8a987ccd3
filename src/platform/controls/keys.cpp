#include "platform/controls/keys.h"

#include <QKeyEvent>

namespace controls {

int KeyCodeOf(const QKeyEvent* e) {
    const int k = e->key();
    if (k >= Qt::Key_F1 && k <= Qt::Key_F24) return 112 + (k - Qt::Key_F1);
    if (k >= Qt::Key_A && k <= Qt::Key_Z) return 65 + (k - Qt::Key_A);
    if (k >= Qt::Key_0 && k <= Qt::Key_9) return 48 + (k - Qt::Key_0);
    switch (k) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return vbKeyTab;
    case Qt::Key_Return:
    case Qt::Key_Enter: return vbKeyReturn;
    case Qt::Key_Delete: return vbKeyDelete;
    case Qt::Key_Backspace: return 8;
    case Qt::Key_Escape: return 27;
    case Qt::Key_Space: return 32;
    case Qt::Key_PageUp: return 33;
    case Qt::Key_PageDown: return 34;
    case Qt::Key_End: return 35;
    case Qt::Key_Home: return 36;
    case Qt::Key_Left: return 37;
    case Qt::Key_Up: return 38;
    case Qt::Key_Right: return 39;
    case Qt::Key_Down: return 40;
    case Qt::Key_Insert: return 45;
    default: return 0;
    }
}

int ShiftOf(const QKeyEvent* e) {
    return ShiftOf(e->modifiers());
}

int ShiftOf(Qt::KeyboardModifiers m) {
    int s = 0;
    if (m & Qt::ShiftModifier) s |= vbShiftMask;
    if (m & Qt::ControlModifier) s |= vbCtrlMask;
    if (m & Qt::AltModifier) s |= vbAltMask;
    return s;
}

int ButtonOf(Qt::MouseButton b) {
    switch (b) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

}  // namespace controls
