// The started frame with the local pane in a temporary folder of the test's
// own, reached through the tree as a user opens it, and the user's ways to
// the pane's commands: rows, the right button, the popup's entries, the
// toolbar's buttons, keys.
#pragma once

#include "support/frame_fixture.h"

#include <QByteArray>
#include <QRect>
#include <QTemporaryDir>

class QAction;
class QMenu;
namespace controls {
class ListView;
class TreeView;
}  // namespace controls

class LocalFolderTest : public StartedFrameTest {
protected:
    void SetUp() override;
    void TearDown() override;

    // The folder's POSIX bytes, and a path below it in Windows form as the
    // listing names it (parents as on disk).
    QByteArray Root() const { return root_; }
    QString Win(const QByteArray& relative = {}) const;
    void Make(const QByteArray& relative, const QByteArray& content = "x") const;
    void Folder(const QByteArray& relative) const;
    QList<QByteArray> OnDisk(const QByteArray& relative = {}) const;

    // Opens the tree down to the folder below the root and clicks its node.
    void Go(const QByteArray& relative = {});
    static controls::ListView& list();
    static controls::TreeView& tree();
    static QStringList Rows();
    // The row of a name's text (its bytes as the listing shows them).
    static int Row(const QByteArray& name);
    // Exactly these rows selected, the last of them the current one.
    static void SelectOnly(std::initializer_list<int> rows);

    static void RightClick(const QPoint& where);
    static void RightClickRow(int row);
    static void Choose(QMenu* menu, QAction* entry);
    static void ClickTool(const char* key);
    static void PressKey(Qt::Key key);

    // The log's lines from `first` on.
    std::vector<LogLine> LogFrom(size_t first) const;

private:
    QTemporaryDir dir_;
    QByteArray root_;
};
