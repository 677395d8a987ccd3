#include "platform/controls/ListView.h"

#include "platform/controls/ImageList.h"
#include "platform/controls/keys.h"
#include "platform/controls/twips.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QTreeView>

namespace controls {

namespace {
constexpr int kSubItems = 4;
constexpr int kColumns = 1 + kSubItems;
}  // namespace

// The rows as a flat table: a listing of many thousand rows is filled with
// one append per row and a few string assignments, no item objects.
class RowModel : public QAbstractTableModel {
public:
    struct Row {
        QString cells[kColumns];
        QString key;
        QIcon icon;
    };

    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override {
        return parent.isValid() ? 0 : int(rows_.size());
    }
    int columnCount(const QModelIndex& parent = QModelIndex()) const override {
        return parent.isValid() ? 0 : kColumns;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const Row* row = At(index.row());
        if (!row || index.column() < 0 || index.column() >= kColumns) return {};
        switch (role) {
        case Qt::DisplayRole: return row->cells[index.column()];
        case Qt::DecorationRole: return index.column() == 0 ? QVariant(row->icon) : QVariant();
        case Qt::TextAlignmentRole: return Alignment(index.column());
        default: return {};
        }
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || section < 0 || section >= kColumns) return {};
        if (role == Qt::DisplayRole) return headers_[section];
        if (role == Qt::TextAlignmentRole) return Alignment(section);
        return {};
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
    }

    const Row* At(int row) const { return row >= 0 && row < rowCount() ? &rows_[size_t(row)] : nullptr; }

    void Append(Row row) {
        const int at = rowCount();
        if (!bulk_) beginInsertRows(QModelIndex(), at, at);
        rows_.push_back(std::move(row));
        if (!bulk_) endInsertRows();
    }
    void SetCell(int row, int column, const QString& text) {
        rows_[size_t(row)].cells[column] = text;
        if (!bulk_) emit dataChanged(index(row, column), index(row, column), {Qt::DisplayRole});
    }
    void Clear() {
        if (rows_.empty()) return;
        if (!bulk_) beginRemoveRows(QModelIndex(), 0, rowCount() - 1);
        rows_.clear();
        if (!bulk_) endRemoveRows();
    }
    void SetHeader(int section, const QString& text, int alignment) {
        headers_[section] = text;
        alignments_[section] = alignment;
        emit headerDataChanged(Qt::Horizontal, section, section);
    }
    void ClearHeaders() {
        for (int c = 0; c < kColumns; ++c) SetHeader(c, QString(), 0);
    }

    // While bulk, the views hear nothing; its end tells them everything
    // changed.
    void SetBulk(bool on) {
        if (on == bulk_) return;
        bulk_ = on;
        if (!on) {
            beginResetModel();
            endResetModel();
        }
    }

private:
    QVariant Alignment(int column) const {
        const Qt::Alignment side = alignments_[column] == lvwColumnRight ? Qt::AlignRight : Qt::AlignLeft;
        return int(side | Qt::AlignVCenter);
    }

    std::vector<Row> rows_;
    QString headers_[kColumns];
    int alignments_[kColumns] = {};
    bool bulk_ = false;
};

ListView::ListView(QWidget* parent)
    : QStackedWidget(parent),
      model_(new RowModel(this)),
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
    SetView(lvwIcon);
}

void ListView::watch(QAbstractItemView* view) {
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
}

void ListView::ColumnHeadersClear() {
    model_->ClearHeaders();
    for (int c = 0; c < kColumns; ++c) reportView_->setColumnHidden(c, true);
    headers_ = 0;
}

void ListView::ColumnHeadersAdd(const QString& text, int widthTwips, int alignment) {
    if (headers_ >= kColumns) return;
    const int c = headers_++;
    model_->SetHeader(c, text, alignment);
    reportView_->setColumnHidden(c, false);
    reportView_->setColumnWidth(c, ToPixels(widthTwips));
}

int ListView::ColumnCount() const { return headers_; }

QString ListView::ColumnHeader(int index) const {
    if (index < 1 || index > headers_) return {};
    return model_->headerData(index - 1, Qt::Horizontal, Qt::DisplayRole).toString();
}

void ListView::SetIcons(ImageList* large) {
    large_ = large;
}

void ListView::SetSmallIcons(ImageList* small) {
    small_ = small;
}

