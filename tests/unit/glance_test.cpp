#include "browser/reading/Glance.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;

PageTextPtr Page() {
  ElementFacts main;
  main.role = "main";
  return PageTextMaker("Start\nPrices\n12345678901234567890\n")
      .Add(Kind::Link, "Start")
      .Add(Kind::Landmark, "Prices\n12345678901234567890", 0, 0, main)
      .Add(Kind::Heading, "Prices", 1)
      .Make();
}

TEST(Glance, CountsWhatThereIs) {
  EXPECT_EQ(ContentWords(TextMap(Page()), 2), "1 heading, 1 link, 2 forms, 1 landmark");
  EXPECT_EQ(ContentWords(TextMap(PageTextMaker("text").Make()), 0), "");
}

TEST(Glance, TellsWhereAPlaceIs) {
  const TextMap map(Page());
  EXPECT_EQ(WhereWords(map, 17), "in main, below Prices, 50 percent");
  EXPECT_EQ(WhereWords(map, 6), "in main, below Prices, 17 percent");
  EXPECT_EQ(WhereWords(map, 0), "0 percent");
  EXPECT_EQ(WhereWords(map, -9), "0 percent") << "in the title";
}

struct GlanceKey : ::testing::Test {
  Program p;
  bool Press() {
    KeyEvent key{'S', kCtrlMask | kShiftMask};
    p.Inside().form->KeyDown.Raise(key);
    return key.KeyCode == 0;
  }
  void Start(const std::string& manner) {
    p.desktop.settings.Main("Manner") = manner;
    p.StartTalking();
    p.Read(MakePage("http://a/", "The market", "Start\nPrices"));
    p.Spoken();
  }
};

TEST_F(GlanceKey, SaysTitleContentAndPlace) {
  Start("1");
  p.Browser().TextDescribed(Page());
  EXPECT_TRUE(Press());
  EXPECT_THAT(p.Spoken(), ElementsAre("The market, 1 heading, 1 link, 1 landmark, 0 percent"));
}

TEST_F(GlanceKey, SaysTheTitleWhileNoMoreIsKnown) {
  Start("1");
  EXPECT_TRUE(Press());
  EXPECT_THAT(p.Spoken(), ElementsAre("The market"));
}

TEST_F(GlanceKey, IsNoKeyOfTheEstablishedManner) {
  Start("0");
  EXPECT_FALSE(Press());
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
