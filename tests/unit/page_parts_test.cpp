// Finding in a page, its changes, what it says by itself and its text, over an engine that
// does what the test says.
#include "tests/unit/browser_fixture.h"

namespace corvane::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kPage = "https://example.org/";

class PageParts : public BrowserTest {
 protected:
  PageParts() {
    Visit(kPage);
    connections_ += events_.PageSays.Connect([this](const PageWords& words) {
      page_words_.push_back(words.dialog.empty() ? words.words : words.dialog);
    });
    connections_ += events_.PlaceReached.Connect(
        [this](const PagePlace& place) { places_.push_back(place.words); });
    connections_ += events_.TextChanged.Connect([this] { ++changes_; });
    connections_ += events_.Found.Connect([this] { ++found_; });
  }
  void Find(const std::string& words) {
    browser_->Do(WebBrowser::PageCommand::Find);
    questions_->Answer({0, {words}});
    Settle();
  }
  void Tell(const std::string& channel, const std::string& kind, const std::string& text = "") {
    engine_.Message.Raise(channel, kind, text);
  }

  std::vector<std::string> page_words_;
  std::vector<std::string> places_;
  int changes_ = 0;
  int found_ = 0;
  Connections connections_;
};

// --- finding --------------------------------------------------------------------------

TEST_F(PageParts, FindTellsWhichOfHowManyAndWhatStandsThere) {
  engine_.answers["corvane.around()"] = "the words around";
  Find("cat");
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("search cat"));
  engine_.SearchDone.Raise(2);
  Settle();
  EXPECT_THAT(said_, ElementsAre("1 of 2: the words around"));
  EXPECT_EQ(found_, 1);
}

TEST_F(PageParts, FindGoesOnFromTheBeginningAndFromTheEnd) {
  Find("cat");
  engine_.SearchDone.Raise(2);
  Settle();
  said_.clear();
  const auto step = [&](WebBrowser::PageCommand command) {
    browser_->Do(command);
    engine_.SearchDone.Raise(1);  // it counts only when it begins
    Settle();
  };
  step(WebBrowser::PageCommand::FindNext);
  step(WebBrowser::PageCommand::FindNext);
  step(WebBrowser::PageCommand::FindPrevious);
  EXPECT_THAT(said_, ElementsAre("2 of 2", "From the beginning. 1 of 2", "From the end. 2 of 2"));
  EXPECT_THAT(engine_.TakeCalls(),
              ElementsAre("search cat", "search on", "search on", "search back"));
}

TEST_F(PageParts, WhatIsNotThereIsToldOnce) {
  Find("dog");
  engine_.SearchDone.Raise(0);
  engine_.SearchDone.Raise(0);
  EXPECT_THAT(said_, ElementsAre("Not found: dog"));
}

TEST_F(PageParts, FindNextAsksWhereNothingWasLookedForAndStartsAnewInAnotherPage) {
  browser_->Do(WebBrowser::PageCommand::FindNext);
  EXPECT_THAT(questions_->Titles(), ElementsAre("Find in page"));
  questions_->Answer({0, {"cat"}});
  Settle();
  engine_.SearchDone.Raise(2);
  Visit("https://other.example/");
  browser_->Do(WebBrowser::PageCommand::FindNext);
  Settle();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("search cat"));
}

TEST_F(PageParts, AFindThatIsCancelledDoesNothing) {
  browser_->Do(WebBrowser::PageCommand::Find);
  questions_->Answer({1, {"cat"}});
  Settle();
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
  EXPECT_THAT(said_, IsEmpty());
}

// --- what the page does ---------------------------------------------------------------

TEST_F(PageParts, AnotherPageInPlaceIsReadAsOne) {
  Tell("corvaneChanges", "moved");
  Settle();
  EXPECT_THAT(log_, ElementsAre("begin", "end"));
  EXPECT_TRUE(browser_->Document()->in_place);
  browser_->Do(WebBrowser::PageCommand::ReadAgain);
  Settle();
  EXPECT_FALSE(browser_->Document()->in_place);
  EXPECT_TRUE(browser_->Document()->read_again);
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty()) << "nothing is loaded";
}

TEST_F(PageParts, APlaceInThePageIsTold) {
  Tell("corvaneChanges", "jumped", "12\nSecond heading");
  Tell("corvaneChanges", "top");
  Tell("corvaneChanges", "jumped", "nonsense");
  EXPECT_THAT(places_, ElementsAre("Second heading", "Top of the page"));
  Tell("corvaneChanges", "state", "expanded true");
  Tell("corvaneChanges", "lost");
  EXPECT_THAT(said_, ElementsAre("expanded", "What had the focus is gone"));
}

TEST_F(PageParts, AProcessGoneBadCannotMakeTheProgramSpeakAtWill) {
  for (int i = 0; i < 1000; ++i) Tell("corvaneChanges", "lost");
  EXPECT_LE(said_.size(), 40U);
}

TEST_F(PageParts, APlaceThatThePageCannotTellOfIsLoadedAndRead) {
  EXPECT_FALSE(browser_->GoToPlace("https://other.example/#x"));
  EXPECT_FALSE(browser_->GoToPlace(std::string(kPage) + "#!shown-by-scripts"));
  EXPECT_TRUE(browser_->GoToPlace(std::string(kPage) + "#x"));
  Settle();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kPage + "#x"));
  EXPECT_THAT(log_, ElementsAre("begin", "end"));
}

// --- what it says by itself -----------------------------------------------------------

