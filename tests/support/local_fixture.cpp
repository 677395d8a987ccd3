#include "support/local_fixture.h"

#include "support/byte_paths.h"

#include "local/frmLocal.h"
#include "platform/localfs.h"
#include "platform/localfs_internal.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QTest>
#include <QToolButton>
#include <sys/stat.h>

void LocalFolderTest::SetUp() {
    ASSERT_TRUE(dir_.isValid());
    root_ = QFile::encodeName(QFileInfo(dir_.path()).canonicalFilePath());
    StartedFrameTest::SetUp();
}

void LocalFolderTest::TearDown() {
    StartedFrameTest::TearDown();
    bytepaths::EmptyFolder(root_);
}

QString LocalFolderTest::Win(const QByteArray& relative) const {
    return localfs::detail::WindowsOf(relative.isEmpty() ? root_ : root_ + '/' + relative);
}

void LocalFolderTest::Make(const QByteArray& relative, const QByteArray& content) const {
    const qsizetype cut = relative.lastIndexOf('/');
    const QByteArray folder = cut < 0 ? root_ : root_ + '/' + relative.left(cut);
    ASSERT_TRUE(bytepaths::Write(folder, relative.mid(cut + 1), content)) << relative.toStdString();
}

void LocalFolderTest::Folder(const QByteArray& relative) const {
    ASSERT_EQ(::mkdir((root_ + '/' + relative).constData(), 0755), 0) << relative.toStdString();
}

QList<QByteArray> LocalFolderTest::OnDisk(const QByteArray& relative) const {
    return bytepaths::Names(relative.isEmpty() ? root_ : root_ + '/' + relative);
}

void LocalFolderTest::Go(const QByteArray& relative) {
    const QString key = Win(relative).toLower() + '\\';
    const QStringList parts = key.mid(3).split('\\', Qt::SkipEmptyParts);
    QString step = key.left(3);
    for (qsizetype i = 0; i < parts.size(); ++i) {
        step += parts[i] + '\\';
        const int node = tree().IndexOf(step);
        ASSERT_NE(node, 0) << step.toStdString();
        if (i + 1 < parts.size()) {
            tree().SetExpanded(node, true);
            continue;
        }
        const QRect row = tree().NodeRect(node);
        ASSERT_FALSE(row.isEmpty());
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, row.center());
        Pump();
        ASSERT_EQ(tree().SelectedIndex(), node);
    }
}

controls::ListView& LocalFolderTest::list() {
    return *frmLocal().lsvDirFile;
}

controls::TreeView& LocalFolderTest::tree() {
    return *frmLocal().trwPaths;
}

QStringList LocalFolderTest::Rows() {
    return RowTexts(list());
}

int LocalFolderTest::Row(const QByteArray& name) {
    return RowOf(list(), localfs::detail::NameText(name));
}

void LocalFolderTest::SelectOnly(std::initializer_list<int> rows) {
    for (int i = 1; i <= list().Count(); ++i) list().SetSelected(i, false);
    for (int row : rows) list().SetSelected(row, true);
}

void LocalFolderTest::RightClick(const QPoint& where) {
    QTest::mouseClick(list().ViewArea(), Qt::RightButton, {}, where);
    Pump();
}

void LocalFolderTest::RightClickRow(int row) {
    const QRect r = list().RowRect(row);
    ASSERT_FALSE(r.isEmpty());
    RightClick(r.center());
}

void LocalFolderTest::Choose(QMenu* menu, QAction* entry) {
    ASSERT_TRUE(menu->isVisible());
    const QPoint at = menu->actionGeometry(entry).center();
    QTest::mouseMove(menu, at);
    QTest::mouseClick(menu, Qt::LeftButton, {}, at);
    Pump();
    // A sub-menu opens under the pointer after a moment.
    if (QMenu* sub = entry->menu())
        for (int i = 0; i < 100 && !sub->isVisible(); ++i) {
            QTest::qWait(10);
            Pump();
        }
}

void LocalFolderTest::ClickTool(const char* key) {
    auto& bar = *frmLocal().tlbDirOptions;
    QWidget* button = bar.widgetForAction(bar.Button(QString::fromLatin1(key))->action);
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
    Pump();
}

void LocalFolderTest::PressKey(Qt::Key key) {
    QWidget* view = list().currentWidget();
    view->setFocus();
    QTest::keyClick(view, key);
    Pump();
}

std::vector<FrameTest::LogLine> LocalFolderTest::LogFrom(size_t first) const {
    const std::vector<LogLine> all = LogLines();
    if (first >= all.size()) return {};
    return std::vector<LogLine>(all.begin() + qsizetype(first), all.end());
}
