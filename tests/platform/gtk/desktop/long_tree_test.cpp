// A tree whose nodes have very many children.
#include <gdk/gdkkeysyms.h>

#include "platform/linux/gtk/controls/tree_view.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kMany = 25'000;
constexpr std::size_t kAtOnce = 10'000;

class LongTreeTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    window_.frame.Add(tree_);
    window_.Show();
    root_ = &tree_.Add(nullptr, "root");
    for (std::size_t i = 0; i < kMany; ++i) tree_.Add(root_, std::to_string(i));
    tree_.SetSelectedItem(root_);
    tree_.SetFocus();
    Settle();
  }
  /// How many children of the root the view shows.
  std::size_t Shown() {
    auto& view = dynamic_cast<Gtk::TreeView&>(
        *dynamic_cast<Gtk::Container&>(tree_.widget()).get_children().at(0));
    return view.get_model()->children().begin()->children().size();
  }
  void WaitForAll(std::size_t count = kMany) {
    WaitFor("all children", [&] { return Shown() == count; });
  }

  test::TestWindow window_{windows_};
  TreeViewControl tree_{"TreeView1", windows_};
  TreeNode* root_ = nullptr;
};

TEST_F(LongTreeTest, ManyChildrenFollowAfterTheNodeIsOpen) {
  root_->SetExpanded(true);
  EXPECT_TRUE(root_->Expanded());
  EXPECT_EQ(Shown(), kAtOnce);
  EXPECT_EQ(root_->Children(), kMany);
  WaitForAll();
  Key(window_.form.window(), GDK_KEY_End);
  ASSERT_NE(tree_.SelectedItem(), nullptr);
  EXPECT_EQ(tree_.SelectedItem()->Text(), std::to_string(kMany - 1));
}

TEST_F(LongTreeTest, ChildThatHasNotFollowedYetCanBeSelected) {
  root_->SetExpanded(true);
  TreeNode& last = root_->Child(kMany - 1);
  tree_.SetSelectedItem(&last);
  EXPECT_EQ(tree_.SelectedItem(), &last);
  EXPECT_EQ(Shown(), kMany);
}

TEST_F(LongTreeTest, LetterFindsAChildThatHasNotFollowedYet) {
  TreeNode& x = tree_.Add(root_, "xylophone");
  root_->SetExpanded(true);
  Key(window_.form.window(), GDK_KEY_x);
  EXPECT_EQ(tree_.SelectedItem(), &x);
}

TEST_F(LongTreeTest, ChildrenComeAndGoWhileOthersAreStillToFollow) {
  root_->SetExpanded(true);
  tree_.Remove(root_->Child(kMany - 1));
  tree_.Remove(root_->Child(5));
  TreeNode& added = tree_.Add(root_, "added");
  EXPECT_EQ(root_->Children(), kMany - 1);
  WaitForAll(kMany - 1);
  tree_.SetSelectedItem(&added);
  EXPECT_EQ(tree_.SelectedItem(), &added);
  EXPECT_EQ(&root_->Child(root_->Children() - 1), &added);
}

TEST_F(LongTreeTest, ClosingMeanwhileAndOpeningAgainShowsThemAll) {
  root_->SetExpanded(true);
  root_->SetExpanded(false);
  EXPECT_FALSE(root_->Expanded());
  root_->SetExpanded(true);
  WaitForAll();
  EXPECT_TRUE(root_->Expanded());
}

TEST_F(LongTreeTest, TreeThatIsClearedMeanwhileStaysEmpty) {
  root_->SetExpanded(true);
  tree_.Clear();
  Settle();
  EXPECT_TRUE(tree_.Nodes().empty());
  EXPECT_EQ(tree_.SelectedItem(), nullptr);
}

}  // namespace
}  // namespace corvane::desktop
