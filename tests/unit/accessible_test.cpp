#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "access/CIAccessible.h"
#include "tests/fakes/fake_accessible.h"
#include "tests/fakes/fake_windows.h"

namespace corvane::tests {
namespace {

using namespace corvane::fakes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Ptr = FakeAccessible::Ptr;

struct AccessibleTest : ::testing::Test {
  FakeWindows windows;
  FakeAccessibility accessibility;
  CIAccessible access{accessibility, windows};

  static Ptr Make(const std::string& name, int role, const std::string& value = "") {
    return FakeAccessible::Make(name, role, value);
  }
  std::string Leaves(const Ptr& object, bool say_role = false) const {
    std::string text;
    access.GetBottomChildrenInfo(object, {}, say_role, 0, text);
    return text;
  }
  std::string LeavesOfItself(const Ptr& object) const {
    std::string text = "what was there before";
    access.GetBottomChildrenInfo(object, 0, false, 0, text);
    return text;
  }
  /// A chain of objects, one the child of the other, the uppermost first.
  static std::vector<Ptr> Chain(int count) {
    std::vector<Ptr> chain = {Make("level 0", 10)};
    for (int i = 1; i < count; ++i) {
      chain.push_back(chain.back()->Add(Make("level " + std::to_string(i), 10)));
    }
    return chain;
  }
};

TEST_F(AccessibleTest, PropertiesAreTheObjectsOwnWithoutAKidAndTheKidsWithOne) {
  const Ptr list = Make("Fruit", 33, "two");
  list->facts.state = 1;
  list->facts.place = {1, 2, 3, 4};
  FakeAccessible::Facts kid;
  kid.texts = {{AccessibleText::Name, "Apple"},         {AccessibleText::Value, "red"},
               {AccessibleText::Description, "sweet"},  {AccessibleText::Help, "Eat it"},
               {AccessibleText::DefaultAction, "Bite"}, {AccessibleText::KeyboardShortcut, "a"}};
  kid.role = 34;
  kid.state = 2;
  kid.place = {5, 6, 7, 8};
  list->simple[3] = kid;

  EXPECT_EQ(access.accName(list, {}), "Fruit");
  EXPECT_EQ(access.accName(list, 3), "Apple");
  EXPECT_EQ(access.accValue(list, {}), "two");
  EXPECT_EQ(access.accValue(list, 3), "red");
  EXPECT_EQ(access.accDescription(list, 3), "sweet");
  EXPECT_EQ(access.accHelp(list, 3), "Eat it");
  EXPECT_EQ(access.accDefaultAction(list, 3), "Bite");
  EXPECT_EQ(access.accKeyboardShortcut(list, 3), "a");
  EXPECT_EQ(access.accRole(list, {}), 33);
  EXPECT_EQ(access.accRole(list, 3), 34);
  EXPECT_EQ(access.accState(list, {}), 1U);
  EXPECT_EQ(access.accState(list, 3), 2U);
  int left = 0, top = 0, width = 0, height = 0;
  access.accLocation(list, left, top, width, height, {});
  EXPECT_THAT((std::vector{left, top, width, height}), ElementsAre(1, 2, 3, 4));
  access.accLocation(list, left, top, width, height, 3);
  EXPECT_THAT((std::vector{left, top, width, height}), ElementsAre(5, 6, 7, 8));
}

TEST_F(AccessibleTest, WhatFailsIsEmpty) {
  const Ptr broken = Make("Broken", 33, "value");
  broken->Add(Make("child", 30));
  broken->refuses = true;
  for (const AccessiblePtr& object : {AccessiblePtr(broken), AccessiblePtr()}) {
    EXPECT_EQ(access.accName(object, {}), "");
    EXPECT_EQ(access.accValue(object, 1), "");
    EXPECT_EQ(access.accDescription(object, {}), "");
    EXPECT_EQ(access.accHelp(object, {}), "");
    EXPECT_EQ(access.accDefaultAction(object, {}), "");
    EXPECT_EQ(access.accKeyboardShortcut(object, {}), "");
    EXPECT_EQ(access.accRole(object, {}), 0);
    EXPECT_EQ(access.accState(object, {}), 0U);
    EXPECT_EQ(access.accChildCount(object), 0);
    EXPECT_EQ(access.accParent(object), nullptr);
    EXPECT_EQ(access.hWndFromAccessibleObject(object), 0U);
    int left = 9, top = 9, width = 9, height = 9;
    access.accLocation(object, left, top, width, height, {});
    EXPECT_THAT((std::vector{left, top, width, height}), ElementsAre(0, 0, 0, 0));
    access.accSelect(object, 1, {});
    access.accDoDefaultAction(object, {});
    std::vector<AccessiblePtr> objects = {broken};
    std::vector<AccessibleKid> kids = {1};
    EXPECT_EQ(access.IAccessibleChildren(objects, kids, object, true), 0);
    EXPECT_THAT(objects, IsEmpty());
    EXPECT_THAT(kids, IsEmpty());
    AccessiblePtr found;
    access.FindTopParent(object, 0, found);
    access.FindParentDialog(object, 0, found);
    EXPECT_EQ(found, nullptr);
    WindowHandle window = 77;
    EXPECT_EQ(access.ClassNameFromAccessibleObject(object, {}, window), "");
    EXPECT_EQ(window, 0U);
  }
}

TEST_F(AccessibleTest, WithoutAccessibilityNothingIsFound) {
  accessibility.refuses = true;
  AccessibleKid kid = 5;
  EXPECT_EQ(access.IAccessibleObjectFromWindow(1, kObjectClient), nullptr);
  EXPECT_EQ(access.IAccessibleObjectFromPointer(kid), nullptr);
  EXPECT_EQ(kid, std::nullopt);
  EXPECT_EQ(access.IAccessibleObjectFromCaretPos(kid), nullptr);
  EXPECT_EQ(access.hWndFromCaretPos(), 0U);
  EXPECT_EQ(access.RoleText(30), "");
}

TEST_F(AccessibleTest, WindowsObjectsAreFoundByWindowAndPart) {
  const Ptr client = Make("client", 10);
  accessibility.objects[{7, kObjectClient}] = client;
  EXPECT_EQ(access.IAccessibleObjectFromWindow(7, kObjectClient), client);
  EXPECT_EQ(access.IAccessibleObjectFromWindow(7, kObjectWindow), nullptr);
}

TEST_F(AccessibleTest, ElementUnderThePointerIsAtItsPlaceOnTheScreen) {
  const Ptr list = Make("list", 33);
  accessibility.cursor = {300, 200};
  accessibility.points[{300, 200}] = {list, 4};
  AccessibleKid kid;
  EXPECT_EQ(access.IAccessibleObjectFromPointer(kid), list);
  EXPECT_EQ(kid, 4);
}

TEST_F(AccessibleTest, CaretsPlaceInItsWindowIsTakenAsAPlaceOnTheScreen) {
  const Ptr at_client_place = Make("wherever that is", 10);
  const Ptr at_screen_place = Make("the field with the caret", 42);
  accessibility.caret = {12, 5};  // in a window that lies at 400, 300
  accessibility.points[{12, 5}] = {at_client_place, {}};
  accessibility.points[{412, 305}] = {at_screen_place, {}};
  AccessibleKid kid;
  EXPECT_EQ(access.IAccessibleObjectFromCaretPos(kid), at_client_place);
}

TEST_F(AccessibleTest, WindowAtTheCaretIsThatOfTheElementOrOfItsParent) {
  const Ptr list = Make("list", 33);
  const Ptr item = Make("item", 34);
  list->window = 11;
  item->window = 22;
  accessibility.points[{0, 0}] = {list, {}};
  EXPECT_EQ(access.hWndFromCaretPos(), 11U);
  list->own_objects[1] = item;
  accessibility.points[{0, 0}] = {list, 1};
  EXPECT_EQ(access.hWndFromCaretPos(), 22U);
  item->window = 0;
  EXPECT_EQ(access.hWndFromCaretPos(), 11U) << "an element without a window";
  accessibility.points[{0, 0}] = {list, 2};  // a simple element
  EXPECT_EQ(access.hWndFromCaretPos(), 11U);
}

TEST_F(AccessibleTest, ClassNameIsThatOfTheElementsWindow) {
  const WindowHandle outer = windows.Add("", "Outer");
  const WindowHandle inner = windows.Add("", std::string(300, 'x'));
  const Ptr list = Make("list", 33);
  const Ptr item = Make("item", 34);
  list->window = outer;
  item->window = inner;
  list->own_objects[1] = item;
  WindowHandle window = 0;
  EXPECT_EQ(access.ClassNameFromAccessibleObject(list, {}, window), "Outer");
  EXPECT_EQ(window, outer);
  EXPECT_EQ(access.ClassNameFromAccessibleObject(list, 1, window), std::string(254, 'x'));
  EXPECT_EQ(window, inner);
  EXPECT_EQ(access.ClassNameFromAccessibleObject(list, 2, window), "Outer");
}

TEST_F(AccessibleTest, RoleTextIsCutToItsBuffer) {
  EXPECT_EQ(access.RoleText(30), "link");
  accessibility.roles[31] = std::string(400, 'r');
  EXPECT_EQ(access.RoleText(31), std::string(255, 'r'));
}

TEST_F(AccessibleTest, RequestsArePassedOn) {
  const Ptr list = Make("list", 33);
  list->simple[2].texts[AccessibleText::Name] = "item";
  access.accSelect(list, kSelectTakeFocus, {});
  access.accDoDefaultAction(list, 2);
  EXPECT_THAT(*list->journal, ElementsAre("select 1 list", "do item 2"));
}

TEST_F(AccessibleTest, ChildrenAreObjectsOrTheParentWithANumber) {
  const Ptr list = Make("list", 33);
  const Ptr first = list->Add(Make("first", 34));
  list->simple[2] = {};
  list->simple[3] = {};
  std::vector<AccessiblePtr> objects;
  std::vector<AccessibleKid> kids;
  EXPECT_EQ(access.IAccessibleChildren(objects, kids, list, true), 3);
  EXPECT_THAT(objects, ElementsAre(first, list, list));
  EXPECT_THAT(kids, ElementsAre(std::nullopt, 2, 3));
  EXPECT_EQ(access.IAccessibleChildren(objects, kids, list, false, 2), 2);
  EXPECT_THAT(objects, ElementsAre(first, list));
  EXPECT_THAT(kids, ElementsAre(std::nullopt, 2));
}

TEST_F(AccessibleTest, ArraysAreCutToTheChildrenDelivered) {
  const Ptr list = Make("list", 33);
  list->Add(Make("only", 34));
  list->undelivered = 5;
  std::vector<AccessiblePtr> objects;
  std::vector<AccessibleKid> kids;
  EXPECT_EQ(access.IAccessibleChildren(objects, kids, list, true), 1);
  EXPECT_EQ(objects.size(), 1U);
  EXPECT_EQ(kids.size(), 1U);
}

TEST_F(AccessibleTest, ChildrenThatCameSinceTheyWereCountedAreAmongThem) {
  const Ptr list = Make("list", 33);
  for (const char* name : {"one", "two", "three", "four"}) list->Add(Make(name, 34));
  list->undelivered = -2;
  std::vector<AccessiblePtr> objects;
  std::vector<AccessibleKid> kids;
  EXPECT_EQ(access.IAccessibleChildren(objects, kids, list, true), 4);
  EXPECT_EQ(objects.size(), 4U);
  EXPECT_EQ(kids.size(), 4U);
}

TEST_F(AccessibleTest, ChildWithoutAUsableObjectIsASimpleElementOfItsParent) {
  const Ptr list = Make("list", 33);
  list->Add(Make("first", 34));
  list->objects.push_back(nullptr);
  std::vector<AccessiblePtr> objects;
  std::vector<AccessibleKid> kids;
  access.IAccessibleChildren(objects, kids, list, true);
  EXPECT_EQ(objects.at(1), list);
  EXPECT_EQ(kids.at(1), 2);
}

TEST_F(AccessibleTest, TextOfASubtreeIsItsVisibleLeavesEachWithAFullStop) {
  const Ptr page = Make("page", 15);
  page->Add(Make("News", 30, "http://news/"));
  const Ptr group = page->Add(Make("group", 20));
  group->Add(Make("Name", 42, "Ada"));
  const Ptr hidden = page->Add(Make("hidden", 20));
  hidden->facts.state = kStateInvisible;
  hidden->Add(Make("secret", 30));
  page->Add(Make("", 41));
  page->simple[9].texts[AccessibleText::Name] = "Simple";
  EXPECT_EQ(Leaves(page), "News.\r\nAda.\r\nSimple.\r\n");
  EXPECT_EQ(Leaves(page, true), "link, News.\r\neditable text, Ada.\r\ntext, .\r\n, Simple.\r\n");
}

TEST_F(AccessibleTest, GraphicIsALineOnlyWithItsRole) {
  const Ptr page = Make("page", 15);
  page->Add(Make("A flower", 40));
  EXPECT_EQ(Leaves(page, false), "");
  EXPECT_EQ(Leaves(page, true), "graphic, .\r\n");
}

TEST_F(AccessibleTest, EditFieldIsALeafWithItsValue) {
  EXPECT_EQ(Leaves(Make("Name", 42, "Ada")), "Ada.\r\n");
}

TEST_F(AccessibleTest, FlatteningStopsAtDepth101) {
  const auto chain = Chain(150);
  EXPECT_EQ(Leaves(chain.front()), "level 101.\r\n");
  const auto exact = Chain(102);
  EXPECT_EQ(Leaves(exact.front()), "level 101.\r\n");
}

TEST_F(AccessibleTest, TopParentIsTheChildOfTheDesktopInAnyCase) {
  const Ptr desktop = Make("dEsKtOp", 9);
  const Ptr window = desktop->Add(Make("window", 9));
  const Ptr button = window->Add(Make("button", 43));
  AccessiblePtr top;
  access.FindTopParent(button, 0, top);
  EXPECT_EQ(top, window);
  top.reset();
  access.FindTopParent(window, 0, top);
  EXPECT_EQ(top, window);
}

TEST_F(AccessibleTest, WithoutADesktopThereIsNoTopParent) {
  const Ptr root = Make("root", 9);
  const Ptr child = root->Add(Make("child", 43));
  AccessiblePtr top;
  access.FindTopParent(child, 0, top);
  EXPECT_EQ(top, nullptr);
}

TEST_F(AccessibleTest, SearchesUpwardsStopAtDepth101) {
  const auto chain = Chain(110);
  chain.front()->facts.texts[AccessibleText::Name] = "Desktop";
  AccessiblePtr top;
  access.FindTopParent(chain[101], 0, top);
  EXPECT_EQ(top, chain[1]);
  top.reset();
  access.FindTopParent(chain[102], 0, top);
  EXPECT_EQ(top, nullptr);

  chain[1]->facts.role = kRoleDialog;
  AccessiblePtr dialog;
  access.FindParentDialog(chain[102], 0, dialog);
  EXPECT_EQ(dialog, chain[1]);
  dialog.reset();
  access.FindParentDialog(chain[103], 0, dialog);
  EXPECT_EQ(dialog, nullptr);
}

TEST_F(AccessibleTest, KidZeroIsTheObjectItself) {
  const Ptr list = Make("list", 33);
  list->Add(Make("apple", 34));
  list->Add(Make("pear", 34));
  EXPECT_EQ(LeavesOfItself(list), "apple.\r\npear.\r\n");
}

TEST_F(AccessibleTest, NearestDialogIsFound) {
  const Ptr desktop = Make("Desktop", 18);  // even if it were one
  const Ptr outer = desktop->Add(Make("outer", 18));
  const Ptr inner = outer->Add(Make("inner", 18));
  const Ptr group = inner->Add(Make("group", 20));
  const Ptr button = group->Add(Make("button", 43));
  AccessiblePtr found;
  access.FindParentDialog(button, 0, found);
  EXPECT_EQ(found, inner);
  found.reset();
  access.FindParentDialog(inner, 0, found);
  EXPECT_EQ(found, outer);
}

TEST_F(AccessibleTest, NoDialogAboveYieldsNothing) {
  const Ptr desktop = Make("Desktop", 9);
  const Ptr window = desktop->Add(Make("window", 9));
  const Ptr button = window->Add(Make("button", 43));
  AccessiblePtr found = button;
  access.FindParentDialog(button, 0, found);
  EXPECT_EQ(found, nullptr);
  found = desktop;
  access.FindTopParent(desktop, 0, found);
  EXPECT_EQ(found, nullptr) << "nothing is above the desktop";
}

TEST_F(AccessibleTest, TheDesktopIsNoDialogEvenIfItSaysSo) {
  const Ptr desktop = Make("DESKtop", 18);
  const Ptr window = desktop->Add(Make("window", 9));
  AccessiblePtr found = window;
  access.FindParentDialog(window, 0, found);
  EXPECT_EQ(found, nullptr);
}

TEST_F(AccessibleTest, TopParentMayBeAskedForInItsOwnVariable) {
  const Ptr desktop = Make("Desktop", 9);
  const Ptr window = desktop->Add(Make("window", 9));
  AccessiblePtr object = window->Add(Make("button", 43));
  access.FindTopParent(object, 0, object);
  EXPECT_EQ(object, window);
}

}  // namespace
}  // namespace corvane::tests
