#include "browser/Places.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct PlacesTest : ::testing::TestWithParam<const char*> {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = GetParam();
    p.desktop.settings.Pane("Focus") = "0";
    p.desktop.settings.Pane("SideBar") = "4";
    p.StartTalking();
    p.Read(MakePage("http://a/", "Terms", "Terms\nBetween\n\nTerms\nThe text\nThe end",
                    {{"Terms", "http://a/#terms"}, {"Other", "http://b/#terms"}}));
    p.Spoken();
    p.Browser().calls.clear();
    p.Reading().enabled = false;
  }
  void Reach(const std::string& words, std::size_t before) {
    p.Browser().PlaceReached.Raise({words, before});
  }
  std::string RestOfTextPane() {
    return text::mid(p.TextPane().text, static_cast<std::size_t>(p.TextPane().start) + 1);
  }
};

TEST_P(PlacesTest, ALinkOfTheListLeadsToAPlaceWithoutReadingThePageAgain) {
  p.Links().index = 1;
  p.Links().SetFocus();
  p.Spoken();
  p.Links().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.Browser().calls, ElementsAre("GoToPlace http://a/#terms"));
  EXPECT_FALSE(p.Reading().enabled);
  Reach("Terms", std::string("TermsBetween").size());
  EXPECT_THAT(p.Spoken(), ElementsAre("Terms"));
  EXPECT_THAT(RestOfTextPane(), ::testing::StartsWith("Terms\nThe text"));
}

TEST_P(PlacesTest, ALinkOfTheTreeDoesSoToo) {
  FakeTreeNode& root = *p.Tree().nodes.at(0);
  p.Tree().Toggle(root);
  p.Tree().Toggle(root[0]);
  p.Tree().DoubleClick(root[0][0]);
  EXPECT_THAT(p.Browser().calls, ElementsAre("GoToPlace http://a/#terms"));
  p.Browser().calls.clear();
  p.Tree().DoubleClick(root[0][1]);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 http://b/#terms"));
}

TEST_P(PlacesTest, TheTextPaneIsReadOnFromThere) {
  Reach("Terms", std::string("TermsBetween").size());
  p.TextPane().SetFocus();
  p.Spoken();
  p.TextPane().Press(kKeyDown);
  p.TextPane().Press(kKeyRight);
  EXPECT_THAT(p.Spoken(), ElementsAre("The text", "T"));
}

TEST_P(PlacesTest, APlaceThatItsFocusTellsOfMovesTheCaretAlone) {
  Reach("", std::string("Terms").size());
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_THAT(RestOfTextPane(), ::testing::StartsWith("Between"));
}

TEST_P(PlacesTest, TheTopIsThePagesBeginning) {
  Reach("Top of the page", 0);
  EXPECT_THAT(p.Spoken(), ElementsAre("Top of the page"));
  EXPECT_THAT(RestOfTextPane(), ::testing::StartsWith("Terms\nBetween"));
}

INSTANTIATE_TEST_SUITE_P(BothManners, PlacesTest, ::testing::Values("0", "1"));

TEST(PlaceInAText, IsFoundByTheCharactersInFrontOfIt) {
  EXPECT_EQ(PositionOf({"", 2}, "a\xC2\xA0\xC3\xA9 \n c d", 0), 6);
  EXPECT_EQ(PositionOf({"", 1}, "title\nab", 6), 7);
}

TEST(PlaceInAText, IsTheNearestOfAllThatReadLikeIt) {
  const std::string text = "x Here x x x x Here x Here";
  EXPECT_EQ(PositionOf({"Here", 8}, text, 0), 15);
  EXPECT_EQ(PositionOf({"Here", 2}, text, 0), 2);
  EXPECT_EQ(PositionOf({"Here", 2}, text, 4), 15) << "not in front of the page";
  EXPECT_EQ(PositionOf({"Gone", 1}, text, 0), 2) << "what stands there now";
}

TEST(PlaceInAText, BehindItsEndIsNone) {
  EXPECT_EQ(PositionOf({"", 3}, "abc", 0), std::nullopt);
  EXPECT_EQ(PositionOf({"words", 9}, "abc", 0), std::nullopt);
  EXPECT_EQ(PositionOf({"", 0}, "", 0), std::nullopt);
}

// An address may lead into the page, "page.html#comments".
struct AddressWithPlace : ::testing::TestWithParam<const char*> {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = GetParam();
    p.desktop.settings.Pane("Focus") = "5";
    p.StartTalking();
    p.Read(MakePage("http://a/#c", "Title", "Post\nComments\nGood"));
    p.Spoken();
  }
  void Describe(int target) {
    PageTextMaker maker("Post\nComments\nGood");
    maker.Add(PageSpan::Kind::Heading, "Comments", 2);
    maker.Page().target = target;
    p.Browser().TextDescribed(maker.Make());
  }
  std::string AtCaret() {
    return text::mid(p.TextPane().text, static_cast<std::size_t>(p.TextPane().start) + 1, 4);
  }
};

TEST_P(AddressWithPlace, TheTextBeginsThereAndSaysWhatIsThereBehindTheTitle) {
  Describe(5);
  const bool today = std::string(GetParam()) == "1";
  EXPECT_THAT(p.Spoken(), IsEmpty());
  p.desktop.speech.agent->CompleteLast();
  if (today) {
    EXPECT_EQ(AtCaret(), "Comm");
    EXPECT_THAT(p.Spoken(), ElementsAre("heading level 2, Comments"));
  } else {
    EXPECT_EQ(AtCaret(), "Titl");
    EXPECT_THAT(p.Spoken(), IsEmpty());
  }
}

TEST_P(AddressWithPlace, WhoHasGoneOnByThenStaysWhereHeIs) {
  p.TextPane().Press(kKeyDown);
  p.Spoken();
  Describe(5);
  EXPECT_EQ(AtCaret(), "Post");
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(BothManners, AddressWithPlace, ::testing::Values("0", "1"));

}  // namespace
}  // namespace corvane::tests
