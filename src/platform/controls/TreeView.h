// A tree of keyed nodes, indexed from 1 in the order they were added, so
// the children added in one run have contiguous indexes.
#pragma once

#include "platform/controls/ImageList.h"

#include <QHash>
#include <QPointer>
#include <QTreeWidget>
#include <functional>
#include <vector>

namespace controls {

class TreeView : public QTreeWidget {
    Q_OBJECT
public:
    explicit TreeView(QWidget* parent = nullptr);

    void SetImageList(ImageList* images) { images_ = images; }
    // Adds a root (relativeKey empty) or a child (relationship 4) of the
    // node keyed relativeKey; 0 when the key exists or the parent doesn't.
    int Add(const QString& relativeKey, int relationship, const QString& key, const QString& text, int image,
            int selectedImage);
    void Clear();
    int Count() const { return int(nodes_.size()); }
    // 0 when absent.
    int IndexOf(const QString& key) const { return keys_.value(key.toLower(), 0); }

    // Node properties; out-of-range indexes give empty values and change
    // nothing.
    QString Key(int index) const;
    QString Text(int index) const;
    QString Tag(int index) const;
    void SetTag(int index, const QString& tag);
    bool Expanded(int index) const;
    // Expanding raises onExpand at once, like the user's click on the box.
    void SetExpanded(int index, bool expanded);
    void SetSelected(int index);
    int Children(int index) const;
    int Child(int index) const;  // first child
    int Parent(int index) const;
    int FirstSibling(int index) const;
    int LastSibling(int index) const;

    int SelectedIndex() const;  // 0 when no node is selected
    int DropHighlight() const { return dropHighlight_; }
    void SetDropHighlight(int index);
    // The node at a point in twips, 0 when none.
    int HitTest(int xTwips, int yTwips) const;

    // A user's click on a node, for tests and the keyboard.
    void ClickNode(int index);

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

    QPointer<ImageList> images_;
    std::vector<Node> nodes_;
    QHash<QString, int> keys_;
    QHash<const QTreeWidgetItem*, int> items_;
    int dropHighlight_ = 0;
    bool raising_ = false;
};

}  // namespace controls
