// A tree of keyed nodes, indexed from 1 in the order they were added, so
// the children added in one run have contiguous indexes.
//
// Keys are matched exactly: callers that mean
// a path lower it first. Every property takes an index and does nothing (or
// gives an empty value) for one that doesn't exist, so the logic can skip a
// missing node and go on.
#pragma once

#include "platform/controls/ImageList.h"

#include <QHash>
#include <QPointer>
#include <QTreeWidget>
#include <functional>
#include <vector>

namespace controls {

// The relationship of a new node to its relative: its child.
constexpr int tvwChild = 4;

class TreeView : public QTreeWidget {
    Q_OBJECT
public:
    explicit TreeView(QWidget* parent = nullptr);

    // Images are 1-based indexes into this list.
    void SetImageList(ImageList* images);
    ImageList* GetImageList() const { return images_; }

    // Nodes.Add: a root (relativeKey empty) or, with relationship 4, a child
    // of the node keyed relativeKey. Gives the new index; 0 and nothing
    // added for a key already used, a missing relative or another
    // relationship. An empty key is allowed any number of times.
    int Add(const QString& relativeKey, int relationship, const QString& key, const QString& text, int image,
            int selectedImage);
    // Nodes.Clear: every node goes; indexes start again at 1. Raises nothing.
    void Clear();
    int Count() const { return int(nodes_.size()); }
    // The index of a key, 0 when no node has it.
    int IndexOf(const QString& key) const;

    QString Key(int index) const;
    QString Text(int index) const;
    void SetText(int index, const QString& text);
    QString Tag(int index) const;
    void SetTag(int index, const QString& tag);
    bool Expanded(int index) const;
    // Expanding a collapsed node raises onExpand before this returns, as the
    // user's click on its box does; collapsing raises nothing.
    void SetExpanded(int index, bool expanded);
    bool Selected(int index) const;
    // Makes the node the selected one; raises nothing.
    void SetSelected(int index);
    int Children(int index) const;
    int Child(int index) const;  // the first child
    int Parent(int index) const;
    int FirstSibling(int index) const;
    int LastSibling(int index) const;

    // SelectedItem: 0 when no node is selected.
    int SelectedIndex() const;
    int DropHighlight() const { return dropHighlight_; }
    void SetDropHighlight(int index);
    // The node under a point given in twips from the control's top left, 0
    // over empty space.
    int HitTest(int xTwips, int yTwips) const;

    // A user's click on a node: selects it and raises onNodeClick.
    void ClickNode(int index);
    // Scrolls the node into view: its row in the viewport, empty for none.
    QRect NodeRect(int index);

    std::function<void(int index)> onExpand;
    std::function<void(int index)> onNodeClick;

private:
    struct Node {
        QString key;
        QString tag;
        QTreeWidgetItem* item = nullptr;
        int parent = 0;
        int image = 0;
        int selectedImage = 0;
    };
    int indexOfItem(const QTreeWidgetItem* item) const;
    bool valid(int index) const { return index >= 1 && index <= Count(); }
    const Node& node(int index) const { return nodes_[size_t(index - 1)]; }
    // The picture of a node: its selected image while it is the current one.
    void showPicture(int index, bool selected);

    QPointer<ImageList> images_;
    std::vector<Node> nodes_;
    QHash<QString, int> keys_;
    QHash<const QTreeWidgetItem*, int> items_;
    int dropHighlight_ = 0;
    bool raising_ = false;
};

}  // namespace controls
