// The drive box: the drives of localfs as "c: [/]". Choosing another drive,
// by the user or by assigning Drive, raises Change; choosing the drive that
// is already shown raises nothing.
#pragma once

#include <QComboBox>
#include <functional>

namespace controls {

class DriveListBox : public QComboBox {
    Q_OBJECT
public:
    explicit DriveListBox(QWidget* parent = nullptr);
    // The entry shown, such as "c: [/]".
    QString Drive() const { return currentText(); }
    // Takes the first two characters ("c:", "C:\", "d: [/media/x]"). False,
    // and nothing changes, for a drive that doesn't exist; Change is raised
    // before it returns when the drive is another one.
    bool SetDrive(const QString& drive);
    // Reads the drive list again, keeping the chosen drive when it is still
    // there. Raises nothing.
    void Refresh();
    std::function<void()> onChange;

private:
    int shown_ = -1;
};

}  // namespace controls
