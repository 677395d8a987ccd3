// A check box whose Value is 0 or 1; a user's click and a change of Value
// both raise Click.
#pragma once

#include <QCheckBox>
#include <functional>

namespace controls {

class CheckBox : public QCheckBox {
    Q_OBJECT
public:
    explicit CheckBox(QWidget* parent = nullptr);
    int Value() const { return isChecked() ? 1 : 0; }
    void SetValue(int v);
    std::function<void()> onClick;
};

}  // namespace controls
