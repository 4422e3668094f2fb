#include "platform/linux/gtk/layout/rebar_window.h"

#include <gdk/gdkkeysyms.h>

#include "platform/linux/gtk/controls/combo_box.h"
#include "platform/linux/gtk/controls/command_button.h"
#include "platform/linux/gtk/system_color.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

constexpr std::uint32_t kInsertMask = 0x1BF;
constexpr std::uint32_t kReadMask = 0x9BF;
constexpr std::uint32_t kSizeMask = 0x40;
constexpr std::uint32_t kStyle = 0x56804648;

class RebarTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    window_.frame.SetLayout(ElasticFrame::Layout::Above);
    window_.frame.Add(top_);
    window_.frame.Add(rest_);
    top_.SetAlign(ElasticFrame::Align::Top);
    buttons_.SetLayout(ElasticFrame::Layout::SideBySide);
    one_.SetCaption("&Back");
    two_.SetCaption("&Forward");
    buttons_.Add(one_);
    buttons_.Add(two_);
    address_ = ComboBoxControl::Create("cboAddress", ComboBox::Style::DropDown, windows_);
    rebar_ = std::make_unique<RebarControl>(top_, kStyle, 600, 60, windows_);
    listening_ += window_.frame.RealignFrame.Connect([this] {
      int height = 0;
      for (int row = 0; rebar_ && row < rebar_->RowCount(); ++row) height += rebar_->RowHeight(row);
      top_.SetHeight(static_cast<float>(height) * kTwipsPerPixel);
    });
  }
  bool Insert(Control& child, const std::string& caption, std::uint32_t id,
              std::uint32_t style = 0x2A4) {
    BandInfo info;
    info.mask = kInsertMask;
    info.style = style;
    info.text = caption;
    info.id = id;
    info.child = child.hwnd();
    info.min_child_width = PixelsOf(child.Width());
    info.min_child_height = windows_.PixelHeight(child.hwnd());
    return rebar_->InsertBand(-1, info);
  }

  test::TestWindow window_{windows_};
  ElasticFrameControl top_{"ELATop", windows_};
  ElasticFrameControl rest_{"ELABottom", windows_};
  ElasticFrameControl buttons_{"ButtonContainer", windows_};
  CommandButtonControl one_{"cmdToolbar0", windows_};
  CommandButtonControl two_{"cmdToolbar1", windows_};
  std::unique_ptr<ComboBoxControl> address_;
  std::unique_ptr<RebarControl> rebar_;
  Connections listening_;
};

TEST_F(RebarTest, BandsKeepWhatTheyWereGiven) {
  EXPECT_TRUE(Insert(buttons_, "", 1));
  EXPECT_TRUE(Insert(*address_, "Address", 2));
  EXPECT_EQ(rebar_->BandCount(), 2);
  BandInfo info;
  info.mask = kReadMask;
  ASSERT_TRUE(rebar_->GetBandInfo(1, info));
  EXPECT_EQ(info.text, "Address");
  EXPECT_EQ(info.id, 2U);
  EXPECT_EQ(info.child, address_->hwnd());
  info.foreground = 0x123456;
  EXPECT_TRUE(rebar_->SetBandInfo(1, info));
  BandInfo again;
  again.mask = 2;
  ASSERT_TRUE(rebar_->GetBandInfo(1, again));
  EXPECT_EQ(again.foreground, 0x123456U);
  EXPECT_EQ(again.text, "") << "only what the mask names is filled";
  EXPECT_FALSE(rebar_->GetBandInfo(2, info));
  EXPECT_FALSE(rebar_->SetBandInfo(-1, info));
  EXPECT_FALSE(rebar_->DeleteBand(2));
  EXPECT_EQ(windows_.ClassName(rebar_->hwnd()), "ReBarWindow32");
  EXPECT_EQ(windows_.Style(rebar_->hwnd()), kStyle);
  EXPECT_EQ(windows_.FirstChild(top_.hwnd()), rebar_->hwnd());
}

TEST_F(RebarTest, ABreakStartsARowAndSoDoesABandThatDoesNotFit) {
  Insert(buttons_, "", 1);
  EXPECT_EQ(rebar_->RowCount(), 1);
  EXPECT_GT(rebar_->RowHeight(0), 20);
  EXPECT_EQ(rebar_->RowHeight(1), 0);
  Insert(*address_, "Address", 2, 0x2A5);
  EXPECT_EQ(rebar_->RowCount(), 2);
  rebar_->DeleteBand(1);
  Insert(*address_, "Address", 2);
  EXPECT_EQ(rebar_->RowCount(), 1);
  rebar_->Move(0, 0, 150, 60);
  EXPECT_EQ(rebar_->RowCount(), 2);
}