QIcon ListView::iconFor(const QString& largeKey, const QString& smallKey) {
    // Rebinding the same lists (each server read does) keeps what was made.
    const std::pair<quint64, quint64> serials{large_ ? large_->Serial() : 0, small_ ? small_->Serial() : 0};
    if (serials != cacheSerials_) {
        iconCache_.clear();
        cacheSerials_ = serials;
    }
    // Lists name both pictures alike almost always: then one key says it.
    const QString cacheKey = largeKey == smallKey ? largeKey : largeKey + QChar(0) + smallKey;
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
    RowModel::Row row;
    row.cells[0] = text;
    row.key = largeKey;
    if (!largeKey.isEmpty() || !smallKey.isEmpty()) row.icon = iconFor(largeKey, smallKey);
    const bool first = model_->rowCount() == 0;
    model_->Append(std::move(row));
    if (first) SetSelected(1, true);
    return model_->rowCount();
}

void ListView::Clear() {
    model_->Clear();
}

int ListView::Count() const { return model_->rowCount(); }

QString ListView::Text(int index) const {
    const RowModel::Row* row = model_->At(index - 1);
    return row ? row->cells[0] : QString();
}

QString ListView::IconKey(int index) const {
    const RowModel::Row* row = model_->At(index - 1);
    return row ? row->key : QString();
}

QString ListView::SubItem(int index, int sub) const {
    const RowModel::Row* row = model_->At(index - 1);
    return row && sub >= 1 && sub <= kSubItems ? row->cells[sub] : QString();
}

bool ListView::SetSubItem(int index, int sub, const QString& text) {
    if (!model_->At(index - 1) || sub < 1 || sub > kSubItems) return false;
    model_->SetCell(index - 1, sub, text);
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
    model_->SetBulk(true);
}

void ListView::EndBulk() {
    if (!bulk_) return;
    bulk_ = false;
    // The reset drops the selection: the first row stays the selected one.
    const bool firstSelected = Count() > 0 && Selected(1);
    model_->SetBulk(false);
    if (firstSelected || (Count() > 0 && !reportView_->selectionModel()->currentIndex().isValid()))
        SetSelected(1, true);
}

void ListView::Refresh() {
    ++refreshes_;
    currentWidget()->update();
}

void ListView::SetView(int view) {
    if (view < lvwIcon || view > lvwReport) return;
    view_ = view;
    if (view == lvwReport) {
        setCurrentWidget(reportView_);
        return;
    }
    iconView_->setViewMode(view == lvwIcon ? QListView::IconMode : QListView::ListMode);
    iconView_->setIconSize(view == lvwIcon ? QSize(32, 32) : QSize(16, 16));
    iconView_->setFlow(view == lvwList ? QListView::TopToBottom : QListView::LeftToRight);
    iconView_->setWrapping(true);
    iconView_->setResizeMode(QListView::Adjust);
    iconView_->setMovement(QListView::Static);
    setCurrentWidget(iconView_);
}

QPoint ListView::MapToGlobal(int xTwips, int yTwips) const {
    return ViewArea()->mapToGlobal(QPoint(ToPixels(xTwips), ToPixels(yTwips)));
}

QWidget* ListView::ViewArea() const {
    const auto* view = qobject_cast<const QAbstractItemView*>(currentWidget());
    return view ? view->viewport() : currentWidget();
}

QRect ListView::RowRect(int index) {
    auto* view = qobject_cast<QAbstractItemView*>(currentWidget());
    if (!view || index < 1 || index > Count()) return {};
    const QModelIndex idx = model_->index(index - 1, 0);
    view->scrollTo(idx);
    return view->visualRect(idx);
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
    case QEvent::ShortcutOverride:
        if (onKeyDown && (watched == iconView_ || watched == reportView_)) {
            auto* ke = static_cast<QKeyEvent*>(event);
            if ((ke->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && ownKeys_.contains(KeyCodeOf(ke))) {
                event->accept();
                return true;
            }
        }
        break;
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
            QMetaObject::invokeMethod(this, [this, b = ButtonOf(me->button()), s = ShiftOf(me->modifiers()), p] {
                if (onMouseDown) onMouseDown(b, s, ToTwips(p.x()), ToTwips(p.y()));
            }, Qt::QueuedConnection);
        }
        break;
    case QEvent::MouseButtonRelease:
        if (onMouseUp) {
            auto* me = static_cast<QMouseEvent*>(event);
            const QPoint p = me->position().toPoint();
            QMetaObject::invokeMethod(this, [this, b = ButtonOf(me->button()), s = ShiftOf(me->modifiers()), p] {
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
