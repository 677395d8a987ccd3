#include "platform/controls/ListView.h"

#include "platform/controls/ImageList.h"
#include "platform/controls/keys.h"
#include "platform/controls/twips.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QTreeView>

namespace controls {

// Lets the list tell its views "everything changed" after a bulk fill.
class RowModel : public QStandardItemModel {
public:
    using QStandardItemModel::QStandardItemModel;
    void Reset() {
        beginResetModel();
        endResetModel();
    }
};

namespace {
constexpr int kSubItems = 4;
constexpr int kKeyRole = Qt::UserRole + 1;

int ButtonCode(Qt::MouseButton b) {
    switch (b) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}
int ShiftCode(Qt::KeyboardModifiers m) {
    return ((m & Qt::ShiftModifier) ? 1 : 0) | ((m & Qt::ControlModifier) ? 2 : 0) |
           ((m & Qt::AltModifier) ? 4 : 0);
}
}  // namespace

ListView::ListView(QWidget* parent)
    : QStackedWidget(parent),
      model_(new RowModel(0, 1 + kSubItems, this)),
      iconView_(new QListView(this)),
      reportView_(new QTreeView(this)) {
    iconView_->setModel(model_);
    reportView_->setModel(model_);
    // Both views show one selection.
    iconView_->setSelectionModel(reportView_->selectionModel());
    for (QAbstractItemView* v : {static_cast<QAbstractItemView*>(iconView_),
                                 static_cast<QAbstractItemView*>(reportView_)}) {
        v->setSelectionMode(QAbstractItemView::ExtendedSelection);
        v->setEditTriggers(QAbstractItemView::NoEditTriggers);
        watch(v);
    }
    reportView_->setRootIsDecorated(false);
    reportView_->setUniformRowHeights(true);
    reportView_->setItemsExpandable(false);
    reportView_->setAllColumnsShowFocus(true);
    reportView_->header()->setSortIndicatorShown(false);
    reportView_->header()->setSectionsClickable(false);
    iconView_->setUniformItemSizes(true);
    addWidget(iconView_);
    addWidget(reportView_);
    SetView(0);
}

void ListView::watch(QAbstractItemView* view) {
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

void ListView::ColumnHeadersClear() {
    model_->setColumnCount(0);
    model_->setColumnCount(1 + kSubItems);
    for (int c = 0; c <= kSubItems; ++c) model_->setHeaderData(c, Qt::Horizontal, QString());
    for (int c = 0; c <= kSubItems; ++c) reportView_->setColumnHidden(c, true);
    headers_ = 0;
}

void ListView::ColumnHeadersAdd(const QString& text, int widthTwips, int alignment) {
    if (headers_ > kSubItems) return;
    const int c = headers_++;
    model_->setHeaderData(c, Qt::Horizontal, text);
    model_->setHeaderData(c, Qt::Horizontal, alignment == 1 ? int(Qt::AlignRight | Qt::AlignVCenter) : int(Qt::AlignLeft | Qt::AlignVCenter),
                          Qt::TextAlignmentRole);
    reportView_->setColumnHidden(c, false);
    reportView_->setColumnWidth(c, ToPixels(widthTwips));
    alignments_[c] = alignment;
}

int ListView::ColumnCount() const { return headers_; }

QString ListView::ColumnHeader(int index) const {
    if (index < 1 || index > headers_) return {};
    return model_->headerData(index - 1, Qt::Horizontal).toString();
}

void ListView::SetIcons(ImageList* large) {
    if (large_) disconnect(large_, nullptr, this, nullptr);
    large_ = large;
    if (large_) connect(large_, &ImageList::changed, this, [this] { iconCache_.clear(); });
    iconCache_.clear();
}

void ListView::SetSmallIcons(ImageList* small) {
    if (small_) disconnect(small_, nullptr, this, nullptr);
    small_ = small;
    if (small_) connect(small_, &ImageList::changed, this, [this] { iconCache_.clear(); });
    iconCache_.clear();
}

QIcon ListView::iconFor(const QString& largeKey, const QString& smallKey) {
    const QString cacheKey = largeKey + QChar(0) + smallKey;
    auto it = iconCache_.constFind(cacheKey);
    if (it != iconCache_.constEnd()) return *it;
    // One icon carrying both pictures; each view picks its size.
    QIcon icon;
    const QIcon s = small_ ? small_->Picture(smallKey) : QIcon();
    const QIcon l = large_ ? large_->Picture(largeKey) : QIcon();
    if (!s.isNull()) icon.addPixmap(s.pixmap(16, 16));
    if (!l.isNull()) icon.addPixmap(l.pixmap(32, 32));
    iconCache_.insert(cacheKey, icon);
    return icon;
}

int ListView::Add(const QString& text, const QString& largeKey, const QString& smallKey) {
    if (!largeKey.isEmpty() && !(large_ && large_->HasKey(largeKey))) return 0;
    if (!smallKey.isEmpty() && !(small_ && small_->HasKey(smallKey))) return 0;
    QList<QStandardItem*> row;
    row.reserve(1 + kSubItems);
    auto* item = new QStandardItem(text);
    item->setData(largeKey, kKeyRole);
    if (!largeKey.isEmpty() || !smallKey.isEmpty()) item->setIcon(iconFor(largeKey, smallKey));
    row << item;
    for (int c = 1; c <= kSubItems; ++c) {
        auto* sub = new QStandardItem;
        if (alignments_[c] == 1) sub->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row << sub;
    }
    const bool first = model_->rowCount() == 0;
    model_->appendRow(row);
    if (first) SetSelected(1, true);
    return model_->rowCount();
}

void ListView::Clear() {
    model_->removeRows(0, model_->rowCount());
}

int ListView::Count() const { return model_->rowCount(); }

QString ListView::Text(int index) const {
    if (index < 1 || index > Count()) return {};
    return model_->item(index - 1, 0)->text();
}

QString ListView::IconKey(int index) const {
    if (index < 1 || index > Count()) return {};
    return model_->item(index - 1, 0)->data(kKeyRole).toString();
}

QString ListView::SubItem(int index, int sub) const {
    if (index < 1 || index > Count() || sub < 1 || sub > kSubItems) return {};
    return model_->item(index - 1, sub)->text();
}

bool ListView::SetSubItem(int index, int sub, const QString& text) {
    if (index < 1 || index > Count() || sub < 1 || sub > kSubItems) return false;
    model_->item(index - 1, sub)->setText(text);
    return true;
}

bool ListView::Selected(int index) const {
    if (index < 1 || index > Count()) return false;
    return reportView_->selectionModel()->isRowSelected(index - 1, QModelIndex());
}

void ListView::SetSelected(int index, bool selected) {
    if (index < 1 || index > Count()) return;
    auto* sel = reportView_->selectionModel();
    const QModelIndex idx = model_->index(index - 1, 0);
    const auto flags = (selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
                       QItemSelectionModel::Rows;
    sel->select(idx, flags);
    if (selected) sel->setCurrentIndex(idx, QItemSelectionModel::NoUpdate);
}

int ListView::SelectedIndex() const {
    if (Count() == 0) return 0;
    const QModelIndex cur = reportView_->selectionModel()->currentIndex();
    return cur.isValid() ? cur.row() + 1 : 1;
}

void ListView::BeginBulk() {
    if (bulk_) return;
    bulk_ = true;
    model_->blockSignals(true);
}

void ListView::EndBulk() {
    if (!bulk_) return;
    bulk_ = false;
    model_->blockSignals(false);
    // The reset drops the selection: the first row stays the selected one.
    const bool firstSelected = Count() > 0 && Selected(1);
    model_->Reset();
    if (firstSelected || (Count() > 0 && !reportView_->selectionModel()->currentIndex().isValid()))
        SetSelected(1, true);
}

void ListView::Refresh() {
    ++refreshes_;
    currentWidget()->update();
}

void ListView::SetView(int view) {
    if (view < 0 || view > 3) return;
    view_ = view;
    if (view == 3) {
        setCurrentWidget(reportView_);
        return;
    }
    iconView_->setViewMode(view == 0 ? QListView::IconMode : QListView::ListMode);
    iconView_->setIconSize(view == 0 ? QSize(32, 32) : QSize(16, 16));
    iconView_->setFlow(view == 2 ? QListView::TopToBottom : QListView::LeftToRight);
    iconView_->setWrapping(true);
    iconView_->setResizeMode(QListView::Adjust);
    iconView_->setMovement(QListView::Static);
    setCurrentWidget(iconView_);
}

void ListView::DoubleClickRow(int index) {
    if (index >= 1 && index <= Count()) {
        reportView_->selectionModel()->clearSelection();
        SetSelected(index, true);
    }
    if (onDblClick) onDblClick();
}

bool ListView::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (onKeyDown && (watched == iconView_ || watched == reportView_)) {
            auto* ke = static_cast<QKeyEvent*>(event);
            int code = KeyCodeOf(ke);
            if (code != 0) onKeyDown(code, ShiftOf(ke));
        }
        break;
    case QEvent::MouseButtonDblClick:
        // Queued, so the view has selected the row when the handler runs.
        if (onDblClick)
            QMetaObject::invokeMethod(this, [this] { if (onDblClick) onDblClick(); }, Qt::QueuedConnection);
        break;
    case QEvent::MouseButtonPress:
        if (onMouseDown) {
            auto* me = static_cast<QMouseEvent*>(event);
            const QPoint p = me->position().toPoint();
            QMetaObject::invokeMethod(this, [this, b = ButtonCode(me->button()), s = ShiftCode(me->modifiers()), p] {
                if (onMouseDown) onMouseDown(b, s, ToTwips(p.x()), ToTwips(p.y()));
            }, Qt::QueuedConnection);
        }
        break;
    case QEvent::MouseButtonRelease:
        if (onMouseUp) {
            auto* me = static_cast<QMouseEvent*>(event);
            const QPoint p = me->position().toPoint();
            QMetaObject::invokeMethod(this, [this, b = ButtonCode(me->button()), s = ShiftCode(me->modifiers()), p] {
                if (onMouseUp) onMouseUp(b, s, ToTwips(p.x()), ToTwips(p.y()));
            }, Qt::QueuedConnection);
        }
        break;
    default:
        break;
    }
    return QStackedWidget::eventFilter(watched, event);
}

}  // namespace controls
