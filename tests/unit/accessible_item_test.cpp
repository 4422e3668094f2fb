#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "explorer/CExplorer.h"
#include "explorer/CIAccessibleBrowser.h"
#include "tests/fakes/fake_accessible.h"
#include "tests/fakes/fake_desktop.h"

namespace corvane::tests {
namespace {

using namespace corvane::fakes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Ptr = FakeAccessible::Ptr;

struct AccessibleItemTest : ::testing::Test {
  FakeDesktop desktop;
  FakeWindows& windows = desktop.windows;
  FakeAccessibility& accessibility = desktop.accessibility;
  CExplorer explorer{desktop};
  std::unique_ptr<TreeView> tree = desktop.CreateTreeView("TreeView1");

  std::shared_ptr<CIAccessibleBrowser> Item(const Ptr& object, AccessibleKid kid = {}) {
    auto item = std::make_shared<CIAccessibleBrowser>(accessibility, windows);
    item->setChild(object, kid);
    return item;
  }
  std::string Label(const std::string& name, int role, const std::string& value = "") {
    return Item(FakeAccessible::Make(name, role, value))->Text();
  }
  /// The items below an item; neither controller nor node is looked at.
  std::vector<std::shared_ptr<CIAccessibleBrowser>> Children(CIAccessibleBrowser& item) {
    TreeNode& node = tree->Add(nullptr, "any");
    std::vector<std::shared_ptr<CIAccessibleBrowser>> children;
    for (const auto& each : item.GetChildren(explorer, node)) {
      children.push_back(std::dynamic_pointer_cast<CIAccessibleBrowser>(each));
    }
    return children;
  }
  std::vector<std::string> Labels(CIAccessibleBrowser& item) {
    std::vector<std::string> labels;
    for (const auto& child : Children(item)) labels.push_back(child->Text());
    return labels;
  }
};

TEST_F(AccessibleItemTest, NamedElementIsLabelledWithItsNameAndRole) {
  EXPECT_EQ(Label("OK", 43), "OK push button");
  EXPECT_EQ(Label("News", 30, "http://news/"), "News link");
}

TEST_F(AccessibleItemTest, NamedEditFieldIsItsNameOnly) {
  EXPECT_EQ(Label("Your name", 42, "Ada"), "Your name");
}

TEST_F(AccessibleItemTest, NamelessLinkAndEditFieldAreRoleAndValue) {
  EXPECT_EQ(Label("", 30, "http://news/"), "link, http://news/");
  EXPECT_EQ(Label("", 42, "Ada"), "editable text, Ada");
}

TEST_F(AccessibleItemTest, AnyOtherNamelessElementIsItsRole) {
  EXPECT_EQ(Label("", 40, "flower.png"), "graphic");
}

TEST_F(AccessibleItemTest, ItsDataIsItsValueAndItsIconTheFirst) {
  const auto item = Item(FakeAccessible::Make("News", 30, "http://news/"));
  EXPECT_EQ(item->ItemData(), "http://news/");
  EXPECT_EQ(item->IconIndex(), 1);
  item->SetItemData("other");
  item->SetIconIndex(7);
  EXPECT_EQ(item->ItemData(), "http://news/");
  EXPECT_EQ(item->IconIndex(), 1);
}

TEST_F(AccessibleItemTest, RenamingAndDeletingAreRefused) {
  const auto item = Item(FakeAccessible::Make("News", 30));
  try {
    item->SetText("Olds");
    ADD_FAILURE() << "renamed";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 999);
    EXPECT_EQ(error.Description(), "Unable to delete this object") << "for all that is refused";
  }
  try {
    item->Delete();
    ADD_FAILURE() << "deleted";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.Number(), 999);
    EXPECT_EQ(error.Source(), "IExplorerItem");
    EXPECT_EQ(error.Description(), "Unable to delete this object");
  }
  EXPECT_EQ(item->Text(), "News link");
}

TEST_F(AccessibleItemTest, ElementWithoutChildrenCannotBeOpened) {
  const Ptr list = FakeAccessible::Make("Fruit", 33);
  EXPECT_FALSE(Item(list)->HasChildren());
  list->Add(FakeAccessible::Make("Apple", 34));
  EXPECT_TRUE(Item(list)->HasChildren());
  list->simple[2].role = 34;
  EXPECT_FALSE(Item(list, 2)->HasChildren());  // its siblings are not its children
}

TEST_F(AccessibleItemTest, ChildrenStandInTheirOrderSimpleOnesToo) {
  const Ptr list = FakeAccessible::Make("Fruit", 33);
  list->Add(FakeAccessible::Make("Apple", 30));
  list->simple[2].texts[AccessibleText::Name] = "Pear";
  list->simple[2].role = 43;
  const auto item = Item(list);
  EXPECT_THAT(Labels(*item), ElementsAre("Apple link", "Pear push button"));
  const auto children = Children(*item);
  EXPECT_EQ(children[0]->objIAChild, list->objects[0]);
  EXPECT_EQ(children[0]->m_vKid, std::nullopt);
  EXPECT_EQ(children[1]->objIAChild, list);
  EXPECT_EQ(children[1]->m_vKid, 2);
}

