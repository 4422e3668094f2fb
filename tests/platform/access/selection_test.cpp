// What is asked of containers that keep a selection.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "platform/linux/access/selection_steps.h"
#include "tests/platform/access/access_fixture.h"

namespace corvane::desktop {
namespace {

using ::testing::ElementsAre;

TEST(SelectionSteps, FocusAloneChangesNoSelection) {
  EXPECT_FALSE(ChangesSelection(kSelectTakeFocus));
  EXPECT_TRUE(ChangesSelection(kSelectTakeFocus | kSelectAddSelection));
}

TEST(SelectionSteps, FollowTheFlags) {
  const auto steps = [](bool clear, std::vector<int> select) {
    return SelectionSteps{clear, std::move(select)};
  };
  EXPECT_EQ(StepsFor(kSelectTakeSelection, 3, {1}), steps(true, {3}));
  EXPECT_EQ(StepsFor(kSelectAddSelection, 3, {1}), steps(false, {3}));
  EXPECT_EQ(StepsFor(kSelectAddSelection, 1, {1}), steps(false, {}));
  EXPECT_EQ(StepsFor(kSelectRemoveSelection, 3, {1, 3, 4}), steps(true, {1, 4}));
  EXPECT_EQ(StepsFor(kSelectRemoveSelection, 2, {1, 3}), steps(false, {})) << "it is not in it";
  EXPECT_EQ(StepsFor(kSelectExtendSelection, 3, {1}), steps(false, {2, 3}));
  EXPECT_EQ(StepsFor(kSelectExtendSelection, 1, {3, 4}), steps(false, {1, 2}));
  EXPECT_EQ(StepsFor(kSelectExtendSelection, 3, {}), steps(false, {3}));
  EXPECT_EQ(StepsFor(kSelectTakeSelection | kSelectExtendSelection, 3, {1, 9}),
            steps(true, {1, 2, 3}));
  EXPECT_EQ(StepsFor(kSelectExtendSelection | kSelectRemoveSelection, 2, {1, 2, 5}),
            steps(true, {5}));
  // A program may tell of any index.
  const int last = std::numeric_limits<int>::max();
  EXPECT_EQ(StepsFor(kSelectAddSelection, last, {}), steps(false, {last}));
}

/// A list in one of the program's own windows.
class OwnSelection : public AccessTest {
 protected:
  OwnSelection() {
    GtkWidget* list = gtk_list_box_new();
    gtk_list_box_set_selection_mode(GTK_LIST_BOX(list), GTK_SELECTION_MULTIPLE);
    for (const char* name : {"Apple", "Pear", "Plum"}) {
      GtkWidget* row = gtk_list_box_row_new();
      atk_object_set_name(gtk_widget_get_accessible(row), name);
      gtk_list_box_insert(GTK_LIST_BOX(list), row, -1);
    }
    atk_object_set_name(gtk_widget_get_accessible(list), "Fruit");
    gtk_container_add(GTK_CONTAINER(outer_), list);
    gtk_widget_show_all(outer_);
    WindowTable::Entry entry;
    entry.class_name = "Form";
    entry.widget = Glib::wrap(outer_);
    handle_ = windows_.Add(std::move(entry));
    list_ = Named(accessibility_->ObjectFromWindow(handle_, kObjectClient), "Fruit");
  }
  ~OwnSelection() override {
    windows_.Remove(handle_);
    gtk_widget_destroy(outer_);
  }
  void Select(const std::string& name, int flags) { Named(list_, name)->Select(flags, {}); }
  std::vector<std::string> Selected() const {
    std::vector<std::string> names;
    for (const auto& row : list_->Children(3)) {
      constexpr std::uint32_t kSelected = 0x2;
      if ((row.object->State({}) & kSelected) != 0) {
        names.push_back(row.object->Text(AccessibleText::Name, {}));
      }
    }
    return names;
  }

  GtkWidget* outer_ = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  WindowHandle handle_ = 0;
  AccessiblePtr list_;
};

TEST_F(OwnSelection, ChangesAsTheFlagsSay) {
  ASSERT_TRUE(list_);
  Select("Plum", kSelectTakeSelection);
  EXPECT_THAT(Selected(), ElementsAre("Plum"));
  Select("Apple", kSelectAddSelection);
  EXPECT_THAT(Selected(), ElementsAre("Apple", "Plum"));
  Select("Plum", kSelectRemoveSelection);
  EXPECT_THAT(Selected(), ElementsAre("Apple"));
  Select("Plum", kSelectExtendSelection);
  EXPECT_THAT(Selected(), ElementsAre("Apple", "Pear", "Plum"));
  Select("Pear", kSelectTakeFocus | kSelectTakeSelection);
  EXPECT_THAT(Selected(), ElementsAre("Pear"));
  accessibility_->ObjectFromWindow(handle_, kObjectClient)->Select(kSelectAddSelection, {});
}

}  // namespace
}  // namespace corvane::desktop
