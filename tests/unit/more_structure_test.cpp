// The page structure's further branches: what stands in the page's text.
#include "browser/SideBar.h"
#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;

struct MoreStructure : ::testing::Test {
  Program p;

  void Start(const std::string& manner) {
    p.desktop.settings.Main("Manner") = manner;
    p.desktop.settings.Pane("SideBar") = std::to_string(kSideBarPageStructure);
    p.StartTalking();
    p.Read(MakePage("http://a/", "Title", "Prices\nFruit"));
  }
  void Describe() {
    ElementFacts main;
    main.role = "main";
    p.Browser().TextDescribed(PageTextMaker("Prices\nFruit")
                                  .Add(Kind::Landmark, "Prices\nFruit", 0, 0, main)
                                  .Add(Kind::Heading, "Prices", 1)
                                  .Add(Kind::Heading, "Fruit", 2)
                                  .Make());
  }
  FakeTreeNode& Open() {
    FakeTreeNode& root = *p.Tree().nodes.at(0);
    p.Tree().Toggle(root);
    return root;
  }
};

TEST_F(MoreStructure, BelowTheFourBranchesStandThoseOfTheText) {
  Start("1");
  Describe();
  FakeTreeNode& root = Open();
  EXPECT_THAT(root.Labels(), ElementsAre("Links 0", "Frames 0", "Anchors 0", "Forms 0",
                                         "Headings 2", "Landmarks 1", "Tables 0"));
  p.Tree().Toggle(root[4]);
  EXPECT_THAT(root[4].Labels(), ElementsAre("Prices, level 1", "Fruit, level 2"));
  p.Tree().Toggle(root[5]);
  EXPECT_THAT(root[5].Labels(), ElementsAre("main"));
  EXPECT_TRUE(root[6].children.empty());
}

TEST_F(MoreStructure, AnElementLeadsToItsPlaceInTheText) {
  Start("1");
  Describe();
  FakeTreeNode& headings = Open()[4];
  p.Tree().Toggle(headings);
  p.Tree().SetFocus();
  p.Tree().Click(headings[1]);
  p.Spoken();
  p.Browser().calls.clear();
  p.Tree().Press(kKeyReturn);
  EXPECT_EQ(p.desktop.focus, "Text1");
  EXPECT_THAT(p.Spoken(), ElementsAre("Fruit, heading level 2"));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 3"));
}

TEST_F(MoreStructure, ABranchIsOpenedByEnter) {
  Start("1");
  Describe();
  FakeTreeNode& headings = Open()[4];
  p.Tree().Click(headings);
  p.Spoken();
  p.Tree().Press(kKeyReturn);
  EXPECT_THAT(p.Spoken(), ElementsAre("Headings 2 Opened"));
}

TEST_F(MoreStructure, AsLongAsTheTextIsNotKnownThereAreFour) {
  Start("1");
  EXPECT_EQ(Open().Labels().size(), 4U);
}

TEST_F(MoreStructure, TheEstablishedMannerHasFour) {
  Start("0");
  EXPECT_THAT(Open().Labels(), ElementsAre("Links 0", "Frames 0", "Anchors 0", "Forms 0"));
}

TEST_F(MoreStructure, TheSettingAloneDecides) {
  p.desktop.settings.Pane("MoreStructure") = "False";
  Start("1");
  Describe();
  EXPECT_EQ(Open().Labels().size(), 4U);
}

}  // namespace
}  // namespace corvane::tests
