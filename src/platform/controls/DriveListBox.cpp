#include "platform/controls/DriveListBox.h"

#include "platform/localfs.h"

#include <QSignalBlocker>

namespace controls {

DriveListBox::DriveListBox(QWidget* parent) : QComboBox(parent) {
    Refresh();
    connect(this, &QComboBox::activated, this, [this](int) {
        if (onChange) onChange();
    });
}

bool DriveListBox::SetDrive(const QString& drive) {
    if (drive.size() < 2) return false;
    const QString letter = drive.left(2).toLower();
    for (int i = 0; i < count(); ++i) {
        if (itemText(i).left(2).toLower() != letter) continue;
        if (i != currentIndex()) {
            {
                QSignalBlocker block(this);
                setCurrentIndex(i);
            }
            if (onChange) onChange();
        }
        return true;
    }
    return false;
}

void DriveListBox::Refresh() {
    QSignalBlocker block(this);
    const QString current = currentText().left(2);
    clear();
    addItems(localfs::DriveList());
    const int keep = current.isEmpty() ? 0 : findText(current, Qt::MatchStartsWith);
    setCurrentIndex(keep < 0 ? 0 : keep);
}

}  // namespace controls
