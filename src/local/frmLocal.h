// The left pane: drives, the folder tree, the visited folders and the file
// list of the local computer. The selected tree node is the current folder.
#pragma once

#include "platform/controls/ComboBox.h"
#include "platform/controls/DriveListBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormSlot.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Toolbar.h"
#include "platform/controls/TreeView.h"

#include <QGroupBox>
#include <vector>

struct tLocalFolder {
    QString sName;
    QString sPath;  // full path with trailing "\"
};

class FrmLocal : public controls::Form {
    Q_OBJECT
public:
    FrmLocal();
    void Form_Load();
    void Form_Unload();

    QGroupBox* fraLocal = nullptr;
    controls::DriveListBox* drvDrive = nullptr;
    controls::Toolbar* tlbdrvDrive = nullptr;
    controls::TreeView* trwPaths = nullptr;
    controls::Toolbar* tlbDirOptions = nullptr;
    controls::ComboBox* cboLocal = nullptr;
    controls::Toolbar* tlbLocal = nullptr;
    controls::ListView* lsvDirFile = nullptr;
    controls::ImageList* imgImages = nullptr;
    controls::ImageList* imgListLarge = nullptr;
    controls::ImageList* imgListSmall = nullptr;
    controls::ImageList* imgLocalLinks = nullptr;
    controls::ImageList* imgLocalRechts = nullptr;
    controls::ImageList* imgdrvDrive = nullptr;

    std::vector<tLocalFolder> arrLocalFolders;

    // Reads the folder of the selected node.
    void RefreshLocal();
    // Fills the list; pPath comes back with a trailing "\".
    void ViewFolder(QString& pPath, const QString& pPattern);
    void ReadDrive(const QString& pDrive);
    void GetFilestrwPaths(const QString& pPath);
    // Adds the sub-folders found by `search` as children of the node keyed
    // pPath, sorted in `folders` by name in the given sensitivity.
    void ReadFolderNodes(const QString& pPath, const QString& search, std::vector<tLocalFolder>& folders,
                         Qt::CaseSensitivity cs);
    // Asks for a name and makes that folder in the current one; the tree is
    // read again down to the current folder, not into it.
    void NewLocalFolder();

    // What stands for the current folder when no node is selected.
    enum class NoNode {
        FirstNode,         // the text of node 1
        FirstNodeLowered,  // the same, lower-cased
        Drive,             // the drive box's first two characters
    };
    // The folder of the selected node, walked up to its drive, with a
    // trailing "\"; `lowerParents` lowers every name above the node's own.
    QString CurrentFolder(NoNode fallback = NoNode::FirstNode, bool lowerParents = false) const;

    void drvDrive_Change();
    void cboLocal_Click();
    void trwPaths_Expand(int node);
    void trwPaths_NodeClick(int node);
    void lsvDirFile_DblClick();
    void lsvDirFile_KeyDown(int& keyCode, int shift);
    void lsvDirFile_MouseDown(int button, int shift, int x, int y);
    void tlbLocal_ButtonClick(const QString& key);
    void tlbdrvDrive_ButtonClick(const QString& key);
    void tlbDirOptions_ButtonClick(const QString& key);

    // Pictures of the tree's nodes in imgImages.
    static constexpr int kRootImage = 1;
    static constexpr int kFolderImage = 2;
    static constexpr int kOpenFolderImage = 3;

protected:
    void Form_Resize() override;

private:
    // Where the tree's first row stands, in twips.
    static constexpr int kFirstRowX = 675;
    static constexpr int kFirstRowY = 105;

    void ViewSelectedNode();
    void AssignComboIndex(int index);
    void ChooseStartDrive();
};

extern controls::FormSlot<FrmLocal> frmLocal;