TEST_F(PageParts, APageSpeaksOnlyToWhoIsInItsWindow) {
  Tell("corvaneLive", "live", R"({"words":"news"})");
  engine_.in_front = false;
  Tell("corvaneLive", "live", R"({"words":"unheard"})");
  Tell("corvaneChanges", "opened", "a part");
  engine_.in_front = true;
  Tell("corvaneChanges", "opened", "a part");
  EXPECT_THAT(page_words_, ElementsAre("news", "Opened: a part"));
}

TEST_F(PageParts, TheUserIsLedIntoADialogOnce) {
  const auto gone = [] { FAIL() << "it is there"; };
  EXPECT_FALSE(browser_->EnterDialog(gone));
  Tell("corvaneLive", "live", R"({"dialog":"dialog","name":"Cookies","text":"Yes?"})");
  EXPECT_THAT(page_words_, ElementsAre("dialog"));
  engine_.answers["corvaneLive.enter()"] = "yes";
  EXPECT_TRUE(browser_->EnterDialog(gone));
  Settle();
  EXPECT_TRUE(engine_.has_focus);
  EXPECT_FALSE(browser_->EnterDialog(gone));
}

TEST_F(PageParts, ADialogThatHasClosedIsTold) {
  Tell("corvaneLive", "live", R"({"dialog":"dialog","name":"Cookies","text":"Yes?"})");
  bool gone = false;
  EXPECT_TRUE(browser_->EnterDialog([&] { gone = true; }));
  Settle();
  EXPECT_TRUE(gone);
  EXPECT_FALSE(engine_.has_focus);
}

// --- its text -------------------------------------------------------------------------

TEST_F(PageParts, TheTextHasItsElementsAndLinksThatWereFollowedAreMarked) {
  engine_.answers["corvane.collect()"] = fakes::FakeEngine::Record(
      "T", "A link", R"(,"links":[1,0,"A link","https://seen.example/","",""])");
  Visit(kPage);
  options_.was_visited = [](const auto& address) { return address == "https://seen.example/"; };
  engine_.answers["corvaneText.describe()"] =
      R"({"text":"A link","documents":["d1"],"spans":[2,0,6,1,0,0,0,-1],"details":[]})";
  PageTextPtr text;
  const Connection wanted =
      browser_->DescribeText([&](const auto& described) { text = described; });
  Settle();
  ASSERT_TRUE(text);
  ASSERT_EQ(text->spans.size(), 1U);
  EXPECT_TRUE(text->spans[0].visited);
}

TEST_F(PageParts, WhoNoLongerWantsTheTextDoesNotGetIt) {
  engine_.answers["corvaneText.describe()"] = R"({"text":"words"})";
  {
    const Connection let_go = browser_->DescribeText([](const auto&) { FAIL(); });
  }
  Settle();
}

TEST_F(PageParts, AChangeOfTheTextIsToldOnceForEachText) {
  Tell("corvaneText", "changed");
  time_.Pass(1);
  EXPECT_EQ(changes_, 0) << "nobody has the text";
  const Connection wanted = browser_->DescribeText([](const auto&) {});
  Settle();
  for (int i = 0; i < 5; ++i) Tell("corvaneText", "changed");
  EXPECT_EQ(changes_, 0) << "not at once";
  time_.Pass(0.3);
  EXPECT_EQ(changes_, 1);
}

TEST_F(PageParts, WhatTheUserEntersGetsTheKeysWhenThePageAgrees) {
  const PageElement element{"d1", 4};
  browser_->UseElement(element, WebBrowser::ElementUse::Enter);
  Settle();
  EXPECT_FALSE(engine_.has_focus) << "the page has it no more";
  engine_.answers["corvaneTextUse.focus(\"d1\", 4)"] = "true";
  browser_->UseElement(element, WebBrowser::ElementUse::Enter);
  Settle();
  EXPECT_TRUE(engine_.has_focus);
}

// --- sound ----------------------------------------------------------------------------

TEST_F(PageParts, ASoundThatIsHeldBackIsSaidOnceForAPage) {
  bool holds_back = true;
  options_.holds_back_sound = [&] { return holds_back; };
  Make(/*opened_by_page=*/false);
  browser_->TellTo(events_);
  EXPECT_TRUE(engine_.Decide(LoadWish{kPage}).holds_back_sound);
  Visit(kPage);
  Tell("corvaneMedia", "held");
  Tell("corvaneMedia", "held");
  EXPECT_THAT(said_, ElementsAre("Sound held back"));
  holds_back = false;
  EXPECT_FALSE(engine_.Decide(LoadWish{kPage}).holds_back_sound);
  Visit(kPage);
  Tell("corvaneMedia", "held");
  EXPECT_THAT(said_, IsEmpty()) << "a page that may sound cannot say so";
}

TEST_F(PageParts, ThePagesOfAWindowAreMutedAndHeardAgain) {
  browser_->Do(WebBrowser::PageCommand::Mute);
  EXPECT_TRUE(engine_.muted);
  browser_->Do(WebBrowser::PageCommand::Mute);
  EXPECT_FALSE(engine_.muted);
  EXPECT_THAT(said_, ElementsAre("Page muted", "Page sounds"));
}

TEST_F(PageParts, WhoWantsToKnowHearsThatAPageBeginsToSound) {
  int begun = 0;
  options_.page_sounds = [&] { ++begun; };
  Make(/*opened_by_page=*/false);
  engine_.SoundBegins.Raise();
  EXPECT_EQ(begun, 1);
}

}  // namespace
}  // namespace corvane::tests
