#include "local/localTreeWalk.h"

#include "local/frmLocal.h"
#include "local/frmPopUpfrmLocal.h"
#include "shared/mPublic.h"

QStringList FolderParts(const QString& folder) {
    const QString rest = folder.mid(3);
    return rest.isEmpty() ? QStringList() : rest.split(u'\\');
}

void ReadTreeDownTo(const QString& folder, qsizetype count, TreeReader reader) {
    auto& tree = *frmLocal().trwPaths;
    const QStringList parts = FolderParts(folder);
    QString sStep = folder.left(3);
    for (qsizetype i = 0; i < count && i < parts.size(); ++i) {
        sStep += parts[i] + u'\\';
        // A step without a node reads nothing.
        const int node = tree.IndexOf(sStep.toLower());
        if (node == 0 || tree.Tag(node) == u"*") continue;
        SetMousePointer(vbHourglass);
        if (reader == TreeReader::Popup)
            frmPopUpfrmLocal().GetFilestrwPaths(tree.Key(node));
        else
            frmLocal().GetFilestrwPaths(tree.Key(node));
        tree.SetTag(node, QStringLiteral("*"));
        SetMousePointer(vbDefault);
    }
}

void RebuildTreeTo(const QString& folder, TreeReader reader) {
    auto& tree = *frmLocal().trwPaths;
    tree.Clear();
    const QString root = folder.left(2).toLower();
    tree.Add(QString(), 0, root, reader == TreeReader::Popup ? UCase(root) : root, FrmLocal::kRootImage,
             FrmLocal::kRootImage);
    // Both doors read the root's children with the popup's copy: it searches
    // "\*.*" behind the bare drive.
    frmPopUpfrmLocal().GetFilestrwPaths(root);
    tree.SetExpanded(1, true);
    // Kept: the pane's door stops one part short of the popup's, so its new
    // folder shows in the list and not yet in the tree.
    const qsizetype parts = FolderParts(folder).size();
    ReadTreeDownTo(folder, reader == TreeReader::Popup ? parts - 1 : parts - 2, reader);
}
