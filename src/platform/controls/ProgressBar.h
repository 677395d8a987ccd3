// A progress bar that refuses values outside Min..Max (false, unchanged).
#pragma once

#include <QProgressBar>

namespace controls {

class ProgressBar : public QProgressBar {
    Q_OBJECT
public:
    explicit ProgressBar(QWidget* parent = nullptr);
    int Min() const { return minimum(); }
    int Max() const { return maximum(); }
    int Value() const { return value(); }
    bool SetMin(int v);
    bool SetMax(int v);
    bool SetValue(int v);
};

}  // namespace controls
