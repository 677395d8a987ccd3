#include "platform/controls/TreeView.h"

#include "platform/controls/twips.h"

#include <QSignalBlocker>

namespace controls {

TreeView::TreeView(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setColumnCount(1);
    setUniformRowHeights(true);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
        if (!raising_ && onExpand) onExpand(indexOfItem(item));
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int) {
        if (onNodeClick) onNodeClick(indexOfItem(item));
    });
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now, QTreeWidgetItem*) {
        // Pictures follow the selection: the open folder for the chosen node.
        for (const Node& n : nodes_)
            if (images_ && n.item) n.item->setIcon(0, images_->Picture(n.item == now ? n.selectedImage : n.image));
    });
}

int TreeView::Add(const QString& relativeKey, int relationship, const QString& key, const QString& text, int image,
                  int selectedImage) {
    const QString k = key.toLower();
    if (keys_.contains(k)) return 0;
    QTreeWidgetItem* item = nullptr;
    int parent = 0;
    if (relativeKey.isEmpty()) {
        item = new QTreeWidgetItem(this, QStringList{text});
    } else {
        parent = IndexOf(relativeKey);
        if (parent == 0 || relationship != 4) return 0;
        item = new QTreeWidgetItem(node(parent).item, QStringList{text});
    }
    if (images_) item->setIcon(0, images_->Picture(image));
    nodes_.push_back({k, QString(), item, parent, image, selectedImage});
    keys_.insert(k, Count());
    items_.insert(item, Count());
    return Count();
}

void TreeView::Clear() {
    QSignalBlocker block(this);
    clear();
    nodes_.clear();
    keys_.clear();
    items_.clear();
    dropHighlight_ = 0;
}

int TreeView::indexOfItem(const QTreeWidgetItem* item) const {
    return items_.value(item, 0);
}

QString TreeView::Key(int index) const { return valid(index) ? node(index).key : QString(); }
QString TreeView::Text(int index) const { return valid(index) ? node(index).item->text(0) : QString(); }
QString TreeView::Tag(int index) const { return valid(index) ? node(index).tag : QString(); }

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

void TreeView::SetSelected(int index) {
    if (!valid(index)) return;
    QSignalBlocker block(this);
    setCurrentItem(node(index).item);
    if (images_)
        for (const Node& n : nodes_)
            n.item->setIcon(0, images_->Picture(n.item == node(index).item ? n.selectedImage : n.image));
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
    const QTreeWidgetItem* item = node(index).item;
    const QTreeWidgetItem* p = item->parent();
    return indexOfItem(p ? p->child(0) : topLevelItem(0));
}

int TreeView::LastSibling(int index) const {
    if (!valid(index)) return 0;
    const QTreeWidgetItem* item = node(index).item;
    const QTreeWidgetItem* p = item->parent();
    return indexOfItem(p ? p->child(p->childCount() - 1) : topLevelItem(topLevelItemCount() - 1));
}

int TreeView::SelectedIndex() const {
    return indexOfItem(currentItem());
}

void TreeView::SetDropHighlight(int index) {
    dropHighlight_ = valid(index) ? index : 0;
}

int TreeView::HitTest(int xTwips, int yTwips) const {
    return indexOfItem(itemAt(ToPixels(xTwips), ToPixels(yTwips)));
}

void TreeView::ClickNode(int index) {
    if (!valid(index)) return;
    setCurrentItem(node(index).item);
    if (onNodeClick) onNodeClick(index);
}

}  // namespace controls
