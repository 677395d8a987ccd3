// A drop-down combo. Assigning ListIndex a new value raises Click at once,
// like a user's choice; assigning the value it has raises nothing.
#pragma once

#include <QComboBox>
#include <functional>

namespace controls {

class ComboBox : public QComboBox {
    Q_OBJECT
public:
    explicit ComboBox(QWidget* parent = nullptr);

    // Adding never selects: an empty combo stays without selection.
    void AddItem(const QString& item);
    void RemoveItem(int index);
    void Clear();
    int ListCount() const { return count(); }
    // "" for an index out of range.
    QString List(int index) const;
    int ListIndex() const { return currentIndex(); }
    // Out-of-range values fail (false) and change nothing.
    bool SetListIndex(int index);
    QString Text() const { return currentText(); }

    std::function<void()> onClick;
};

}  // namespace controls
