// A toolbar of keyed picture buttons with tool tips and descriptions.
#pragma once

#include "platform/controls/ImageList.h"

#include <QPointer>
#include <QToolBar>
#include <functional>
#include <memory>
#include <vector>

namespace controls {



struct ToolbarButton {
    QString key;
    QString description;
    QAction* action = nullptr;
    QString ToolTipText() const;
    void SetToolTipText(const QString& text);
};

class Toolbar : public QToolBar {
    Q_OBJECT
public:
    explicit Toolbar(QWidget* parent = nullptr);

    void SetImageList(ImageList* images) { images_ = images; }
    // Adds a button showing picture `image` (1-based) of the image list.
    ToolbarButton& AddButton(const QString& key, int image);
    int ButtonCount() const { return int(buttons_.size()); }
    // nullptr for an index (1-based) or key that doesn't exist.
    ToolbarButton* Button(int index);
    ToolbarButton* Button(const QString& key);
    // Presses a button as the user would; false when there is no such key.
    bool Press(const QString& key);

    std::function<void(const QString& key)> onButtonClick;

private:
    QPointer<ImageList> images_;
    std::vector<std::unique_ptr<ToolbarButton>> buttons_;
};

}  // namespace controls
