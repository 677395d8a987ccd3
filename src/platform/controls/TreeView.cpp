#include "platform/controls/TreeView.h"

#include "platform/controls/twips.h"

#include <QSignalBlocker>

namespace controls {

TreeView::TreeView(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setColumnCount(1);
    setUniformRowHeights(true);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
        // Expansions made by SetExpanded raise the event themselves.
        if (!raising_ && onExpand) onExpand(indexOfItem(item));
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int) {
        if (onNodeClick) onNodeClick(indexOfItem(item));
    });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now, QTreeWidgetItem* before) {
        showPicture(indexOfItem(before), false);
        showPicture(indexOfItem(now), true);
    });
}

void TreeView::SetImageList(ImageList* images) {
    images_ = images;
    const int selected = SelectedIndex();
    for (int i = 1; i <= Count(); ++i) showPicture(i, i == selected);
}

void TreeView::showPicture(int index, bool selected) {
    if (!valid(index)) return;
    const Node& n = node(index);
    n.item->setIcon(0, images_ ? images_->Picture(selected ? n.selectedImage : n.image) : QIcon());
}

int TreeView::Add(const QString& relativeKey, int relationship, const QString& key, const QString& text, int image,
                  int selectedImage) {
    if (!key.isEmpty() && keys_.contains(key)) return 0;
    QTreeWidgetItem* item = nullptr;
    int parent = 0;
    if (relativeKey.isEmpty()) {
        item = new QTreeWidgetItem(this, QStringList{text});
    } else {
        parent = IndexOf(relativeKey);
        if (parent == 0 || relationship != tvwChild) return 0;
        item = new QTreeWidgetItem(node(parent).item, QStringList{text});
    }
    nodes_.push_back({key, QString(), item, parent, image, selectedImage});
    const int index = Count();
    if (!key.isEmpty()) keys_.insert(key, index);
    items_.insert(item, index);
    showPicture(index, false);
    return index;
}

void TreeView::Clear() {
    QSignalBlocker block(this);
    clear();
    nodes_.clear();
    keys_.clear();
    items_.clear();
    dropHighlight_ = 0;
}

int TreeView::IndexOf(const QString& key) const {
    return key.isEmpty() ? 0 : keys_.value(key, 0);
}

int TreeView::indexOfItem(const QTreeWidgetItem* item) const {
    return item ? items_.value(item, 0) : 0;
}

QString TreeView::Key(int index) const { return valid(index) ? node(index).key : QString(); }
QString TreeView::Text(int index) const { return valid(index) ? node(index).item->text(0) : QString(); }
QString TreeView::Tag(int index) const { return valid(index) ? node(index).tag : QString(); }

void TreeView::SetText(int index, const QString& text) {
    if (valid(index)) node(index).item->setText(0, text);
}

void TreeView::SetTag(int index, const QString& tag) {
    if (valid(index)) nodes_[size_t(index - 1)].tag = tag;
}

bool TreeView::Expanded(int index) const {
    return valid(index) && node(index).item->isExpanded();
}

void TreeView::SetExpanded(int index, bool expanded) {
    if (!valid(index)) return;
    QTreeWidgetItem* item = node(index).item;
    if (item->isExpanded() == expanded) return;
    raising_ = true;
    item->setExpanded(expanded);
    raising_ = false;
    if (expanded && onExpand) onExpand(index);
}

bool TreeView::Selected(int index) const {
    return valid(index) && index == SelectedIndex();
}

void TreeView::SetSelected(int index) {
    if (!valid(index)) return;
    const int before = SelectedIndex();
    {
        QSignalBlocker block(this);
        setCurrentItem(node(index).item);
    }
    showPicture(before, false);
    showPicture(index, true);
}

int TreeView::Children(int index) const {
    return valid(index) ? node(index).item->childCount() : 0;
}

int TreeView::Child(int index) const {
    if (!valid(index) || node(index).item->childCount() == 0) return 0;
    return indexOfItem(node(index).item->child(0));
}

int TreeView::Parent(int index) const {
    return valid(index) ? node(index).parent : 0;
}

int TreeView::FirstSibling(int index) const {
    if (!valid(index)) return 0;
    const QTreeWidgetItem* p = node(index).item->parent();
    return indexOfItem(p ? p->child(0) : topLevelItem(0));
}

int TreeView::LastSibling(int index) const {
    if (!valid(index)) return 0;
    const QTreeWidgetItem* p = node(index).item->parent();
    return indexOfItem(p ? p->child(p->childCount() - 1) : topLevelItem(topLevelItemCount() - 1));
}

int TreeView::SelectedIndex() const {
    return indexOfItem(currentItem());
}

void TreeView::SetDropHighlight(int index) {
    const int before = dropHighlight_;
    dropHighlight_ = valid(index) ? index : 0;
    // Drawn like a selection until another node (or none) takes it over.
    if (valid(before)) {
        node(before).item->setData(0, Qt::BackgroundRole, QVariant());
        node(before).item->setData(0, Qt::ForegroundRole, QVariant());
    }
    if (dropHighlight_) {
        node(dropHighlight_).item->setBackground(0, palette().highlight());
        node(dropHighlight_).item->setForeground(0, palette().highlightedText());
    }
}

int TreeView::HitTest(int xTwips, int yTwips) const {
    return indexOfItem(itemAt(ToPixels(xTwips), ToPixels(yTwips)));
}

QRect TreeView::NodeRect(int index) {
    if (!valid(index)) return {};
    scrollToItem(node(index).item);
    return visualItemRect(node(index).item);
}

void TreeView::ClickNode(int index) {
    if (!valid(index)) return;
    setCurrentItem(node(index).item);
    if (onNodeClick) onNodeClick(index);
}

}  // namespace controls
