// The drive box: the drives of localfs as "c: [/]". Choosing another drive,
// by the user or by assigning Drive, raises Change.
#pragma once

#include <QComboBox>
#include <functional>

namespace controls {

class DriveListBox : public QComboBox {
    Q_OBJECT
public:
    explicit DriveListBox(QWidget* parent = nullptr);
    QString Drive() const { return currentText(); }
    // False, and nothing changes, for a drive that doesn't exist.
    bool SetDrive(const QString& drive);
    // Reads the drive list again, keeping the chosen drive when it is there.
    void Refresh();
    std::function<void()> onChange;
};

}  // namespace controls