TEST_F(RebarTest, ChildrenMoveIntoTheBandsAndTheHeightFollowsTheRows) {
  Insert(buttons_, "", 1);
  Insert(*address_, "Address", 2);
  window_.Show();
  Settle();
  EXPECT_EQ(windows_.FirstChild(rebar_->hwnd()), buttons_.hwnd());
  EXPECT_EQ(windows_.NextSibling(buttons_.hwnd()), address_->hwnd());
  EXPECT_TRUE(one_.widget().get_mapped());
  EXPECT_TRUE(address_->widget().get_mapped());
  const int one_row = PixelsOf(top_.Height());
  EXPECT_EQ(one_row, rebar_->RowHeight(0));
  window_.form.SetWidth(200 * kTwipsPerPixel);
  WaitFor("two rows", [&] { return rebar_->RowCount() == 2; });
  WaitFor("room for them",
          [&] { return PixelsOf(top_.Height()) == rebar_->RowHeight(0) + rebar_->RowHeight(1); });
  window_.form.SetWidth(600 * kTwipsPerPixel);
  WaitFor("one row again", [&] { return PixelsOf(top_.Height()) == one_row; });
}

TEST_F(RebarTest, TheFocusGoesFromLeftToRight) {
  Insert(buttons_, "", 1);
  Insert(*address_, "Address", 2);
  window_.Show();
  one_.SetFocus();
  Settle();
  Key(window_.form.window(), GDK_KEY_Tab);
  EXPECT_TRUE(two_.widget().has_focus());
  Key(window_.form.window(), GDK_KEY_Tab);
  EXPECT_TRUE(window_.form.window().get_focus()->is_ancestor(address_->widget()));
}

TEST_F(RebarTest, ABandThatIsDeletedTakesItsChildOutOfSight) {
  Insert(buttons_, "", 1);
  Insert(*address_, "Address", 2);
  window_.Show();
  Settle();
  EXPECT_TRUE(rebar_->DeleteBand(0));
  Settle();
  EXPECT_FALSE(one_.widget().get_mapped());
  EXPECT_TRUE(buttons_.Visible()) << "the control itself was not hidden";
  Insert(buttons_, "", 1);
  Settle();
  EXPECT_TRUE(one_.widget().get_mapped());
  BandInfo info;
  info.mask = kReadMask;
  rebar_->GetBandInfo(1, info);
  EXPECT_EQ(info.id, 1U) << "appended";
}

TEST_F(RebarTest, AnUnknownChildIsABandWithoutOne) {
  BandInfo info;
  info.mask = kInsertMask;
  info.text = "empty";
  info.child = 4711;
  EXPECT_TRUE(rebar_->InsertBand(-1, info));
  EXPECT_FALSE(rebar_->InsertBand(5, info));
  window_.Show();
  Settle();
  EXPECT_EQ(rebar_->RowCount(), 1);
}

TEST_F(RebarTest, ChildrenMoveBackIntoTheContainerAndTheRestGoesWithTheStrip) {
  Insert(buttons_, "", 1);
  Insert(*address_, "Address", 2);
  window_.Show();
  rebar_->SetVisible(false);
  windows_.SetParent(buttons_.hwnd(), top_.hwnd());
  EXPECT_EQ(windows_.Parent(buttons_.hwnd()), top_.hwnd());
  EXPECT_EQ(windows_.FirstChild(rebar_->hwnd()), address_->hwnd());
  const auto handle = rebar_->hwnd();
  while (rebar_->BandCount() > 0) rebar_->DeleteBand(0);
  rebar_.reset();
  Settle();
  EXPECT_EQ(windows_.ClassName(handle), "");
  EXPECT_EQ(windows_.Parent(address_->hwnd()), 0U);
  EXPECT_TRUE(buttons_.widget().is_ancestor(top_.widget()));
  EXPECT_FALSE(address_->widget().get_mapped());
}

