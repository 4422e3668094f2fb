#include "platform/linux/gtk/controls/tree_view.h"

#include <gdk/gdkkeysyms.h>

#include "base/error.h"
#include "platform/linux/gtk/controls/image_list.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

class TreeViewTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    window_.frame.Add(tree_);
    window_.Show();
    listening_ += tree_.NodeClick.Connect([this](TreeNode& node) { log_.push_back(node.Text()); });
    listening_ += tree_.DblClick.Connect([this] { log_.emplace_back("double"); });
  }
  void Fill() {
    first_ = &tree_.Add(nullptr, "alpha");
    child_ = &tree_.Add(first_, "inner");
    second_ = &tree_.Add(nullptr, "beta");
    tree_.SetSelectedItem(first_);
    tree_.SetFocus();
    Settle();
    log_.clear();
  }
  void Press(guint keyval) {
    Key(window_.form.window(), keyval);
    Settle();
  }

  test::TestWindow window_{windows_};
  std::string asked_;  // the label that the user was asked to change last
  std::function<void(std::optional<std::string>)> answer_;
  TreeViewControl tree_{"TreeView1", windows_, [this](const std::string& label, auto done) {
                          asked_ = label;
                          answer_ = done;
                        }};
  TreeNode* first_ = nullptr;
  TreeNode* child_ = nullptr;
  TreeNode* second_ = nullptr;
  Connections listening_;
  std::vector<std::string> log_;
};

TEST_F(TreeViewTest, NodesKeepTheirTextsAndTags) {
  Fill();
  first_->SetTag("http://a/");
  EXPECT_EQ(first_->Text(), "alpha");
  EXPECT_EQ(first_->Tag(), "http://a/");
  EXPECT_EQ(first_->Children(), 1U);
  EXPECT_EQ(second_->Children(), 0U);
}

TEST_F(TreeViewTest, SelectingByCodeIsNoClick) {
  Fill();
  tree_.SetSelectedItem(child_);
  EXPECT_EQ(tree_.SelectedItem(), child_);
  EXPECT_TRUE(first_->Expanded()) << "what is selected must be seen";
  EXPECT_EQ(windows_.Text(tree_.hwnd()), "inner");
  tree_.SetSelectedItem(nullptr);
  EXPECT_EQ(tree_.SelectedItem(), nullptr);
  EXPECT_TRUE(log_.empty());
}

TEST_F(TreeViewTest, ArrowsWalkOpenAndClose) {
  Fill();
  Press(GDK_KEY_Down);
  EXPECT_EQ(tree_.SelectedItem(), second_);
  Press(GDK_KEY_Up);
  Press(GDK_KEY_Right);
  EXPECT_TRUE(first_->Expanded());
  EXPECT_EQ(tree_.SelectedItem(), first_);
  Press(GDK_KEY_Right);
  EXPECT_EQ(tree_.SelectedItem(), child_);
  Press(GDK_KEY_Right);
  EXPECT_EQ(tree_.SelectedItem(), child_);
  Press(GDK_KEY_Left);
  EXPECT_EQ(tree_.SelectedItem(), first_);
  Press(GDK_KEY_Left);
  EXPECT_FALSE(first_->Expanded());
  Press(GDK_KEY_Left);
  EXPECT_EQ(tree_.SelectedItem(), first_);
  EXPECT_THAT(log_, ElementsAre("beta", "alpha", "inner", "alpha"));
}

TEST_F(TreeViewTest, AKeyThatComesWhileANodeIsToldGoesOnFromThere) {
  Fill();
  tree_.Add(nullptr, "gamma");
  bool let_in = true;
  listening_ += tree_.NodeClick.Connect([&](TreeNode&) {
    if (std::exchange(let_in, false)) Key(window_.form.window(), GDK_KEY_Down);
  });
  Press(GDK_KEY_Down);
  Settle();
  EXPECT_EQ(tree_.SelectedItem()->Text(), "gamma");
  EXPECT_THAT(log_, ElementsAre("beta", "gamma"));
  Press(GDK_KEY_Up);
  Settle();
  EXPECT_EQ(log_.back(), "beta") << "the cursor is where the selection is";
}

TEST_F(TreeViewTest, ANodeThatGoesBeforeItsClickIsToldIsNotToldOf) {
  Fill();
  auto* view = dynamic_cast<Gtk::TreeView*>(window_.form.window().get_focus());
  ASSERT_NE(view, nullptr);
  view->set_cursor(Gtk::TreePath("1"));
  tree_.Remove(*second_);
  Settle();
  EXPECT_TRUE(log_.empty());
}

