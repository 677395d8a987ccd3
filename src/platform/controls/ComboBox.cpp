#include "platform/controls/ComboBox.h"

#include <QSignalBlocker>

namespace controls {

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent) {
    // A user's choice, also of the entry already shown, is a click.
    connect(this, &QComboBox::activated, this, [this](int) {
        if (onClick) onClick();
    });
}

void ComboBox::AddItem(const QString& item) {
    QSignalBlocker block(this);
    const int before = currentIndex();
    addItem(item);
    if (currentIndex() != before) setCurrentIndex(before);
}

void ComboBox::RemoveItem(int index) {
    if (index < 0 || index >= count()) return;
    QSignalBlocker block(this);
    removeItem(index);
}

void ComboBox::Clear() {
    QSignalBlocker block(this);
    clear();
    setCurrentIndex(-1);
}

QString ComboBox::List(int index) const {
    if (index < 0 || index >= count()) return {};
    return itemText(index);
}

bool ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= count()) return false;
    if (index == currentIndex()) return true;
    {
        QSignalBlocker block(this);
        setCurrentIndex(index);
    }
    if (onClick) onClick();
    return true;
}

}  // namespace controls
