#include "platform/controls/DriveListBox.h"

#include "platform/localfs.h"

#include <QSignalBlocker>

namespace controls {

DriveListBox::DriveListBox(QWidget* parent) : QComboBox(parent) {
    Refresh();
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (index == shown_) return;
        shown_ = index;
        if (onChange) onChange();
    });
}

bool DriveListBox::SetDrive(const QString& drive) {
    if (drive.size() < 2) return false;
    const QString letter = drive.left(2).toLower();
    for (int i = 0; i < count(); ++i) {
        if (itemText(i).left(2).toLower() != letter) continue;
        if (i != shown_) {
            {
                QSignalBlocker block(this);
                setCurrentIndex(i);
            }
            shown_ = i;
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
    int keep = -1;
    for (int i = 0; i < count() && !current.isEmpty(); ++i)
        if (itemText(i).left(2).compare(current, Qt::CaseInsensitive) == 0) keep = i;
    setCurrentIndex(keep < 0 ? 0 : keep);
    shown_ = currentIndex();
}

}  // namespace controls
