// Pages that crash, hang, hold their user or want windows, over an engine that does what
// the test says.
#include "tests/unit/browser_fixture.h"

namespace corvane::tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kPage = "https://example.org/";
constexpr const char* kOther = "https://other.example/";

using Trouble = BrowserTest;

TEST_F(Trouble, ACrashIsAPageThatTellsOfIt) {
  Visit(kPage);
  engine_.Die(Engine::End::Crashed);
  EXPECT_THAT(engine_.problem_page, HasSubstr("The page has crashed: example.org"));
  engine_.BringProblem();
  Settle();
  EXPECT_THAT(log_, ElementsAre("begin", "end"));
  EXPECT_EQ(browser_->LocationURL(), kPage);
  engine_.TakeCalls();
  browser_->Refresh();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kPage));
}

TEST_F(Trouble, APageThatUsedTooMuchMemoryIsToldAsThat) {
  Visit(kPage);
  engine_.Die(Engine::End::TooMuchMemory);
  EXPECT_THAT(engine_.problem_page, HasSubstr("too much memory"));
}

TEST_F(Trouble, WhereNoProcessStaysAliveTheProblemIsToldWithoutOne) {
  Visit(kPage);
  for (int i = 0; i < 3; ++i) engine_.Die(Engine::End::Crashed);
  engine_.TakeCalls();
  engine_.Die(Engine::End::Crashed);
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
  EXPECT_FALSE(browser_->Busy());
  ASSERT_TRUE(browser_->Document());
  EXPECT_THAT(browser_->Document()->body_innerText, HasSubstr("has crashed"));
  EXPECT_TRUE(browser_->MayClose());
}

TEST_F(Trouble, APageThatHangsIsToldAndThenEnded) {
  Visit(kPage);
  engine_.hangs = true;
  engine_.Used.Raise(Engine::Input::Key);
  time_.Pass(options_.hang.warn);
  EXPECT_EQ(status_, "The page does not answer. Press Stop to close it.");
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
  time_.Pass(options_.hang.end);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("end process"));
  engine_.Die(Engine::End::Ended);
  EXPECT_THAT(engine_.problem_page, HasSubstr("does not answer and was closed"));
}

TEST_F(Trouble, StopEndsAPageThatIsKnownToHang) {
  Visit(kPage);
  engine_.hangs = true;
  engine_.Used.Raise(Engine::Input::Key);
  time_.Pass(options_.hang.warn);
  browser_->Stop();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("stop", "end process"));
}

TEST_F(Trouble, APageThatHangsCannotHoldWhoeverLeaves) {
  Visit(kPage);
  engine_.hangs = true;
  engine_.Used.Raise(Engine::Input::Key);
  time_.Pass(options_.hang.warn);
  browser_->Navigate(kOther);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("end process"));
  engine_.Die(Engine::End::Ended);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kOther))
      << "no problem is told";
}

TEST_F(Trouble, NeitherBackNorRefreshWaitsForAPageThatHangs) {
  engine_.has_back = true;
  for (const bool back : {true, false}) {
    engine_.hangs = false;
    Visit(kPage);
    engine_.hangs = true;
    engine_.Used.Raise(Engine::Input::Key);
    time_.Pass(options_.hang.warn);
    back ? browser_->GoBack() : browser_->Refresh();
    EXPECT_THAT(engine_.TakeCalls(), ElementsAre("end process"));
    engine_.Die(Engine::End::Ended);
    EXPECT_THAT(engine_.TakeCalls(), ElementsAre(back ? "back" : "reload"));
  }
}

TEST_F(Trouble, WhatIsNoAddressIsToldAlsoOverAPageThatHangs) {
  Visit(kPage);
  engine_.hangs = true;
  engine_.Used.Raise(Engine::Input::Key);
  time_.Pass(options_.hang.warn);
  browser_->Navigate("javascript:alert(1)");
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("end process"));
  engine_.Die(Engine::End::Ended);
  EXPECT_THAT(engine_.problem_page, testing::StartsWith("Address refused"));
}

TEST_F(Trouble, WhoLeavesAPageThatOnlyBeginsToHangWaitsNoLongerThanForTheWarning) {
  Visit(kPage);
  engine_.hangs = true;
  engine_.Used.Raise(Engine::Input::Key);
  browser_->Navigate(kOther);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kOther));
  time_.Pass(options_.hang.warn);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("end process"));
  engine_.Die(Engine::End::Ended);
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre(std::string("load ") + kOther));
}

TEST_F(Trouble, APageThatAnswersIsLeftAlone) {
  Visit(kPage);
  engine_.Used.Raise(Engine::Input::Key);
  time_.Pass(100);
  EXPECT_THAT(engine_.TakeCalls(), IsEmpty());
}

// --- closing --------------------------------------------------------------------------

