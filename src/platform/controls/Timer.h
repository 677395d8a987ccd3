// The one-second watch timer: Enabled and Interval, ticks on the event loop.
#pragma once

#include <QTimer>
#include <functional>

namespace controls {

class Timer : public QObject {
    Q_OBJECT
public:
    explicit Timer(QObject* parent = nullptr);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool on);
    int Interval() const { return interval_; }
    void SetInterval(int ms);
    std::function<void()> onTimer;

private:
    void apply();
    QTimer timer_;
    bool enabled_ = false;
    int interval_ = 0;
};

}  // namespace controls