TEST_F(TreeViewTest, ALetterGoesToTheNextNodeThatBeginsWithIt) {
  Fill();
  Press('b');
  EXPECT_EQ(tree_.SelectedItem(), second_);
  Press('A');
  EXPECT_EQ(tree_.SelectedItem(), first_);
  Press('i');
  EXPECT_EQ(tree_.SelectedItem(), first_) << "a closed node's children are not on view";
}

TEST_F(TreeViewTest, EnterIsNoDoubleClick) {
  Fill();
  Press(GDK_KEY_Return);
  Settle();
  EXPECT_TRUE(log_.empty());
}

TEST_F(TreeViewTest, ThePointerClicksAndDoubleClicks) {
  Fill();
  auto* view = dynamic_cast<Gtk::TreeView*>(window_.form.window().get_focus());
  ASSERT_NE(view, nullptr);
  Gdk::Rectangle row;
  view->get_cell_area(Gtk::TreePath("1"), *view->get_column(0), row);
  int x = 0;
  int y = 0;
  view->get_bin_window()->get_origin(x, y);
  const auto click = [&](const char* times) {
    Outside({"xdotool", "mousemove", std::to_string(x + row.get_x() + 10),
             std::to_string(y + row.get_y() + row.get_height() / 2), "click", "--repeat", times,
             "--delay", "30", "1"});
  };
  click("1");
  WaitFor("the click", [&] { return log_ == std::vector<std::string>{"beta"}; });
  log_.clear();
  // Away and back, so that this is no third click of the same series.
  Press(GDK_KEY_Up);
  log_.clear();
  Outside({"sleep", "0.6"});
  click("2");
  WaitFor("the double click", [&] { return log_ == std::vector<std::string>{"beta", "double"}; });
}

TEST_F(TreeViewTest, NodesOpenAndCloseByCode) {
  Fill();
  first_->SetExpanded(true);
  EXPECT_TRUE(first_->Expanded());
  first_->SetExpanded(false);
  EXPECT_FALSE(first_->Expanded());
  second_->SetExpanded(true);
  EXPECT_FALSE(second_->Expanded()) << "there is nothing to open";
}

TEST_F(TreeViewTest, ClearEmptiesTheTree) {
  Fill();
  tree_.Clear();
  EXPECT_EQ(tree_.SelectedItem(), nullptr);
  EXPECT_TRUE(log_.empty());
  Fill();
  EXPECT_EQ(tree_.SelectedItem(), first_);
}

TEST_F(TreeViewTest, TenThousandChildrenCanBeOpened) {
  Fill();
  for (int i = 0; i < 10000; ++i) tree_.Add(second_, "child " + std::to_string(i));
  second_->SetExpanded(true);
  Settle();
  EXPECT_EQ(second_->Children(), 10000U);
  tree_.SetSelectedItem(second_);
  Press(GDK_KEY_Right);
  EXPECT_EQ(tree_.SelectedItem()->Text(), "child 0");
}

TEST_F(TreeViewTest, ChildrenAreWantedBeforeANodeOpens) {
  Fill();
  std::vector<std::string> wanted;
  listening_ += tree_.Expand.Connect([&](TreeNode& node) {
    wanted.push_back(node.Text() + (node.Expanded() ? " open" : " closed"));
    tree_.Remove(node.Child(0));
    tree_.Add(&node, "made now");
  });
  listening_ += tree_.Toggled.Connect([this](TreeNode& node) {
    log_.push_back(node.Text() + (node.Expanded() ? " opened" : " closed"));
  });
  Press(GDK_KEY_Right);
  EXPECT_THAT(wanted, ElementsAre("alpha closed"));
  Press(GDK_KEY_Right);
  EXPECT_EQ(tree_.SelectedItem()->Text(), "made now");
  Press(GDK_KEY_Left);
  Press(GDK_KEY_Left);
  EXPECT_THAT(log_, ElementsAre("alpha opened", "made now", "alpha", "alpha closed"));
}

TEST_F(TreeViewTest, NodeThatLosesItsChildrenStaysClosed) {
  Fill();
  listening_ += tree_.Expand.Connect([&](TreeNode& node) { tree_.Remove(node.Child(0)); });
  first_->SetExpanded(true);
  EXPECT_FALSE(first_->Expanded());
  EXPECT_EQ(first_->Children(), 0U);
}

TEST_F(TreeViewTest, TreeMayBeReplacedWhileANodeOpens) {
  Fill();
  listening_ += tree_.Expand.Connect([&](TreeNode&) {
    tree_.Clear();
    tree_.Add(nullptr, "new");
  });
  Press(GDK_KEY_Right);
  Settle();
  ASSERT_EQ(tree_.Nodes().size(), 1U);
  EXPECT_EQ(tree_.Nodes()[0]->Text(), "new");
}

