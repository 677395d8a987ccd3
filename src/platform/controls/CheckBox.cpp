#include "platform/controls/CheckBox.h"

#include <QSignalBlocker>

namespace controls {

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent) {
    connect(this, &QCheckBox::clicked, this, [this] {
        if (onClick) onClick();
    });
}

void CheckBox::SetValue(int v) {
    const bool on = v != 0;
    if (on == isChecked()) return;
    {
        QSignalBlocker block(this);
        setChecked(on);
    }
    if (onClick) onClick();
}

}  // namespace controls
