#include "platform/linux/gtk/window_table.h"

#include <glib.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace corvane::desktop {
namespace {

class WindowTableTest : public testing::Test {
 protected:
  WindowHandle Add(const std::string& text, WindowHandle parent = 0, bool child = false) {
    WindowTable::Entry entry;
    entry.class_name = "Class of " + text;
    entry.text = [text] { return text; };
    entry.parent = parent;
    entry.child = child;
    return windows_.Add(std::move(entry));
  }
  WindowTable windows_;
};

TEST_F(WindowTableTest, AnEmptyTableAnswersWithEmptyValues) {
  EXPECT_EQ(windows_.FirstThreadWindow(), 0U);
  EXPECT_EQ(windows_.FindWindow(""), 0U);
  EXPECT_EQ(windows_.Text(7), "");
  EXPECT_EQ(windows_.ClassName(7), "");
  EXPECT_EQ(windows_.ProcessId(7), 0U);
  EXPECT_EQ(windows_.FirstChild(7), 0U);
  EXPECT_EQ(windows_.NextSibling(7), 0U);
  EXPECT_EQ(windows_.PixelHeight(7), 0);
  windows_.SetStyle(7, 1);
  EXPECT_EQ(windows_.Style(7), 0U);
  windows_.SetParent(7, 8);
  windows_.LockUpdate(7, true);
  windows_.PostClose(7);
}

TEST_F(WindowTableTest, FindsTopLevelWindowsByTheirExactCaption) {
  const auto control = Add("Marker", 0, true);
  const auto window = Add("Marker");
  Add("Marker 2");
  EXPECT_NE(control, 0U);
  EXPECT_EQ(windows_.FindWindow("Marker"), window);
  EXPECT_EQ(windows_.FindWindow("marker"), 0U);
  EXPECT_EQ(windows_.FirstThreadWindow(), window);
  EXPECT_EQ(windows_.ProcessId(window), static_cast<std::uint32_t>(getpid()));
}

TEST_F(WindowTableTest, ChildrenComeInTheOrderInWhichTheyJoined) {
  const auto top = Add("top");
  const auto a = Add("a", 0, true);
  const auto b = Add("b", 0, true);
  windows_.Place(b, top);
  windows_.Place(a, top);
  EXPECT_EQ(windows_.FirstChild(top), b);
  EXPECT_EQ(windows_.NextSibling(b), a);
  EXPECT_EQ(windows_.NextSibling(a), 0U);
  windows_.SetParent(b, top);
  EXPECT_EQ(windows_.FirstChild(top), b) << "a child that is there already keeps its place";
}

TEST_F(WindowTableTest, AWindowDoesNotGoIntoItsOwnChild) {
  const auto top = Add("top");
  const auto child = Add("child", top, true);
  windows_.SetParent(top, child);
  EXPECT_EQ(windows_.Parent(top), 0U);
  windows_.SetParent(top, top);
  EXPECT_EQ(windows_.Parent(top), 0U);
}

TEST_F(WindowTableTest, AWindowThatIsGoneLeavesItsChildrenWithoutAParent) {
  const auto top = Add("top");
  const auto child = Add("child", top);
  windows_.Remove(top);
  EXPECT_EQ(windows_.FirstThreadWindow(), 0U) << "an orphan is no top-level window";
  EXPECT_EQ(windows_.Text(child), "child");
  EXPECT_EQ(windows_.NextSibling(child), 0U);
}

TEST_F(WindowTableTest, RemovingAWindowThatIsNotThereLeavesTheOthersAlone) {
  const auto window = Add("Window");
  int gone = 0;
  const Connection listening = windows_.TopLevelGone.Connect([&] { ++gone; });
  windows_.Remove(0);
  windows_.Remove(window + 1);
  EXPECT_EQ(windows_.TopLevelCount(), 1);
  EXPECT_EQ(windows_.FindWindow("Window"), window);
  EXPECT_EQ(gone, 0);
}

TEST_F(WindowTableTest, StyleBitsAreKept) {
  const auto top = Add("top");
  windows_.SetStyle(top, 0xFFFF9840U);
  EXPECT_EQ(windows_.Style(top), 0xFFFF9840U);
}

TEST_F(WindowTableTest, ACloseRequestComesAfterThePresentEvent) {
  int closed = 0;
  WindowTable::Entry entry;
  WindowHandle window = 0;
  entry.close = [&] {
    ++closed;
    windows_.Remove(window);
  };
  window = windows_.Add(std::move(entry));
  windows_.PostClose(window);
  windows_.PostClose(window);
  EXPECT_EQ(closed, 0);
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
  EXPECT_EQ(closed, 1) << "a window that is gone is not closed again";
}

TEST_F(WindowTableTest, ACloseRequestMayOutliveTheTable) {
  {
    WindowTable table;
    WindowTable::Entry entry;
    entry.close = [] { FAIL() << "the table is gone"; };
    table.PostClose(table.Add(std::move(entry)));
  }
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
}

}  // namespace
}  // namespace corvane::desktop
