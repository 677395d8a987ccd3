#include "platform/controls/ProgressBar.h"

namespace controls {

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
    setRange(0, 100);
    setValue(0);
    setTextVisible(false);
}

bool ProgressBar::SetMin(int v) {
    if (v > maximum()) return false;
    setMinimum(v);
    return true;
}

bool ProgressBar::SetMax(int v) {
    if (v < minimum()) return false;
    setMaximum(v);
    return true;
}

bool ProgressBar::SetValue(int v) {
    if (v < minimum() || v > maximum()) return false;
    setValue(v);
    return true;
}

}  // namespace controls
