#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "browser/AccessibilityView.h"
#include "explorer/CIAccessibleBrowser.h"
#include "tests/fakes/fake_desktop.h"

namespace corvane::tests {
namespace {

using namespace corvane::fakes;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Ptr = FakeAccessible::Ptr;

struct AccessibilityViewTest : ::testing::Test {
  FakeDesktop desktop;
  PaneContext pane{desktop};
  CExplorer explorer{desktop};
  AccessibilityView view{pane, explorer};
  TreeView& tree = *pane.controls.TreeView1;
  FakeTimer& timer = static_cast<FakeTimer&>(*pane.controls.Timer1);
  Ptr page = FakeAccessible::Make("The news", 15);

  AccessibilityViewTest() {
    explorer.Init(tree, nullptr, 0, 0, 0);
    pane.menu.mnuSideBarContent(kSideBarAccessibility).SetChecked(true);
    page->Add(FakeAccessible::Make("Weather", 30, "http://weather/"));
  }
  /// A window of the rendering control; with an object if one is given.
  WindowHandle Render(const Ptr& object) {
    const auto window =
        desktop.windows.Add("", "Internet Explorer_Server", pane.controls.ELAMain->hwnd());
    if (object) desktop.accessibility.objects[{window, kObjectClient}] = object;
    return window;
  }
  void Refresh() {
    view.RefreshAABrowser();
    desktop.accessibility.Arrive();
  }
  std::vector<std::string> Labels() const {
    std::vector<std::string> labels;
    for (const TreeNode* node : tree.Nodes()) labels.push_back(node->Text());
    return labels;
  }
};

TEST_F(AccessibilityViewTest, TreeIsBuiltWhenTheElementsHaveArrived) {
  const auto window = Render(page);
  view.RefreshAABrowser();
  EXPECT_THAT(Labels(), IsEmpty());
  EXPECT_THAT(desktop.accessibility.fetched, ElementsAre(std::vector{window}));
  desktop.accessibility.Arrive();
  EXPECT_THAT(Labels(), ElementsAre("HTML_Internet Explorer document", "dummy99999999"));
  EXPECT_EQ(tree.SelectedItem(), tree.Nodes().front());
  EXPECT_FALSE(timer.enabled);
}

TEST_F(AccessibilityViewTest, NothingInThePageIsAskedForBeforeItsNodeIsOpened) {
  Render(page);
  Refresh();
  EXPECT_EQ(desktop.accessibility.depth, Accessibility::Depth::Top);
  EXPECT_EQ(page->asked_for_children, 0);
  tree.Nodes().front()->SetExpanded(true);
  EXPECT_EQ(page->asked_for_children, 1);
}

TEST_F(AccessibilityViewTest, AViewThatCannotBeMadeIsReported) {
  Render(page);
  desktop.accessibility.refuses = true;
  timer.enabled = true;
  timer.Fire();
  EXPECT_THAT(desktop.boxes.Texts(), ElementsAre("RefreshAABrowser Error: No accessibility"));
  EXPECT_FALSE(timer.enabled);
}

TEST_F(AccessibilityViewTest, EveryRenderingWindowIsARootAndNoOther) {
  Render(page);
  Render(page);
  desktop.windows.Add("", "Other", pane.controls.ELAMain->hwnd());
  Refresh();
  EXPECT_THAT(Labels(), ElementsAre("HTML_Internet Explorer document", "dummy99999999",
                                    "HTML_Internet Explorer document", "dummy99999999"));
}

TEST_F(AccessibilityViewTest, PageWithNothingInItIsLookedAtTwiceMore) {
  Render(FakeAccessible::Make("Empty", 15));
  Refresh();
  for (int retry = 0; retry < 2; ++retry) {
    ASSERT_TRUE(timer.enabled);
    EXPECT_EQ(timer.interval, 10);
    timer.Fire();
    EXPECT_FALSE(timer.enabled);
    desktop.accessibility.Arrive();
  }
  EXPECT_FALSE(timer.enabled);
  EXPECT_EQ(desktop.accessibility.fetched.size(), 3U);
  EXPECT_THAT(Labels(), ElementsAre("HTML_Internet Explorer document"));
}

TEST_F(AccessibilityViewTest, RetryThatFindsThePageEndsTheRetries) {
  const auto window = Render(nullptr);
  Refresh();
  ASSERT_TRUE(timer.enabled);
  desktop.accessibility.objects[{window, kObjectClient}] = page;
  timer.Fire();
  desktop.accessibility.Arrive();
  EXPECT_FALSE(timer.enabled);
  EXPECT_EQ(Labels().size(), 2U);
}

TEST_F(AccessibilityViewTest, NextPageHasItsOwnRetries) {
  Render(nullptr);
  Refresh();
  timer.Fire();
  desktop.accessibility.Arrive();
  Refresh();
  timer.Fire();
  desktop.accessibility.Arrive();
  EXPECT_TRUE(timer.enabled);
}

TEST_F(AccessibilityViewTest, WhatIsGivenUpIsNotShown) {
  Render(page);
  view.RefreshAABrowser();
  view.GiveUp();
  desktop.accessibility.Arrive();
  EXPECT_THAT(Labels(), IsEmpty());
  EXPECT_FALSE(timer.enabled);
}

TEST_F(AccessibilityViewTest, FollowingANodeFocusesItsElementAndActs) {
  Render(page);
  Refresh();
  tree.Nodes().front()->SetExpanded(true);
  static_cast<FakeTreeView&>(tree).Expand.Raise(*tree.Nodes().front());
  ASSERT_EQ(tree.Nodes().size(), 2U);
  EXPECT_EQ(tree.Nodes()[1]->Text(), "Weather link");
  EXPECT_EQ(tree.Nodes()[1]->Tag(), "http://weather/");
  view.Follow(*tree.Nodes()[1]);
  EXPECT_THAT(*page->objects[0]->journal, ElementsAre("select 1 Weather", "do Weather"));
}

TEST_F(AccessibilityViewTest, FollowingAnythingElseDoesNothing) {
  Render(page);
  Refresh();
  TreeNode& plain = explorer.AddNode("No item", {});
  CExplorer::NodeOptions options;
  options.Data = std::string("a plain value");
  TreeNode& value = explorer.AddNode("Value", options);
  const auto before = Labels();
  view.Follow(plain);
  view.Follow(value);
  EXPECT_THAT(*page->journal, IsEmpty()) << "no element is touched";
  EXPECT_THAT(*page->objects[0]->journal, IsEmpty());
  EXPECT_EQ(Labels(), before);
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
  EXPECT_EQ(desktop.Get<FakeRichTextBox>("Text1").Text(), "");
  EXPECT_THAT(desktop.Get<FakeWebBrowser>("brwWebBrowser").calls, IsEmpty());
}

TEST_F(AccessibilityViewTest, ProblemIsToldOnceAndNotTriedAgain) {
  Render(nullptr);
  view.RefreshAABrowser();
  desktop.accessibility.Problem.Raise("There is no bus.");
  desktop.accessibility.Arrive();
  EXPECT_FALSE(timer.enabled);
  EXPECT_THAT(desktop.Get<FakeRichTextBox>("Text1").Text(), HasSubstr("There is no bus."));
}

TEST_F(AccessibilityViewTest, ProblemIsNotToldWhoeverSeesSomethingElse) {
  pane.menu.mnuSideBarContent(kSideBarAccessibility).SetChecked(false);
  desktop.accessibility.Problem.Raise("There is no bus.");
  EXPECT_EQ(desktop.Get<FakeRichTextBox>("Text1").Text(), "");
}

TEST_F(AccessibilityViewTest, BusThatDiesLeavesTheTreeAsItIs) {
  Render(page);
  Refresh();
  desktop.accessibility.Problem.Raise("The bus is gone.");
  desktop.accessibility.refuses = true;
  page->refuses = true;
  view.Follow(*tree.Nodes().front());
  tree.Expand.Raise(*tree.Nodes().front());
  EXPECT_THAT(Labels(), ElementsAre("HTML_Internet Explorer document"));
}

}  // namespace
}  // namespace corvane::tests
