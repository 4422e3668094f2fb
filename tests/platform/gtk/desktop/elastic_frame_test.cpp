#include "platform/linux/gtk/layout/elastic_frame.h"

#include <gdk/gdkkeysyms.h>

#include "platform/linux/gtk/controls/list_box.h"
#include "platform/linux/gtk/controls/text_box.h"
#include "platform/linux/gtk/text_pane/rich_text_box.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using Align = ElasticFrame::Align;
using Layout = ElasticFrame::Layout;

constexpr float kPixel = kTwipsPerPixel;

class ElasticFrameTest : public test::DesktopTest {
 protected:
  void Show() {
    window_.Show();
    Settle();
  }
  void Resize(int width, int height) {
    window_.form.SetWidth(static_cast<float>(width) * kPixel);
    window_.form.SetHeight(static_cast<float>(height) * kPixel);
    WaitFor("the frame's size", [&] {
      return window_.frame.widget().get_allocated_width() == width &&
             window_.frame.widget().get_allocated_height() == height;
    });
    Settle();
  }
  // The bar's thickness between two children along one direction.
  static constexpr int kBar = 5;

  test::TestWindow window_{windows_, 600, 400};
  ElasticFrameControl one_{"one", windows_};
  ElasticFrameControl two_{"two", windows_};
  Connections listening_;
};

TEST_F(ElasticFrameTest, AnOnlyChildFillsTheFrame) {
  window_.frame.Add(one_);
  Show();
  EXPECT_EQ(one_.Width(), 600 * kPixel);
  EXPECT_EQ(one_.Height(), 400 * kPixel);
  EXPECT_EQ(windows_.FirstChild(window_.frame.hwnd()), one_.hwnd());
}

TEST_F(ElasticFrameTest, ADockedChildHasItsHeightAndTheOtherTheRest) {
  window_.frame.Add(one_);
  window_.frame.Add(two_);
  one_.SetAlign(Align::Top);
  one_.SetHeight(30 * kPixel);
  EXPECT_EQ(one_.Height(), 30 * kPixel) << "what is set is what is answered";
  Show();
  EXPECT_EQ(one_.Height(), 30 * kPixel);
  EXPECT_EQ(two_.Height(), 370 * kPixel);
  one_.SetHeight(50 * kPixel);
  Settle();
  EXPECT_EQ(two_.Height(), 350 * kPixel);
}

TEST_F(ElasticFrameTest, AFrameWithoutAlignmentIsNotShown) {
  window_.frame.SetLayout(Layout::SideBySide);
  window_.frame.Add(one_);
  window_.frame.Add(two_);
  Show();
  EXPECT_EQ(one_.Width(), 300 * kPixel);
  one_.SetAlign(Align::None);
  Settle();
  EXPECT_FALSE(one_.widget().get_mapped());
  EXPECT_EQ(two_.Width(), 600 * kPixel);
  one_.SetAlign(Align::Fill);
  Settle();
  EXPECT_TRUE(one_.widget().get_mapped());
  EXPECT_EQ(two_.Width(), 300 * kPixel);
}

TEST_F(ElasticFrameTest, RealignIsRaisedWhenTheSizeChangesOrWhenAskedFor) {
  int raised = 0;
  float width = 0;
  listening_ += window_.frame.RealignFrame.Connect([&] {
    ++raised;
    width = window_.frame.Width();
  });
  window_.frame.Add(one_);
  Show();
  EXPECT_EQ(raised, 1);
  EXPECT_EQ(width, 600 * kPixel);
  one_.widget().queue_resize();
  Settle();
  EXPECT_EQ(raised, 1) << "the same size is no news";
  window_.frame.Realign();
  Settle();
  EXPECT_EQ(raised, 2);
  Resize(500, 400);
  EXPECT_GE(raised, 3);
  EXPECT_EQ(width, 500 * kPixel);
}

// What the browser pane does: both sizes from a ratio, whenever the frame changes.
class SplitterTest : public ElasticFrameTest {
 protected:
  void Split(Layout layout) {
    window_.frame.SetLayout(layout);
    window_.frame.Add(one_);
    window_.frame.Add(two_);
    window_.frame.SetSplitter(true);
    listening_ += window_.frame.ResizeChildren.Connect([this] { ++drags_; });
  }
  Gtk::Paned& Bar() {
    for (auto* above = one_.widget().get_parent(); above; above = above->get_parent()) {
      if (auto* paned = dynamic_cast<Gtk::Paned*>(above)) return *paned;
    }
    throw std::runtime_error("no splitter");
  }
  using Way = ElasticFrame::Way;
  void GoRound(Way way = Way::Forward) { window_.frame.GoToSplitter(way); }

  int drags_ = 0;
  float ratio_ = 0.25F;
};

