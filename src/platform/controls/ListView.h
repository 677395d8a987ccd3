// A list of rows with sub-items in four views (0 large icons, 1 small
// icons, 2 list, 3 report); rows and sub-items are 1-based.
//
// Rows name their pictures by key; adding a row whose key the bound image
// list doesn't hold fails and adds nothing. The first row added to an empty
// list becomes the selected item.
#pragma once

#include "platform/controls/ImageList.h"

#include <QHash>
#include <QPointer>
#include <QStackedWidget>
#include <functional>
#include <utility>

class QListView;
class QTreeView;
class QAbstractItemView;

namespace controls {

// Views and column alignments.
constexpr int lvwIcon = 0;
constexpr int lvwSmallIcon = 1;
constexpr int lvwList = 2;
constexpr int lvwReport = 3;
constexpr int lvwColumnLeft = 0;
constexpr int lvwColumnRight = 1;

class RowModel;

class ListView : public QStackedWidget {
    Q_OBJECT
public:
    explicit ListView(QWidget* parent = nullptr);

    void ColumnHeadersClear();
    // Alignment 0 left, 1 right.
    void ColumnHeadersAdd(const QString& text, int widthTwips, int alignment);
    int ColumnCount() const;
    QString ColumnHeader(int index) const;  // 1-based

    void SetIcons(ImageList* large);
    void SetSmallIcons(ImageList* small);
    ImageList* Icons() const { return large_; }
    ImageList* SmallIcons() const { return small_; }

    // Index of the new row, 0 when it could not be added.
    int Add(const QString& text, const QString& largeKey = QString(), const QString& smallKey = QString());
    void Clear();
    int Count() const;
    QString Text(int index) const;
    QString IconKey(int index) const;
    // Sub-items 1..4; "" out of range. Setting out of range fails.
    QString SubItem(int index, int sub) const;
    bool SetSubItem(int index, int sub, const QString& text);
    bool Selected(int index) const;
    void SetSelected(int index, bool selected);
    // SelectedItem: the current row, 0 when the list is empty.
    int SelectedIndex() const;
    void Refresh();
    // Many rows at once: the views learn of them in one go at EndBulk
    // instead of row by row.
    void BeginBulk();
    void EndBulk();
    int RefreshCount() const { return refreshes_; }

    int View() const { return view_; }
    void SetView(int view);

    // A point given in twips from the shown view's top left (as the mouse
    // events report it) on the screen.
    QPoint MapToGlobal(int xTwips, int yTwips) const;
    // Where the user points and clicks: the shown view's area, and a row's
    // place in it (scrolled into view first; empty for no row).
    QWidget* ViewArea() const;
    QRect RowRect(int index);

    // Simulated user actions for tests and the keyboard.
    void DoubleClickRow(int index);

    // Keys (codes, pressed without shift, ctrl or alt) that reach onKeyDown
    // while the list has the focus even where a window's menu has them as
    // shortcuts; elsewhere the shortcuts stand.
    void SetKeysBeforeShortcuts(QList<int> keyCodes) { ownKeys_ = std::move(keyCodes); }

    std::function<void()> onDblClick;
    std::function<void(int& keyCode, int shift)> onKeyDown;
    std::function<void(int button, int shift, int x, int y)> onMouseDown;
    std::function<void(int button, int shift, int x, int y)> onMouseUp;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QIcon iconFor(const QString& largeKey, const QString& smallKey);
    void watch(QAbstractItemView* view);

    RowModel* model_;
    QListView* iconView_;
    QTreeView* reportView_;
    QPointer<ImageList> large_;
    QPointer<ImageList> small_;
    QHash<QString, QIcon> iconCache_;
    std::pair<quint64, quint64> cacheSerials_{0, 0};
    int view_ = 0;
    int headers_ = 0;
    bool bulk_ = false;
    int refreshes_ = 0;
    QList<int> ownKeys_;
};

}  // namespace controls