class RebarDragTest : public RebarTest {
 protected:
  void SetUp() override {
    RebarTest::SetUp();
    Insert(buttons_, "", 1);
    Insert(*address_, "Address", 2);
    window_.Show();
    Settle();
  }
  std::vector<std::uint32_t> Order() {
    std::vector<std::uint32_t> ids;
    for (int i = 0; i < rebar_->BandCount(); ++i) ids.push_back(Record(i).id);
    return ids;
  }
  BandInfo Record(int index) {
    BandInfo info;
    info.mask = kReadMask | kSizeMask;
    EXPECT_TRUE(rebar_->GetBandInfo(index, info));
    return info;
  }
  /// Where a widget begins, in the strip.
  int LeftOf(Gtk::Widget& widget) {
    int x = 0;
    int y = 0;
    widget.translate_coordinates(rebar_->widget(), 0, 0, x, y);
    return x;
  }
  void Pointer(int x, int y, const std::vector<std::string>& then = {}) {
    int left = 0;
    int top = 0;
    rebar_->widget().get_window()->get_origin(left, top);
    std::vector<std::string> command = {"xdotool", "mousemove", std::to_string(left + x),
                                        std::to_string(top + y)};
    command.insert(command.end(), then.begin(), then.end());
    Outside(command);
    Settle();
  }
  /// Takes a band by its grip and drops it at a point.
  void Drag(int from_x, int from_y, int x, int y) {
    Pointer(from_x, from_y, {"mousedown", "1"});
    Pointer((from_x + x) / 2, (from_y + y) / 2);
    Pointer(x, y);
    Pointer(x, y, {"mouseup", "1"});
  }
  int GripOfAddress() { return LeftOf(buttons_.widget()) + PixelsOf(buttons_.Width()) + 6; }
};

TEST_F(RebarDragTest, AGripDraggedAsideMovesTheBorderAndTheRecordFollows) {
  const int before = LeftOf(address_->widget());
  const int grip = GripOfAddress();
  Drag(grip, 10, grip + 120, 10);
  EXPECT_THAT(Order(), testing::ElementsAre(1U, 2U));
  EXPECT_EQ(LeftOf(address_->widget()), before + 120);
  EXPECT_GE(Record(0).width, 120);
  Pointer(grip + 20, 10);
  EXPECT_EQ(LeftOf(address_->widget()), before + 120) << "the drag has ended";
}

TEST_F(RebarDragTest, ABandDraggedOverItsNeighbourGoesBeforeIt) {
  Drag(GripOfAddress(), 10, 2, 10);
  EXPECT_THAT(Order(), testing::ElementsAre(2U, 1U));
  EXPECT_LT(LeftOf(address_->widget()), LeftOf(one_.widget()));
  EXPECT_TRUE(one_.widget().get_mapped());
}

TEST_F(RebarDragTest, ABandDraggedBelowStartsARowAndTheStripMakesRoom) {
  const int one_row = PixelsOf(top_.Height());
  Drag(3, 10, 200, one_row + 30);
  EXPECT_THAT(Order(), testing::ElementsAre(2U, 1U));
  EXPECT_EQ(rebar_->RowCount(), 2);
  EXPECT_EQ(Record(0).style & 1U, 0U);
  EXPECT_EQ(Record(1).style & 1U, 1U);
  WaitFor("room for two rows",
          [&] { return PixelsOf(top_.Height()) == rebar_->RowHeight(0) + rebar_->RowHeight(1); });
  Drag(3, rebar_->RowHeight(0) + 10, 100, 5);
  EXPECT_EQ(rebar_->RowCount(), 1);
  EXPECT_THAT(Order(), testing::ElementsAre(1U, 2U));
}

TEST_F(RebarDragTest, ABandDeletedWhileItIsDraggedIsLetGo) {
  Pointer(3, 10, {"mousedown", "1"});
  rebar_->DeleteBand(0);
  Pointer(300, 10);
  Pointer(300, 10, {"mouseup", "1"});
  EXPECT_THAT(Order(), testing::ElementsAre(2U));
}

TEST_F(RebarDragTest, PressingAChildMovesNoBand) {
  const int inside = LeftOf(one_.widget()) + 10;
  Drag(inside, 10, inside + 200, 10);
  EXPECT_THAT(Order(), testing::ElementsAre(1U, 2U));
}

TEST_F(RebarTest, RepaintingCanBeStopped) {
  Insert(buttons_, "", 1);
  window_.Show();
  Settle();
  windows_.LockUpdate(top_.hwnd(), true);
  windows_.LockUpdate(top_.hwnd(), true);
  windows_.LockUpdate(top_.hwnd(), false);
  windows_.LockUpdate(top_.hwnd(), false);
  Settle();
  EXPECT_EQ(windows_.PixelHeight(top_.hwnd()), PixelsOf(top_.Height()));
}

TEST_F(RebarTest, TheThemesColoursDiffer) {
  EXPECT_NE(ThemeColor(kColorButtonFace), ThemeColor(kColorButtonText));
  EXPECT_LE(ThemeColor(kColorButtonFace), 0xFFFFFFU);
}

}  // namespace
}  // namespace corvane::desktop