TEST_F(SplitterTest, TheFirstChildsWidthPlacesTheBar) {
  Split(Layout::SideBySide);
  listening_ += window_.frame.RealignFrame.Connect([this] {
    const float width = window_.frame.Width();
    one_.SetWidth(ratio_ * width);
    two_.SetWidth(width - ratio_ * width);
  });
  Show();
  EXPECT_EQ(one_.Width(), 150 * kPixel);
  EXPECT_EQ(two_.Width(), (450 - kBar) * kPixel);
  Resize(800, 300);
  EXPECT_EQ(one_.Width(), 200 * kPixel);
  Resize(600, 400);
  EXPECT_EQ(one_.Width(), 150 * kPixel);
  EXPECT_EQ(drags_, 0) << "no user has moved it";
}

TEST_F(SplitterTest, TheLowerChildGetsItsHeight) {
  Split(Layout::Above);
  listening_ += window_.frame.RealignFrame.Connect([this] {
    const float height = window_.frame.Height();
    two_.SetHeight(ratio_ * height);
    one_.SetHeight(height - ratio_ * height);
  });
  Show();
  EXPECT_EQ(two_.Height(), 100 * kPixel);
  EXPECT_EQ(one_.Height(), (300 - kBar) * kPixel);
  Resize(600, 800);
  EXPECT_EQ(two_.Height(), 200 * kPixel);
  EXPECT_EQ(drags_, 0);
}

TEST_F(SplitterTest, AUsersMoveIsToldWithTheNewSizesAndHolds) {
  Split(Layout::SideBySide);
  listening_ +=
      window_.frame.RealignFrame.Connect([this] { one_.SetWidth(ratio_ * window_.frame.Width()); });
  float told = 0;
  listening_ += window_.frame.ResizeChildren.Connect([&] {
    told = one_.Width();
    EXPECT_EQ(one_.Width() + two_.Width(), (600 - kBar) * kPixel);
    ratio_ = one_.Width() / window_.frame.Width();
  });
  Show();
  Bar().set_position(300);  // as the pointer's handler does
  EXPECT_EQ(told, 300 * kPixel);
  EXPECT_EQ(drags_, 1);
  Settle();
  EXPECT_EQ(one_.Width(), 300 * kPixel);
  Resize(400, 400);
  EXPECT_EQ(one_.Width(), 200 * kPixel);
  Resize(600, 400);
  EXPECT_EQ(one_.Width(), 300 * kPixel);
  EXPECT_EQ(drags_, 1);
}

TEST_F(SplitterTest, TheKeyboardMovesTheBar) {
  TextBoxControl text("text", windows_);
  Split(Layout::SideBySide);
  one_.Add(text);
  one_.SetWidth(200 * kPixel);
  Show();
  text.SetFocus();
  GoRound();
  Key(window_.form.window(), GDK_KEY_Right);
  Key(window_.form.window(), GDK_KEY_Return);
  Settle();
  EXPECT_GE(drags_, 1);
  EXPECT_GT(one_.Width(), 200 * kPixel);
  EXPECT_TRUE(window_.form.window().get_focus()->is_ancestor(text.widget()) ||
              window_.form.window().get_focus() == &text.widget())
      << "who has done goes back";
}

TEST_F(SplitterTest, TheKeyboardHearsTheBarAndEachStep) {
  TextBoxControl text("text", windows_);
  Split(Layout::SideBySide);
  two_.Add(text);
  one_.SetWidth(100 * kPixel);
  std::vector<std::string> heard;
  listening_ += window_.frame.SplitterFocus.Connect([&] { heard.push_back("bar"); });
  listening_ += window_.frame.SplitterStep.Connect(
      [&](int share) { heard.push_back(std::to_string(share)); });
  Show();
  text.SetFocus();
  GoRound();
  for (const guint key : {GDK_KEY_Right, GDK_KEY_Right, GDK_KEY_Left, GDK_KEY_Up}) {
    Key(window_.form.window(), key);
  }
  EXPECT_THAT(heard, testing::ElementsAre("bar", "18", "19", "18"));
  Bar().set_position(0);
  heard.clear();
  Key(window_.form.window(), GDK_KEY_Left);
  EXPECT_THAT(heard, testing::ElementsAre("0")) << "also where it does not move";
  Key(window_.form.window(), GDK_KEY_Escape);
  EXPECT_EQ(Bar().get_position(), 100) << "where it was";
}

TEST_F(SplitterTest, TheWayRoundPassesOverBarsThatCannotBeSeen) {
  TextBoxControl text("text", windows_);
  ElasticFrameControl upper("upper", windows_);
  ElasticFrameControl lower("lower", windows_);
  Split(Layout::SideBySide);
  two_.SetLayout(Layout::Above);
  two_.Add(upper);
  two_.Add(lower);
  two_.SetSplitter(true);
  upper.Add(text);
  std::vector<std::string> heard;
  listening_ += window_.frame.SplitterFocus.Connect([&] { heard.push_back("outer"); });
  listening_ += two_.SplitterFocus.Connect([&] { heard.push_back("inner"); });
  listening_ += text.GotFocus.Connect([&] { heard.push_back("text"); });
  Show();
  text.SetFocus();
  for (int i = 0; i < 3; ++i) GoRound();
  GoRound(Way::Back);
  Key(window_.form.window(), GDK_KEY_Return);
  EXPECT_THAT(heard, testing::ElementsAre("text", "outer", "inner", "text", "inner", "text"));
  heard.clear();
  one_.SetAlign(Align::None);
  Settle();
  for (int i = 0; i < 2; ++i) GoRound();
  EXPECT_THAT(heard, testing::ElementsAre("inner", "text"));
}

