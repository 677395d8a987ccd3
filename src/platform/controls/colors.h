// Colours as the logic writes them: one 32-bit number with red in the low
// byte, green in the next and blue above, as RGB() makes them.
#pragma once

#include <QColor>
#include <cstdint>

constexpr uint32_t RGB(int r, int g, int b) {
    return uint32_t(r) | (uint32_t(g) << 8) | (uint32_t(b) << 16);
}

namespace controls {

inline QColor ToQColor(uint32_t rgb) {
    return QColor(int(rgb & 0xFF), int((rgb >> 8) & 0xFF), int((rgb >> 16) & 0xFF));
}

inline uint32_t FromQColor(const QColor& c) {
    return RGB(c.red(), c.green(), c.blue());
}

}  // namespace controls
