// Key, button and shift codes as the logic knows them (9 Tab, 13 Return,
// 46 Delete, 115 F4, 116 F5; buttons 1 left, 2 right, 4 middle), translated
// from Qt's.
#pragma once

#include <QtCore/qnamespace.h>

class QKeyEvent;

namespace controls {
constexpr int vbKeyTab = 9;
constexpr int vbKeyReturn = 13;
constexpr int vbKeyDelete = 46;
constexpr int vbKeyF4 = 115;
constexpr int vbKeyF5 = 116;
constexpr int vbShiftMask = 1;
constexpr int vbCtrlMask = 2;
constexpr int vbAltMask = 4;

int KeyCodeOf(const QKeyEvent* event);
int ShiftOf(const QKeyEvent* event);
int ShiftOf(Qt::KeyboardModifiers modifiers);
int ButtonOf(Qt::MouseButton button);
}  // namespace controls