TEST_F(SplitterTest, IsReachedFromOutsideOfItsAreas) {
  TextBoxControl above("above", windows_);
  window_.frame.SetLayout(Layout::Above);
  window_.frame.Add(above);
  ElasticFrameControl split("split", windows_);
  window_.frame.Add(split);
  split.SetLayout(Layout::SideBySide);
  split.Add(one_);
  split.Add(two_);
  split.SetSplitter(true);
  std::vector<std::string> heard;
  listening_ += split.SplitterFocus.Connect([&] { heard.push_back("bar"); });
  listening_ += above.GotFocus.Connect([&] { heard.push_back("above"); });
  Show();
  above.SetFocus();
  GoRound();
  GoRound();
  EXPECT_THAT(heard, testing::ElementsAre("above", "bar", "above"));
}

TEST_F(SplitterTest, HidingOneHalfGivesTheOtherAllAndItComesBack) {
  Split(Layout::SideBySide);
  listening_ +=
      window_.frame.RealignFrame.Connect([this] { one_.SetWidth(ratio_ * window_.frame.Width()); });
  Show();
  auto* bar = &Bar();
  one_.SetAlign(Align::None);
  window_.frame.SetSplitter(false);
  window_.frame.Realign();
  Settle();
  EXPECT_EQ(two_.Width(), 600 * kPixel);
  EXPECT_FALSE(one_.widget().get_mapped());
  Resize(800, 400);
  one_.SetAlign(Align::Fill);
  window_.frame.SetSplitter(true);
  window_.frame.Realign();
  Settle();
  EXPECT_EQ(&Bar(), bar) << "the halves have not been taken out meanwhile";
  EXPECT_EQ(one_.Width(), 200 * kPixel);
  EXPECT_EQ(drags_, 0);
}

TEST_F(SplitterTest, AFrameThatStopsSplittingSharesItsArea) {
  Split(Layout::SideBySide);
  Show();
  window_.frame.SetSplitter(false);
  Settle();
  EXPECT_EQ(one_.Width(), 300 * kPixel);
  EXPECT_EQ(two_.Width(), 300 * kPixel);
}

TEST_F(SplitterTest, SmallWindowsDoNotBreak) {
  RichTextBoxControl text("ctlText1", windows_);
  ListBoxControl list("List1", windows_);
  Split(Layout::Above);
  two_.Add(text);
  two_.Add(list);
  listening_ += window_.frame.RealignFrame.Connect([this] {
    two_.SetHeight(ratio_ * window_.frame.Height());
    one_.SetHeight(window_.frame.Height() - two_.Height());
  });
  Show();
  Resize(120, 80);
  EXPECT_EQ(two_.Height(), 20 * kPixel);
  Resize(600, 400);
  EXPECT_EQ(two_.Height(), 100 * kPixel);
}

TEST_F(SplitterTest, ChildrenMayBeDestroyedFirst) {
  Split(Layout::SideBySide);
  auto inner = std::make_unique<ElasticFrameControl>("inner", windows_);
  auto text = std::make_unique<TextBoxControl>("text", windows_);
  one_.Add(*inner);
  inner->Add(*text);
  Show();
  EXPECT_EQ(windows_.FirstChild(one_.hwnd()), inner->hwnd());
  inner.reset();
  Settle();
  EXPECT_EQ(windows_.FirstChild(one_.hwnd()), 0U);
  EXPECT_EQ(text->widget().get_parent(), nullptr) << "in no frame any more";
  text->SetText("still there");
  EXPECT_EQ(text->Text(), "still there");
  const WindowHandle gone = text->hwnd();
  text.reset();
  EXPECT_EQ(windows_.WidgetOf(gone), nullptr);
  Resize(500, 300);
  EXPECT_EQ(one_.Height(), 300 * kPixel);
  EXPECT_EQ(one_.Width() + two_.Width(), (500 - kBar) * kPixel) << "the frames share what there is";
}

TEST_F(ElasticFrameTest, AFloatingChildOutsideIsOutOfSightButThere) {
  ListBoxControl list("List1", windows_);
  RichTextBoxControl text("Text1", windows_);
  window_.frame.Add(text);
  window_.frame.Add(list);
  list.Move(1200 * kPixel, 1200 * kPixel);
  list.AddItem("one");
  list.AddItem("two");
  list.SetListIndex(1);
  Show();
  EXPECT_EQ(text.Height(), 400 * kPixel) << "it takes no room";
  EXPECT_FALSE(list.widget().get_mapped());
  EXPECT_EQ(list.ListIndex(), 1);
  EXPECT_EQ(list.List(1), "two");
  EXPECT_EQ(windows_.Text(list.hwnd()), "two");
  EXPECT_ANY_THROW(list.List(2));
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
}

}  // namespace
}  // namespace corvane::desktop
