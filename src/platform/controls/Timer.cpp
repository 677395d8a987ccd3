#include "platform/controls/Timer.h"

namespace controls {

Timer::Timer(QObject* parent) : QObject(parent) {
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (enabled_ && onTimer) onTimer();
    });
}

void Timer::SetEnabled(bool on) {
    if (on == enabled_) return;
    enabled_ = on;
    apply();
}

void Timer::SetInterval(int ms) {
    interval_ = ms;
    apply();
}

void Timer::apply() {
    // Enabling restarts the interval.
    if (enabled_ && interval_ > 0)
        timer_.start(interval_);
    else
        timer_.stop();
}

}  // namespace controls