struct ManyElements : AccessibleItemTest {
  Ptr list = FakeAccessible::Make("Fruit", 33);

  ManyElements() {
    for (int i = 1; i <= 300; ++i) list->Add(FakeAccessible::Make(std::to_string(i), 30));
    explorer.Init(*tree, nullptr, 0, 0, 0);
    explorer.SetRoot(Item(list));
  }
  TreeNode& Root() { return *tree->Nodes().front(); }
};

TEST_F(ManyElements, ComePieceByPieceInTheirOrder) {
  Root().SetExpanded(true);
  EXPECT_EQ(Root().Children(), 32U) << "what the next keys reach is there at once";
  accessibility.Arrive();
  EXPECT_EQ(Root().Children(), 96U);
  for (int i = 0; i < 4; ++i) accessibility.Arrive();
  ASSERT_EQ(Root().Children(), 300U);
  for (std::size_t i = 0; i < 300; ++i) {
    EXPECT_EQ(Root().Child(i).Text(), std::to_string(i + 1) + " link");
  }
  EXPECT_THAT(accessibility.pieces,
              ElementsAre(std::pair(32, 64), std::pair(96, 64), std::pair(160, 64),
                          std::pair(224, 64), std::pair(288, 64)));
  EXPECT_EQ(accessibility.pending, nullptr);
}

TEST_F(ManyElements, ThatCannotBeToldAtOnceAreWaitedFor) {
  list->slow = true;
  Root().SetExpanded(true);
  ASSERT_EQ(Root().Children(), 1U);
  EXPECT_EQ(Root().Child(0).Text(), "Working...");
  accessibility.Arrive();
  EXPECT_EQ(Root().Children(), 64U);
  EXPECT_EQ(Root().Child(0).Text(), "1 link");
}

TEST_F(ManyElements, OfATreeThatIsReplacedAreGivenUp) {
  Root().SetExpanded(true);
  explorer.SetRoot(Item(FakeAccessible::Make("Other", 33)));
  accessibility.Arrive();
  EXPECT_EQ(tree->Nodes().size(), 1U);
}

TEST_F(AccessibleItemTest, InvisibleChildIsShownOnlyOnRequestWhichIsPassedDown) {
  const Ptr list = FakeAccessible::Make("Fruit", 33);
  const Ptr hidden = list->Add(FakeAccessible::Make("Hidden", 30));
  hidden->facts.state = kStateInvisible;
  hidden->Add(FakeAccessible::Make("Below", 30))->facts.state = kStateInvisible | 1U;
  const auto item = Item(list);
  EXPECT_THAT(Labels(*item), IsEmpty());
  item->blnShowInvisible = true;
  const auto children = Children(*item);
  ASSERT_EQ(children.size(), 1U);
  EXPECT_THAT(Labels(*children[0]), ElementsAre("Below link"));
}

TEST_F(AccessibleItemTest, VanishedChildIsLeftOutEvenAmongInvisibleOnes) {
  const Ptr list = FakeAccessible::Make("Fruit", 33);
  list->Add(FakeAccessible::Make("Gone", kRoleVanished));
  list->Add(FakeAccessible::Make("There", 30));
  const auto item = Item(list);
  item->blnShowInvisible = true;
  EXPECT_THAT(Labels(*item), ElementsAre("There link"));
}

TEST_F(AccessibleItemTest, ElementThatAnswersNothingIsStillShown) {
  const Ptr list = FakeAccessible::Make("Fruit", 33);
  list->Add(FakeAccessible::Make("Broken", 30))->refuses = true;
  accessibility.roles[0] = "unknown";
  const auto item = Item(list);
  EXPECT_THAT(Labels(*item), ElementsAre("unknown"));
  list->refuses = true;
  EXPECT_THAT(Labels(*item), IsEmpty());
}

TEST_F(AccessibleItemTest, ReadsEverythingOnce) {
  const Ptr list = FakeAccessible::Make("Fruit", 33);
  list->Add(FakeAccessible::Make("Apple", 30));
  accessibility.roles[33] = "list";
  const auto item = Item(list);
  list->facts.texts[AccessibleText::Name] = "Vegetables";
  list->objects.clear();
  EXPECT_EQ(item->Text(), "Fruit list");
  EXPECT_TRUE(item->HasChildren());
  EXPECT_THAT(Labels(*item), IsEmpty());  // what is there when it is opened
}

}  // namespace
}  // namespace corvane::tests
