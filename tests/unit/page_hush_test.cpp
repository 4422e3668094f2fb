#include "speech/PageHush.h"

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

/// How loud pages are beside what is said.
struct PageHushTest : testing::Test {
  Program p;

  std::vector<int>& Levels() { return p.desktop.page_sound.levels; }
  std::string& Stored(const char* key) { return p.desktop.settings.Main(key); }
  /// The moment of silence is over, if one is waited for.
  void SilenceLasts() {
    for (FakeTimer* timer : std::vector(p.desktop.timers)) {
      if (timer->interval == 600) timer->Fire();
    }
  }
};

TEST_F(PageHushTest, PagesAreLowWhileSomethingIsSaidAndRiseBehindIt) {
  Stored("Manner") = "1";
  p.Start();
  p.desktop.Speaking.Raise(true);
  EXPECT_THAT(Levels(), ElementsAre(20));
  p.desktop.Speaking.Raise(false);
  EXPECT_THAT(Levels(), ElementsAre(20)) << "they surge between two sentences";
  SilenceLasts();
  EXPECT_THAT(Levels(), ElementsAre(20, 100));
}

TEST_F(PageHushTest, BetweenTwoSentencesTheyStayLow) {
  Stored("Manner") = "1";
  p.Start();
  p.desktop.Speaking.Raise(true);
  p.desktop.Speaking.Raise(false);
  p.desktop.Speaking.Raise(true);
  SilenceLasts();
  EXPECT_THAT(Levels(), ElementsAre(20, 20));
}

TEST_F(PageHushTest, HowLowIsTheUsersChoice) {
  Stored("Manner") = "1";
  Stored("PageLevel") = "50";
  p.Start();
  p.desktop.Speaking.Raise(true);
  EXPECT_THAT(Levels(), ElementsAre(50));
}

TEST_F(PageHushTest, TheEstablishedWayLeavesPagesAlone) {
  p.Start();
  EXPECT_FALSE(p.desktop.page_sound.held());
  p.desktop.Speaking.Raise(true);
  EXPECT_THAT(Levels(), ElementsAre(100));
}

TEST_F(PageHushTest, TodayPagesMayNotBeginToSoundByThemselves) {
  Stored("Manner") = "1";
  p.Start();
  EXPECT_TRUE(p.desktop.page_sound.held());
}

}  // namespace
}  // namespace corvane::tests