TEST_F(Trouble, OnlyAPageInWhichSomethingWasDoneIsAskedBeforeItCloses) {
  Visit(kPage);
  EXPECT_TRUE(browser_->MayClose());
  engine_.Used.Raise(Engine::Input::Button);
  EXPECT_FALSE(browser_->MayClose());
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("try to close"));
  engine_.CloseWanted.Raise();
  Settle();
  EXPECT_THAT(log_, ElementsAre("close"));
}

TEST_F(Trouble, APageCannotKeepItsWindowOpen) {
  Visit(kPage);
  engine_.Used.Raise(Engine::Input::Key);
  EXPECT_FALSE(browser_->MayClose());
  time_.Pass(2);
  EXPECT_THAT(log_, ElementsAre("close")) << "it does not answer";
  EXPECT_TRUE(browser_->MayClose()) << "once more";
}

TEST_F(Trouble, WhoGoesOnTypingIsAskedAgainWhoReachesForTheKeysIsNot) {
  Visit(kPage);
  engine_.Used.Raise(Engine::Input::Key);
  EXPECT_FALSE(browser_->MayClose());
  engine_.Used.Raise(Engine::Input::CommandKey);
  EXPECT_TRUE(browser_->MayClose());
  engine_.Used.Raise(Engine::Input::Key);
  EXPECT_FALSE(browser_->MayClose());
}

TEST_F(Trouble, AHangingPageMayBeClosed) {
  Visit(kPage);
  engine_.hangs = true;
  engine_.Used.Raise(Engine::Input::Key);
  time_.Pass(options_.hang.warn);
  EXPECT_TRUE(browser_->MayClose());
}

TEST_F(Trouble, APageDoesNotCloseAWindowThatItHasNotOpened) {
  Visit(kPage);
  engine_.CloseWanted.Raise();
  Settle();
  EXPECT_THAT(log_, IsEmpty());
}

// --- windows --------------------------------------------------------------------------

TEST_F(Trouble, APageGetsOneWindowForEachThingThatTheUserDoes) {
  Visit(kPage);
  LoadWish wish{kOther};
  wish.where = LoadWish::Where::NewWindow;
  wish.user_gesture = true;
  engine_.Used.Raise(Engine::Input::Button);
  EXPECT_TRUE(engine_.MayOpenWindow(wish));
  EXPECT_FALSE(engine_.MayOpenWindow(wish));
  EXPECT_THAT(said_, Contains(HasSubstr("window")));
  engine_.Used.Raise(Engine::Input::Button);
  EXPECT_TRUE(engine_.MayOpenWindow(wish));
}

TEST_F(Trouble, NoWindowOpensForAFile) {
  Visit(kPage);
  LoadWish wish{"file:///etc/passwd"};
  wish.where = LoadWish::Where::NewWindow;
  wish.user_gesture = true;
  engine_.Used.Raise(Engine::Input::Button);
  EXPECT_FALSE(engine_.MayOpenWindow(wish));
}

TEST_F(Trouble, WhoTakesAWindowThatAPageHasOpenedHearsOfItsPage) {
  Make(/*opened_by_page=*/true);
  browser_->Loader().Expect(kPage);
  engine_.Bring(kPage);
  Settle();
  ASSERT_FALSE(browser_->Busy());
  EXPECT_THAT(log_, IsEmpty()) << "nobody listens yet";
  browser_->TellTo(events_);
  Settle();
  EXPECT_THAT(log_, ElementsAre("begin", "end"));
  EXPECT_THAT(engine_.TakeCalls(), Not(Contains(HasSubstr("load"))));
}

// --- saving ---------------------------------------------------------------------------

TEST_F(Trouble, SavingAsksForAFileAndTellsHowItWent) {
  browser_->Save();
  EXPECT_THAT(files_, IsEmpty()) << "there is no page";
  Visit(kPage);
  browser_->Save();
  ASSERT_EQ(files_.size(), 1U);
  EXPECT_EQ(files_[0].name, "Title");
  files_[0].chosen({"/tmp/page.mhtml"});
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("save /tmp/page.mhtml"));
  engine_.told_how_it_went("Saved");
  EXPECT_THAT(said_, ElementsAre("Saved"));
}

TEST_F(Trouble, OfADocumentTheDocumentItselfIsSaved) {
  Visit("https://example.org/a.pdf");
  engine_.SetAddress(DocumentPage("https://example.org/a.pdf"));
  browser_->Save();
  EXPECT_THAT(engine_.TakeCalls(), ElementsAre("download https://example.org/a.pdf"));
  EXPECT_THAT(files_, IsEmpty());
}

TEST_F(Trouble, AnAnswerThatComesAfterTheWindowHasGoneHurtsNobody) {
  Visit(kPage);
  browser_->Save();
  browser_->Print();
  browser_->Do(WebBrowser::PageCommand::Find);
  const auto wanted = browser_->DescribeText([](const auto&) {});
  browser_.reset();
  engine_.told_how_it_went("Printed");
  files_[0].chosen({"/tmp/page.mhtml"});
  time_.Pass(100);
  EXPECT_EQ(questions_->taken_back, 1);
}

}  // namespace
}  // namespace corvane::tests
