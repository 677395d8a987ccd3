#include "platform/controls/Toolbar.h"

#include "platform/controls/ImageList.h"

#include <QAction>

namespace controls {

QString ToolbarButton::ToolTipText() const {
    return action ? action->toolTip() : QString();
}

void ToolbarButton::SetToolTipText(const QString& text) {
    if (action) action->setToolTip(text);
}

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
    setMovable(false);
    setFloatable(false);
    setIconSize(QSize(16, 16));
    setToolButtonStyle(Qt::ToolButtonIconOnly);
}

ToolbarButton& Toolbar::AddButton(const QString& key, int image) {
    auto button = std::make_unique<ToolbarButton>();
    button->key = key;
    const QIcon icon = images_ ? images_->Picture(image) : QIcon();
    button->action = addAction(icon, QString());
    button->action->setObjectName(key);
    connect(button->action, &QAction::triggered, this, [this, key] {
        if (onButtonClick) onButtonClick(key);
    });
    buttons_.push_back(std::move(button));
    return *buttons_.back();
}

ToolbarButton* Toolbar::Button(int index) {
    if (index < 1 || index > ButtonCount()) return nullptr;
    return buttons_[size_t(index - 1)].get();
}

ToolbarButton* Toolbar::Button(const QString& key) {
    for (auto& b : buttons_)
        if (b->key == key) return b.get();
    return nullptr;
}

bool Toolbar::Press(const QString& key) {
    ToolbarButton* b = Button(key);
    if (!b) return false;
    b->action->trigger();
    return true;
}

}  // namespace controls
