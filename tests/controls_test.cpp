// The control semantics the logic relies on.
#include "platform/controls/ComboBox.h"
#include "platform/controls/ImageList.h"
#include "platform/controls/ListView.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/RichLog.h"

#include <QPixmap>
#include <gtest/gtest.h>

namespace {
constexpr uint32_t kGreen = 0x00C800;  // RGB(0,200,0)
constexpr uint32_t kRed = 0x0000C8;    // RGB(200,0,0)

QIcon Picture() {
    QPixmap p(16, 16);
    p.fill(Qt::blue);
    return QIcon(p);
}
}  // namespace

TEST(RichLog, ColourSetBeforeACaretMoveIsLostWhenTheCaretReallyMoves) {
    controls::RichLog log;
    log.SetSelText("black line\r\n");
    // Caret already at the end: the move changes nothing, the colour stays.
    log.SetSelColor(kGreen);
    log.SetSelStart(int(log.Text().size()));
    log.SetSelText("green line\r\n");
    EXPECT_EQ(log.ColorAt(int(log.Text().indexOf("green"))), kGreen);

    // After a click elsewhere the move takes the format of the text there.
    log.SetSelColor(0);
    log.SetSelStart(2);
    log.SetSelColor(kRed);
    log.SetSelStart(int(log.Text().size()));
    log.SetSelText("after the move\r\n");
    EXPECT_EQ(log.ColorAt(int(log.Text().indexOf("after"))), kGreen);
    EXPECT_EQ(log.Text(), "black line\ngreen line\nafter the move\n");
}

TEST(RichLog, TextWithoutCaretMoveLandsAtTheCaretAndClearingStartsOver) {
    controls::RichLog log;
    log.SetSelText("one\r\ntwo\r\n");
    log.SetSelStart(4);  // a click at the start of the second line
    log.SetSelColor(0xC80000);
    log.SetSelText("blue\r\n");
    EXPECT_EQ(log.Text(), "one\nblue\ntwo\n");
    EXPECT_EQ(log.ColorAt(4), 0xC80000u);
    log.SetText(QString());
    EXPECT_EQ(log.Text(), "");
    EXPECT_EQ(log.SelStart(), 0);
}

TEST(ComboBox, ListIndexRaisesClickOnlyOnChangeAndAddingSelectsNothing) {
    controls::ComboBox combo;
    int clicks = 0;
    combo.onClick = [&] { ++clicks; };
    combo.AddItem("a");
    combo.AddItem("b");
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_TRUE(combo.SetListIndex(1));
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(combo.SetListIndex(1));
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(combo.SetListIndex(2));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.List(5), "");
}

TEST(ProgressBar, RefusesValuesOutsideItsRange) {
    controls::ProgressBar bar;
    ASSERT_TRUE(bar.SetMax(10));
    EXPECT_TRUE(bar.SetValue(10));
    EXPECT_FALSE(bar.SetValue(11));
    EXPECT_FALSE(bar.SetValue(-1));
    EXPECT_EQ(bar.Value(), 10);
}

TEST(ListView, RowsNeedKnownPictureKeysAndTheFirstRowIsSelected) {
    controls::ImageList large, small;
    large.Add("zdir", Picture());
    small.Add("zdir", Picture());
    EXPECT_FALSE(small.Add("zdir", Picture()));  // keys are unique

    controls::ListView list;
    EXPECT_EQ(list.Add("no list bound", "zdir", "zdir"), 0);
    list.SetIcons(&large);
    list.SetSmallIcons(&small);
    EXPECT_EQ(list.SelectedIndex(), 0);
    EXPECT_EQ(list.Add("..", "zdir", "zdir"), 1);
    EXPECT_EQ(list.Add("unknown key", "ztxt", "ztxt"), 0);
    EXPECT_EQ(list.Add("pub", "zdir", "zdir"), 2);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.SelectedIndex(), 1);
    EXPECT_TRUE(list.SetSubItem(2, 1, "1 KB"));
    EXPECT_FALSE(list.SetSubItem(3, 1, "x"));
    EXPECT_FALSE(list.SetSubItem(2, 5, "x"));
    EXPECT_EQ(list.SubItem(2, 1), "1 KB");
    EXPECT_EQ(list.SubItem(9, 1), "");
    list.SetView(0);
    EXPECT_EQ(list.Count(), 2);  // a view change keeps the rows
    list.Clear();
    EXPECT_EQ(list.SelectedIndex(), 0);
}
