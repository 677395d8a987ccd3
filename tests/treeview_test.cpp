// The keyed tree and the drive box as the local pane drives them.
#include "platform/controls/DriveListBox.h"
#include "platform/controls/TreeView.h"
#include "platform/localfs.h"

#include <QPixmap>
#include <gtest/gtest.h>
#include <vector>

namespace {

// c:\ with children a, b (added in one run), then a's child a\x.
class Tree : public ::testing::Test {
protected:
    void SetUp() override {
        tree.resize(200, 150);
        tree.onExpand = [this](int i) { expanded.push_back(i); };
        tree.onNodeClick = [this](int i) { clicked.push_back(i); };
        ASSERT_EQ(tree.Add("", 0, "c:\\", "c:", 1, 1), 1);
        ASSERT_EQ(tree.Add("c:\\", 4, "c:\\a\\", "A", 2, 3), 2);
        ASSERT_EQ(tree.Add("c:\\", 4, "c:\\b\\", "b", 2, 3), 3);
        ASSERT_EQ(tree.Add("c:\\a\\", 4, "c:\\a\\x\\", "X", 2, 3), 4);
    }
    controls::TreeView tree;
    std::vector<int> expanded, clicked;
};

TEST_F(Tree, NodesAreNumberedInOrderOfAdditionAndKnowTheirRelatives) {
    EXPECT_EQ(tree.Key(2), "c:\\a\\");
    EXPECT_EQ(tree.Text(2), "A");
    EXPECT_EQ(tree.Parent(4), 2);
    EXPECT_EQ(tree.Parent(1), 0);
    EXPECT_EQ(tree.Children(1), 2);
    EXPECT_EQ(tree.Child(1), 2);
    EXPECT_EQ(tree.FirstSibling(3), 2);
    EXPECT_EQ(tree.LastSibling(2), 3);
    EXPECT_EQ(tree.Child(3), 0);
}

TEST_F(Tree, AddFailsOnADuplicateKeyAMissingRelativeOrAnotherRelationship) {
    EXPECT_EQ(tree.Add("c:\\", 4, "c:\\a\\", "again", 2, 3), 0);
    EXPECT_EQ(tree.Add("c:\\nowhere\\", 4, "c:\\n\\", "n", 2, 3), 0);
    EXPECT_EQ(tree.Add("c:\\", 1, "c:\\z\\", "z", 2, 3), 0);
    EXPECT_EQ(tree.Count(), 4);
    // Keys match exactly: callers lower their paths before looking up.
    EXPECT_EQ(tree.IndexOf("C:\\A\\"), 0);
    EXPECT_EQ(tree.Add("c:\\", 4, "C:\\A\\", "upper", 2, 3), 5);
    // Nodes without a key don't collide with each other.
    EXPECT_EQ(tree.Add("c:\\", 4, "", "one", 2, 3), 6);
    EXPECT_EQ(tree.Add("c:\\", 4, "", "two", 2, 3), 7);
}

TEST_F(Tree, MissingNodesGiveEmptyValuesAndChangeNothing) {
    for (int bad : {0, -1, 99}) {
        EXPECT_EQ(tree.Key(bad), "");
        EXPECT_EQ(tree.Tag(bad), "");
        EXPECT_EQ(tree.Children(bad), 0);
        EXPECT_EQ(tree.Parent(bad), 0);
        EXPECT_EQ(tree.FirstSibling(bad), 0);
        tree.SetTag(bad, "*");
        tree.SetExpanded(bad, true);
        tree.SetSelected(bad);
    }
    EXPECT_TRUE(expanded.empty());
    EXPECT_EQ(tree.SelectedIndex(), 0);
}

TEST_F(Tree, ExpandingRaisesTheEventOnceBeforeReturningAndSelectingRaisesNothing) {
    tree.SetExpanded(2, true);
    EXPECT_EQ(expanded, std::vector<int>{2});
    tree.SetExpanded(2, true);  // already open
    tree.SetExpanded(2, false);
    EXPECT_EQ(expanded, std::vector<int>{2});
    EXPECT_FALSE(tree.Expanded(2));

    tree.expandItem(tree.topLevelItem(0));  // the user's click on the box
    EXPECT_EQ(expanded, (std::vector<int>{2, 1}));

    tree.SetSelected(3);
    EXPECT_TRUE(tree.Selected(3));
    EXPECT_TRUE(clicked.empty());
    tree.ClickNode(4);
    EXPECT_EQ(tree.SelectedIndex(), 4);
    EXPECT_EQ(clicked, std::vector<int>{4});
}

TEST_F(Tree, ClearStartsTheNumberingAgainAndHitTestFindsTheFirstRowBeforeShowing) {
    EXPECT_EQ(tree.HitTest(675, 105), 1);
    tree.SetDropHighlight(1);
    EXPECT_EQ(tree.DropHighlight(), 1);
    tree.Clear();
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_EQ(tree.DropHighlight(), 0);
    EXPECT_EQ(tree.HitTest(675, 105), 0);
    EXPECT_EQ(tree.Add("", 0, "d:\\", "d:", 1, 1), 1);
    EXPECT_TRUE(expanded.empty());
}

TEST(DriveBox, OnlyAnotherExistingDriveRaisesChange) {
    controls::DriveListBox box;
    int changes = 0;
    box.onChange = [&] { ++changes; };
    ASSERT_TRUE(box.Drive().startsWith("c: ["));
    EXPECT_TRUE(box.SetDrive("C:\\"));  // the one shown
    if (!localfs::DriveExists("q:")) {
        EXPECT_FALSE(box.SetDrive("q:\\"));
    }
    EXPECT_FALSE(box.SetDrive(""));
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(box.count(), localfs::DriveList().size());
    box.Refresh();
    EXPECT_TRUE(box.Drive().startsWith("c:"));
    EXPECT_EQ(changes, 0);
}

}  // namespace