TEST_F(TreeViewTest, OpenersOfThePointerAskForChildrenToo) {
  Fill();
  int wanted = 0;
  listening_ += tree_.Expand.Connect([&](TreeNode&) { ++wanted; });
  listening_ += tree_.Toggled.Connect([this](TreeNode& node) {
    log_.push_back(node.Text() + (node.Expanded() ? " opened" : " closed"));
  });
  auto* view = dynamic_cast<Gtk::TreeView*>(window_.form.window().get_focus());
  ASSERT_NE(view, nullptr);
  view->expand_row(Gtk::TreePath("0"), false);  // as the view's own arrow does
  WaitFor("the opening", [&] { return first_->Expanded(); });
  EXPECT_EQ(wanted, 1);
  view->collapse_row(Gtk::TreePath("0"));
  WaitFor("the closing", [&] { return !first_->Expanded(); });
  EXPECT_THAT(log_, ElementsAre("alpha opened", "alpha closed"));
}

TEST_F(TreeViewTest, RemovedNodeTakesItsDescendantsAlong) {
  Fill();
  const TreeNodeId child = child_->Id();
  const TreeNodeId first = first_->Id();
  tree_.SetSelectedItem(second_);
  tree_.Remove(*first_);
  EXPECT_EQ(tree_.Find(child), nullptr);
  EXPECT_EQ(tree_.Find(first), nullptr);
  EXPECT_EQ(tree_.Find(second_->Id()), second_);
  EXPECT_EQ(tree_.SelectedItem(), second_);
  tree_.Add(nullptr, "gamma");
  Press(GDK_KEY_Down);
  EXPECT_EQ(tree_.SelectedItem()->Text(), "gamma");
  EXPECT_TRUE(tree_.Add(nullptr, "later").Id() > first) << "no identity comes twice";
}

TEST_F(TreeViewTest, NodesAreToldInTheOrderOfTheirAdding) {
  Fill();
  TreeNode& late = tree_.Add(first_, "late");
  EXPECT_THAT(tree_.Nodes(), ElementsAre(first_, child_, second_, &late));
  EXPECT_EQ(late.FullPath(), "alpha\\late");
  EXPECT_EQ(late.Parent(), first_);
}

TEST_F(TreeViewTest, LabelEndsAtItsFirstZeroCharacter) {
  EXPECT_EQ(tree_.Add(nullptr, std::string("Favorites\0", 10)).Text(), "Favorites");
}

TEST_F(TreeViewTest, PictureMustBeInTheList) {
  PixbufList images;
  EXPECT_THROW(tree_.Add(nullptr, "x", 1, 0), RunTimeError);
  images.Add("1K", StockImage::Link);
  tree_.SetImageList(&images);
  tree_.Add(nullptr, "with a picture", 1, 1);
  EXPECT_THROW(tree_.Add(nullptr, "x", 1, 2), RunTimeError);
  EXPECT_THROW(tree_.Add(nullptr, "x", -1, 0), RunTimeError);
  Settle();
  tree_.SetImageList(nullptr);
}

TEST_F(TreeViewTest, LabelIsAskedForAndTakenUnlessRefused) {
  Fill();
  bool refuse = true;
  listening_ += tree_.AfterLabelEdit.Connect([&](bool& cancel, const std::string& text) {
    log_.push_back("after " + text);
    cancel = refuse;
  });
  tree_.StartLabelEdit();
  EXPECT_EQ(asked_, "alpha");
  answer_("new");
  EXPECT_EQ(first_->Text(), "alpha") << "refused";
  refuse = false;
  tree_.StartLabelEdit();
  answer_("new");
  EXPECT_EQ(first_->Text(), "new");
  EXPECT_THAT(log_, ElementsAre("after new", "after new"));
}

TEST_F(TreeViewTest, EditingCanBePreventedAndGivenUp) {
  Fill();
  bool prevent = true;
  std::string after;
  listening_ += tree_.BeforeLabelEdit.Connect([&](bool& cancel) { cancel = prevent; });
  listening_ += tree_.AfterLabelEdit.Connect([&](bool&, const std::string& text) { after = text; });
  tree_.StartLabelEdit();
  EXPECT_EQ(asked_, "");
  prevent = false;
  tree_.StartLabelEdit();
  EXPECT_EQ(asked_, "alpha");
  answer_(std::nullopt);
  EXPECT_EQ(after, "alpha") << "given up: as it was";
  EXPECT_EQ(first_->Text(), "alpha");
}

TEST_F(TreeViewTest, AnswerForANodeThatIsGoneIsLeftOut) {
  Fill();
  bool edited = false;
  listening_ += tree_.AfterLabelEdit.Connect([&](bool&, const std::string&) { edited = true; });
  tree_.StartLabelEdit();
  tree_.Clear();
  answer_("new");
  EXPECT_FALSE(edited);
}

}  // namespace
}  // namespace corvane::desktop
